#include "core/main_options.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"
#include "core/settings.h"

namespace varnisto {
namespace {

constexpr std::array<std::string_view, 3> power_words = {"HIGH", "LOW", "QRP"};

struct OperatorRow {
  std::string_view operator_cat, cat_operator;
  std::string_view cat_assisted;  ///< empty: unchanged
  std::string_view cat_station, cat_transmitter;
  std::int16_t multi_tx;
};

constexpr std::array<OperatorRow, 7> operator_rows = {{
    {"SINGLE-OP", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
    {"SINGLE-OP-ASSISTED", "SINGLE-OP", "ASSISTED", "FIXED", "ONE", 0},
    {"SCHOOL-CLUB", "MULTI-OP", "", "SCHOOL", "UNLIMITED", 0},
    {"MULTI-ONE", "MULTI-OP", "", "FIXED", "ONE", 0},
    {"MULTI-TWO", "MULTI-OP", "", "FIXED", "TWO", 1},
    {"MULTI-MULTI", "MULTI-OP", "", "FIXED", "UNLIMITED", 1},
    {"CHECKLOG", "CHECKLOG", "", "FIXED", "UNLIMITED", 0},
}};

struct FlagBox {
  CheckBox MainForm::*box;
  std::string Settings::*flag;
};

constexpr FlagBox flag_boxes[] = {
    {&MainForm::Check1, &Settings::pad_use_flag},        {&MainForm::Check2, &Settings::mode_2_rtty_flag},
    {&MainForm::Check3, &Settings::for_eqsl_flag},       {&MainForm::Check4, &Settings::get_freq_flag},
    {&MainForm::Check5, &Settings::freq19_to_18_flag},   {&MainForm::Check6, &Settings::jst_to_utc_flag},
    {&MainForm::Check7, &Settings::tenki_flag},          {&MainForm::Check8, &Settings::add_qtc_flag},
    {&MainForm::Check9, &Settings::e_mail_subject_flag},
};

/// The option that a stored digit names, or `fallback` when it names none.
int stored_option(std::string_view stored, int count, int fallback) {
  const std::string_view digit = trim(stored);
  const int index = digit.size() == 1 ? digit.front() - '0' : -1;
  return index >= 0 && index < count ? index : fallback;
}

/// What choosing a power does short of writing the settings.
void apply_power(App& app, int index) {
  app.main.Option1.selected = index;
  CategoryState& category = app.state.category;
  category.power_cat = power_word_of(index);
  category.power_index = static_cast<std::int16_t>(index);
  for (const std::string_view other : power_words)
    if (other != category.power_cat)
      category.cat_summary = replace_all(category.cat_summary, other, category.power_cat);
  app.state.settings.power_sel = std::to_string(index);
  Op1_Chk(app);
}

/// What choosing an operator category does short of writing the settings.
void apply_operator(App& app, int index) {
  app.main.Option3.selected = index;
  app.state.category.operator_cat = operator_name_of(index);
  app.state.settings.operator_sel = std::to_string(index);
  Option3_Check(app);
  op3_chk(app);
}

}  // namespace

std::string_view power_word_of(int index) {
  return power_words.at(static_cast<std::size_t>(index));
}

std::string_view operator_name_of(int index) {
  return operator_rows.at(static_cast<std::size_t>(index)).operator_cat;
}

int operator_option_named(std::string_view name) {
  const auto hit = std::ranges::find(operator_rows, name, &OperatorRow::operator_cat);
  return hit == operator_rows.end() ? -1 : static_cast<int>(hit - operator_rows.begin());
}

void Option1_Click(App& app, int index) {
  app.trace.line("Private Sub Option1_Click()");
  apply_power(app, index);
  write_current_settings(app);
}

void reset_power(App& app) {
  app.trace.line("Public Sub reset_power()");
  if (app.main.Option1.selected < 0) return;
  apply_power(app, app.main.Option1.selected);
  app.state.category.cat_power = app.state.category.power_cat;
  write_current_settings(app);
}

void Op1_Chk(App& app) {
  app.main.Option1.color_selected();
}

void Varnisto_op1_color_0(App& app) {
  app.main.Option1.color_all(Color::black);
}

void Option3_Click(App& app, int index) {
  app.trace.line("Private Sub Option3_Click()");
  apply_operator(app, index);
  write_current_settings(app);
}

void Option3_Check(App& app) {
  app.trace.line("Public Sub Option3_Check()");
  const int index = app.main.Option3.selected;
  if (index < 0) return;
  const OperatorRow& row = operator_rows.at(static_cast<std::size_t>(index));
  CategoryState& category = app.state.category;
  category.cat_operator = row.cat_operator;
  if (!row.cat_assisted.empty()) category.cat_assisted = row.cat_assisted;
  category.cat_station = row.cat_station;
  category.cat_transmitter = row.cat_transmitter;
  category.multi_tx = row.multi_tx;
  category.operator_index = static_cast<std::int16_t>(index);
}

void op3_chk(App& app) {
  app.main.Option3.color_selected();
}

void Varnisto_op3_color_0(App& app) {
  app.main.Option3.color_all(Color::black);
}

void store_check_box(App& app, int number) {
  const FlagBox& pair = flag_boxes[number - 1];
  (app.state.settings.*pair.flag).assign(1, (app.main.*pair.box).checked ? '1' : '0');
}

void restore_options(App& app) {
  app.trace.line("Public Sub restore_options()");
  Settings& settings = app.state.settings;
  for (const FlagBox& pair : flag_boxes) (app.main.*pair.box).checked = settings.*pair.flag == "1";
  apply_power(app, stored_option(settings.power_sel, power_words.size(), 1));
  apply_operator(app, stored_option(settings.operator_sel, operator_rows.size(), 0));
}

void save_options(App& app) {
  app.trace.line("Public Sub save_options()");
  Settings& settings = app.state.settings;
  for (int number = 1; number <= static_cast<int>(std::size(flag_boxes)); ++number)
    store_check_box(app, number);
  if (app.main.Option1.selected >= 0) settings.power_sel = std::to_string(app.main.Option1.selected);
  if (app.main.Option3.selected >= 0) settings.operator_sel = std::to_string(app.main.Option3.selected);
}

}  // namespace varnisto
