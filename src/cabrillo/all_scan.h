#pragma once
// Scans of a zLog text log that guess the category: modes, bands, power.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// Why this file cannot be read as a zLog text log, in the user's words: nothing but blank lines behind the
/// title line, or no line there that begins with a date. Empty for a log. Throws RunTimeError.
std::string_view why_no_all_log(const std::string& path);

/// QSOs of a log by mode and band, from which the category is guessed. A scan has counters of its own; the
/// summary's tallies stay untouched.
struct ScanCounts {
  std::int32_t ssb = 0, cw = 0, rtty = 0;  ///< other modes count nowhere
  std::array<std::int32_t, band_count> bands{};

  void add(std::optional<Mode> mode);
  void add(Band band) { ++bands[index_of(band)]; }
  /// Puts what they say into `mode_sel`, `band_sel` and `lowband`.
  void tell(ScanState& found) const;
};

/// Guesses mode and band category from the log `in_name`: sets `mode_sel`, `band_sel` and `lowband` of
/// `found`. For a CCC binary log `in_name` first becomes the CCC text made from it. Throws RunTimeError.
void get_mode_band_all(App& app, ScanState& found);

/// Finds the highest sent power of an ARRL DX log ("K" counts as 1000): `max_power_text` of `found`. Throws
/// RunTimeError.
void get_power_all(App& app, ScanState& found);
/// How windows show it.
std::string power_label(const ScanState& scan);
/// The power category that a sent power stands for: up to 5 W QRP, below 151 W LOW, else HIGH. Nothing for an
/// empty text.
std::optional<Power> power_category(std::string_view power);
/// Chooses the power that `max_power_text` stands for. Without a power in the log the choice stays.
void select_power_of_log(App& app);

}  // namespace varnisto
