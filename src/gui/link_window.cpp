#include "gui/link_window.h"

#include <utility>

namespace varnisto {

LinkWindow::LinkWindow(QWidget* parent) : QMainWindow{parent} {
  ui_.setupUi(this);
  connect(ui_.WebBrowser1, &QTextBrowser::anchorClicked, this, &LinkWindow::follow);
}

void LinkWindow::on_link(std::function<void(const std::string& address)> open) {
  open_ = std::move(open);
}

void LinkWindow::navigate(const std::string& path) {
  ui_.WebBrowser1->setSource(QUrl::fromLocalFile(QString::fromStdString(path)), QTextDocument::HtmlResource);
}
void LinkWindow::go_back() {
  ui_.WebBrowser1->backward();
}
void LinkWindow::go_forward() {
  ui_.WebBrowser1->forward();
}

void LinkWindow::follow(const QUrl& url) {
  const QUrl target = ui_.WebBrowser1->source().resolved(url);
  if (target.isLocalFile())
    ui_.WebBrowser1->setSource(target, QTextDocument::HtmlResource);
  else if (open_)
    open_(target.toString(QUrl::FullyEncoded).toStdString());
}

}  // namespace varnisto
