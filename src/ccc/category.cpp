#include "ccc/category.h"

#include <algorithm>

namespace varnisto {
namespace {

constexpr std::int16_t ssb = 1, cw = 2;
constexpr std::int16_t with_low_bands = 1, high_bands_alone = 2;
constexpr std::size_t low_bands = 3;  // 160, 80 and 40 metres

/// `mode_sel` of a log in one mode.
std::optional<std::int16_t> only_mode(const CccTally& tally) {
  if (tally.cw > 0 && tally.ssb == 0) return cw;
  if (tally.ssb > 0 && tally.cw == 0) return ssb;
  return std::nullopt;
}

bool on_low_bands(const CccTally& tally) {
  return std::any_of(tally.bands.begin(), tally.bands.begin() + low_bands,
                     [](const CccBandTally& band) { return band.qsos > 0; });
}

CccSheetCode jidx_of_binary(std::optional<std::int16_t> mode, bool low) {
  CccSheetCode code{low ? "JIDX-LF" : "JIDX-HF", mode, low ? with_low_bands : high_bands_alone};
  if (mode == ssb) code.code = "JIDX";
  return code;
}

CccSheetCode jidx_of_text(std::optional<std::int16_t> mode, std::string_view title) {
  return {mode == cw ? "JIDX-CW" : mode == ssb ? "JIDX-PH" : title, mode, std::nullopt};
}

}  // namespace

CccSheetCode ccc_sheet_code(const CccContest& contest, CccInput input, const CccTally& tally) {
  if (!contest.sheet_code.empty()) return {contest.sheet_code, std::nullopt, std::nullopt};
  const auto mode = only_mode(tally);
  return input == CccInput::binary ? jidx_of_binary(mode, on_low_bands(tally))
                                   : jidx_of_text(mode, contest.title);
}

}  // namespace varnisto
