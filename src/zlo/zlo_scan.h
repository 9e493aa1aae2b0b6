#pragma once
// Scans of a ZLO log that guess the category: modes, bands, power.

#include <array>
#include <cstdint>
#include <string>

#include "core/state.h"
#include "zlo/zlo_walk.h"

namespace varnisto {

/// QSOs of a log by mode and by contest band, and what they say of the category.
struct ZloScan {
  std::int16_t cw_count = 0, ssb_count = 0, rty_count = 0;
  std::array<std::int16_t, band_count> bands{};  ///< 1.9, 3.5, 7, 14, 21, 28 MHz

  std::int16_t mode_sel() const;      ///< 0 mixed, 1 SSB, 2 CW, 3 RTTY
  std::int16_t band_sel() const;      ///< 1 to 6 when one band alone has QSOs, else 0
  std::int16_t lowband_flag() const;  ///< 1 with QSOs on 1.9, 3.5 or 7 MHz, else 2
};

/// Counts the rest of the log. A QSO whose mode is outside the table counts with the one before; so does a
/// band other than the six and 10 MHz, which counts nowhere. `rtty`: every mode counts as RTTY. Throws
/// RunTimeError.
ZloScan scan_zlo(ZloReader& log, bool rtty);

/// The sent number with the highest power in the rest of the log, trimmed: a "K" in it stands for 1000, else
/// its leading number counts; "0" when none is above 0, the first one of equals. Throws RunTimeError.
std::string highest_zlo_power(ZloReader& log);

}  // namespace varnisto
