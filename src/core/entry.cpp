#include "core/entry.h"

#include <optional>

#include "base/text.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// The choice that a stored digit names, or `fallback` when it names none of `count`.
template <class Choice>
Choice stored_choice(std::string_view stored, std::size_t count, Choice fallback) {
  const std::string_view digit = trim(stored);
  const int option = digit.size() == 1 ? digit.front() - '0' : -1;
  return option >= 0 && option < static_cast<int>(count) ? choice_at<Choice>(option) : fallback;
}

void put_power_into_text(App& app) {
  const std::string_view chosen = name_of(app.state.entry.power);
  std::string& text = app.state.log.category.cat_summary;
  for (const std::string_view other : power_names)
    if (other != chosen) text = replace_all(text, other, chosen);
}

void take_power(App& app, Power power) {
  app.state.entry.power = power;
  put_power_into_text(app);
}

void take_operator(EntryChoice& entry, Operator op) {
  entry.op = op;
  entry.op_from_dialog = false;
  entry.transmitter = names_of(op).transmitter;
  entry.station = names_of(op).station;
}

}  // namespace

void choose_power(App& app, Power power) {
  app.trace.line("Private Sub Option1_Click()");
  take_power(app, power);
  app.state.settings.power_sel = std::to_string(option_of(power));
  write_current_settings(app);
}

void reset_power(App& app) {
  app.trace.line("Public Sub reset_power()");
  put_power_into_text(app);
  write_current_settings(app);
}

void choose_operator(App& app, Operator op) {
  app.trace.line("Private Sub Option3_Click()");
  take_operator(app.state.entry, op);
  app.state.settings.operator_sel = std::to_string(option_of(op));
  write_current_settings(app);
}

void take_entry(App& app, const EntryChoice& entry) {
  app.state.entry = entry;
  put_power_into_text(app);
  app.state.settings.power_sel = std::to_string(option_of(entry.power));
  app.state.settings.operator_sel = std::to_string(option_of(entry.op));
}

void restore_options(App& app) {
  app.trace.line("Public Sub restore_options()");
  const Settings& settings = app.state.settings;
  take_power(app, stored_choice(settings.power_sel, power_names.size(), Power::low));
  take_operator(app.state.entry,
                stored_choice(settings.operator_sel, operator_table.size(), Operator::single_op));
}

EntryChoice entry_of_next_log(const EntryChoice& entry) {
  EntryChoice next;
  next.power = entry.power;
  take_operator(next, entry.op);
  next.op_from_dialog = entry.op_from_dialog;
  return next;
}

std::string_view cat_operator_of(const EntryChoice& entry) {
  const OperatorNames& names = names_of(entry.op);
  return entry.op_from_dialog ? names.chosen_in_dialog : names.cat_operator;
}

bool dialog_wins(const State& state) {
  return state.entry.dialog_shown && state.settings.select_cont_yusen == Precedence::dialog;
}

std::string dialog_category(const EntryChoice& entry) {
  std::string text{cat_operator_of(entry)};
  return text.append(" ").append(name_of(entry.power)).append(" ").append(names_of(entry.mode).cat_mode);
}

}  // namespace varnisto
