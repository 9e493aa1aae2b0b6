#include "ccc/bin_to_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/short_text.h"
#include "base/text.h"
#include "core/bands.h"

namespace varnisto {
namespace {

// By mode code.
constexpr std::array<std::string_view, 2> reports = {" 59", "599"};
/// Watts by power code.
constexpr std::array<std::string_view, 11> powers = {"1",  "2",   "5",   "10",  "20", "25",
                                                     "50", "100", "200", "500", "KW"};
/// The ITU zone of Japan, sent in the IARU contest.
constexpr std::string_view itu_zone = "45";

// Columns of a line that every contest has alike, or not at all.
constexpr std::size_t band_width = 5, call_width = 16, report_width = 5, sent_width = 7;
/// Bytes of 80 characters of any kind; a power that was typed may be longer.
constexpr std::size_t longest_line_of_records = 320;

std::size_t digit_count(std::uint32_t value) {
  std::size_t count = 1;
  for (; value >= 10; value /= 10) ++count;
  return count;
}

/// Fills the columns of a line from the left. What no text takes is blank.
class LineFiller {
 public:
  /// `room`: bytes that the line may take.
  LineFiller(std::string& line, std::size_t room) : line_(line) {
    line.assign(room, ' ');
    end_ = line.data();
  }
  /// A text in `width` columns, cut to them.
  void text(std::string_view text, std::size_t width) {
    const std::string_view kept = left(text, width);
    end_ = copy_piece(end_, kept) + (width - char_count(kept));
  }
  /// The last `digits` digits of a number.
  void number(std::uint32_t value, std::size_t digits) {
    for (std::size_t i = digits; i-- > 0; value /= 10) end_[i] = static_cast<char>('0' + value % 10);
    end_ += digits;
  }
  void blanks(std::size_t count) { end_ += count; }
  void finish() { line_.resize(static_cast<std::size_t>(end_ - line_.data())); }

 private:
  std::string& line_;
  char* end_;
};

void put_time(const CccRecord& rec, LineFiller& out) {
  out.number(rec.month, 2);
  out.blanks(1);
  out.number(rec.day, 2);
  out.blanks(2);
  out.number(rec.hhmm, 4);
  out.blanks(2);
}

void put_serial(std::uint32_t serial, std::size_t width, LineFiller& out) {
  const std::size_t digits = std::max<std::size_t>(digit_count(serial), 3);
  out.number(serial, digits);
  out.blanks(width - digits);
}

bool possible_time(const CccRecord& rec) {
  return rec.month >= 1 && rec.month <= 12 && rec.day >= 1 && rec.day <= 31 && rec.hhmm < 2400 &&
         rec.hhmm % 100 < 60;
}

void put_sent(CccBinSent sent, const CccRecord& rec, std::string_view power, LineFiller& out) {
  if (sent == CccBinSent::serial)
    put_serial(rec.sent_serial, sent_width, out);
  else
    out.text(sent == CccBinSent::power ? power : itu_zone, sent_width);
}

/// Takes the entry of a code over; false when there is none, and `text` stays.
template <std::size_t size>
bool take_code(const std::array<std::string_view, size>& table, std::uint32_t code, std::string_view& text) {
  if (code >= size) return false;
  text = table[code];
  return true;
}

/// By band code.
constexpr std::array<std::string_view, band_count> metres = [] {
  std::array<std::string_view, band_count> names;
  for (std::size_t code = 0; code < band_count; ++code) names[code] = names_of(band_at(code)).metres;
  return names;
}();

/// Drops the half of a character at the end of a field: it would swallow what follows it in the line.
void drop_half_character(std::string& text) {
  while (text.size() >= escape_size && escaped_byte(right(text, 1))) text.resize(text.size() - escape_size);
}

}  // namespace

CccTextLines::CccTextLines(const CccContest& contest, std::optional<std::string> fixed_power)
    : contest_(contest), fixed_power_(std::move(fixed_power)) {}

/// A text of a record without control characters, as UTF-8, valid until the next call.
std::string_view CccTextLines::text_of(std::string_view bytes) {
  if (is_ascii(bytes) && !holds_control(bytes)) return bytes;
  decoded_.clear();
  code_page_.decode(bytes, decoded_);
  drop_half_character(decoded_);
  std::ranges::replace_if(
      decoded_, [](char c) { return is_control(c) || c == '\t'; }, ' ');
  return decoded_;
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
  LineFiller out{line_, longest_line_of_records + power_.size()};
  put_time(rec, out);
  out.text(band_, band_width);
  out.text(text_of(rec.call), call_width);
  if (line.sent != CccBinSent::nothing) {
    out.text(rst_, report_width);
    put_sent(line.sent, rec, power_, out);
  }
  out.text(rst_, report_width);
  out.text(text_of(rec.exchange), line.exchange_width);
  out.text(rec.new_mult == 0 ? "" : text_of(rec.*line.mult), line.new_mult_width);
  if (line.mult_text_width > 0) out.text(text_of(rec.mult_text), line.mult_text_width);
  out.number(rec.points, digit_count(rec.points));
  out.finish();
  return line_;
}

CccBinCounts put_ccc_text(RecordReader& log, std::size_t record_size, const CccContest& contest,
                          std::optional<std::string> fixed_power, std::string_view version, LineSink& text) {
  text.put(ccc_header_line(contest, version));
  CccTextLines lines{contest, std::move(fixed_power)};
  CccRecord rec;
  for (std::string_view bytes; log.next(record_size, bytes);) {
    contest.layout->decode(bytes, rec);
    text.put(lines.line_of(rec));
  }
  CccBinCounts counts = lines.counts();
  counts.records = log.number();
  counts.rest = log.rest();
  return counts;
}

}  // namespace varnisto
