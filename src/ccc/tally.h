#pragma once
// Counts a CCC log by band and mode for its summary sheet.

#include <array>
#include <cstdint>

#include "ccc/contests.h"
#include "ccc/qso.h"
#include "core/bands.h"

namespace varnisto {

struct CccBandTally {
  std::int16_t qsos = 0, points = 0, mult1 = 0, mult2 = 0;
};

/// Counters have 16 bits, their sums over the bands too; only the score needs more.
struct CccTally {
  std::array<CccBandTally, band_count> bands{};
  std::int16_t cw = 0, ssb = 0, rtty = 0;  ///< QSOs by mode
  std::int32_t qsos = 0, points = 0, mult1 = 0, mult2 = 0;
  std::int32_t score = 0;  ///< all multipliers times all points
};

/// Counts one QSO. One on another band counts nowhere; points that are no number are 0. Throws RunTimeError 6
/// when a counter would need more than 16 bits.
void tally_ccc_qso(const CccQso& qso, const CccContest& contest, CccTally& tally);

/// Sums the bands and works out the score. Throws RunTimeError 6 for a sum of more than 16 bits, a score of
/// more than 32.
void sum_ccc_tally(CccTally& tally);

}  // namespace varnisto
