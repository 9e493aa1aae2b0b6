#include "cabrillo/category.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "cabrillo/contest.h"
#include "core/main_options.h"

namespace varnisto {
namespace {

/// A band under the names the category texts use, by `band_sel`.
struct BandNames {
  std::string_view dialog_word, cabrillo, summary_word, jidx;
};
constexpr std::array<BandNames, band_count + 1> band_table = {{{"ALL", "ALL", "All Band", "AB"},
                                                               {"1.9", "160M", "160m", "1.8"},
                                                               {"3.5", "80M", "80m", "3.5"},
                                                               {"7", "40M", "40m", "7"},
                                                               {"14", "20M", "20m", "14"},
                                                               {"21", "15M", "15m", "21"},
                                                               {"28", "10M", "10m", "28"}}};

constexpr std::array<std::string_view, 7> operator_texts = {
    "Single-op", "Single-op-Assisted", "School-Club", "Multi-One", "Multi-Two", "Multi-Multi", "CheckLog"};

/// How a contest code forms the CONTEST value.
enum class ContestForm { code, code_dash_mode, code_mode };
/// How it forms the category text behind the operator.
enum class SummaryForm { ten_power_mode, band_power, band_power_mode, value_power };

struct CodeRow {
  std::string_view code;
  ContestForm contest;
  SummaryForm summary;
  bool takes_mode = false;  ///< the contest code takes the mode as the CONTEST value does
};
constexpr CodeRow code_rows[] = {
    {"ARRL-10", ContestForm::code, SummaryForm::ten_power_mode},
    {"ARRL-DX", ContestForm::code_dash_mode, SummaryForm::band_power},
    {"ARRL-160", ContestForm::code, SummaryForm::band_power_mode},
    {"CQ-160", ContestForm::code_dash_mode, SummaryForm::band_power, true},
    {"IARU-HF", ContestForm::code, SummaryForm::band_power_mode},
    {"WAEDC-", ContestForm::code_mode, SummaryForm::band_power, true},
    {"", ContestForm::code, SummaryForm::band_power_mode},
};
constexpr CodeRow any_other_code = {"", ContestForm::code_dash_mode, SummaryForm::value_power};

std::string contest_value(ContestForm form, std::string_view code, const std::string& mode) {
  std::string value{code};
  if (form == ContestForm::code) return value;
  return (form == ContestForm::code_dash_mode ? value + "-" : value) + mode;
}

std::string summary_text(SummaryForm form, const CategoryWords& words) {
  switch (form) {
    case SummaryForm::ten_power_mode:
      return words.op + "10M " + words.power + " " + words.mode;
    case SummaryForm::band_power:
      return words.op + words.band + " " + words.power;
    case SummaryForm::band_power_mode:
      return words.op + words.band + " " + words.power + " " + words.mode;
    case SummaryForm::value_power:
      break;
  }
  return words.op + words.band_value + " " + words.power;
}

/// The band word by the band counts, overruled by a band that a scan or the dialog has set.
void set_band_word(App& app) {
  CategoryState& category = app.state.category;
  const auto only_band = only_band_worked(app.state.tally);
  category.band_word = band_table.at(only_band ? *only_band + 1 : 0).summary_word;
  if (!category.band_sel_known) return;
  category.band_word = band_word_of(category.band_sel);
  category.cat_band = cabrillo_band_of(category.band_sel);
}

void set_mode_word(App& app) {
  CategoryState& category = app.state.category;
  std::string mode{counted_mode(app.state.tally)};
  if (app.state.settings.mode_2_rtty_flag == "1") mode = "RY";  // the box names mode and contest RTTY
  if (app.state.settings.select_cont_yusen == "1" && !category.dialog_mode.empty())
    mode = category.dialog_mode;
  if (mode == "PH")
    mode = "SSB ";
  else if (mode == "CW" || mode == "FM")
    mode += " ";
  else if (mode == "RY" || mode == "RTY")
    mode = "RTTY ";
  category.mode_word = mode;
}

/// `cont_id` from the title; returns the title.
std::string set_contest_code(App& app) {
  ContestState& contest = app.state.contest;
  std::string title = app.state.input.in_kind == "zlog_zlo" ? contest.zlo_title : contest.contest_name;
  contest.cont_id = title;
  if (!contains(app.state.input.in_kind, "ccc"))
    map_title_to_code(app);
  else if (const auto code = ccc_type_code(contest.ccc_cont_type))
    contest.cont_id = *code;
  return title;
}

}  // namespace

std::string_view operator_text_of(int index) {
  return operator_texts.at(static_cast<std::size_t>(index));
}

std::optional<std::size_t> only_band_worked(const TallyState& tally) {
  const auto& rows = tally.band_tally;
  const auto worked = [](const BandTally& row) { return row.qso_cnt > 0; };
  if (std::ranges::count_if(rows, worked) != 1) return std::nullopt;
  return static_cast<std::size_t>(std::ranges::find_if(rows, worked) - rows.begin());
}

std::string_view counted_mode(const TallyState& tally) {
  struct ModeCount {
    std::int16_t count;
    std::string_view mode;
  };
  const ModeCount counts[] = {
      {tally.cw_count, "CW"}, {tally.ssb_count, "PH"}, {tally.rty_count, "RY"}, {tally.fm_count, "FM"}};
  const auto used = [](const ModeCount& row) { return row.count > 0; };
  return std::ranges::count_if(counts, used) == 1 ? std::ranges::find_if(counts, used)->mode
                                                  : std::string_view{"Mixed"};
}

std::string score_detail_of(const TallyState& tally) {
  return std::to_string(tally.total_score) + " " + std::to_string(tally.qsos_total) + "-" +
         std::to_string(tally.points_total) + "-" +
         std::to_string(std::int64_t{tally.multi1_total} + tally.multi2_total);
}

std::string_view cabrillo_band_of(std::int16_t band_sel) {
  return band_table.at(static_cast<std::size_t>(band_sel)).cabrillo;
}

std::string_view band_word_of(std::int16_t band_sel) {
  return band_table.at(static_cast<std::size_t>(band_sel)).dialog_word;
}

std::string single_dashes(std::string_view text) {
  return replace_all(text, "--", "-");
}

CategoryTexts category_texts(std::string_view code, const CategoryWords& words) {
  const auto* hit = std::ranges::find(code_rows, code, &CodeRow::code);
  const CodeRow& row = hit == std::end(code_rows) ? any_other_code : *hit;
  CategoryTexts texts{contest_value(row.contest, code, words.mode), summary_text(row.summary, words),
                      std::string{code}};
  if (row.takes_mode) texts.code = trim(texts.contest);
  return texts;
}

std::string jidx_category_code(std::string_view operator_cat, std::string_view band, std::string_view power) {
  if (to_upper(trim(operator_cat)) != "SINGLE-OP") return "MOP";
  const std::string_view wanted = trim(band);
  const auto hit = std::ranges::find_if(band_table, [&](const BandNames& names) {
    return wanted == names.dialog_word || wanted == names.cabrillo || wanted == names.summary_word;
  });
  const std::string_view code = hit == band_table.end() ? std::string_view{"AB"} : hit->jidx;
  return std::string{code} + (power == "LOW" ? "L" : "");
}

void apply_texts(App& app, const CategoryWords& words) {
  CategoryTexts texts = category_texts(app.state.contest.cont_id, words);
  app.state.contest.contest = std::move(texts.contest);
  app.state.contest.cont_id = std::move(texts.code);
  app.state.category.cat_summary = std::move(texts.summary);
}

void apply_jidx(App& app, std::string_view operator_cat, const CategoryWords& words) {
  State& state = app.state;
  state.category.jidx_category = jidx_category_code(operator_cat, words.band, words.power);
  state.category.cat_summary = state.category.jidx_category;
  state.contest.cont_id = trim(words.mode) == "CW" ? "JIDX-CW" : "JIDX-PH";
  state.contest.contest = state.contest.cont_id;
  state.tally.score_detail = score_detail_of(state.tally);
}

void set_category_cbr(App& app) {
  app.trace.line("Public Sub set_category_cbr()");
  ContestState& contest = app.state.contest;
  CategoryState& category = app.state.category;
  if (contest.select_from != "za2c_zsm") {
    category.operator_cat = operator_text_of(std::max(app.main.Option3.selected, 0));
    category.power_cat = power_word_of(std::max(app.main.Option1.selected, 0));
  }
  set_band_word(app);
  set_mode_word(app);
  if (category.operator_cat.empty()) category.operator_cat = operator_texts.front();

  const std::string title = set_contest_code(app);
  const CategoryWords words{category.operator_cat + " ", category.band_word, category.cat_band,
                            category.power_cat, category.mode_word};
  category.jidx_category.clear();
  if (contains(contest.cont_id, "JIDX")) {
    apply_jidx(app, category.operator_cat, words);
  } else {
    apply_texts(app, words);
  }
  contest.contest_line = title;
  category.cat_summary = remove_all(to_upper(single_blanks(category.cat_summary)), "BAND");
  category.cat_summary = single_dashes(category.cat_summary);
  contest.contest = single_dashes(contest.contest);
}

}  // namespace varnisto
