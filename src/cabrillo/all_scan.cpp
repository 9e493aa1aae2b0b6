#include "cabrillo/all_scan.h"

#include <algorithm>
#include <array>

#include "base/checked_int.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/all_line.h"
#include "cabrillo/writer.h"
#include "core/main_options.h"

namespace varnisto {
namespace {

/// QSOs of a log by mode and band. The scan has its own counters; the summary's tallies stay untouched.
struct ScanCounts {
  std::int32_t ssb = 0, cw = 0, rtty = 0, fm = 0;
  std::array<std::int32_t, band_count> bands{};
};

void count_mode(ScanCounts& counts, std::string_view column) {
  const auto mode = mode_code(column);
  if (mode == "CW") ++counts.cw;
  if (mode == "PH") ++counts.ssb;
  if (mode == "RY") ++counts.rtty;
  if (mode == "FM") ++counts.fm;
}

/// 1 to 6 when exactly one band has QSOs, else 0.
std::int16_t band_selection(const ScanCounts& counts) {
  const auto worked = [](std::int32_t count) { return count > 0; };
  if (std::ranges::count_if(counts.bands, worked) != 1) return 0;
  return static_cast<std::int16_t>(std::ranges::find_if(counts.bands, worked) - counts.bands.begin() + 1);
}

ScanCounts scan(const std::string& path, bool rtty) {
  ScanCounts counts;
  TextReader reader{path};
  std::string_view text;
  reader.next(text);  // the title line
  while (reader.next(text)) {
    if (!holds_qso(text)) continue;
    const TextLine line{text, reader.ascii()};
    if (!rtty) count_mode(counts, line.cut(all_columns::mode));
    if (const auto band = band_index(trim(line.cut(all_columns::band)))) ++counts.bands[*band];
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

/// Watts that an exchange text stands for.
double power_value(std::string_view text) {
  return contains(to_upper(text), "K") ? 1000 : numeric_value(text);
}

}  // namespace

std::int16_t mode_selection(bool has_cw, bool has_ssb, bool has_rtty) {
  constexpr std::int16_t mixed = 0, ssb = 1, cw = 2, rtty = 3;
  if (has_cw) return has_ssb || has_rtty ? mixed : cw;
  if (has_ssb) return has_rtty ? mixed : ssb;
  return has_rtty ? rtty : mixed;
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

void get_mode_band_all(App& app) {
  app.trace.line("Public Sub get_mode_band_all()");
  InputState& input = app.state.input;
  if (to_upper(right(input.in_name, 4)) == ".BIN")
    input.in_name = input.in_name.substr(0, input.in_name.size() - 4) + "_cb2t.txt";

  CategoryState& category = app.state.category;
  const ScanCounts counts = scan(input.in_name, app.state.settings.mode_2_rtty_flag == "1");
  category.mode_sel = mode_selection(counts.cw > 0, counts.ssb > 0, counts.rtty > 0);
  category.band_sel = band_selection(counts);
  category.band_sel_known = true;
  category.lowband_flag = counts.bands[0] + counts.bands[1] + counts.bands[2] > 0 ? 1 : 2;
  category.mode_sel_cat = category.mode_sel;
}

void get_power_all(App& app) {
  app.trace.line("Public Sub get_power_all()");
  std::int64_t highest = 0;
  std::string& highest_text = app.state.category.max_power_text;
  highest_text.clear();
  TextReader reader{app.state.input.in_name};
  std::string_view text;
  reader.next(text);  // the title line
  while (reader.next(text)) {
    const std::string_view power = trim(TextLine{text, reader.ascii()}.cut(all_columns::sent_power));
    const std::int64_t watts = round_half_even(power_value(power));
    if (watts <= highest) continue;
    highest = watts;
    highest_text = power;
  }
  app.main.lblPower.text = "PWR: " + highest_text;
}

std::optional<int> power_option_of(std::string_view power) {
  if (power.empty()) return std::nullopt;
  constexpr int high = 0, low = 1, qrp = 2;
  const double watts = power_value(power);
  return watts <= 5 ? qrp : watts < 151 ? low : high;
}

void select_power_of_log(App& app) {
  if (const auto option = power_option_of(app.state.category.max_power_text)) Option1_Click(app, *option);
}

}  // namespace varnisto
