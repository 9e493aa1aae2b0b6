#pragma once

#include <QEvent>
#include <QEventLoop>
#include <QWidget>
#include <functional>
#include <string>

#include "gui/binder.h"

namespace varnisto {

/// A form in its window: bound, shown, and closed when the form asks for it. Closing the window's frame is
/// the click on a control of the form.
class View final : public QObject {
 public:
  /// `window` and `form` live as long as the view.
  View(QWidget& window, Form& form, std::string close_control, Binder::Run run);

  Form& form() { return form_; }
  QWidget& window() { return window_; }
  Binder& binder() { return binder_; }

  /// Shows the window and waits until it is closed.
  void exec();
  /// Hides the window, and ends exec(). The form must be closed.
  void finish();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  Form& form_;
  std::string close_control_;
  Binder::Run run_;
  Binder binder_;
  QEventLoop loop_;
};

}  // namespace varnisto
