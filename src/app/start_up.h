#pragma once
// Start and end of the program.

#include <string>
#include <string_view>
#include <vector>

#include "core/app.h"

namespace varnisto {

/// The list files without which the program does not start, in the order in which they are checked.
std::vector<std::string_view> required_files();

/// Start-up: program folder, year, settings, required list files. Throws ProgramEnd, after a message, when a
/// list file is missing.
void Main(App& app, const std::string& program_folder);

/// Load of the main window: labels, menus, check of the settings, list files. Sets `ini_missing_flag` when
/// the settings do not allow a conversion.
void Form_Load(App& app);

/// The input label: the opened log, or what the user has to do first.
void show_input(App& app);
/// Shows `in_name` shortened, splits it, and makes its folder the output folder.
void Disp_in_name(App& app);
/// What settings of an older program need: the version of a test edition loses its "t", a version before 0.93
/// (of an INI, not of the legacy file) wrote only the island's name, and without an island it is Honshu.
void settle_old_settings(Settings& settings, bool from_ini);

/// Exit: deletes scratch files, saves options and settings, counts the run.
void owari_Click(App& app);

}  // namespace varnisto
