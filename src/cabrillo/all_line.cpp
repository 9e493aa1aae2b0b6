#include "cabrillo/all_line.h"

#include <algorithm>
#include <array>

#include "base/short_text.h"

namespace varnisto {
namespace {

constexpr Columns col_year{1, 4}, col_month{6, 2}, col_day{9, 2}, col_hour{12, 2}, col_minute{15, 2};
constexpr Columns col_call{18, 13};
constexpr Columns col_sent_rst{31, 3}, col_sent_exch{34, 8}, col_rcvd_rst{43, 3}, col_rcvd_exch{46, 8};
constexpr Columns col_mult1{55, 6}, col_mult2{61, 6}, col_after_points{80, 5};
/// Nearly every line reaches behind the points.
constexpr std::size_t full_width = all_columns::points.first + all_columns::points.width - 1;

/// The frequency of every name that a band column may hold, close together: each QSO asks for one.
struct BandFrequency {
  std::string_view megahertz, freq5;
};
constexpr auto band_frequencies = [] {
  std::array<BandFrequency, band_count + 1> all{};
  for (std::size_t i = 0; i < band_count; ++i)
    all[i] = {names_of(band_at(i)).megahertz, names_of(band_at(i)).freq5};
  all.back() = {names_of(Band::m10).second, names_of(Band::m10).freq5};  // "1.8" has no frequency
  return all;
}();

std::optional<std::string_view> frequency_of_band(std::string_view megahertz) {
  const auto* hit = std::ranges::find(band_frequencies, megahertz, &BandFrequency::megahertz);
  return hit == band_frequencies.end() ? std::nullopt : std::optional{hit->freq5};
}

template <class Line>
void parse_time(const Line& line, QsoRec& rec) {
  set_text(rec.qso_year, line.cut(col_year));
  set_text(rec.qso_month, line.cut(col_month));
  set_text(rec.qso_day, line.cut(col_day));
  set_joined(rec.qso_date, rec.qso_year, "-", rec.qso_month, "-", rec.qso_day);
  set_joined(rec.qso_hhmm, line.cut(col_hour), line.cut(col_minute));
}

template <class Line>
void parse_exchanges(const Line& line, std::string_view jidx_number, QsoRec& rec) {
  set_left_aligned<4>(rec.sent_rst4, line.cut(col_sent_rst));
  set_text(rec.sent_exch, trim(line.cut(col_sent_exch)));
  if (rec.sent_exch.empty()) rec.sent_exch = jidx_number;
  set_left_aligned<4>(rec.rcvd_rst4, line.cut(col_rcvd_rst));
  set_text(rec.rcvd_exch, trim(line.cut(col_rcvd_exch)));
}

/// The columns of `full_width`.
template <class Line>
void parse_columns(const Line& line, const AllOptions& options, QsoRec& rec) {
  const auto mode = options.rtty ? std::optional{Mode::rtty} : mode_of_column(line.cut(all_columns::mode));
  rec.mode_kept = !mode;  // an unknown mode keeps the previous line's
  if (mode) set_text(rec.mode2, names_of(*mode).cabrillo);
  parse_time(line, rec);
  set_left_aligned<14>(rec.his_call14, line.cut(col_call));
  parse_exchanges(line, options.jidx_number, rec);
  set_text(rec.mult1, trim(line.cut(col_mult1)));
  set_text(rec.mult2, trim(line.cut(col_mult2)));
  set_text(rec.points, trim(line.cut(all_columns::points)));
  set_text(rec.band_mhz, trim(line.cut(all_columns::band)));
}

void parse_frequency(std::string_view text, const AllOptions& options, QsoRec& rec) {
  const auto memo = options.memo_frequency ? memo_frequency(text) : std::nullopt;
  const auto frequency = memo ? memo : frequency_of_band(rec.band_mhz);
  rec.band_kept = !frequency;  // an unknown band keeps the previous line's frequency
  if (memo) {
    rec.freq5.clear();
    append_right_aligned(rec.freq5, *memo, 5);
  } else if (frequency) {
    set_text(rec.freq5, *frequency);
  }
  if (options.as_1800 && rec.freq5 == " 1900") rec.freq5 = " 1800";
}

}  // namespace

std::optional<std::string_view> memo_frequency(std::string_view line) {
  const std::size_t open = line.find('(');
  if (open == std::string_view::npos) return std::nullopt;
  const std::size_t close = line.find(')', open);
  if (close == std::string_view::npos) return std::nullopt;
  const std::string_view inside = trim(line.substr(open + 1, close - open - 1));
  return inside.empty() ? std::nullopt : std::optional{inside};
}

std::optional<std::string_view> bracket_text(std::string_view line) {
  const std::size_t open = line.find('[');
  if (open == std::string_view::npos) return std::nullopt;
  const std::size_t close = line.find(']', open);
  if (close == std::string_view::npos) return std::nullopt;
  return line.substr(open + 1, close - open - 1);
}

std::optional<std::string_view> memo_transmitter(std::string_view line) {
  constexpr std::string_view marker = "TX#";
  const std::size_t at = line.find(marker);
  if (at == std::string_view::npos) return std::nullopt;
  return trim(left(line.substr(at + marker.size()), 1));
}

void parse_all_line(const TextLine& line, const AllOptions& options, QsoRec& rec) {
  if (line.ascii() && line.text().size() >= full_width)
    parse_columns(FullLine{line.text()}, options, rec);
  else
    parse_columns(line, options, rec);
  parse_frequency(line.text(), options, rec);
  if (const std::string_view after = line.cut(col_after_points); !is_blank(after)) rec.mult1 = after;
}

}  // namespace varnisto
