#include "zlo/zlo_lines.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "base/run_time_error.h"
#include "base/short_text.h"
#include "core/version.h"

namespace varnisto {
namespace {

constexpr std::uint8_t is_new = 1;
constexpr std::string_view old_multiplier = "-";  ///< stands for one that is not new
constexpr std::uint16_t highest_rst = 32767;
/// Room for all texts of a record: none of its 200 bytes takes more than an escape.
constexpr std::size_t texts_room = 200 * escape_size;
constexpr std::size_t all_multi_width = 6, jarl_multi_width = 7;

[[noreturn]] void refuse(const ZloReader& log, std::string_view what) {
  throw RunTimeError(RunTimeError::overflow, log.place() + " の" + std::string{what});
}

void put_digits(char* to, unsigned value, std::size_t count) {
  for (char* digit = to + count; digit != to; value /= 10) *--digit = static_cast<char>('0' + value % 10);
}

void set_rst(SmallDecimal& text, std::uint16_t rst, const ZloReader& log) {
  if (rst > highest_rst) refuse(log, " RST");
  text.set(rst);
}

/// A line in the making. `plain`: its texts are ASCII, so that bytes are columns.
template <bool plain>
class Pen {
 public:
  explicit Pen(char* start) : start_(start), end_(start) {}

  [[gnu::always_inline]] Pen& put(std::string_view text) {
    end_ = copy_piece(end_, text);
    return *this;
  }
  /// The text left-aligned in `width` columns, and `gap` blanks.
  template <std::size_t width, std::size_t gap = 0>
  [[gnu::always_inline]] Pen& put_left(std::string_view text) {
    if (plain || is_ascii(text)) {
      std::memset(end_, ' ', width + gap);
      copy_piece(end_, text.substr(0, width));
      end_ += width + gap;
    } else {
      const Aligned aligned = left_aligned(text, width);
      end_ = detail::put_piece(end_, Aligned{0, aligned.text, aligned.after + gap});
    }
    return *this;
  }
  std::string_view line() const { return {start_, static_cast<std::size_t>(end_ - start_)}; }

 private:
  char* start_;
  char* end_;
};
template <bool plain>
std::string_view all_line(char* room, const ZloTexts& qso, bool transmitter) {
  Pen<plain> pen{room};
  pen.put(qso.date_time.text()).put(" ");
  room[4] = room[7] = '/';  // yyyy/mm/dd
  pen.template put_left<13>(qso.call);
  pen.template put_left<4>(qso.rst_sent.text()).template put_left<8>(qso.sent_no);
  pen.template put_left<4>(qso.rst_rcvd.text()).template put_left<8>(qso.rcvd_no);
  pen.template put_left<all_multi_width>(qso.multi1).template put_left<all_multi_width>(qso.multi2);
  pen.template put_left<5>(qso.band).template put_left<5>(qso.mode);
  pen.template put_left<3>(qso.qso_pts.text());
  if (!qso.op_name.empty()) pen.put("%%").put(qso.op_name).put("%%");
  if (transmitter) pen.put("TX#").put(qso.tx_num.text()).put("  ");
  if (!qso.khz.empty()) pen.put("(").put(qso.khz).put(qso.memo.empty() ? ")" : ") ");
  return pen.put(qso.memo).line();
}

template <bool plain>
std::string_view jarl_line(char* room, const ZloTexts& qso) {
  Pen<plain> pen{room};
  pen.put(qso.date_time.text()).put(" ");
  pen.put(std::string_view{"    "}.substr(qso.band.size())).put(qso.band).put("  ");
  pen.template put_left<5, 1>(qso.mode == "RTY" ? "RTTY" : qso.mode);
  pen.template put_left<13, 1>(qso.call);
  pen.template put_left<3, 1>(qso.rst_sent.text()).template put_left<7, 1>(qso.sent_no);
  pen.template put_left<3, 1>(qso.rst_rcvd.text()).template put_left<7, 1>(qso.rcvd_no);
  pen.template put_left<jarl_multi_width, 1>(qso.multi1);
  if (!qso.new_multi1) pen.put(" ");  // the column of one that is not new is wider
  return pen.put(qso.qso_pts.text()).line();
}

}  // namespace

std::string zlo_all_title() {
  return "zLog for Windows       by Varnisto " + std::string{program_version};
}

std::string jarl_sheet_columns() {
  return "DATE (JST) TIME   BAND MODE  CALLSIGN      SENTNo      RCVDNo      Mlt    Pts   by Varnisto " +
         std::string{program_version};
}

void SmallDecimal::set(std::uint16_t value) {
  if (value == value_) return;
  value_ = value;
  const auto end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), value);
  size_ = static_cast<std::size_t>(end.ptr - digits_.data());
}

