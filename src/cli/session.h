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

/// What may happen to the settings file.
enum class SettingsFile { read_only, writable };

/// Why a session cannot run logs.
struct StartResult {
  int status = 0;       ///< exit status; 0: it can
  ActionResult result;  ///< what went wrong
};

/// One log's run, or one command's. With a read-only settings file the settings of the command line are laid
/// over it (over the legacy file's when there is no other) and nothing is written to it.
class Session {
 public:
  Session(const CliOptions& options, const std::string& program_folder, std::ostream& err,
          SettingsFile access = SettingsFile::read_only);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

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
