#pragma once
// The desk of the desktop program: message boxes, the open dialog, and forms as Qt windows.

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/app.h"
#include "gui/view.h"
#include "gui/windows.h"

namespace varnisto {

class QtDesk final : public QObject, public Desk {
 public:
  QtDesk();
  ~QtDesk() override;

  /// The program that the windows belong to; before anything is shown.
  void attach(App& app) { app_ = &app; }

  /// Loads and shows the main window, where it stood when it was closed. False when the program ended.
  bool show_main_window();
  /// Opens a log in the main window as if it had been dropped there.
  void open_log(const std::string& path);
  /// Called once the main window is closed.
  std::function<void()> on_exit;

  int message_box(const MessageBox& box) override;
  std::optional<std::string> open_file_dialog(const OpenFileRequest& request) override;
  void show(FormName name) override;
  void set_topmost(FormName name, bool on) override;
  void text_shown(std::string_view text, Color color) override;
  void hourglass(bool on) override;

  /// Answer instead of the user when they are set: scripts of tests and of documentation pictures.
  std::function<int(const MessageBox&)> answer;
  std::function<std::optional<std::string>(const OpenFileRequest&)> choose_file;

  QWidget* main_window() { return main_.widget.get(); }
  /// Windows on the screen, the main window first.
  const std::vector<View*>& views() const { return views_; }

 private:
  struct Viewer;  ///< a window that stays open beside the others

  /// Runs an event of a form in the error trap, then shows what changed and closes what is finished.
  void run(const std::function<void()>& event);
  void refresh();
  void close_finished();
  void close_main();
  QWidget* parent_window() const;
  void show_modal(Window window);
  void show_beside(Window window);
  void keep_viewers_of(const QWidget& dialog);

  App* app_ = nullptr;
  Window main_;
  std::unique_ptr<View> main_view_;
  std::vector<std::unique_ptr<Viewer>> viewers_;
  std::vector<View*> views_;
  std::set<FormName> topmost_;
  bool busy_ = false;  ///< the hourglass is shown
};

/// The filter of an open dialog, pairs of caption and pattern, as Qt takes it; upper and lower case of a
/// pattern mean the same.
QString qt_filter(const std::string& filter);

}  // namespace varnisto
