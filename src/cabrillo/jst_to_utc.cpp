#include "cabrillo/jst_to_utc.h"

#include <algorithm>

#include "base/columns.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"

namespace varnisto {
namespace {

constexpr std::chrono::hours japan_ahead{9};
constexpr unsigned first_year = 100;

constexpr Columns col_date{15, 10}, col_time{26, 4};
constexpr std::size_t col_own_call = 31;

constexpr std::array<std::string_view, 12> month_names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// The number that `width` digits write; nothing when one of them is no digit.
template <std::size_t width>
std::optional<unsigned> number_at(const char* digits) {
  unsigned value = 0;
  bool valid = true;
  for (std::size_t i = 0; i < width; ++i) {
    const unsigned digit = static_cast<unsigned char>(digits[i]) - unsigned{'0'};
    valid = valid && digit <= 9;
    value = value * 10 + digit;
  }
  return valid ? std::optional{value} : std::nullopt;
}

template <std::size_t width>
void put_digits(char* to, unsigned value) {
  for (std::size_t i = width; i > 0; --i, value /= 10) to[i - 1] = static_cast<char>('0' + value % 10);
}

bool is_date_separator(char c) {
  return c == '-' || c == '/';
}

std::optional<std::chrono::year_month_day> read_date(std::string_view date) {
  if (date.size() != 10 || !is_date_separator(date[4]) || !is_date_separator(date[7])) return std::nullopt;
  const auto year = number_at<4>(date.data());
  const auto month = number_at<2>(date.data() + 5);
  const auto day = number_at<2>(date.data() + 8);
  if (!year || !month || !day || *year < first_year) return std::nullopt;
  const std::chrono::year_month_day read{std::chrono::year{static_cast<int>(*year)},
                                         std::chrono::month{*month}, std::chrono::day{*day}};
  return read.ok() ? std::optional{read} : std::nullopt;
}

}  // namespace

std::optional<LogMinute> read_minute(std::string_view date, std::string_view hhmm) {
  const auto day = read_date(date);
  if (!day || hhmm.size() != 4) return std::nullopt;
  const auto hour = number_at<2>(hhmm.data());
  const auto minute = number_at<2>(hhmm.data() + 2);
  if (!hour || !minute || *hour > 23 || *minute > 59) return std::nullopt;
  return std::chrono::sys_days{*day} + std::chrono::hours{*hour} + std::chrono::minutes{*minute};
}

MinuteText minute_text(LogMinute minute) {
  const auto day = std::chrono::floor<std::chrono::days>(minute);
  const std::chrono::year_month_day date{day};
  const auto minutes = static_cast<unsigned>((minute - day).count());
  MinuteText text{};
  put_digits<4>(text.date_chars.data(), static_cast<unsigned>(static_cast<int>(date.year())));
  put_digits<2>(text.date_chars.data() + 5, static_cast<unsigned>(date.month()));
  put_digits<2>(text.date_chars.data() + 8, static_cast<unsigned>(date.day()));
  text.date_chars[4] = text.date_chars[7] = '-';
  put_digits<2>(text.time_chars.data(), minutes / 60);
  put_digits<2>(text.time_chars.data() + 2, minutes % 60);
  return text;
}

std::optional<MinuteText> nine_hours_back(std::string_view date, std::string_view hhmm) {
  constexpr LogMinute first =
      std::chrono::sys_days{std::chrono::year{int{first_year}} / std::chrono::January / 1};
  const auto minute = read_minute(date, hhmm);
  if (!minute || *minute - japan_ahead < first) return std::nullopt;
  return minute_text(*minute - japan_ahead);
}

bool J2U(std::string& line, bool ascii) {
  const TextLine columns{line, ascii};
  const auto utc = nine_hours_back(columns.cut(col_date), columns.cut(col_time));
  if (!utc) return false;
  std::array<char, 16> text{};
  *std::ranges::copy(utc->date(), text.begin()).out = ' ';
  *std::ranges::copy(utc->time(), text.begin() + 11).out = ' ';
  const std::string_view old = columns.cut({col_date.first, col_own_call - col_date.first});
  line.replace(static_cast<std::size_t>(old.data() - line.data()), old.size(), text.data(), text.size());
  return true;
}

std::string J2U_qtc(std::string_view date, std::string_view time) {
  const auto utc = time.size() == 5 && time[2] == ':'
                       ? nine_hours_back(date, std::string{time.substr(0, 2)}.append(time.substr(3)))
                       : std::nullopt;
  if (!utc) throw RunTimeError(RunTimeError::type_mismatch, std::string{date}.append(" ").append(time));
  const std::string_view day = utc->date();
  std::string text{day.substr(8, 2)};
  text.append(" ").append(month_names.at(number_at<2>(day.data() + 5).value() - 1));
  return text.append(" ").append(day.substr(0, 4)).append("  ").append(utc->time()).append("z");
}

void conv_J2U(App& app) {
  app.trace.line("Public Sub conv_J2U()_1");
  const std::string& log_name = app.state.log.input.out_name;
  TextReader log = read_text(app, log_name);
  TextWriter out{app.outputs.create(log_name)};
  std::string utc_line;
  for (std::string_view line; log.next(line);) {
    if (line.starts_with("QSO:")) {
      utc_line = line;
      if (!J2U(utc_line, log.ascii()))
        throw RunTimeError(RunTimeError::type_mismatch, log.place() + ": " + utc_line);
      line = utc_line;
    }
    out.put(line);
  }
  app.trace.line("Public Sub conv_J2U()_2");
  out.close();
}

}  // namespace varnisto
