#pragma once
// Japan Standard Time to UTC: nine hours back by the calendar, so that day, month and year roll back as
// needed.

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// A minute of the calendar.
using LogMinute = std::chrono::sys_time<std::chrono::minutes>;

/// How a minute stands in a Cabrillo line.
struct MinuteText {
  std::array<char, 10> date_chars;  ///< yyyy-mm-dd
  std::array<char, 4> time_chars;   ///< hhmm

  std::string_view date() const { return {date_chars.data(), date_chars.size()}; }
  std::string_view time() const { return {time_chars.data(), time_chars.size()}; }
};

/// The minute of a date (year, month, day with "-" or "/" between them: ten characters) and a time of four
/// digits; nothing when they are no date of the years 100 to 9999.
std::optional<LogMinute> read_minute(std::string_view date, std::string_view hhmm);
MinuteText minute_text(LogMinute minute);

/// Nine hours earlier. Nothing when date and time are none, or when that falls before the year 100.
std::optional<MinuteText> nine_hours_back(std::string_view date, std::string_view hhmm);

/// Moves date and time of a Cabrillo QSO line nine hours back, in place; every other column stays. False, and
/// the line as it was, when its columns hold no date and time. `ascii`: is_ascii() of the line.
bool J2U(std::string& line, bool ascii);

/// Nine hours before a date (yyyy/mm/dd) and a time (hh:mm), in the form of the QTC log: "23 Nov 2002 0512z".
/// Throws RunTimeError 13 when they are no date and time.
std::string J2U_qtc(std::string_view date, std::string_view time);

/// Moves every QSO line of the log that was written (`out_name`) nine hours back. Throws RunTimeError 13 for
/// a line without a date; the log then stays as it was.
void conv_J2U(App& app);

}  // namespace varnisto
