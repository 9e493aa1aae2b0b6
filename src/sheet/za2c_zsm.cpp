#include "sheet/za2c_zsm.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/checked_int.h"
#include "base/files.h"
#include "base/text.h"
#include "cabrillo/category.h"
#include "cabrillo/summary.h"
#include "core/main_options.h"
#include "sheet/score.h"
#include "sheet/sheet_writer.h"
#include "sheet/tally.h"

namespace varnisto {
namespace {

constexpr std::array<std::string_view, band_count> band_texts = {"1.9 MHz", "3.5 MHz", "7 MHz",
                                                                 "14 MHz",  "21 MHz",  "28 MHz"};
constexpr std::size_t ten_metres = 5;

struct ModeText {
  std::string_view mode, text;
};
constexpr ModeText mode_texts[] = {{"PH", "Ph"}, {"RY", "Rtty"}, {"FM", "Fm"}};

/// The log's mode as a sheet names it.
std::string_view mode_text_of(const TallyState& tally) {
  const std::string_view mode = counted_mode(tally);
  const auto* hit = std::ranges::find(mode_texts, mode, &ModeText::mode);
  return hit == std::end(mode_texts) ? mode : hit->text;
}

struct SheetRow {
  std::string_view cont_id;
  void (*write)(App&);
};
constexpr SheetRow sheet_rows[] = {{"CQ-WW", make_za2c_zsm_CQWW},
                                   {"JIDX", make_za2c_zsm_CQWW},
                                   {"CQ-WPX", make_za2c_zsm_CQWPX},
                                   {"WAEDC", Make_zlo2_za2c_zsm1_WAEDC}};

void write_sheet_of_contest(App& app) {
  const auto* hit = std::ranges::find(sheet_rows, app.state.contest.cont_id, &SheetRow::cont_id);
  hit == std::end(sheet_rows) ? make_za2c_zsm(app) : hit->write(app);
}

/// Draws one option in blue and the others in black, whatever is selected.
void mark_option(OptionGroup& group, int index) {
  group.color_all(Color::black);
  if (index >= 0 && index < static_cast<int>(group.options.size()))
    group.options[static_cast<std::size_t>(index)].color = Color::blue;
}

void mark_matching_options(App& app) {
  const CategoryState& category = app.state.category;
  mark_option(app.main.Option3, operator_option_named(to_upper(category.zsm_operator)));
  for (int index = 0; index < static_cast<int>(app.main.Option1.options.size()); ++index)
    if (power_word_of(index) == category.power_cat) mark_option(app.main.Option1, index);
}

void tally_and_score(App& app) {
  tally_log(app, all_tally);
  const std::string title = sheet_title(app);
  set_sheet_code(app, title);
  TallyState& tally = app.state.tally;
  if (const auto score = score_of(title, tally))
    set_score(tally, *score);
  else if (app.state.input.in_kind ==
           "zlog_all")  // no rule of its own: what the dialog reckons for every log
    set_score(tally, multiply_i32(tally.multi1_total, tally.points_total, "total_score"));
  if (app.state.contest.cont_id == "JIDX") tally.score_detail = score_detail_of(tally);
}

}  // namespace

SheetCategory sheet_category(const TallyState& tally, std::string_view cont_id,
                             std::string_view operator_text, std::string_view dialog_mode) {
  const auto band = cont_id == "ARRL-10" ? std::optional{ten_metres} : only_band_worked(tally);
  const std::string_view band_text = band ? band_texts.at(*band) : "All Band";
  const std::string_view band_value =
      band ? cabrillo_band_of(static_cast<std::int16_t>(*band + 1)) : band_text;
  const std::string start = std::string{operator_text.empty() ? "Single-op" : operator_text} + " ";
  const std::string end = " " + std::string{dialog_mode.empty() ? mode_text_of(tally) : dialog_mode};
  return {single_blanks(start + std::string{band_text} + end),
          single_blanks(start + std::string{band_value} + end)};
}

void set_category_za2c_zsm(App& app) {
  app.trace.line("Public Sub set_category_za2c_zsm()");
  CategoryState& category = app.state.category;
  const bool dialog_wins = app.state.settings.select_cont_yusen == "1";
  const SheetCategory texts =
      sheet_category(app.state.tally, app.state.contest.cont_id, category.zsm_operator,
                     dialog_wins ? std::string_view{category.dialog_mode} : "");
  category.zsm_category = texts.printed;
  category.cat_text = texts.with_band;
  category.cat_band = cabrillo_band_of(category.band_sel);
  show_summary(app);
  mark_matching_options(app);
}

void Make_zlo2_za2c_zsm1(App& app) {
  app.trace.line("Public Sub Make_zlo2_za2c_zsm1()");
  tally_and_score(app);
  set_category_za2c_zsm(app);
  write_sheet_of_contest(app);
}

void Make_zlo2_za2c_zsm1_WAEDC(App& app) {
  app.trace.line("Public Sub Make_zlo2_za2c_zsm1_WAEDC()");
  tally_log(app, waedc_tally);
  app.state.contest.cont_id = "WAEDC";
  set_score(app.state.tally, waedc_score(app.state.tally));
  make_za2c_zsm_WAEDC(app);
}

void make_listed_contest_zsm(App& app) {
  tally_and_score(app);
  set_category_za2c_zsm(app);
  if (!file_exists(app.state.input.zsm_name)) Make_zlo2_za2c_zsm2(app);
}

}  // namespace varnisto
