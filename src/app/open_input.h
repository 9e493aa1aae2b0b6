#pragma once
// Opening an input log: its kind, every name derived from it, and the preparation step of its kind.

#include <optional>
#include <string>

#include "core/app.h"

namespace varnisto {

/// Recognises the kind of `in_name`, derives every name, and runs the kind's preparation. Throws Refusal for
/// an input that cannot be used, NotAvailable for kinds that are not built yet, RunTimeError for files; the
/// start button is off then.
void FileOpen2(App& app);

/// Takes a path as the new input, in place of the previous log with all that belonged to it, and runs
/// FileOpen2().
void open_chosen_file(App& app, const std::string& path);

/// Asks for a file with this dialog title and filter; nothing after Cancel. Clears the text box.
std::optional<std::string> ask_for_file(App& app, const std::string& title, const std::string& filter);

/// Asks for a log with this dialog title and filter and opens what was chosen. False after Cancel, which
/// leaves the previous input as it is.
bool set_in_dir_Open_file(App& app, const std::string& title, const std::string& filter);

/// Takes a Cabrillo file as input for the way back to zLog text.
void open_chosen_cbr(App& app, const std::string& path);

}  // namespace varnisto
