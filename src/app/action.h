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
    failed,         ///< a run-time error; the program ends
  };
  Kind kind = done;
  int number = 0;    ///< run-time error number
  std::string text;  ///< what went wrong

  /// The program must end: the window closes, the command line goes on with the next log.
  bool ends_program() const { return kind == ended || kind == failed || kind == list_file; }
};

/// Runs a menu click, a button or a command. A run-time error is shown (and logged in debug mode) here.
ActionResult run_action(App& app, const std::function<void()>& action);

}  // namespace varnisto
