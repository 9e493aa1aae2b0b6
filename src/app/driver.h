#pragma once
// The conversion run behind the start button.

#include "core/app.h"

namespace varnisto {

/// The start button: the run, or for a Cabrillo input the way back to zLog text.
void kaishi_Click(App& app);

/// One conversion of the opened log: writes the Cabrillo log, runs the steps the check boxes ask for, makes
/// the second copy, checks, cleans up. Throws what the steps throw; every file is then as it was before.
void kaishi_1(App& app);

}  // namespace varnisto
