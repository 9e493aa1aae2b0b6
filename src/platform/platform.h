#pragma once
// The outside world behind small interfaces: the window, the command line and the tests each bring their own.

#include <string>

#include "platform/clock.h"
#include "platform/profile.h"

namespace varnisto {

/// Sorts text files by a range of columns.
class TextSort {
 public:
  virtual ~TextSort() = default;
  /// Runs a command such as "/k(2:6)  'in.csv'   'out.csv'": key columns 2 to 6 of each line, input, output.
  /// Equal keys keep their order. Answers 0 when done; 7000 asks the caller to try again.
  virtual int ksort(const std::string& command) = 0;
};

/// Starts other programs.
class Launcher {
 public:
  virtual ~Launcher() = default;
  /// Opens a web address in the desktop's browser.
  virtual void browser(const std::string& address) = 0;
  /// Starts a text editor with one file and does not wait for it.
  virtual void editor(const std::string& program, const std::string& file) = 0;
  /// Opens a page of the program's help.
  virtual void help(const std::string& file) = 0;
};

/// What a run needs from outside. The objects live as long as the program.
struct Platform {
  Profile& profile;
  Clock& clock;
  TextSort& sort;
  Launcher& launcher;
};

}  // namespace varnisto
