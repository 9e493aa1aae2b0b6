#include "zlo/zlo_lines.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "base/run_time_error.h"
#include "base/short_text.h"
#include "core/version.h"
#include "records/day_count.h"

namespace varnisto {
namespace {

constexpr std::uint8_t is_new = 1;
constexpr std::string_view old_multiplier = "-";  ///< stands for one that is not new
constexpr std::uint16_t highest_rst = 32767;
/// Room for all texts of a record: none of its 200 bytes takes more than an escape.
constexpr std::size_t texts_room = 200 * escape_size;

[[noreturn]] void refuse(const ZloReader& log, std::string_view what) {
  throw RunTimeError(RunTimeError::overflow, log.place() + " の" + std::string{what});
}

void put_digits(char* to, unsigned value, std::size_t count) {
  for (char* digit = to + count; digit != to; value /= 10) *--digit = static_cast<char>('0' + value % 10);
}

std::array<char, 16> date_time_text(LogMinute time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const auto minutes = static_cast<unsigned>((time - day).count());
  std::array<char, 16> text{'y', 'y', 'y', 'y', '-', 'm', 'm', '-', 'd', 'd', ' ', 'h', 'h', ':', 'm', 'm'};
  put_digits(text.data(), static_cast<unsigned>(static_cast<int>(date.year())), 4);
  put_digits(text.data() + 5, static_cast<unsigned>(date.month()), 2);
  put_digits(text.data() + 8, static_cast<unsigned>(date.day()), 2);
  put_digits(text.data() + 11, minutes / 60, 2);
  put_digits(text.data() + 14, minutes % 60, 2);
  return text;
}

SmallDecimal rst_text(const ZloReader& log, std::uint16_t rst) {
  if (rst > highest_rst) refuse(log, " RST");
  return SmallDecimal{rst};
}

/// A QSO stays one line, and its columns where they are.
void blank_controls(std::string& line) {
  if (!holds_control(line)) return;
  std::ranges::replace_if(
      line, [](char c) { return c == '\t' || is_control(c); }, ' ');
}

}  // namespace

std::string zlo_all_title() {
  return "zLog for Windows       by Varnisto " + std::string{program_version};
}

std::string jarl_sheet_columns() {
  return "DATE (JST) TIME   BAND MODE  CALLSIGN      SENTNo      RCVDNo      Mlt    Pts   by Varnisto " +
         std::string{program_version};
}

SmallDecimal::SmallDecimal(std::uint16_t value)
    : size_(static_cast<std::size_t>(
          std::to_chars(digits_.data(), digits_.data() + digits_.size(), value).ptr - digits_.data())) {}

std::string_view whole_khz(std::string_view field) {
  constexpr std::size_t most_digits = 5;
  constexpr std::string_view digits = "0123456789";
  field = trim(field);
  const std::size_t point = std::min(field.find_first_not_of(digits), field.size());
  if (point < field.size() && field[point] != '.') return {};
  if (field.find_first_not_of(digits, point + 1) != std::string_view::npos) return {};
  std::string_view whole = field.substr(0, point);
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  return whole.size() > most_digits ? std::string_view{} : whole;
}

const ZloTexts& ZloTextMaker::texts_of(const ZloWalk& walk) {
  const ZloQso& qso = walk.qso();
  const auto time = minute_of(qso.day_count);
  if (!time) refuse(walk.log(), "日時");
  room_.clear();
  room_.reserve(texts_room);  // so that the texts stay where they are
  texts_.date_time = date_time_text(*time);
  texts_.call = utf8(qso.call);
  texts_.sent_no = utf8(qso.sent_no);
  texts_.rcvd_no = utf8(qso.rcvd_no);
  texts_.rst_sent = rst_text(walk.log(), qso.rst_sent);
  texts_.rst_rcvd = rst_text(walk.log(), qso.rst_rcvd);
  texts_.qso_pts = SmallDecimal{qso.qso_pts};
  texts_.tx_num = SmallDecimal{qso.tx_num};
  texts_.band = walk.band();
  texts_.mode = walk.mode();
  texts_.multi1 = utf8(qso.multi1);
  texts_.multi2 = utf8(qso.multi2);
  texts_.new_multi1 = qso.new_multi1 == is_new;
  texts_.new_multi2 = qso.new_multi2 == is_new;
  texts_.op_name = utf8(qso.op_name);
  texts_.memo = memo_of(qso);
  return texts_;
}

std::string_view ZloTextMaker::utf8(std::string_view cp932) {
  if (is_ascii(cp932)) return cp932;
  const std::size_t start = room_.size();
  code_page_.decode(cp932, room_);
  return std::string_view{room_}.substr(start);
}

std::string_view ZloTextMaker::memo_of(const ZloQso& qso) {
  const std::string_view memo = utf8(qso.memo);
  const std::string_view khz = whole_khz(qso.khz);
  if (khz.empty() || contains(memo, "(")) return memo;
  set_joined(memo_, "(", khz, memo.empty() ? ")" : ") ", memo);
  return memo_;
}

void set_all_line(std::string& out, const ZloTexts& qso, bool transmitter) {
  const std::string_view op_mark = qso.op_name.empty() ? "" : "%%";
  const std::string_view tx_text = transmitter ? qso.tx_num.text() : "";
  set_joined(out, std::string_view{qso.date_time.data(), qso.date_time.size()}, " ",
             left_aligned(qso.call, 13), left_aligned(qso.rst_sent.text(), 4), left_aligned(qso.sent_no, 8),
             left_aligned(qso.rst_rcvd.text(), 4), left_aligned(qso.rcvd_no, 8),
             left_aligned(qso.new_multi1 ? qso.multi1 : old_multiplier, 6),
             left_aligned(qso.new_multi2 ? qso.multi2 : old_multiplier, 6), left_aligned(qso.band, 5),
             left_aligned(qso.mode, 5), left_aligned(qso.qso_pts.text(), 3), op_mark, qso.op_name, op_mark,
             transmitter ? "TX#" : "", tx_text, transmitter ? "  " : "", qso.memo);
  out[4] = out[7] = '/';  // yyyy/mm/dd
  blank_controls(out);
}

void set_jarl_line(std::string& out, const ZloTexts& qso) {
  // A multiplier that is not new takes a column more than a new one.
  const Aligned multi1 = qso.new_multi1 ? left_aligned(qso.multi1, 7) : left_aligned(old_multiplier, 8);
  set_joined(out, std::string_view{qso.date_time.data(), qso.date_time.size()}, " ",
             right_aligned(qso.band, 4), "  ", left_aligned(qso.mode == "RTY" ? "RTTY" : qso.mode, 5), " ",
             left_aligned(qso.call, 13), " ", left_aligned(qso.rst_sent.text(), 3), " ",
             left_aligned(qso.sent_no, 7), " ", left_aligned(qso.rst_rcvd.text(), 3), " ",
             left_aligned(qso.rcvd_no, 7), " ", multi1, " ", qso.qso_pts.text());
  blank_controls(out);
}

}  // namespace varnisto
