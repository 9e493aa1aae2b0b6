#pragma once
// From the records of a CCC binary log to the lines of a CCC text log.

#include <optional>
#include <string>
#include <string_view>

#include "base/cp932.h"
#include "base/line_sink.h"
#include "ccc/contests.h"
#include "core/notes.h"
#include "records/record_reader.h"

namespace varnisto {

/// What the records held that is in no table; each is told by the record's number, from 1. Kept values count
/// for QSOs that get a QSO line.
struct CccBinCounts {
  std::size_t records = 0;
  std::size_t rest = 0;    ///< bytes behind the last whole record
  Occurrences band_kept;   ///< unknown band code: the band of the record before
  Occurrences mode_kept;   ///< unknown mode code: the reports of the record before
  Occurrences power_kept;  ///< ARRL DX, unknown power code: the power of the record before
  Occurrences doubtful;    ///< an impossible date or time, an unknown band or mode: perhaps another contest
};

/// Makes one line a record. What a record does not say comes from the one before it, blank at first.
class CccTextLines {
 public:
  /// `fixed_power` stands in every line of an ARRL DX log in place of the record's power.
  explicit CccTextLines(const CccContest& contest, std::optional<std::string> fixed_power = std::nullopt);
  CccTextLines(const CccTextLines&) = delete;
  CccTextLines& operator=(const CccTextLines&) = delete;

  /// The text line of the next record, in UTF-8, valid until the next call. Control characters in its texts
  /// are blanks.
  const std::string& line_of(const CccRecord& rec);
  /// What the records held that is in no table; `records` and `rest` are 0.
  const CccBinCounts& counts() const { return counts_; }

 private:
  void take_codes(const CccRecord& rec);
  void take_power(std::uint32_t code);
  std::string_view text_of(std::string_view bytes);

  const CccContest& contest_;
  const std::optional<std::string> fixed_power_;
  std::string_view band_, rst_, power_;
  std::size_t number_ = 0;  ///< of the record
  CccBinCounts counts_;
  CodePage code_page_;
  std::string decoded_;  ///< a text that is not as it stands in the record
  std::string line_;
};

/// Puts the text log of a binary one, first line included. `record_size` is one of the contest's layout.
/// Throws RunTimeError 6 for more than 32767 records, and what the sink throws.
CccBinCounts put_ccc_text(RecordReader& log, std::size_t record_size, const CccContest& contest,
                          std::optional<std::string> fixed_power, std::string_view version, LineSink& text);

}  // namespace varnisto
