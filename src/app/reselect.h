#pragma once
// The buttons that open a selection dialog again for the log that is open.

#include "core/app.h"

namespace varnisto {

/// Lets the user choose contest and category anew.
void cmdReSelect_Click(App& app);

/// Lets the user choose the overlay category anew, above all other windows.
void cmdReSet_Click(App& app);

}  // namespace varnisto
