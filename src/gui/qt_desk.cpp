#include "gui/qt_desk.h"

#include <QApplication>
#include <QByteArray>
#include <QCursor>
#include <QFileDialog>
#include <QMessageBox>
#include <algorithm>
#include <exception>
#include <utility>

#include "app/action.h"
#include "gui/qt_text.h"

namespace varnisto {
namespace {

constexpr const char* program_title = "Varnisto";

QMessageBox::Icon qt_icon(Icon icon) {
  switch (icon) {
    case Icon::exclamation:
      return QMessageBox::Warning;
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

/// "*.all" as "*.[aA][lL][lL]".
QString any_case(const QString& pattern) {
  QString result;
  for (const QChar letter : pattern) {
    if (letter.toLower() == letter.toUpper())
      result += letter;
    else
      result += QLatin1Char('[') + QString{letter.toLower()} + letter.toUpper() + QLatin1Char(']');
  }
  return result;
}

}  // namespace

QString qt_filter(const std::string& filter) {
  const QStringList pieces = qt_text(filter).split(QLatin1Char('|'));
  QStringList result;
  for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
    const QString patterns = any_case(pieces[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' '));
    result += pieces[i] + QStringLiteral(" (") + patterns + QLatin1Char(')');
  }
  return result.join(QStringLiteral(";;"));
}

struct QtDesk::Viewer {
  Viewer(Window the_window, const RunEvent& run)
      : window{std::move(the_window)}, view{*window.widget, *window.form, window.close_control, run} {}
  Window window;
  View view;
};

QtDesk::QtDesk() = default;
QtDesk::~QtDesk() = default;

bool QtDesk::show_main_window() {
  const RunEvent run_event = [this](const auto& event) { run(event); };
  auto form = std::make_unique<MainWindow>(*app_);
  MainWindow& main = *form;
  main_.widget = make_main_window(main, run_event);
  main_.form = std::move(form);
  main_.close_control = "owari";
  run([&] { main.Form_Load(); });
  if (main.closed) return false;
  main_view_ = std::make_unique<View>(*main_.widget, main, main_.close_control, run_event);
  views_.push_back(main_view_.get());
  main_.widget->restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(main.geometry())));
  main_.widget->show();
  return true;
}

void QtDesk::open_log(const std::string& path) {
  run([&] { static_cast<MainWindow&>(*main_.form).open_dropped_file(path); });
}

void QtDesk::run(const std::function<void()>& event) {
  try {  // nothing may pass through Qt's event loop
    if (run_action(*app_, event).ends_program) app_->state.program.ending = true;
  } catch (const std::exception& error) {
    app_->state.program.ending = true;
    hourglass(false);
    message_box({error.what(), "", Icon::critical});
  }
  refresh();
  close_finished();
}

void QtDesk::refresh() {
  for (View* view : views_) {
    view->form().refresh();
    view->binder().refresh();
  }
}

void QtDesk::close_finished() {
  const bool ending = app_->state.program.ending;
  const std::vector<View*> views = views_;
  for (View* view : views) {
    if (ending) view->form().closed = true;
    if (view->form().closed && view != main_view_.get()) view->finish();
  }
  std::erase_if(viewers_, [this](std::unique_ptr<Viewer>& viewer) {
    if (!viewer->view.form().closed) return false;
    std::erase(views_, &viewer->view);
    // Its own event may be running: it goes when the event loop turns.
    QMetaObject::invokeMethod(
        this, [gone = std::shared_ptr<Viewer>{std::move(viewer)}] {}, Qt::QueuedConnection);
    return true;
  });
  if (main_view_ && main_view_->form().closed && main_.widget->isVisible()) close_main();
}

void QtDesk::close_main() {
  const QByteArray geometry = main_.widget->saveGeometry().toBase64();
  for (const std::unique_ptr<Viewer>& viewer : viewers_) viewer->view.finish();
  main_view_->finish();
  if (!app_->state.program.ending)
    run_action(*app_, [&] { static_cast<MainWindow&>(*main_.form).keep_geometry(geometry.toStdString()); });
  if (on_exit) on_exit();
}

QWidget* QtDesk::parent_window() const {
  QWidget* const modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : main_.widget.get();
}

int QtDesk::message_box(const varnisto::MessageBox& box) {
  refresh();
  if (answer) return answer(box);
  QMessageBox dialog{qt_icon(box.icon), box.title.empty() ? QLatin1String(program_title) : qt_text(box.title),
                     qt_text(box.text), QMessageBox::Ok, parent_window()};
  dialog.setTextFormat(Qt::PlainText);
  dialog.exec();
  return 1;
}

std::optional<std::string> QtDesk::open_file_dialog(const OpenFileRequest& request) {
  refresh();
  if (choose_file) return choose_file(request);
  const QString chosen = QFileDialog::getOpenFileName(
      parent_window(), qt_text(request.title), qt_text(request.folder), qt_filter(request.filter), nullptr,
      QFileDialog::HideNameFilterDetails | QFileDialog::ReadOnly);
  if (chosen.isEmpty()) return std::nullopt;
  return chosen.toStdString();
}

void QtDesk::show(FormName name) {
  refresh();
  Window window = make_window(name, *app_, parent_window(), [this](const auto& event) { run(event); });
  if (topmost_.contains(name)) window.widget->setWindowFlag(Qt::WindowStaysOnTopHint);
  if (window.modal)
    show_modal(std::move(window));
  else
    show_beside(std::move(window));
}

void QtDesk::show_modal(Window window) {
  View view{*window.widget, *window.form, window.close_control, [this](const auto& event) { run(event); }};
  views_.push_back(&view);
  view.exec();
  std::erase(views_, &view);
  keep_viewers_of(view.window());
  if (app_->state.program.ending) throw ProgramEnd("a dialog failed");
}

void QtDesk::show_beside(Window window) {
  viewers_.push_back(std::make_unique<Viewer>(std::move(window), [this](const auto& event) { run(event); }));
  View& view = viewers_.back()->view;
  views_.push_back(&view);
  view.window().show();
}

/// A viewer that was opened from a dialog belongs to it while the dialog keeps the other windows locked.
void QtDesk::keep_viewers_of(const QWidget& dialog) {
  for (const std::unique_ptr<Viewer>& viewer : viewers_) {
    QWidget& window = viewer->view.window();
    if (window.parentWidget() != &dialog) continue;
    window.setParent(nullptr, Qt::Window);
    window.show();
  }
}

void QtDesk::set_topmost(FormName name, bool on) {
  if (on)
    topmost_.insert(name);
  else
    topmost_.erase(name);
}

void QtDesk::text_shown(std::string_view, Color) {
  refresh();
}

void QtDesk::hourglass(bool on) {
  if (on == busy_) return;
  busy_ = on;
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

}  // namespace varnisto
