#pragma once
// The logger's summary (.zsm): contest title, category line, claimed score.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_reader.h"
#include "core/app.h"

namespace varnisto {

/// Prepares a zLog ALL log that was just opened: reads the logger's summary, or lets the user choose contest
/// and category, and shows what was found.
void shori_zlog_all(App& app);

/// Reads the logger's summary `zsm_use_name`: contest title, category text, claimed score. Throws
/// RunTimeError 13 for a score that is no number, ProgramEnd when the category line has fewer than four
/// words.
void read_zlog_zsm(App& app);
/// The same from an open file.
void read_summary(App& app, TextReader reader);

/// Splits the category text of the logger's summary into words and sets the category values; selects the
/// operator option that the first word names. Throws ProgramEnd, after a message, with fewer than four words.
void sep_space_zlog_zsm(App& app);
/// The same when the log is written, with the contest code of the title. Throws RunTimeError 9 for too few
/// words.
void sep_space_cbr(App& app);

/// A category text with an assisted "Single-op A" made one word and double blanks made one.
std::string join_assisted(std::string_view cat_text);
/// Words of a category text: an assisted "Single-op A" is one word, double blanks are one.
std::vector<std::string> category_line_words(std::string_view cat_text);
/// Whole number of a score text; thousands commas may be in it. Throws RunTimeError 13 naming `where` for any
/// other text, 6 beyond 32 bits.
std::int32_t score_value(std::string_view text, const std::string& where);

/// Lets the user choose contest and category. A dialog left without OK changes neither. True after OK.
bool show_select_cont(App& app);

/// The overlay dialog, when the title of the logger's summary is CQ WPX's and there is a list of overlays.
void open_overlay_of_title(App& app);
/// Tells in the text box which powers a JIDX contest of this title knows.
void show_jidx_powers(App& app, const std::string& title);

/// True while contest and category of the open log are known from nowhere: no summary, no dialog.
bool needs_selection(const App& app);

/// Takes summary name, score, contest, call sign and category as the texts of the main window's four labels.
void show_summary(App& app);
/// "県No " and the first two characters of the prefecture number, for the power label in JIDX.
std::string jidx_power_label(const Settings& settings);

}  // namespace varnisto
