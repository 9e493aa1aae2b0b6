#pragma once
// What the main window shows of the program's state.

#include "core/app.h"

namespace varnisto {

/// Fills the main window's labels, options, boxes and menus that only tell of the state.
void show_state(App& app);

}  // namespace varnisto
