#pragma once
// The way back: from a Cabrillo log to the text layout of the logger.

#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// Column titles, the first line of such a text.
inline constexpr std::string_view zlog_text_titles =
    "mon day time  callsign      sent         rcvd      multi   MHz mode pts memo";

/// Appends to `out` the logger's line for one Cabrillo QSO line, read at the columns of seven-character
/// exchanges. A line that ends early gives shorter fields.
void append_zlog_text_line(std::string_view qso_line, std::string& out);

/// Band in MHz of a Cabrillo frequency field (five characters): " 7000" gives " 7", " 1900" gives "1.8".
std::string zlog_text_band(std::string_view freq5);

/// Writes `out_name` from the Cabrillo log `in_name`: titles, one line a QSO. Sets `qsos_written`. Throws
/// Refusal when there is none, RunTimeError for files.
void cbr_2_zlog_txt(App& app);

}  // namespace varnisto
