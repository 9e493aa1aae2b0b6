#pragma once

#include "core/app.h"

namespace varnisto {

/// Switches debug mode on or off with the menu's check mark.
void mnuDebug_mode_Click(App& app);

/// Opens a debug log named after date and time in the program folder: a copy of the settings file, a rule,
/// the input. That it cannot be written is a notice.
void open_debug_log(App& app);

/// Ends the log of a completed action: "正常終了", then closed.
void close_debug_log(App& app);

}  // namespace varnisto
