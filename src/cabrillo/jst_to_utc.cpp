#include "cabrillo/jst_to_utc.h"

#include <algorithm>

#include "base/columns.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/scratch_files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "core/paths.h"

namespace varnisto {
namespace {

constexpr std::chrono::hours japan_ahead{9};
constexpr int first_year = 100;

constexpr Columns col_date{15, 10}, col_time{26, 4};
constexpr std::size_t col_own_call = 31;

constexpr std::array<std::string_view, 12> month_names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// The number that these digits write; -1 when one of them is no digit.
int number_of(std::string_view digits) {
  int value = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

void put_digits(char* to, std::size_t width, unsigned value) {
  for (std::size_t i = width; i > 0; --i, value /= 10) to[i - 1] = static_cast<char>('0' + value % 10);
}

bool is_date_separator(char c) {
  return c == '-' || c == '/';
}

std::optional<std::chrono::year_month_day> read_date(std::string_view date) {
  if (date.size() != 10 || !is_date_separator(date[4]) || !is_date_separator(date[7])) return std::nullopt;
  const int year = number_of(date.substr(0, 4));
  const int month = number_of(date.substr(5, 2));
  const int day = number_of(date.substr(8, 2));
  if (year < first_year || month < 0 || day < 0) return std::nullopt;
  const std::chrono::year_month_day read{std::chrono::year{year},
                                         std::chrono::month{static_cast<unsigned>(month)},
                                         std::chrono::day{static_cast<unsigned>(day)}};
  return read.ok() ? std::optional{read} : std::nullopt;
}

}  // namespace

std::optional<LogMinute> read_minute(std::string_view date, std::string_view hhmm) {
  const auto day = read_date(date);
  if (!day || hhmm.size() != 4) return std::nullopt;
  const int hour = number_of(hhmm.substr(0, 2));
  const int minute = number_of(hhmm.substr(2, 2));
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return std::nullopt;
  return std::chrono::sys_days{*day} + std::chrono::hours{hour} + std::chrono::minutes{minute};
}

MinuteText minute_text(LogMinute minute) {
  const auto day = std::chrono::floor<std::chrono::days>(minute);
  const std::chrono::year_month_day date{day};
  const auto minutes = static_cast<unsigned>((minute - day).count());
  MinuteText text{};
  put_digits(text.date_chars.data(), 4, static_cast<unsigned>(static_cast<int>(date.year())));
  put_digits(text.date_chars.data() + 5, 2, static_cast<unsigned>(date.month()));
  put_digits(text.date_chars.data() + 8, 2, static_cast<unsigned>(date.day()));
  text.date_chars[4] = text.date_chars[7] = '-';
  put_digits(text.time_chars.data(), 2, minutes / 60);
  put_digits(text.time_chars.data() + 2, 2, minutes % 60);
  return text;
}

std::optional<MinuteText> nine_hours_back(std::string_view date, std::string_view hhmm) {
  constexpr LogMinute first = std::chrono::sys_days{std::chrono::year{first_year} / std::chrono::January / 1};
  const auto minute = read_minute(date, hhmm);
  if (!minute || *minute - japan_ahead < first) return std::nullopt;
  return minute_text(*minute - japan_ahead);
}

bool J2U(std::string& line) {
  const TextLine columns{line};
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
  text.append(" ").append(month_names.at(static_cast<std::size_t>(number_of(day.substr(5, 2))) - 1));
  return text.append(" ").append(day.substr(0, 4)).append("  ").append(utc->time()).append("z");
}

void conv_J2U(App& app) {
  app.trace.line("Public Sub conv_J2U()_1");
  const std::string& log_name = app.state.input.out_name;
  const PathPieces pieces = pieces_of(log_name);
  ScratchFiles scratch;
  const std::string temporary = scratch.add(log_name.substr(0, log_name.size() - pieces.ext.size()) + "tmp");

  TextReader log{log_name};
  TextWriter out{temporary};
  std::string utc_line;
  for (std::string_view line; log.next(line);) {
    if (line.starts_with("QSO:")) {
      utc_line = line;
      if (!J2U(utc_line)) throw RunTimeError(RunTimeError::type_mismatch, log.place() + ": " + utc_line);
      line = utc_line;
    }
    out.put(line);
  }
  out.close();

  app.trace.line("Public Sub conv_J2U()_2");
  move_file(temporary, log_name);
}

}  // namespace varnisto
