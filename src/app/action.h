#pragma once
// The one place that catches what routines throw: the wrapper around a top-level action.

#include <functional>
#include <string>

#include "core/app.h"

namespace varnisto {

/// How an action ended.
struct ActionResult {
  enum Kind {
    done,
    refused,        ///< a message was shown, nothing was written
    not_available,  ///< the action needs something that is not built yet
    list_file,      ///< a list file in the program folder is malformed or missing
    ended,          ///< the program ends, after a message of the routine
    failed,         ///< a run-time error
  };
  Kind kind = done;
  int number = 0;             ///< run-time error number
  std::string text;           ///< what went wrong
  bool ends_program = false;  ///< the window closes; the command line goes on with the next log
};

/// Runs a menu click, a button or a command: what it writes takes its names when it succeeds, else nothing
/// changes. A run-time error is shown (and logged in debug mode) here; it ends the program at start-up and in
/// debug mode, otherwise the action alone. An action inside another one gives up only what it wrote itself.
ActionResult run_action(App& app, const std::function<void()>& action);

}  // namespace varnisto
