#pragma once
// The QTC log of WAEDC: one line a series.

#include "core/app.h"

namespace varnisto {

/// Writes the QTC log `qlg_name` from the series in the memos of the ALL log, each once, by number. Writes
/// nothing when the log does not begin with the logger's title. Throws RunTimeError for files.
void get_qtc(App& app);

}  // namespace varnisto
