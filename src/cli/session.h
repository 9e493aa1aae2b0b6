#pragma once
// The program as one command runs it: the platform, a desk, an App.

#include <iosfwd>
#include <string>

#include "app/action.h"
#include "cli/cli_desk.h"
#include "core/app.h"
#include "platform/launcher.h"
#include "platform/text_sort.h"

namespace varnisto {

/// Why a session cannot run logs.
struct StartResult {
  int status = 0;       ///< exit status; 0: it can
  ActionResult result;  ///< what went wrong
};

/// One log's run, or one command's. The settings of the command line are laid over the settings file (over
/// the legacy file's when there is no other); App writes nothing to it.
class Session {
 public:
  Session(const CliOptions& options, const std::string& program_folder, std::ostream& err);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Lays these settings over the file's.
  void lay_over(const std::vector<SettingOverride>& values);
  /// Start-up and the check of settings and list files.
  StartResult start();

  FileProfile file_profile;
  OverlayProfile profile{file_profile};
  SystemClock clock;
  FileTextSort sort;
  SystemLauncher launcher;
  CliDesk desk;
  Platform platform;
  App app{platform, desk};

 private:
  void lay_settings_over();
  StartResult refuse_settings(const std::string& text);
  StartResult check_settings();

  const CliOptions& options_;
  std::string program_folder_;
  std::string found_version_;  ///< version of the settings file or the legacy file; the program's when there
                               ///< is neither
  std::ostream& err_;
};

}  // namespace varnisto
