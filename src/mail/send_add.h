#pragma once

#include "core/app.h"

namespace varnisto {

/// Finds the contest's submission address and builds the mail's subject; shows both in the main window's text
/// box, or empties it when no address is known.
void send_add(App& app);

}  // namespace varnisto
