#pragma once
// The one walk over the QSO records of a ZLO log: every pass over the file is one of these.

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/notes.h"
#include "records/zlo_reader.h"

namespace varnisto {

/// What a whole walk has met.
struct ZloCount {
  std::int64_t records = 0;  ///< QSO records, invalid ones too: what the logger's own count counts
  std::int64_t qsos = 0;     ///< those that are not invalid
  Occurrences invalid;       ///< QSOs that were passed over; their numbers are those of their records
  std::vector<std::uint16_t> passed_over;  ///< the numbers of their records, ascending
};

class ZloWalk {
 public:
  /// Walks over the rest of the log. Mode and band begin blank.
  explicit ZloWalk(ZloReader& log) : log_(log) {}

  /// Goes on to the next QSO; one that is marked invalid is passed over, whatever else it holds. False at the
  /// end. Throws RunTimeError 6 for too many records, 57.
  bool next();

  /// The QSO that next() has found. Texts stay valid until it is called again.
  const ZloQso& qso() const { return qso_; }
  /// Mode and band texts; a code outside the tables keeps the text of the QSO before.
  std::string_view mode() const { return mode_; }
  std::string_view band() const { return band_; }

  const ZloReader& log() const { return log_; }
  const ZloCount& count() const { return count_; }

 private:
  ZloReader& log_;
  ZloQso qso_;
  std::string_view mode_, band_;
  ZloCount count_;
};

}  // namespace varnisto
