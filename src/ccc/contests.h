#pragma once
// The contests of the CCC logger: one row each, with all names, columns and rules in which their logs differ.

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/columns.h"
#include "records/ccc_record.h"

namespace varnisto {

/// Where a text log has a field that some contests lack.
inline constexpr Columns no_column{1, 0};

/// Columns of a text log behind the call sign. All are trimmed.
struct CccColumns {
  Columns sent_rst, sent_exch, rcvd_rst, rcvd_exch, mult1, mult2, points;
};

/// What the station sends behind its report.
enum class CccSent {
  logged,  ///< as the log says
  number,  ///< the number that the entrant has given: the same in every QSO
  zone,    ///< the entrant's CQ zone
};
/// The CQ zone of Japan.
inline constexpr std::string_view ccc_zone = "25";

/// The report whose width tells the mode, three characters in CW.
enum class CccReport { sent, rcvd };

/// What a line made from a binary record shows as sent exchange.
enum class CccBinSent { nothing, power, itu_zone, serial };

/// What stands between the call sign and the points in a line made from a binary record. A width of 0: not
/// there.
struct CccLine {
  CccBinSent sent;
  std::size_t exchange_width, new_mult_width, mult_text_width;
  std::string_view CccRecord::*mult;  ///< shown in the column of new multipliers
};

struct CccContest {
  std::string_view key;          ///< what its logs begin with, in five characters
  std::string_view header_word;  ///< in the first line of a text log
  std::string_view title;        ///< on the summary sheet
  std::string_view sheet_code;   ///< the code that the category derivation gives; empty: by mode and bands
  const CccLayout* layout;       ///< of binary logs
  CccLine line;
  CccColumns columns;
  CccReport mode_report;
  CccSent sent;
  bool report_by_mode;  ///< the sent report is not in the log: 599 or 59
  bool rtty_box;        ///< the main window's RTTY box makes every mode RY
  bool dash_counts;     ///< "-" is a multiplier like any other text
  bool needs_report;    ///< a QSO without received report is no QSO line
};

/// In the order in which the dialog offers them: ARRL DX, IARU, CQ WW, JIDX, CQ WPX.
std::span<const CccContest> ccc_contests();
/// The contest of a five-character key, e.g. "IARU "; null for an unknown one.
const CccContest* ccc_contest_of(std::string_view key);

/// The contest's name in the first line of a text log: what is left without "CCC TXT file for" and "contest".
/// Its first five characters are the key.
std::string ccc_contest_name(std::string_view first_line);
/// First line of the text log made from a binary one by this version of the program.
std::string ccc_header_line(const CccContest& contest, std::string_view version);

}  // namespace varnisto
