#pragma once
// The entrant's choices: what taking one changes, and how the settings keep power and operator.

#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// Takes a power, in the category text and the settings too, and writes the settings.
void choose_power(App& app, Power power);
/// Puts the chosen power into the category text again and writes the settings.
void reset_power(App& app);

/// Takes an operator category as the main window offers it, with transmitter and station, and writes the
/// settings.
void choose_operator(App& app, Operator op);

/// Takes what a dialog chose; power and operator go into category text and settings. The settings are left to
/// be written.
void take_entry(App& app, const EntryChoice& entry);

/// Takes power and operator from the settings: LOW and SINGLE-OP where they name none.
void restore_options(App& app);

/// The entry that the next log begins with: power and operator stay.
EntryChoice entry_of_next_log(const EntryChoice& entry);

/// CATEGORY-OPERATOR value.
std::string_view cat_operator_of(const EntryChoice& entry);

/// True when the selection dialog was confirmed for this log and its choices win over the logger's summary.
bool dialog_wins(const State& state);
/// Operator, power and mode as header values: the category text of an entry whose dialog wins.
std::string dialog_category(const EntryChoice& entry);

}  // namespace varnisto
