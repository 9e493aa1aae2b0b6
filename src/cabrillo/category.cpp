#include "cabrillo/category.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "cabrillo/contest.h"
#include "core/contests.h"
#include "core/entry.h"

namespace varnisto {
namespace {

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

/// The band word by the band counts, overruled by a band that a scan or the dialog has named.
std::string_view band_word(const State& state) {
  const EntryChoice& entry = state.entry;
  if (entry.band_sel) return names_of(*entry.band_sel).megahertz;
  return names_of(only_band_worked(state.log.tally).value_or(Band::all)).summary_word;
}

Mode mode_of_entry(const State& state) {
  if (dialog_wins(state)) return state.entry.mode;
  if (state.settings.mode_2_rtty_flag) return Mode::rtty;  // the box names mode and contest RTTY
  return counted_mode(state.log.tally);
}

/// `cont_id` from the title; returns the title.
std::string set_contest_code(App& app) {
  ContestState& contest = app.state.log.contest;
  const InputKind kind = app.state.log.input.in_kind;
  std::string title = kind == InputKind::zlog_zlo ? contest.zlo_title : contest.contest_name;
  contest.cont_id = title;
  if (!names_of(kind).is_ccc)
    map_title_to_code(app);
  else if (const auto code = ccc_type_code(contest.ccc_cont_type))
    contest.cont_id = *code;
  return title;
}

}  // namespace

std::string_view operator_cat(const State& state) {
  const OperatorNames& names = names_of(state.entry.op);
  const InputKind kind = state.log.input.in_kind;
  const bool from_records = kind == InputKind::zlog_zlo || names_of(kind).is_ccc;
  return from_records && state.log.contest.select_from != SelectFrom::za2c_zsm ? names.text : names.name;
}

std::optional<Band> only_band_worked(const TallyState& tally) {
  const auto& rows = tally.band_tally;
  const auto worked = [](const BandTally& row) { return row.qso_cnt > 0; };
  if (std::ranges::count_if(rows, worked) != 1) return std::nullopt;
  return band_at(static_cast<std::size_t>(std::ranges::find_if(rows, worked) - rows.begin()));
}

Mode counted_mode(const TallyState& tally) {
  struct ModeCount {
    std::int16_t count;
    Mode mode;
  };
  const ModeCount counts[] = {{tally.cw_count, Mode::cw},
                              {tally.ssb_count, Mode::ssb},
                              {tally.rty_count, Mode::rtty},
                              {tally.fm_count, Mode::fm}};
  const auto used = [](const ModeCount& row) { return row.count > 0; };
  return std::ranges::count_if(counts, used) == 1 ? std::ranges::find_if(counts, used)->mode : Mode::mixed;
}

std::string score_detail_of(const TallyState& tally) {
  return std::to_string(tally.total_score) + " " + std::to_string(tally.qsos_total) + "-" +
         std::to_string(tally.points_total) + "-" +
         std::to_string(std::int64_t{tally.multi1_total} + tally.multi2_total);
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

std::string jidx_category_code(std::string_view operator_text, std::string_view band,
                               std::string_view power) {
  if (to_upper(trim(operator_text)) != "SINGLE-OP") return "MOP";
  const std::string_view wanted = trim(band);
  const auto hit = std::ranges::find_if(band_table, [&](const BandNames& names) {
    return wanted == names.megahertz || wanted == names.cabrillo || wanted == names.summary_word;
  });
  const BandNames& names = hit == band_table.end() ? names_of(Band::all) : *hit;
  return std::string{names.jidx} + (power == name_of(Power::low) ? "L" : "");
}

void apply_texts(App& app, const CategoryWords& words) {
  CategoryTexts texts = category_texts(app.state.log.contest.cont_id, words);
  app.state.log.contest.contest = std::move(texts.contest);
  app.state.log.contest.cont_id = std::move(texts.code);
  app.state.log.category.cat_summary = std::move(texts.summary);
}

void apply_jidx(App& app, std::string_view operator_text, const CategoryWords& words) {
  State& state = app.state;
  state.log.category.cat_summary = jidx_category_code(operator_text, words.band, words.power);
  state.log.contest.cont_id = trim(words.mode) == "CW" ? "JIDX-CW" : "JIDX-PH";
  state.log.contest.contest = state.log.contest.cont_id;
  state.log.tally.score_detail = score_detail_of(state.log.tally);
}

void set_category_cbr(App& app) {
  app.trace.line("Public Sub set_category_cbr()");
  ContestState& contest = app.state.log.contest;
  CategoryState& category = app.state.log.category;
  if (app.state.entry.band_sel) category.cat_band = names_of(*app.state.entry.band_sel).cabrillo;
  const std::string title = set_contest_code(app);
  const std::string operator_text{operator_cat(app.state)};
  const CategoryWords words{operator_text + " ", std::string{band_word(app.state)}, category.cat_band,
                            std::string{name_of(app.state.entry.power)},
                            std::string{names_of(mode_of_entry(app.state)).word}};
  if (family_of(contest.cont_id) == ContestFamily::jidx)
    apply_jidx(app, operator_text, words);
  else
    apply_texts(app, words);
  contest.contest_line = title;
  category.cat_summary = remove_all(to_upper(single_blanks(category.cat_summary)), "BAND");
  category.cat_summary = single_dashes(category.cat_summary);
  contest.contest = single_dashes(contest.contest);
}

}  // namespace varnisto
