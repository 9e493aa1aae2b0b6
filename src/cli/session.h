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

/// One log's run, or one command's. With a read-only settings file the settings of the command line are laid
/// over it and nothing is written to it.
class Session {
 public:
  Session(const CliOptions& options, const std::string& program_folder, std::ostream& err,
          SettingsFile access = SettingsFile::read_only);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Start-up and the check of settings and list files. False when no log can be converted; `status` says why
  /// then.
  bool start(int& status);

  FileProfile file_profile;
  OverlayProfile profile{file_profile};
  SystemClock clock;
  FileTextSort sort;
  SystemLauncher launcher;
  CliDesk desk;
  Platform platform;
  App app{platform, desk};

 private:
  bool settings_allow_run(std::ostream& err);

  const CliOptions& options_;
  std::string program_folder_;
  std::ostream& err_;
};

}  // namespace varnisto
