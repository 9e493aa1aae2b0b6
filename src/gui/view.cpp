#include "gui/view.h"

#include <utility>

namespace varnisto {

View::View(QWidget& window, Form& form, std::string close_control, Binder::Run run)
    : window_{window},
      form_{form},
      close_control_{std::move(close_control)},
      run_{run},
      binder_{window, form, std::move(run)} {
  window.installEventFilter(this);
}

void View::exec() {
  window_.setWindowModality(Qt::ApplicationModal);
  window_.show();
  loop_.exec();
}

void View::finish() {
  window_.hide();
  loop_.quit();
}

bool View::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Close) return QObject::eventFilter(watched, event);
  event->ignore();  // the form decides; finish() hides the window
  run_([this] {
    if (close_control_.empty())
      form_.closed = true;
    else
      form_.click(close_control_);
  });
  return true;
}

}  // namespace varnisto
