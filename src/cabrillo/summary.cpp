#include "cabrillo/summary.h"

#include <algorithm>
#include <iterator>

#include "base/checked_int.h"
#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/category.h"
#include "cabrillo/contest.h"
#include "core/contests.h"
#include "core/entry.h"

namespace varnisto {
namespace {

constexpr std::string_view label_call = "Call sign:", label_category = "Category:",
                           label_score = "Total score :";

/// Positions of the words in a category line; word 2 is the unit "MHz" or "Band".
constexpr std::size_t word_operator = 0, word_band = 1, word_mode = 3, words_needed = 4;

/// The band word of a category text; sets the CATEGORY-BAND value.
std::string take_band(CategoryState& category, const std::string& text) {
  const auto band = text == names_of(Band::all).second ? Band::all : band_of_megahertz(text);
  category.cat_band = band ? std::string{names_of(*band).cabrillo} : text + "M";
  return band ? category.cat_band + " " : text;
}

/// The mode word of a category text; sets the CATEGORY-MODE value. "Mixed" and unknown words say nothing.
std::string take_mode(EntryChoice& entry, std::string_view text) {
  const auto mode = mode_of_word(to_upper(text));
  if (!mode) return "";
  entry.mode = *mode;
  return std::string{names_of(*mode).cat_mode} + " ";
}

/// Sets band and mode from the words of the category line and rebuilds CONTEST value and category text.
void apply_words(App& app, const std::vector<std::string>& words) {
  CategoryState& category = app.state.log.category;
  const std::string band = take_band(category, words[word_band]);
  const std::string mode = take_mode(app.state.entry, words[word_mode]);
  const CategoryWords texts{words[word_operator] + " ", band, category.cat_band,
                            std::string{name_of(app.state.entry.power)}, mode};
  if (family_of(app.state.log.contest.cont_id) == ContestFamily::jidx)
    return apply_jidx(app, operator_cat(app.state), texts);
  apply_texts(app, texts);
}

[[noreturn]] void refuse_category(App& app) {
  const std::string refusal =
      "[　" + app.state.log.input.zsm_use_name + " ] の Category 項目数が足りません。";
  message_box(app, {lines({refusal, "", "読み込んだデータ ：  " + app.state.log.category.cat_text, "",
                           "下記の例の様に項目数は４ヶ必要です。", "", "Category: Single-op 28 MHz Ph", "",
                           "Category: Single-op All Band Mixed", "",
                           "再度正しくｚＬｏｇにて作成し直すか、削除して下さい。"}),
                    "　　Category 項目数が足りません。", Icon::critical});
  throw ProgramEnd(refusal);
}

/// What one line of the summary says; most lines say nothing.
void read_summary_line(App& app, std::string_view line, const std::string& place) {
  if (contains(line, label_call)) return;
  if (contains(line, label_category)) {
    app.state.log.category.cat_text = trim(remove_all(line, label_category));
    const std::string upper = to_upper(line);
    if (contains(upper, "PH"))
      app.state.log.category.zsm_mode = Mode::ssb;
    else if (contains(upper, "CW"))
      app.state.log.category.zsm_mode = Mode::cw;
  } else if (contains(line, label_score)) {
    const std::string text = remove_all(line, label_score);
    const std::string_view score = trim(std::string_view{text}.substr(0, text.find('=')));
    app.state.log.tally.total_score = score_value(score, place);
  }
}

/// The dialogs that a title in the logger's summary calls for.
void open_dialogs_of_title(App& app) {
  const std::string title = app.state.log.contest.contest_name;
  open_overlay_of_title(app);
  const ContestFamily family = family_of(title);
  if (family == ContestFamily::jidx) show_jidx_powers(app, title);
  if (family == ContestFamily::jidx || family == ContestFamily::iota) show_select_cont(app);
}

void show_power(App& app) {
  const std::string& title = app.state.log.contest.contest_name;
  if (contains(title, "ARRL International DX Contest") &&
      app.state.log.input.in_kind == InputKind::zlog_all) {
    get_power_all(app, app.state.log.scan);
    app.state.log.labels.power = power_label(app.state.log.scan);
    // The selection dialog offers the log's power by itself; what was confirmed there holds.
    if (!app.state.entry.dialog_shown) select_power_of_log(app);
  }
  if (family_of(title) == ContestFamily::jidx)
    app.state.log.labels.power = jidx_power_label(app.state.settings);
}

}  // namespace

void open_overlay_of_title(App& app) {
  if (!contains(app.state.log.contest.contest_name, "WPX") ||
      !file_exists(app.state.program.app_dir + "OVERLAY.txt"))
    return;
  app.state.log.category.overlay_caller = OverlayCaller::summary;
  app.desk.show(FormName::frmOVERLAY);
}

void show_jidx_powers(App& app, const std::string& title) {
  show_text(app,
            lines({"ｺﾝﾃｽﾄ 名 ： " + title, "            High Power(出力100wを超える局),",
                   "            Low Power(出力100w以下の局)"}),
            Color::green);
}

std::string jidx_power_label(const Settings& settings) {
  return "県No " + std::string{left(settings.jidx_no, 2)};
}

std::string join_assisted(std::string_view cat_text) {
  std::string text{cat_text};
  if (contains(to_upper(text), "ASSISTED"))
    text = replace_all(replace_all(text, "Single-op A", "Single-op-A"), "Single-op a", "Single-op-A");
  return single_blanks(text);
}

std::vector<std::string> category_line_words(std::string_view cat_text) {
  return split(join_assisted(cat_text), ' ');
}

std::int32_t score_value(std::string_view text, const std::string& where) {
  const std::string digits = remove_all(text, ",");
  const std::size_t sign = digits.starts_with('-') ? 1 : 0;
  if (digits.size() == sign || digits.find_first_not_of("0123456789", sign) != std::string::npos)
    throw RunTimeError(RunTimeError::type_mismatch, where + ": Total score : " + std::string{text});
  return to_i32(round_half_even(numeric_value(digits)), where + ": Total score : " + std::string{text});
}

void sep_space_zlog_zsm(App& app) {
  app.trace.line("Public Sub sep_space_zlog_zsm()");
  const auto words = category_line_words(app.state.log.category.cat_text);
  if (words.size() < words_needed) refuse_category(app);
  if (const auto op = operator_named(to_upper(words[word_operator]))) choose_operator(app, *op);
  apply_words(app, words);
  app.state.log.contest.cont_id = app.state.log.contest.contest_name;  // the title, until the log is written
}

void sep_space_cbr(App& app) {
  app.trace.line("Public Sub sep_space_cbr()");
  const auto words = category_line_words(app.state.log.category.cat_text);
  if (words.size() < words_needed)
    throw RunTimeError(RunTimeError::bad_subscript, "Category: " + app.state.log.category.cat_text);
  ContestState& contest = app.state.log.contest;
  contest.cont_id = contest.contest_name;
  map_title_to_code(app);
  if (contest.cont_id == "CQ-WW" && title_code(contest.contest_name) == "CQ-WW") contest.cont_id = "CQ-WW-";
  apply_words(app, words);
}

void read_zlog_zsm(App& app) {
  app.trace.line("Public Sub read_zlog_zsm()");
  read_summary(app, TextReader{app.state.log.input.zsm_use_name});
}

void read_summary(App& app, TextReader reader) {
  ContestState& contest = app.state.log.contest;
  app.state.log.category.cat_text.clear();
  std::string_view line = reader.must_next();
  contest.cont_id = contest.contest_name = contest.contest_line = trim(line);
  while (reader.next(line)) read_summary_line(app, line, reader.place());
  sep_space_zlog_zsm(app);
}

bool needs_selection(const App& app) {
  const SelectFrom from = app.state.log.contest.select_from;
  return (from == SelectFrom::za2c_zsm || from == SelectFrom::zz2c_zsm) && !app.state.entry.dialog_shown;
}

bool show_select_cont(App& app) {
  app.state.display.dialog_confirmed = false;
  app.desk.show(FormName::select_cont);
  return app.state.display.dialog_confirmed;
}

void show_summary(App& app) {
  ContestState& contest = app.state.log.contest;
  if (contest.contest_line.empty()) contest.contest_line = contest.contest_name;
  LabelState& labels = app.state.log.labels;
  labels.zsm_disp1 = app.state.log.input.zsm_use_name;
  labels.zsm_disp2 = "total_score ： " + std::to_string(app.state.log.tally.total_score);
  labels.zsm_disp3 = "Contest  ： " + contest.contest_line;
  labels.zsm_disp4 = lines({"Callsign ： " + std::string{trim(app.state.settings.mycall)},
                            "Category ： " + app.state.log.category.cat_text});
}

void shori_zlog_all(App& app) {
  app.trace.line("Public Sub shori_zlog_all()");
  ContestState& contest = app.state.log.contest;
  if (app.state.log.input.has_zsm) {
    contest.select_from = SelectFrom::zlog_zsm;
    read_zlog_zsm(app);
    open_dialogs_of_title(app);
  } else {
    contest.select_from = SelectFrom::za2c_zsm;
    show_select_cont(app);  // left without OK it has told nothing: the re-select button opens it again
  }
  show_summary(app);
  app.state.log.labels.zsm_disp2 = "total_score ：  " + std::to_string(app.state.log.tally.total_score);
  show_power(app);
  if (family_of(contest.contest_name) != ContestFamily::jidx && dialog_wins(app.state))
    app.state.log.labels.category = "CATEGORY: " + dialog_category(app.state.entry);
}

}  // namespace varnisto
