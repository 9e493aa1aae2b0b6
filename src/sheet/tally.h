#pragma once
// Counts a zLog text log by band and mode for the summary sheet.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// Which frequencies (kHz, both ends included) count on a band, and what a new first multiplier counts there.
struct TallyBand {
  std::int64_t lowest, highest;
  std::int16_t mult1_weight;
};

/// What one kind of contest counts.
struct TallyRules {
  std::array<TallyBand, band_count> bands;
  bool counts_qtc;  ///< lines that hold "[QTC" are QTCs of their band
};
extern const TallyRules all_tally, waedc_tally;

/// The main window's choices that change the count.
struct TallyOptions {
  bool rtty = false;            ///< no QSO counts for its mode
  bool memo_frequency = false;  ///< the frequency in the memo replaces the band
};
TallyOptions tally_options(const App& app);

/// Adds one QSO line to the counters of its mode and band. A frequency outside the bands counts for the mode
/// only. Throws RunTimeError 6 when a counter would need more than 16 bits.
void tally_line(std::string_view line, const TallyRules& rules, const TallyOptions& options,
                TallyState& tally);

/// Sums the band rows into the totals.
void sum_totals(TallyState& tally);

/// Clears the tallies and counts the log `z2a_name`, totals included. Throws Refusal when it has no QSO line,
/// RunTimeError.
void tally_log(App& app, const TallyRules& rules);

}  // namespace varnisto
