#pragma once
// Writes the text log (ALL) and the JARL log sheet of a ZLO log.

#include "base/line_sink.h"
#include "zlo/zlo_walk.h"

namespace varnisto {

/// Where the lines go, and what differs from one writing to the other.
struct ZloWriting {
  LineSink& all;             ///< the text log
  LineSink* jarl = nullptr;  ///< the log sheet; none: it is not written
  bool transmitter = false;  ///< the text log names the transmitter, "TX#n"
  // The main window's choices that spare a QSO line its mode or its band:
  bool rtty = false;            ///< every mode counts as RTTY
  bool memo_frequency = false;  ///< the frequency in the memo replaces the band
};

/// What was written, and what its user might not expect. Numbers are those of records, the head being 1.
struct ZloWritten {
  ZloCount count;
  /// QSOs whose Cabrillo line carries the mode or band of an earlier one: a code outside the tables, or a
  /// mode or band that Cabrillo has no name for.
  Occurrences mode_kept, band_kept;
};

/// Writes the rest of the log, title lines first; a log without QSOs has these alone. Throws RunTimeError 6
/// naming the record: a date outside the years 100 to 9999, a report above 32767, more than 32,767 records;
/// what the log and the sinks throw.
ZloWritten write_zlo_files(ZloReader& log, const ZloWriting& to);

}  // namespace varnisto
