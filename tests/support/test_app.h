#pragma once
// A whole program for a test: a folder of its own with list files and settings, a stopped clock, a scripted
// desk.

#include <functional>
#include <string>
#include <vector>

#include "core/app.h"
#include "core/paths.h"
#include "platform/launcher.h"
#include "platform/text_sort.h"
#include "support/temp_dir.h"

namespace varnisto::test {

/// Answers from a script and remembers what was shown.
class ScriptedDesk final : public Desk {
 public:
  std::vector<MessageBox> boxes;               ///< message boxes in the order shown
  std::vector<std::string> texts;              ///< non-empty texts of the text box
  std::vector<FormName> forms;                 ///< dialogs and viewers opened
  std::vector<OpenFileRequest> open_requests;  ///< open dialogs asked for
  std::string next_file;                       ///< what the open dialog answers; empty: Cancel
  std::function<void(FormName)> on_show;       ///< plays a dialog
  int hourglass_on = 0;                        ///< nesting of the hourglass; 0 at rest

  int message_box(const MessageBox& box) override;
  std::optional<std::string> open_file_dialog(const OpenFileRequest& request) override;
  void show(FormName form) override;
  void text_shown(std::string_view text, Color color) override;
  void hourglass(bool on) override;
};

/// 2025-11-30 12:34:56 local time, always.
class StoppedClock final : public Clock {
 public:
  std::tm now() const override;
};

/// Remembers what would have been started.
class SilentLauncher final : public Launcher {
 public:
  std::vector<std::string> started;
  void browser(const std::string& address) override { started.push_back("browser " + address); }
  void editor(const std::string& program, const std::string& file) override {
    started.push_back("editor " + program + " " + file);
  }
  void help(const std::string& file) override { started.push_back("help " + file); }
};

/// The program, not started yet. `folder` holds the shipped list files and complete settings of QX1ABC.
class TestApp {
 public:
  TestApp();
  TestApp(const TestApp&) = delete;
  TestApp& operator=(const TestApp&) = delete;

  /// Main and the main window's load.
  void start();
  /// Opens a log as if it was chosen in the dialog.
  void open(const std::string& path);
  /// Copies a folder into `work`, starts and opens this log of it.
  void open_copy(const std::filesystem::path& logs, const std::string& log);
  /// Sets a value in the settings file before start().
  void set(const std::string& key, const std::string& value);

  TempDir folder;  ///< program folder
  TempDir work;    ///< folder of the logs
  FileProfile profile;
  StoppedClock clock;
  FileTextSort sort;
  SilentLauncher launcher;
  ScriptedDesk desk;
  Platform platform{profile, clock, sort, launcher};
  App app{platform, desk};
};

/// The program behind its start.
struct StartedApp : TestApp {
  StartedApp() { start(); }
};

/// One line of an ALL log, fields placed at their columns.
struct AllQso {
  std::string date = "2025/11/29", time = "00:12", call = "QX9DEF";
  std::string sent = "599", sent_exch = "25", rcvd = "599", rcvd_exch = "14";
  std::string mult1{}, mult2{}, band = "7", mode = "CW", points = "1", after{}, memo{};
};
std::string all_line(const AllQso& qso);

}  // namespace varnisto::test
