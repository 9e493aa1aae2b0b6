#pragma once
// Scans of a zLog text log that guess the category: modes, bands, power.

#include <optional>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// Why this file cannot be read as a zLog text log, in the user's words: nothing but blank lines behind the
/// title line, or no line there that begins with a date. Empty for a log. Throws RunTimeError.
std::string_view why_no_all_log(const std::string& path);

/// Guesses mode and band category from the log `in_name`: sets `mode_sel`, `mode_sel_cat`, `band_sel` and
/// `lowband_flag`. For a CCC binary log `in_name` first becomes the CCC text made from it. Throws
/// RunTimeError.
void get_mode_band_all(App& app);

/// Finds the highest sent power of an ARRL DX log ("K" counts as 1000): `max_power_text`, shown in the power
/// label.
void get_power_all(App& app);
/// The power option (0 HIGH, 1 LOW, 2 QRP) that a sent power stands for: up to 5 W QRP, below 151 W LOW, else
/// HIGH. Nothing for an empty text.
std::optional<int> power_option_of(std::string_view power);
/// Selects the main window's power option that `max_power_text` stands for. Without a power in the log the
/// selection stays.
void select_power_of_log(App& app);

/// `mode_sel` from the QSOs of a log by mode.
std::int16_t mode_selection(bool has_cw, bool has_ssb, bool has_rtty);

}  // namespace varnisto