void DateTimeText::set(RecordMinute time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  if (day != day_) set_day(day);
  const auto minutes = static_cast<unsigned>((time - day).count());
  put_digits(text_.data() + 11, minutes / 60, 2);
  put_digits(text_.data() + 14, minutes % 60, 2);
}

void DateTimeText::set_day(std::chrono::local_days day) {
  day_ = day;
  const std::chrono::year_month_day date{day};
  put_digits(text_.data(), static_cast<unsigned>(static_cast<int>(date.year())), 4);
  put_digits(text_.data() + 5, static_cast<unsigned>(date.month()), 2);
  put_digits(text_.data() + 8, static_cast<unsigned>(date.day()), 2);
}

std::string_view whole_khz(std::string_view field) {
  constexpr std::size_t most_digits = 5;
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  field = trim(field);
  const auto whole_end = std::ranges::find_if_not(field, is_digit);
  if (whole_end != field.end()) {
    if (*whole_end != '.' || !std::all_of(whole_end + 1, field.end(), is_digit)) return {};
  }
  std::string_view whole{field.begin(), whole_end};
  while (whole.starts_with('0')) whole.remove_prefix(1);
  return whole.size() > most_digits ? std::string_view{} : whole;
}

void ZloLines::take(const ZloWalk& walk) {
  set_numbers(walk);
  set_texts(walk.qso());
  texts_.band = walk.band();
  texts_.mode = walk.mode();
  // Nearly every QSO is plain: one look at its line saves a look at each of its texts.
  all_ = all_line<true>(all_room_.data(), texts_, transmitter_);
  plain_ = is_plain();
  if (plain_) return;
  decode_texts();
  all_ = all_line<false>(all_room_.data(), texts_, transmitter_);
}

std::string_view ZloLines::jarl() {
  return plain_ ? jarl_line<true>(jarl_room_.data(), texts_) : jarl_line<false>(jarl_room_.data(), texts_);
}

void ZloLines::set_numbers(const ZloWalk& walk) {
  const ZloQso& qso = walk.qso();
  const auto time = minute_of(qso.day_count);
  if (!time) refuse(walk.log(), "日時");
  texts_.date_time.set(*time);
  set_rst(texts_.rst_sent, qso.rst_sent, walk.log());
  set_rst(texts_.rst_rcvd, qso.rst_rcvd, walk.log());
  texts_.qso_pts.set(qso.qso_pts);
  texts_.tx_num.set(qso.tx_num);
}

/// The texts as bytes of code page 932. A multiplier is shown where it is new.
void ZloLines::set_texts(const ZloQso& qso) {
  texts_.call = qso.call;
  texts_.sent_no = qso.sent_no;
  texts_.rcvd_no = qso.rcvd_no;
  texts_.new_multi1 = qso.new_multi1 == is_new;
  texts_.new_multi2 = qso.new_multi2 == is_new;
  texts_.multi1 = texts_.new_multi1 ? qso.multi1 : old_multiplier;
  texts_.multi2 = texts_.new_multi2 ? qso.multi2 : old_multiplier;
  texts_.op_name = qso.op_name;
  texts_.memo = qso.memo;
  texts_.khz = qso.khz.empty() || contains(qso.memo, "(") ? "" : whole_khz(qso.khz);
}

/// Whether the line `all_` is right: it was made of texts as they are. The log sheet has more of a
/// multiplier.
bool ZloLines::is_plain() const {
  if (!is_ascii(all_) || holds_control(all_)) return false;
  const std::string_view more = texts_.multi1.substr(0, jarl_multi_width);
  return more.size() <= all_multi_width || (is_ascii(more) && !holds_control(more));
}

void ZloLines::decode_texts() {
  decoded_.clear();
  decoded_.reserve(texts_room);  // so that the texts stay where they are
  for (std::string_view* text : {&texts_.call, &texts_.sent_no, &texts_.rcvd_no, &texts_.multi1,
                                 &texts_.multi2, &texts_.op_name, &texts_.memo})
    *text = utf8(*text);
}

std::string_view ZloLines::utf8(std::string_view cp932) {
  const std::size_t start = decoded_.size();
  code_page_.decode(cp932, decoded_);
  std::replace_if(
      decoded_.begin() + static_cast<std::ptrdiff_t>(start), decoded_.end(),
      [](char c) { return c == '\t' || is_control(c); }, ' ');
  return std::string_view{decoded_}.substr(start);
}

}  // namespace varnisto
