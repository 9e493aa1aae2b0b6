#include "ccc/bin_to_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/short_text.h"
#include "base/text.h"

namespace varnisto {
namespace {

// By mode code.
constexpr std::array<std::string_view, 2> reports = {" 59", "599"};
/// Watts by power code.
constexpr std::array<std::string_view, 11> powers = {"1",  "2",   "5",   "10",  "20", "25",
                                                     "50", "100", "200", "500", "KW"};
/// The ITU zone of Japan, sent in the IARU contest.
constexpr std::string_view itu_zone = "45";

/// Decimal digits of a number, with zeros in front to at least `width`.
class Digits {
 public:
  Digits(std::uint32_t value, std::size_t width) {
    for (; value > 0 || size_ < width; value /= 10)
      digits_.at(digits_.size() - ++size_) = static_cast<char>('0' + value % 10);
  }
  std::string_view all() const { return last(size_); }
  std::string_view last(std::size_t n) const { return {digits_.data() + digits_.size() - n, n}; }

 private:
  std::array<char, 10> digits_{};
  std::size_t size_ = 0;
};

bool possible_time(const CccRecord& rec) {
  return rec.month >= 1 && rec.month <= 12 && rec.day >= 1 && rec.day <= 31 && rec.hhmm < 2400 &&
         rec.hhmm % 100 < 60;
}

/// Takes the entry of a code over; false when there is none, and `text` stays.
template <std::size_t size>
bool take_code(const std::array<std::string_view, size>& table, std::uint32_t code, std::string_view& text) {
  if (code >= size) return false;
  text = table[code];
  return true;
}

constexpr std::array<std::string_view, ccc_bands.size()> metres = [] {
  std::array<std::string_view, ccc_bands.size()> names;
  std::ranges::transform(ccc_bands, names.begin(), &CccBand::metres);
  return names;
}();

/// Drops the half of a character at the end of a field: it would swallow what follows it in the line.
void drop_half_character(std::string& text) {
  while (text.size() >= escape_size && escaped_byte(right(text, 1))) text.resize(text.size() - escape_size);
}

}  // namespace

CccTextLines::CccTextLines(const CccContest& contest, std::optional<std::string> fixed_power)
    : contest_(contest), fixed_power_(std::move(fixed_power)) {}

/// A text of a record without control characters, as UTF-8; in `room` unless it can stay where it is.
std::string_view CccTextLines::text_of(std::string_view bytes, std::string& room) {
  const bool control = holds_control(bytes);
  if (!control && is_ascii(bytes)) return bytes;
  room.clear();
  code_page_.decode(bytes, room);
  drop_half_character(room);
  std::ranges::replace_if(
      room, [](char c) { return is_control(c) || c == '\t'; }, ' ');
  return room;
}

void CccTextLines::take_power(std::uint32_t code) {
  if (fixed_power_)
    power_ = *fixed_power_;
  else if (!take_code(powers, code, power_))
    counts_.power_kept.add(number_);
}

void CccTextLines::take_codes(const CccRecord& rec) {
  const bool band_known = take_code(metres, rec.band, band_);
  const bool mode_known = take_code(reports, rec.mode, rst_);
  const bool written = !rst_.empty() || !contest_.needs_report;
  if (written && !band_known) counts_.band_kept.add(number_);
  if (written && !mode_known) counts_.mode_kept.add(number_);
  if (!band_known || !mode_known || !possible_time(rec)) counts_.doubtful.add(number_);
  if (contest_.line.sent == CccBinSent::power) take_power(rec.power);
}

const std::string& CccTextLines::line_of(const CccRecord& rec) {
  ++number_;
  take_codes(rec);
  const CccLine& line = contest_.line;
  const Digits month{rec.month, 2}, day{rec.day, 2}, time{rec.hhmm, 4}, serial{rec.sent_serial, 3};
  const std::array<std::string_view, 4> sent = {"", power_, itu_zone, serial.all()};  // by CccBinSent
  set_joined(line_, month.last(2), " ", day.last(2), "  ", time.last(4), "  ", left_aligned(band_, 5),
             left_aligned(text_of(rec.call, call_), 16), left_aligned(rst_, line.sent_rst_width),
             left_aligned(sent.at(static_cast<std::size_t>(line.sent)), line.sent_width),
             left_aligned(rst_, 5), left_aligned(text_of(rec.exchange, exchange_), line.exchange_width),
             left_aligned(rec.new_mult == 0 ? "" : text_of(rec.*line.mult, new_mult_), line.new_mult_width),
             left_aligned(text_of(rec.mult_text, mult_text_), line.mult_text_width),
             Digits{rec.points, 1}.all());
  return line_;
}

CccBinCounts put_ccc_text(CccRecordReader& log, const CccContest& contest,
                          std::optional<std::string> fixed_power, std::string_view version, LineSink& text) {
  text.put(ccc_header_line(contest, version));
  CccTextLines lines{contest, std::move(fixed_power)};
  CccRecord rec;
  for (std::string_view bytes; log.next(bytes);) {
    read_ccc_record(bytes, *contest.layout, rec);
    text.put(lines.line_of(rec));
  }
  CccBinCounts counts = lines.counts();
  counts.records = log.number();
  counts.rest = log.rest();
  return counts;
}

}  // namespace varnisto
