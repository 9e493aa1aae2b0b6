#include "gui/main_frame.h"

#include <QMimeData>
#include <QUrl>
#include <utility>

namespace varnisto {
namespace {

/// The one local file that is dragged; "" for anything else.
QString dragged_file(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString{};
}

}  // namespace

MainFrame::MainFrame(MainWindow& form, RunEvent run) : form_{form}, run_{std::move(run)} {
  ui_.setupUi(this);
  setAcceptDrops(true);
  ui_.Text1->setAcceptDrops(false);  // a file dropped there is for the window
}

void MainFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!dragged_file(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainFrame::dropEvent(QDropEvent* event) {
  const std::string path = dragged_file(*event->mimeData()).toStdString();
  if (path.empty()) return;
  event->acceptProposedAction();
  run_([&] { form_.open_dropped_file(path); });
}

}  // namespace varnisto
