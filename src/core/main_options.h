#pragma once
// The main window's power and operator options and its check boxes: what a choice sets in the category, and
// how the settings keep it.

#include "core/app.h"

namespace varnisto {

/// Selects a power (0 HIGH, 1 LOW, 2 QRP), puts it into the category text and the settings, and writes the
/// settings.
void Option1_Click(App& app, int index);
/// Applies the selected power again, CATEGORY-POWER included.
void reset_power(App& app);
/// Draws the selected power option in blue and the others in black.
void Op1_Chk(App& app);
/// Draws all power options in black.
void Varnisto_op1_color_0(App& app);

/// Selects an operator category (0 SINGLE-OP .. 6 CHECKLOG) with all its category values, and writes the
/// settings.
void Option3_Click(App& app, int index);
/// Applies the category values of the selected operator option.
void Option3_Check(App& app);
void op3_chk(App& app);
void Varnisto_op3_color_0(App& app);

/// Puts check box `number` (1 to 9) into its settings flag.
void store_check_box(App& app, int number);

/// Fills check boxes and option groups from the settings; the options with the effects of a click on them.
void restore_options(App& app);
/// Puts check boxes and option groups into the settings.
void save_options(App& app);

/// Power word of an option (0..2) and operator name of an option (0..6).
std::string_view power_word_of(int index);
std::string_view operator_name_of(int index);
/// The operator option whose name this is (exact, upper case), or -1.
int operator_option_named(std::string_view name);

}  // namespace varnisto
