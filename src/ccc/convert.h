#pragma once
// From a CCC text log to the work file that the Cabrillo writer reads, and to tallies and score.

#include <cstddef>

#include "base/line_sink.h"
#include "base/text_reader.h"
#include "ccc/qso.h"
#include "ccc/tally.h"
#include "core/notes.h"

namespace varnisto {

/// What a log held. Lines are told by their number in the log, from 1.
struct CccResult {
  CccTally tally;
  std::size_t qsos = 0;   ///< lines of the work file; 0: the log holds none
  Occurrences band_kept;  ///< QSOs with an unknown band that get a QSO line: the frequency of the line before
  Occurrences left_out;   ///< QSOs without received report, in contests that write no QSO line for them
};

/// Reads a text log from its first line, which only names the contest, to its end and puts one line a QSO
/// into the work file; null: only counts. Blank lines are no QSOs. Throws RunTimeError 6 when a counter or
/// the score overflows, and what reader and sink throw.
CccResult convert_ccc(TextReader& log, const CccContest& contest, const CccOptions& options, LineSink* work);

}  // namespace varnisto
