#pragma once
// QTC lines of WAEDC in the Cabrillo log.

#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// A passed QTC as its Cabrillo line carries it: the series first, then the QSO that it reports.
struct QtcLine {
  std::string_view freq5, mode2, date, time;         ///< of the passing
  std::string_view receiver, group, number, sender;  ///< who passed which series to whom
  std::string_view qso_time, qso_call, qso_rcvd_nr;  ///< the reported QSO
};
/// Sets `out` to the "QTC: " line.
void put_qtc_line(const QtcLine& qtc, std::string& out);

/// Rewrites the Cabrillo log `out_name` from the ALL log: header as it is, QSO lines and QTC lines by time,
/// closing tag. Tells the user how many memos were incomplete. Leaves the log alone when the ALL log does not
/// begin with the logger's title. Throws RunTimeError 13 for a QSO without a date when times are converted.
void WAEDC_put(App& app);

}  // namespace varnisto
