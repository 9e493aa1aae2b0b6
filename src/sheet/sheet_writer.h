#pragma once
// Writes the program's own summary sheet: a text file in the logger's summary layout.

#include <string>
#include <string_view>
#include <vector>

#include "base/text_writer.h"
#include "core/app.h"

namespace varnisto {

/// The general sheet: QSOs, points, multipliers. This and the other three take title, category, tallies and
/// score as they stand and replace the sheet. Throw RunTimeError for files, NotAvailable for CCC logs.
void make_za2c_zsm(App& app);
/// CQ WW and JIDX: zones and countries; sets `score_detail`.
void make_za2c_zsm_CQWW(App& app);
/// CQ WPX: prefixes below the table.
void make_za2c_zsm_CQWPX(App& app);
/// WAEDC: QTCs and weighted multipliers.
void make_za2c_zsm_WAEDC(App& app);
/// The general sheet under the contest's name, "contest" when that is not known; a missing cont_name.txt is
/// made.
void Make_zlo2_za2c_zsm2(App& app);

/// Puts everything behind the score line, ends the sheet, and offers it in the main window.
void make_za2c_zsm_etc(App& app, TextWriter& sheet);

/// Contest title of a log's own sheet. Throws NotAvailable for CCC logs.
std::string sheet_title(const App& app);
/// The sheet's lines of one settings line "KEY=value": none, one, or two.
std::vector<std::string> sheet_lines_of_setting(std::string_view line);

/// Keeps the contest chosen last in cont_name.txt. That it cannot be written is a notice.
void write_cont_name(App& app, std::string_view name);

}  // namespace varnisto
