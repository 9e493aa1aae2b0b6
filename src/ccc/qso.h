#pragma once
// One line of a CCC text log: fixed columns, some of which differ by contest.

#include <optional>
#include <string>
#include <string_view>

#include "base/columns.h"
#include "ccc/contests.h"
#include "core/bands.h"

namespace varnisto {

/// What changes how a log is read.
struct CccOptions {
  bool rtty = false;          ///< the RTTY box: every mode is RY, in contests whose converter asks
  bool as_1800 = false;       ///< 1900 kHz is written as 1800
  std::string_view number{};  ///< what the entrant sends where the log does not hold it
};

/// A QSO of a text log. The texts point into its line, the options and the tables, and are valid as long as
/// those. `freq5` and, for RTTY, `sent_rst` may be the previous line's.
struct CccQso {
  std::string month, day;            ///< two digits
  std::string_view hhmm;             ///< the four columns as they stand
  std::string_view call;             ///< thirteen columns as they stand
  std::optional<Band> band;          ///< nothing for another text
  std::string_view freq5 = "     ";  ///< Cabrillo frequency field
  std::string_view mode2;            ///< Cabrillo mode: "CW", "PH", "RY"
  std::string_view sent_rst, sent_exch, rcvd_rst, rcvd_exch;
  std::string_view mult1, mult2, points;
  bool quoted = false;  ///< one of the texts may hold a double quote
};

/// Takes one line into `qso`. A line too short for a column leaves that field blank; an unknown band leaves
/// the frequency of the previous line.
void parse_ccc_line(const TextLine& line, const CccContest& contest, const CccOptions& options, CccQso& qso);

/// Sets `line` to the QSO's record in the work file: ten fields in double quotes, from the month to the mode.
void set_ccc_work_line(const CccQso& qso, std::string& line);

}  // namespace varnisto
