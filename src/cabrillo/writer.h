#pragma once
// Writes the Cabrillo log of a zLog text log: header, one line a QSO, closing tag.

#include "cabrillo/all_line.h"
#include "core/app.h"

namespace varnisto {

/// What the user reads when a log holds no QSO.
inline constexpr std::string_view no_qso_text = "ログに交信データがありません。";
/// And what of a file that is something else.
inline constexpr std::string_view no_all_log_text = "zLog の ALL ファイルではありません。";

/// How the lines of the opened log are read; without `rtty` the option that makes every mode "RY" is left
/// out.
AllOptions all_options(const App& app, bool rtty);

/// Writes the Cabrillo file of an ALL log whose category comes from the logger's summary. Sets `out_name` and
/// `qsos_written`. Throws Refusal when the log has no QSO line (earlier outputs stay), RunTimeError for
/// files.
void zlog_all_zsm_print(App& app);
/// The same for a log whose category comes from the program's own dialogs; reads the converted `z2a_name` for
/// ZLO.
void zlog_all_za2c_print(App& app);

}  // namespace varnisto
