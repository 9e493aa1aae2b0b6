#include "zlo/zlo_scan.h"

#include <algorithm>
#include <optional>

#include "base/cp932.h"
#include "base/text.h"
#include "cabrillo/all_line.h"
#include "cabrillo/all_scan.h"

namespace varnisto {
namespace {

void count_mode(std::string_view mode, ZloScan& scan) {
  if (mode == "CW") ++scan.cw_count;
  if (mode == "SSB") ++scan.ssb_count;
  if (mode == "RTY") ++scan.rty_count;
}

/// The scan's own reading of a band code: it knows the contest bands and, counting nowhere, 10 MHz.
bool scan_knows(std::string_view band) {
  return band == "10" || band_index(band);
}

/// Watts that a sent number stands for.
std::int64_t watts_of(std::string_view sent_no) {
  constexpr std::int64_t kilowatt = 1000;
  if (sent_no.find_first_of("Kk") != std::string_view::npos) return kilowatt;
  return round_half_even(numeric_value(sent_no));
}

}  // namespace

std::int16_t ZloScan::mode_sel() const {
  return mode_selection(cw_count > 0, ssb_count > 0, rty_count > 0);
}

std::int16_t ZloScan::band_sel() const {
  const auto worked = [](std::int16_t count) { return count > 0; };
  if (std::ranges::count_if(bands, worked) != 1) return 0;
  return static_cast<std::int16_t>(std::ranges::find_if(bands, worked) - bands.begin() + 1);
}

std::int16_t ZloScan::lowband_flag() const {
  return bands[0] > 0 || bands[1] > 0 || bands[2] > 0 ? 1 : 2;
}

ZloScan scan_zlo(ZloReader& log, bool rtty) {
  ZloScan scan;
  std::string_view band;
  for (ZloWalk walk{log}; walk.next();) {
    count_mode(rtty ? "RTY" : walk.mode(), scan);
    if (const std::string_view text = zlo_band(walk.qso().band_code); scan_knows(text)) band = text;
    if (const auto index = band_index(band)) ++scan.bands.at(*index);
  }
  return scan;
}

std::string highest_zlo_power(ZloReader& log) {
  std::int64_t highest = 0;
  std::string text = "0", sent_no;
  CodePage code_page;
  for (ZloWalk walk{log}; walk.next();) {
    sent_no.clear();
    code_page.decode(trim(walk.qso().sent_no), sent_no);
    const std::int64_t watts = watts_of(sent_no);
    if (watts <= highest) continue;
    highest = watts;
    text = sent_no;
  }
  return text;
}

}  // namespace varnisto
