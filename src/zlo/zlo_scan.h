#pragma once
// Scans of a ZLO log that guess the category: modes, bands, power.

#include <string>

#include "cabrillo/all_scan.h"
#include "zlo/zlo_walk.h"

namespace varnisto {

/// Counts the rest of the log. A QSO whose mode is outside the table counts with the one before; so does a
/// band other than the six and 10 MHz, which counts nowhere. `rtty`: every mode counts as RTTY. Throws
/// RunTimeError.
ScanCounts scan_zlo(ZloReader& log, bool rtty);

/// The sent number with the highest power in the rest of the log, trimmed: a "K" in it stands for 1000, else
/// its leading number counts; "0" when none is above 0, the first one of equals. Throws RunTimeError.
std::string highest_zlo_power(ZloReader& log);

}  // namespace varnisto
