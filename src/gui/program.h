#pragma once

#include <functional>
#include <string>

#include "gui/qt_desk.h"
#include "platform/launcher.h"
#include "platform/profile.h"
#include "platform/text_sort.h"

namespace varnisto {

/// The program behind its windows: the outside world, the desk, the state.
class Program {
 public:
  explicit Program(Launcher& launcher);

  /// Start-up (the folder is asked for inside the error trap), then the main window. False when the program
  /// ended with a message instead.
  bool start(const std::function<std::string()>& program_folder);

  FileProfile profile;
  SystemClock clock;
  FileTextSort sort;
  QtDesk desk;
  Platform platform;
  App app{platform, desk};
};

/// The whole run of the desktop program; returns the exit status.
int run_program(int argc, char* argv[]);

}  // namespace varnisto
