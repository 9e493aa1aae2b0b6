#pragma once
// Small conversions between bands, frequency fields and call signs that several formats share.

#include <optional>
#include <string>
#include <string_view>

namespace varnisto {

/// Frequency field (kHz, right-aligned in 5) of a band in metres, "160" to "10"; with `as_1800` 160 m gives "
/// 1800". Nothing for another band.
std::optional<std::string_view> band_henkan(std::string_view metres, bool as_1800);

/// ADIF band ("160M" .. "10M") of a frequency field in kHz; nothing for another frequency.
std::optional<std::string_view> freq_band(std::string_view freq5);

/// A worked call sign taken apart at its "/".
struct CallParts {
  std::string main_call;   ///< the station's own call
  std::string other_part;  ///< what was put before or behind it
  std::string full_call;   ///< the whole, for a comment; empty for a plain call of up to six characters
};
CallParts calls_check(std::string_view call);

}  // namespace varnisto
