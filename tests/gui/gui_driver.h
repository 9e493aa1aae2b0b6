#pragma once
// Drives the real windows: finds widgets by name and plays modal dialogs.

#include <QAction>
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "gui/program.h"
#include "support/temp_dir.h"
#include "support/test_app.h"

namespace varnisto::test {

/// A widget or action of a window by its name. Throws when there is none.
template <class T>
T& child(const QWidget& window, const std::string& name) {
  T* found = window.findChild<T*>(QString::fromStdString(name));
  if (found == nullptr) throw std::runtime_error("no widget named " + name);
  return *found;
}

/// Plays the next modal dialog once it is shown; it must close it.
inline void in_next_dialog(const std::function<void(QWidget& dialog)>& play) {
  QTimer::singleShot(0, qApp, [play] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr)
      in_next_dialog(play);
    else
      play(*dialog);
  });
}

/// The desktop program on a folder of its own.
class GuiProgram {
 public:
  explicit GuiProgram(std::string folder) : folder_{std::move(folder)} {
    program_.desk.answer = [this](const MessageBox& box) {
      boxes.push_back(box);
      return 1;
    };
    program_.desk.choose_file = [this](const OpenFileRequest&) { return next_file; };
    program_.desk.on_exit = [this] { exited = true; };
  }

  bool start() {
    return program_.start([this] { return folder_; });
  }
  QWidget& window() { return *program_.desk.main_window(); }
  App& app() { return program_.app; }
  QtDesk& desk() { return program_.desk; }
  void click(const std::string& button) { child<QAbstractButton>(window(), button).click(); }
  void menu(const std::string& action) { child<QAction>(window(), action).trigger(); }
  /// The window that was opened last.
  QWidget& last_window() { return program_.desk.views().back()->window(); }

  std::vector<MessageBox> boxes;         ///< message boxes in the order shown
  std::optional<std::string> next_file;  ///< what the open dialog answers
  bool exited = false;                   ///< the main window was closed

 private:
  std::string folder_;
  SilentLauncher launcher_;
  Program program_{launcher_};
};

}  // namespace varnisto::test
