#pragma once
// One line of a zLog text log (ALL): fixed columns, and markers in the free text behind them.

#include <optional>
#include <string_view>

#include "base/columns.h"
#include "core/state.h"

namespace varnisto {

/// Columns of a QSO line that more than one reader looks at.
namespace all_columns {
inline constexpr Columns sent_power{35, 4};
inline constexpr Columns band{67, 3};
inline constexpr Columns mode{72, 3};
inline constexpr Columns points{77, 2};
}  // namespace all_columns

/// The main window's choices that change how a line is read.
struct AllOptions {
  bool rtty = false;             ///< every mode counts as RTTY
  bool memo_frequency = false;   ///< the frequency in the memo replaces the band
  bool as_1800 = false;          ///< 1900 kHz is written as 1800
  std::string_view jidx_number;  ///< stands in for a blank sent exchange; empty outside JIDX
};

/// Takes one QSO line into `rec`. A line too short for a column leaves that field blank; an unknown band or
/// mode leaves the field of the previous line.
void parse_all_line(const TextLine& line, const AllOptions& options, QsoRec& rec);

/// A line of the log that holds nothing is no QSO: every reader skips it.
inline bool holds_qso(std::string_view line) {
  return !is_blank(line);
}

/// The text between the first "(" of the line and the next ")", trimmed; nothing when either is missing or
/// nothing stands between them. It is the frequency in kHz when the logger wrote one.
std::optional<std::string_view> memo_frequency(std::string_view line);

/// The text between the first "[" of the line and the next "]"; nothing when either is missing.
std::optional<std::string_view> bracket_text(std::string_view line);

/// The transmitter number after "TX#", trimmed to one character or none; nothing when the line has no "TX#".
std::optional<std::string_view> memo_transmitter(std::string_view line);

}  // namespace varnisto
