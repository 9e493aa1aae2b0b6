#pragma once
// QTCs as the logger keeps them: "[QTC<series>/<count> <receiver> <date> <time> <band>]" in the memo of the
// QSO that was reported.

#include <optional>
#include <string>
#include <string_view>

#include "core/state.h"

namespace varnisto {

/// The items of one memo. They lie in the line it was read from; missing ones are empty.
struct QtcMemo {
  std::string_view group;     ///< number of the series
  std::string_view number;    ///< QTCs in the series
  std::string_view receiver;  ///< the station that took the series
  std::string_view date, time;
  std::string_view band;  ///< in metres, e.g. "20m"
};

/// Takes the next memo off `rest`, which moves behind it. Nothing when no "[QTC" (in any case) follows. A
/// memo without "]" reaches to the end of the line and has no items.
std::optional<QtcMemo> next_qtc_memo(std::string_view& rest);

/// True when the memo says who took the series and when, so that a QTC line can be made of it.
bool is_complete(const QtcMemo& memo);

/// Calls `take` for every complete memo of a line of the log; counts the others.
template <class Take>
void for_each_qtc(std::string_view line, std::size_t line_number, Occurrences& incomplete, Take take) {
  while (const auto memo = next_qtc_memo(line)) {
    if (is_complete(*memo))
      take(*memo);
    else
      incomplete.add(line_number);
  }
}

/// Date (yyyy-mm-dd) and time (hhmm) of a complete memo, nine hours back when `to_utc`.
struct QtcTime {
  std::string date, time;
};
QtcTime qtc_time(const QtcMemo& memo, bool to_utc);

}  // namespace varnisto
