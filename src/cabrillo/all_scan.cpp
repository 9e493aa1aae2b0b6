#include "cabrillo/all_scan.h"

#include <algorithm>

#include "base/checked_int.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/all_line.h"
#include "cabrillo/writer.h"
#include "core/entry.h"
#include "core/power.h"

namespace varnisto {
namespace {

/// The one mode with QSOs.
Mode mode_of(const ScanCounts& counts) {
  const bool cw = counts.cw > 0, ssb = counts.ssb > 0, rtty = counts.rtty > 0;
  if (cw + ssb + rtty != 1) return Mode::mixed;
  return cw ? Mode::cw : ssb ? Mode::ssb : Mode::rtty;
}

/// The one band with QSOs; all when there are several or none.
Band band_of(const ScanCounts& counts) {
  const auto worked = [](std::int32_t count) { return count > 0; };
  if (std::ranges::count_if(counts.bands, worked) != 1) return Band::all;
  return band_at(static_cast<std::size_t>(std::ranges::find_if(counts.bands, worked) - counts.bands.begin()));
}

ScanCounts scan(const std::string& path, bool rtty) {
  ScanCounts counts;
  TextReader reader{path};
  std::string_view text;
  reader.next(text);  // the title line
  while (reader.next(text)) {
    if (!holds_qso(text)) continue;
    const TextLine line{text, reader.ascii()};
    if (!rtty) counts.add(mode_of_column(line.cut(all_columns::mode)));
    if (const auto band = band_of_megahertz(trim(line.cut(all_columns::band)))) counts.add(*band);
  }
  return counts;
}

/// Four digits, two and two, with any character between them.
bool begins_with_date(std::string_view line) {
  constexpr std::string_view pattern = "dddd.dd.dd";
  std::size_t column = 0;
  for (; column < pattern.size() && !line.empty(); ++column) {
    const std::string_view sign = left(line, 1);
    if (pattern[column] == 'd' && (sign < "0" || sign > "9")) return false;
    line.remove_prefix(sign.size());
  }
  return column == pattern.size();
}

}  // namespace

void ScanCounts::add(std::optional<Mode> mode) {
  if (mode == Mode::cw) ++cw;
  if (mode == Mode::ssb) ++ssb;
  if (mode == Mode::rtty) ++rtty;
}

void ScanCounts::tell(ScanState& found) const {
  found.mode_sel = mode_of(*this);
  found.band_sel = band_of(*this);
  found.lowband = bands[0] + bands[1] + bands[2] > 0;
}

std::string_view why_no_all_log(const std::string& path) {
  TextReader reader{path};
  std::string_view text;
  bool blank = true;
  reader.next(text);  // the title line
  while (reader.next(text)) {
    if (begins_with_date(text)) return "";
    blank = blank && !holds_qso(text);
  }
  return blank ? no_qso_text : no_all_log_text;
}

void get_mode_band_all(App& app, ScanState& found) {
  app.trace.line("Public Sub get_mode_band_all()");
  InputState& input = app.state.log.input;
  if (to_upper(right(input.in_name, 4)) == ".BIN")
    input.in_name = input.in_name.substr(0, input.in_name.size() - 4) + "_cb2t.txt";

  scan(input.in_name, app.state.settings.mode_2_rtty_flag).tell(found);
}

void get_power_all(App& app, ScanState& found) {
  app.trace.line("Public Sub get_power_all()");
  TextReader reader{app.state.log.input.in_name};
  found.max_power_text = highest_power(reader, all_columns::sent_power, "");
}

std::string power_label(const ScanState& scan) {
  return "PWR: " + scan.max_power_text;
}

std::optional<Power> power_category(std::string_view power) {
  if (power.empty()) return std::nullopt;
  const double watts = power_watts(power);
  return watts <= 5 ? Power::qrp : watts < 151 ? Power::low : Power::high;
}

void select_power_of_log(App& app) {
  if (const auto power = power_category(app.state.log.scan.max_power_text)) choose_power(app, *power);
}

}  // namespace varnisto
