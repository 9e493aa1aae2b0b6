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
};

/// What was written, and what its user might not expect. Numbers are those of records, the head being 1.
struct ZloWritten {
  ZloCount count;
  /// QSOs whose mode or band has no name in Cabrillo or none at all: their lines carry that of an earlier
  /// one.
  Occurrences unnamed_mode, unnamed_band;
  /// The latter without those whose memo gives the frequency.
  Occurrences unnamed_frequency;
};

/// Writes the rest of the log, title lines first; a log without QSOs has these alone. Throws RunTimeError 6
/// naming the record: a date outside the years 100 to 9999, a report above 32767, more than 32,767 records;
/// what the log and the sinks throw.
ZloWritten write_zlo_files(ZloReader& log, const ZloWriting& to);

}  // namespace varnisto
