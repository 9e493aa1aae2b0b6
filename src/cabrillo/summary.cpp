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
#include "core/main_options.h"

namespace varnisto {
namespace {

constexpr std::string_view label_call = "Call sign:", label_category = "Category:",
                           label_score = "Total score :";

struct BandWord {
  std::string_view text, word, cat_band;
};
constexpr BandWord band_words[] = {
    {"1.9", "160M ", "160M"}, {"1.8", "160M ", "160M"}, {"3.5", "80M ", "80M"},
    {"7", "40M ", "40M"},     {"14", "20M ", "20M"},    {"21", "15M ", "15M"},
    {"28", "10M ", "10M"},    {"29", "10M ", "10M"},    {"All", "ALL ", "ALL"}};

struct ModeWord {
  std::string_view text, word, cat_mode;
};
constexpr ModeWord mode_words[] = {{"PH", "SSB ", "SSB"},
                                   {"SSB", "SSB ", "SSB"},
                                   {"CW", "CW ", "CW"},
                                   {"RTTY", "RTY ", "RTY"},
                                   {"RTY", "RTY ", "RTY"}};

/// Positions of the words in a category line; word 2 is the unit "MHz" or "Band".
constexpr std::size_t word_operator = 0, word_band = 1, word_mode = 3, words_needed = 4;

void set_band(CategoryState& category, const std::string& text) {
  const auto* hit = std::ranges::find(band_words, text, &BandWord::text);
  category.band_word = hit == std::end(band_words) ? text : std::string{hit->word};
  category.cat_band = hit == std::end(band_words) ? text + "M" : std::string{hit->cat_band};
}

void set_mode(CategoryState& category, const std::string& text) {
  const auto* hit = std::ranges::find(mode_words, to_upper(text), &ModeWord::text);
  if (hit == std::end(mode_words)) return;  // "Mixed" and unknown words leave both as they were
  category.mode_word = hit->word;
  category.cat_mode = hit->cat_mode;
}

void set_first_operator(CategoryState& category) {
  if (!category.operator_cat.empty()) return;
  category.operator_cat = category.cat_operator = "SINGLE-OP";
  category.cat_assisted = "NON-ASSISTED";
  category.cat_station = "FIXED";
  category.cat_transmitter = "ONE";
}

/// Sets band, mode and power values from the words of the category line and rebuilds CONTEST value and
/// category text.
void apply_words(App& app, const std::vector<std::string>& words) {
  CategoryState& category = app.state.category;
  set_band(category, words[word_band]);
  set_mode(category, words[word_mode]);
  set_first_operator(category);
  if (app.main.Option1.selected >= 0) category.power_cat = power_word_of(app.main.Option1.selected);
  category.cat_power = category.power_cat;

  const CategoryWords texts{words[word_operator] + " ", category.band_word, category.cat_band,
                            category.power_cat, category.mode_word};
  if (contains(app.state.contest.cont_id, "JIDX")) return apply_jidx(app, category.operator_cat, texts);
  apply_texts(app, texts);
}

[[noreturn]] void refuse_category(App& app) {
  const std::string refusal = "[　" + app.state.input.zsm_use_name + " ] の Category 項目数が足りません。";
  message_box(app, {lines({refusal, "", "読み込んだデータ ：  " + app.state.category.cat_text, "",
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
    app.state.category.cat_text = trim(remove_all(line, label_category));
    const std::string upper = to_upper(line);
    if (contains(upper, "PH"))
      app.state.category.zsm_mode = "SSB";
    else if (contains(upper, "CW"))
      app.state.category.zsm_mode = "CW";
    app.state.qso.mode2 = app.state.category.zsm_mode;
  } else if (contains(line, label_score)) {
    const std::string text = remove_all(line, label_score);
    TallyState& tally = app.state.tally;
    tally.total_score_text = trim(std::string_view{text}.substr(0, text.find('=')));
    tally.total_score = score_value(tally.total_score_text, place);
  }
}

void show_jidx_powers(App& app) {
  show_text(app,
            lines({"ｺﾝﾃｽﾄ 名 ： " + app.state.contest.contest_name,
                   "            High Power(出力100wを超える局),", "            Low Power(出力100w以下の局)"}),
            Color::green);
}

/// The dialogs that a title in the logger's summary calls for.
void open_dialogs_of_title(App& app) {
  const std::string title = app.state.contest.contest_name;
  if (contains(title, "WPX") && file_exists(app.state.program.app_dir + "OVERLAY.txt")) {
    app.state.category.overlay_caller.clear();
    app.desk.show(FormName::frmOVERLAY);
  }
  if (contains(title, "JIDX")) show_jidx_powers(app);
  if (contains(title, "JIDX") || contains(title, "IOTA")) show_select_cont(app);
}

void show_power(App& app) {
  const std::string& title = app.state.contest.contest_name;
  if (contains(title, "ARRL International DX Contest") &&
      contains(to_upper(file_part(app.state.input.in_name)), ".ALL")) {
    get_power_all(app);
    // The selection dialog offers the log's power by itself; what was confirmed there holds.
    if (!app.state.category.dialog_shown) select_power_of_log(app);
  }
  if (contains(title, "JIDX")) app.main.lblPower.text = jidx_power_label(app);
}

/// What the selection dialog may change. It comes back unless the dialog was confirmed.
class BeforeDialog {
 public:
  explicit BeforeDialog(App& app)
      : app_(app),
        contest_(app.state.contest),
        category_(app.state.category),
        iota_class_(app.state.settings.iota_class),
        yusen_(app.state.settings.select_cont_yusen),
        text_(app.main.Text1),
        contest_label_(app.main.lblGet_zsm3),
        power_label_(app.main.lblPower),
        written_(app.outputs.mark()) {}

  ~BeforeDialog() {
    if (app_.state.category.dialog_shown) return;
    app_.state.contest = contest_;
    app_.state.category = category_;
    app_.state.settings.iota_class = iota_class_;
    app_.state.settings.select_cont_yusen = yusen_;
    app_.main.Text1 = text_;
    app_.main.lblGet_zsm3 = contest_label_;
    app_.main.lblPower = power_label_;
    app_.outputs.back_to(written_);  // cont_name.txt follows every click
  }
  BeforeDialog(const BeforeDialog&) = delete;
  BeforeDialog& operator=(const BeforeDialog&) = delete;

 private:
  App& app_;
  const ContestState contest_;
  const CategoryState category_;
  const std::string iota_class_, yusen_;
  const TextBox text_;
  const Label contest_label_, power_label_;
  const std::size_t written_;
};

}  // namespace

std::string jidx_power_label(const App& app) {
  return "県No " + std::string{left(app.state.settings.jidx_no, 2)};
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
  const auto words = category_line_words(app.state.category.cat_text);
  if (words.size() < words_needed) refuse_category(app);
  const int option = operator_option_named(to_upper(words[word_operator]));
  if (option >= 0) Option3_Click(app, option);
  apply_words(app, words);
  app.state.contest.cont_id = app.state.contest.contest_name;  // the title, until the log is written
}

void sep_space_cbr(App& app) {
  app.trace.line("Public Sub sep_space_cbr()");
  const auto words = category_line_words(app.state.category.cat_text);
  if (words.size() < words_needed)
    throw RunTimeError(RunTimeError::bad_subscript, "Category: " + app.state.category.cat_text);
  ContestState& contest = app.state.contest;
  contest.cont_id = contest.contest_name;
  map_title_to_code(app);
  if (contest.cont_id == "CQ-WW" && title_code(contest.contest_name) == "CQ-WW") contest.cont_id = "CQ-WW-";
  apply_words(app, words);
}

void read_zlog_zsm(App& app) {
  app.trace.line("Public Sub read_zlog_zsm()");
  read_summary(app, TextReader{app.state.input.zsm_use_name});
  if (app.state.input.in_err_flag == 1) app.main.kaishi.enabled = false;
}

void read_summary(App& app, TextReader reader) {
  ContestState& contest = app.state.contest;
  app.state.category.cat_text.clear();
  std::string_view line = reader.must_next();
  contest.cont_id = contest.contest_name = contest.contest_line = trim(line);
  while (reader.next(line)) read_summary_line(app, line, reader.place());
  sep_space_zlog_zsm(app);
}

bool needs_selection(const App& app) {
  return app.state.contest.select_from == "za2c_zsm" && !app.state.category.dialog_shown;
}

bool show_select_cont(App& app) {
  const BeforeDialog before{app};
  app.state.category.dialog_shown = false;
  app.desk.show(FormName::select_cont);
  return app.state.category.dialog_shown;
}

void show_summary(App& app) {
  ContestState& contest = app.state.contest;
  if (contest.contest_line.empty()) contest.contest_line = contest.contest_name;
  DisplayState& display = app.state.display;
  display.zsm_disp1 = app.state.input.zsm_use_name;
  display.zsm_disp2 = "total_score ： " + std::to_string(app.state.tally.total_score);
  display.zsm_disp3 = "Contest  ： " + contest.contest_line;
  display.zsm_disp4 = lines({"Callsign ： " + std::string{trim(app.state.settings.mycall)},
                             "Category ： " + app.state.category.cat_text});
  display.zsm_disp_color = "9";
  struct Shown {
    Label MainForm::*label;
    std::string DisplayState::*text;
  };
  constexpr Shown shown[] = {{&MainForm::lblGet_zsm1, &DisplayState::zsm_disp1},
                             {&MainForm::lblGet_zsm2, &DisplayState::zsm_disp2},
                             {&MainForm::lblGet_zsm3, &DisplayState::zsm_disp3},
                             {&MainForm::lblGet_zsm4, &DisplayState::zsm_disp4}};
  for (const Shown& row : shown) {
    (app.main.*row.label).text = display.*row.text;
    (app.main.*row.label).color = Color::blue;
  }
}

void shori_zlog_all(App& app) {
  app.trace.line("Public Sub shori_zlog_all()");
  const bool logger_summary = app.state.input.zsm_kind.ends_with('1');
  if (logger_summary) {
    app.state.contest.select_from = "zlog_zsm";
    read_zlog_zsm(app);
    open_dialogs_of_title(app);
  } else {
    app.main.cmdReSelect.enabled = true;
    app.state.contest.select_from = "za2c_zsm";
    // Left without OK the dialog has told nothing: the re-select button opens it again.
    app.main.kaishi.enabled = show_select_cont(app);
  }
  show_summary(app);
  app.main.lblGet_zsm2.text = "total_score ：  " + std::to_string(app.state.tally.total_score);
  show_power(app);
  const CategoryState& category = app.state.category;
  if (!contains(app.state.contest.contest_name, "JIDX") && app.state.settings.select_cont_yusen == "1" &&
      category.dialog_shown)
    app.main.lblCategory.text = "CATEGORY: " + category.dialog_category;
}

}  // namespace varnisto
