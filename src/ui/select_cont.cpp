#include "ui/select_cont.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/files.h"
#include "base/text.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/category.h"
#include "cabrillo/contest.h"
#include "cabrillo/summary.h"
#include "core/main_options.h"
#include "sheet/score.h"
#include "sheet/sheet_writer.h"
#include "sheet/za2c_zsm.h"
#include "ui/frm_overlay.h"

namespace varnisto {
namespace {

/// A mark in the upper-cased name and the row it suggests, unless the other mark is there too.
struct PathMark {
  int row;
  std::string_view mark;
  std::string_view unless = {};  ///< empty: no exception
};
constexpr PathMark path_marks[] = {
    {0, "AR", "IA"},  {0, "ARRL", "10"}, {0, "ARDX"},   {0, "RLDX"}, {4, "IARU"}, {4, "IA", "ARD"},
    {4, "IA", "ARR"}, {4, "IAR"},        {3, "WW"},     {5, "JI"},   {2, "WPX"},  {6, "WAE"},
    {1, "AR10"},      {1, "10M"},        {1, "ARRL10"}, {7, "IOTA"},
};

/// What choosing an operator sets beside operator name and text; the options of the other two groups by
/// index.
struct OperatorRow {
  std::string_view cat_operator;
  int transmitter;
  std::string_view cat_assisted = {};  ///< empty: unchanged
  int station = -1;                    ///< -1: unchanged
};
constexpr int tx_one = 0, tx_two = 1, tx_unlimited = 3, at_fixed = 0, at_school = 6;
constexpr std::array<OperatorRow, 7> operator_rows = {{
    {"SINGLE-OP", tx_one, "NON-ASSISTED", at_fixed},
    {"SINGLE-OP", tx_one, "ASSISTED", at_fixed},
    {"SCHOOL-CLUB", tx_unlimited, "", at_school},
    {"MULTI-OP", tx_one},
    {"MULTI-OP", tx_two},
    {"MULTI-OP", tx_unlimited},
    {"CHECKLOG", tx_unlimited},
}};

struct ModeChoice {
  std::string_view cat_mode, dialog_mode;
};
constexpr std::array<ModeChoice, 4> mode_choices = {
    {{"MIXED", "Mixed"}, {"SSB", "PH"}, {"CW", "CW"}, {"RTY", "RTY"}}};

constexpr std::string_view default_iota_class = "24-HOURS";

/// The chosen option; the last one when none is chosen.
int index_of(const OptionGroup& group) {
  return group.selected >= 0 ? group.selected : static_cast<int>(group.options.size()) - 1;
}

const std::string& chosen_caption(const OptionGroup& group) {
  return group.options.at(static_cast<std::size_t>(index_of(group))).caption;
}

void select(OptionGroup& group, int index) {
  group.selected = index;
  group.color_selected();
}

void enable_group(OptionGroup& group, bool on) {
  group.enabled = on;
  for (OptionButton& option : group.options) option.enabled = on;
}

/// The overlay of a contest chosen earlier: only CQ WPX has them.
void forget_overlay(App& app) {
  app.state.category.overlay_cat.clear();
  app.main.Label2.text.clear();
}

std::string jidx_powers(const std::string& title) {
  return lines({title, "               High Power(出力100wを超える局),",
                "               Low Power(出力100w以下の局)"});
}

}  // namespace

std::optional<int> contest_row_of_name(std::string_view upper_name) {
  const auto* hit = std::ranges::find_if(path_marks, [&](const PathMark& rule) {
    return contains(upper_name, rule.mark) && (rule.unless.empty() || !contains(upper_name, rule.unless));
  });
  return hit == std::end(path_marks) ? std::nullopt : std::optional{hit->row};
}

std::optional<int> contest_row_of_path(std::string_view path) {
  if (const auto row = contest_row_of_name(to_upper(file_part(path)))) return row;
  std::string_view folder = folder_part(path);
  folder.remove_suffix(folder.empty() ? 0 : 1);
  return contest_row_of_name(to_upper(file_part(folder)));
}

SheetSteps sheet_steps_of(bool zlo_input, std::string_view contest_name, std::string_view cont_id) {
  const std::string name = to_upper(contest_name);
  const std::string code = to_upper(cont_id);
  const auto is_jidx_or_cqww = [](std::string_view text) {
    return contains(text, "JIDX") || contains(text, "CQWW");
  };
  const bool waedc = contest_name == "WAEDC Contest";
  if (zlo_input) {  // the sheet stands already; these contests need another variant of it
    if (is_jidx_or_cqww(code)) return SheetSteps::tally;
    return waedc ? SheetSteps::waedc : SheetSteps::none;
  }
  if (waedc || contains(code, "WAEDC")) return SheetSteps::waedc;
  if (contains(name, "IOTA")) return SheetSteps::iota;
  if (is_jidx_or_cqww(name) || !is_jidx_or_cqww(code)) return SheetSteps::tally;
  return SheetSteps::general_sheet;
}

SelectCont::SelectCont(App& app) : app_(app) {
  caption = "ｺﾝﾃｽﾄ名・ｶﾃｺﾞﾘｰの選択";
  Option1 = option_group(" Power ", {"HIGH", "LOW", "QRP"});
  Option2 = option_group(" Mode ", {"Mixed", "S S B", "C   W", "R T T Y"});
  Option3 = option_group(" Operator ", {"SINGLE-OP", "SINGLE-OP-ASSISTED", "SCHOOL-CLUB", "MULTI-ONE",
                                        "MULTI-TWO", "MULTI-MULTI", "CHECKLOG"});
  Option4 = option_group(" Band ", {"All Band", "1.9MHz", "3.5MHz", "7MHz", "14MHz", "21MHz", "28MHz"});
  Option5 = option_group(" ＩＯＴＡ 参加クラス ", {"24-HOURS", "12-HOURS", "6-HOURS"});
  Option6 = option_group(" TRANSMITTER ", {"ONE", "TWO", "LIMITED", "UNLIMITED", "SWL"});
  Option7 = option_group(" STATION ",
                         {"FIXED", "MOBILE", "DRIVER-MOBILE", "PORTABLE", "EXPEDITION", "HQ", "SCHOOL"});
  Check1.caption = "ここでの選択・指定を ｚｓｍ より優先させる。";
  cmdDisp_in.caption = "入力ﾌｧｲﾙ";
  cmdOK.caption = "Ｏ Ｋ";
  cmdOK.tip = "設定を確定してメイン画面に戻る。";
  Label1.text = "Mode , Band は *.all より推測。";
  connect_events();
  Form_Load();
}

void SelectCont::connect_events() {
  on_click("List1", [this](int) { List1_Click(); });
  on_click("Option1", [this](int) { Option1_Click(); });
  on_click("Option2", [this](int) { Option2_Check(); });
  on_click("Option3", [this](int) { Option3_Click(); });
  on_click("Option4", [this](int) { Option4_Check(); });
  on_click("Option5", [this](int) { Option5_Check(); });
  on_click("Option6", [this](int) { Option6_Check(); });
  on_click("Option7", [this](int) { Option7_Check(); });
  on_click("Check1", [this](int) { Check1_Click(); });
  on_click("cmdDisp_in", [this](int) { cmdDisp_in_Click(); });
  on_click("cmdOK", [this](int) { cmdOK_Click(); });
}

std::vector<NamedControl> SelectCont::controls() {
  return {{"List1", &List1},     {"Option1", &Option1}, {"Option2", &Option2},       {"Option3", &Option3},
          {"Option4", &Option4}, {"Option5", &Option5}, {"Option6", &Option6},       {"Option7", &Option7},
          {"Check1", &Check1},   {"cmdOK", &cmdOK},     {"cmdDisp_in", &cmdDisp_in}, {"lblMsg", &lblMsg},
          {"Label1", &Label1},   {"Label2", &Label2},   {"lblPower", &lblPower}};
}

// ---- load -------------------------------------------------------------------------------------------------

void SelectCont::Form_Load() {
  app_.trace.line("Private Sub Form_Load()_select_cont");
  read_contest_name(app_);
  List1.items.clear();
  for (const ContestName& name : app_.state.contest.contest_names) List1.items.push_back(name.title);
  enable_group(Option5, false);
  preset_options();
  preset_contest();
  lblMsg.text = lines({"ファイル名より推定出来る、Band , Mode ", "ｺﾝﾃｽﾄ名等を仮に選択・指定してあります。",
                       "違えば変更・指定して下さい。"});
  Option2_Check();
  Option4_Check();
  preset_precedence();
}

void SelectCont::preset_options() {
  select(Option1, std::max(app_.main.Option1.selected, 0));
  const int chosen_operator = std::max(app_.main.Option3.selected, 0);
  select(Option3, chosen_operator);
  select(Option6, operator_rows.at(static_cast<std::size_t>(chosen_operator)).transmitter);
  select(Option7, at_fixed);

  std::string& iota_class = app_.state.settings.iota_class;
  if (iota_class.empty()) iota_class = default_iota_class;
  const auto hit = std::ranges::find(Option5.options, iota_class, &OptionButton::caption);
  select(Option5, hit == Option5.options.end() ? 0 : static_cast<int>(hit - Option5.options.begin()));
}

/// True when the logger's summary names this contest too: by its name, or by a title of the same code.
bool SelectCont::agrees_with_title(std::string_view row) const {
  if (is_blank(title_before_)) return false;
  return contains(title_before_, row) || code_of_title(app_, title_before_) == code_of_title(app_, row);
}

void SelectCont::preset_contest() {
  title_before_ = app_.state.contest.contest_name;
  if (app_.state.input.in_kind == "zlog_zlo") return search_zlo_no_zsm();
  const auto row = contest_row_of_path(app_.state.input.in_name);
  if (row && *row < static_cast<int>(List1.items.size())) {
    List1.selected = *row;
    take_row();  // scans the log
    guessed_ = !agrees_with_title(List1.items[static_cast<std::size_t>(*row)]);
  } else {
    get_mode_band_all(app_);
  }
  select_scanned_options(app_.state.category.mode_sel, app_.state.category.band_sel);
}

void SelectCont::search_zlo_no_zsm() {
  app_.trace.line("Private Sub search_zlo_no_zsm()");
  const auto hit = std::ranges::find(List1.items, app_.state.contest.zlo_title);
  if (hit != List1.items.end()) {
    List1.selected = static_cast<int>(hit - List1.items.begin());
    List1_Click();
  }
  select_scanned_options(app_.state.category.mode_sel_log, app_.state.category.band_sel_log);
}

void SelectCont::select_scanned_options(int mode, int band) {
  select(Option2, mode);
  select(Option4, band);
}

/// The choices can only win over a summary of the logger that is there.
void SelectCont::preset_precedence() {
  std::string& yusen = app_.state.settings.select_cont_yusen;
  if (yusen.empty()) yusen = "1";
  const InputState& input = app_.state.input;
  if (input.in_kind == "zlog_all" || input.in_kind == "ccc_txt") cmdDisp_in.tip = input.in_name + " の表示";
  Check1.enabled = file_exists(input.zsm_name);
  if (!Check1.enabled) yusen = "0";
  Check1.checked = yusen == "1";
}

// ---- choices ----------------------------------------------------------------------------------------------

void SelectCont::List1_Click() {
  guessed_ = false;
  take_row();
}

/// The chosen contest with all that hangs on it.
void SelectCont::take_row() {
  app_.trace.line("Private Sub List1_Click()");
  if (List1.selected < 0) return;
  const std::string name = List1.items.at(static_cast<std::size_t>(List1.selected));
  ContestState& contest = app_.state.contest;
  contest.contest_name = contest.contest_line = name;
  app_.main.lblGet_zsm3.text = "Contest  ： " + name;
  write_cont_name(app_, name);
  name == "ARRL International DX Contest" ? select_power_of_log() : forget_power_of_log();
  if (app_.state.input.in_kind != "zlog_zlo") get_mode_band_all(app_);
  lblMsg.text.clear();
  if (contains(name, "JIDX")) {
    lblMsg.text = "JIDX : High Power(出力100wを超える局),Low Power(出力100w以下の局)";
    show_text(app_, jidx_powers(name), Color::green);
  }
  enable_group(Option5, contains(name, "IOTA"));
}

void SelectCont::select_power_of_log() {
  if (app_.state.input.in_kind == "zlog_all") get_power_all(app_);
  const std::string& power = app_.state.category.max_power_text;
  if (const auto option = power_option_of(power)) {
    if (!power_before_log_) power_before_log_ = Option1.selected;
    select(Option1, *option);
    Option1_Check();
  }
  lblPower.text = "PWR: " + power;
}

/// Other contests send no power: what a first guess of the contest read as one must not stay.
void SelectCont::forget_power_of_log() {
  if (!power_before_log_) return;
  select(Option1, *power_before_log_);
  power_before_log_.reset();
  Option1_Check();
  lblPower.text.clear();
  app_.main.lblPower.text.clear();
}

void SelectCont::Check1_Click() {
  app_.trace.line("Private Sub Check1_Click()");
  app_.state.settings.select_cont_yusen = Check1.checked ? "1" : "0";
}

void SelectCont::cmdDisp_in_Click() {
  app_.trace.line("Private Sub cmdDisp_in_Click()");
  app_.state.display.disp_name = app_.state.input.in_name;
  app_.desk.show(FormName::frmDisp2);
}

void SelectCont::All_Option_Check() {
  app_.trace.line("Private Sub All_Option_Check()");
  Option1_Check();
  Option2_Check();
  Option3_Check();
  Option4_Check();
  Option5_Check();
  Option6_Check();  // behind the operator: what is chosen here wins over the operator's values
  Option7_Check();
}

void SelectCont::Option1_Click() {
  power_before_log_.reset();
  Option1_Check();
}

void SelectCont::Option1_Check() {
  select(Option1, index_of(Option1));
  CategoryState& category = app_.state.category;
  category.cat_power = category.power_cat = power_word_of(Option1.selected);
  category.power_index = static_cast<std::int16_t>(Option1.selected);
}

void SelectCont::Option2_Check() {
  select(Option2, index_of(Option2));
  CategoryState& category = app_.state.category;
  const ModeChoice& choice = mode_choices.at(static_cast<std::size_t>(Option2.selected));
  category.cat_mode = choice.cat_mode;
  category.dialog_mode = choice.dialog_mode;
  category.mode_sel = static_cast<std::int16_t>(Option2.selected);
}

void SelectCont::Option3_Click() {
  const OperatorRow& row = operator_rows.at(static_cast<std::size_t>(index_of(Option3)));
  select(Option6, row.transmitter);
  if (row.station >= 0) select(Option7, row.station);
  Option3_Check();
}

void SelectCont::Option3_Check() {
  select(Option3, index_of(Option3));
  const OperatorRow& row = operator_rows.at(static_cast<std::size_t>(Option3.selected));
  CategoryState& category = app_.state.category;
  category.operator_cat = operator_name_of(Option3.selected);
  category.zsm_operator = operator_text_of(Option3.selected);
  category.cat_operator = row.cat_operator;
  category.cat_transmitter = Option6.options.at(static_cast<std::size_t>(row.transmitter)).caption;
  if (!row.cat_assisted.empty()) category.cat_assisted = row.cat_assisted;
  if (row.station >= 0)
    category.cat_station = Option7.options.at(static_cast<std::size_t>(row.station)).caption;
  category.operator_index = static_cast<std::int16_t>(Option3.selected);
}

void SelectCont::Option4_Check() {
  select(Option4, index_of(Option4));
  CategoryState& category = app_.state.category;
  category.band_sel = static_cast<std::int16_t>(Option4.selected);
  category.band_sel_known = true;
  category.cat_band = cabrillo_band_of(category.band_sel);
  category.qso_band = band_word_of(category.band_sel);
}

void SelectCont::Option5_Check() {
  select(Option5, index_of(Option5));
  app_.state.settings.iota_class = chosen_caption(Option5);
}

void SelectCont::Option6_Check() {
  select(Option6, index_of(Option6));
  app_.state.category.cat_transmitter = chosen_caption(Option6);
}

void SelectCont::Option7_Check() {
  select(Option7, index_of(Option7));
  app_.state.category.cat_station = chosen_caption(Option7);
}

// ---- OK ---------------------------------------------------------------------------------------------------

bool SelectCont::has_contest() const {
  const ContestState& contest = app_.state.contest;
  const bool zlo = app_.state.input.in_kind == "zlog_zlo";
  return List1.selected >= 0 || !is_blank(zlo ? contest.zlo_title : contest.contest_name);
}

void SelectCont::cmdOK_Click() {
  app_.trace.line("Private Sub cmdOK_Click()");
  State& state = app_.state;
  app_.main.kaishi.enabled = false;  // until the choice has been taken
  if (!has_contest()) {
    message_box(app_, {lines({"ｺﾝﾃｽﾄ名が選択されていません。", "", "ｺﾝﾃｽﾄ名を選択して下さい。"}),
                       "　　ｺﾝﾃｽﾄ名の選択", Icon::exclamation});
    return;
  }
  const bool zlo = state.input.in_kind == "zlog_zlo";
  if (!zlo) {
    state.contest.cont_id = state.contest.contest_name;
    get_contest_name(app_);
  }
  const SheetSteps steps = sheet_steps_of(zlo, state.contest.contest_name, state.contest.cont_id);
  if (steps == SheetSteps::iota) throw NotAvailable("IOTA");

  varnisto::Option1_Click(app_, index_of(Option1));
  varnisto::Option3_Click(app_, index_of(Option3));
  All_Option_Check();  // last: these values hold where the two windows differ
  state.category.transmitter_chosen = true;
  if (!zlo) {
    state.input.z2a_name = state.input.in_name;
    state.contest.select_from = "za2c_zsm";
    set_category_za2c_zsm(app_);
  }
  make_sheet(steps);
  state.category.dialog_shown = true;
  state.notes.set({NoteKind::contest_guessed, guessed_ ? 1 : 0, 0, state.contest.contest_name});
  show_category();
  if (contains(state.contest.cont_id, "JIDX")) app_.main.lblPower.text = jidx_power_label(app_);
  show_summary(app_);
  finish();
}

void SelectCont::make_sheet(SheetSteps steps) {
  const bool zlo = app_.state.input.in_kind == "zlog_zlo";
  if (!zlo && app_.state.input.in_kind != "zlog_all") return;  // CCC sheets come from the CCC converters
  switch (steps) {
    case SheetSteps::none:
    case SheetSteps::iota:
      break;
    case SheetSteps::tally:
    case SheetSteps::waedc:  // the writer of the contest ends with the WAEDC tally, after the common one has
                             // succeeded
      set_category_za2c_zsm(app_);
      Make_zlo2_za2c_zsm1(app_);
      break;
    case SheetSteps::general_sheet:
      make_listed_contest_zsm(app_);
      break;
  }
}

void SelectCont::show_category() {
  CategoryState& category = app_.state.category;
  category.dialog_category = category.cat_operator + " " + category.cat_power + " " + category.cat_mode;
  const bool wins = app_.state.settings.select_cont_yusen == "1";
  app_.main.lblCategory.text = "CATEGORY: " + (wins ? category.dialog_category : category.cat_text);
  app_.main.lblYusen.text = wins ? "設定優先" : "";
}

/// CQ WPX goes on to the overlay dialog; its return button leads back here.
void SelectCont::finish() {
  CategoryState& category = app_.state.category;
  category.overlay_back = false;
  if (is_cq_wpx(app_.state.contest.cont_id) && file_exists(app_.state.program.app_dir + "OVERLAY.txt")) {
    category.overlay_caller = "select_cont";
    app_.desk.show(FormName::frmOVERLAY);
  } else if (!is_cq_wpx(app_.state.contest.cont_id)) {
    forget_overlay(app_);
  }
  closed = !category.overlay_back;
  category.dialog_shown = closed;
  app_.main.kaishi.enabled = closed && app_.state.input.in_err_flag == 0;
}

}  // namespace varnisto
