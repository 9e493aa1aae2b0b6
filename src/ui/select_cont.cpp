#include "ui/select_cont.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "base/files.h"
#include "base/text.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/category.h"
#include "cabrillo/contest.h"
#include "cabrillo/summary.h"
#include "core/contests.h"
#include "core/entry.h"
#include "core/settings.h"
#include "sheet/score.h"
#include "sheet/sheet_writer.h"
#include "sheet/za2c_zsm.h"

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

constexpr std::string_view default_iota_class = "24-HOURS";

/// The chosen option; the last one when none is chosen.
int chosen_option(const OptionGroup& group) {
  return group.selected >= 0 ? group.selected : static_cast<int>(group.options.size()) - 1;
}

void enable_group(OptionGroup& group, bool on) {
  group.enabled = on;
  for (OptionButton& option : group.options) option.enabled = on;
}

/// An option group with one option for each row of a table.
template <class Table, class Text>
OptionGroup options_of(std::string caption, const Table& table, Text text) {
  std::vector<std::string> captions;
  for (const auto& row : table)
    if (!std::invoke(text, row).empty()) captions.emplace_back(std::invoke(text, row));
  return option_group(std::move(caption), captions);
}

/// What OK changes. It comes back unless it is kept.
class BeforeOk {
 public:
  explicit BeforeOk(App& app)
      : app_(app),
        log_(app.state.log),
        entry_(app.state.entry),
        settings_(app.state.settings),
        display_(app.state.display),
        written_(app.outputs.mark()) {}
  ~BeforeOk() {
    if (kept_) return;
    app_.state.log = log_;
    app_.state.entry = entry_;
    app_.state.settings = settings_;
    app_.state.display = display_;
    app_.outputs.back_to(written_);
  }
  BeforeOk(const BeforeOk&) = delete;
  BeforeOk& operator=(const BeforeOk&) = delete;

  void keep() { kept_ = true; }

 private:
  App& app_;
  const LogState log_;
  const EntryChoice entry_;
  const Settings settings_;
  const DisplayState display_;
  const std::size_t written_;
  bool kept_ = false;
};

/// True for the contest whose sent exchange is the power.
bool sends_power(std::string_view title) {
  return title == "ARRL International DX Contest";
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

select_cont::select_cont(App& the_app) : AppForm(the_app) {
  const auto same = [](std::string_view text) { return text; };
  caption = "ｺﾝﾃｽﾄ名・ｶﾃｺﾞﾘｰの選択";
  Option1 = options_of(" Power ", power_names, same);
  Option2 = options_of(" Mode ", mode_table, &ModeNames::caption);
  Option3 = options_of(" Operator ", operator_table, &OperatorNames::name);
  Option4 = options_of(" Band ", band_table, &BandNames::caption);
  Option5 = option_group(" ＩＯＴＡ 参加クラス ", {"24-HOURS", "12-HOURS", "6-HOURS"});
  Option6 = options_of(" TRANSMITTER ", transmitter_names, same);
  Option7 = options_of(" STATION ", station_names, same);
  Check1.caption = "ここでの選択・指定を ｚｓｍ より優先させる。";
  cmdDisp_in.caption = "入力ﾌｧｲﾙ";
  cmdOK.caption = "Ｏ Ｋ";
  cmdOK.tip = "設定を確定してメイン画面に戻る。";
  Label1.text = "Mode , Band は *.all より推測。";
  connect_events();
}

void select_cont::connect_events() {
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

std::vector<NamedControl> select_cont::controls() {
  return {{"List1", &List1},     {"Option1", &Option1}, {"Option2", &Option2},       {"Option3", &Option3},
          {"Option4", &Option4}, {"Option5", &Option5}, {"Option6", &Option6},       {"Option7", &Option7},
          {"Check1", &Check1},   {"cmdOK", &cmdOK},     {"cmdDisp_in", &cmdDisp_in}, {"lblMsg", &lblMsg},
          {"Label1", &Label1},   {"Label2", &Label2},   {"lblPower", &lblPower}};
}

// ---- load -------------------------------------------------------------------------------------------------

void select_cont::Form_Load() {
  app.trace.line("Private Sub Form_Load()_select_cont");
  read_contest_name(app);
  List1.items.clear();
  for (const ContestName& name : app.state.lists.contest_names) List1.items.push_back(name.title);
  enable_group(Option5, false);
  draft_.entry = app.state.entry;
  preset_options();
  preset_contest();
  lblMsg.text = lines({"ファイル名より推定出来る、Band , Mode ", "ｺﾝﾃｽﾄ名等を仮に選択・指定してあります。",
                       "違えば変更・指定して下さい。"});
  Option2_Check();
  Option4_Check();
  preset_precedence();
}

void select_cont::preset_options() {
  Option1.select(option_of(draft_.entry.power));
  Option3.select(option_of(draft_.entry.op));
  Option6.select(option_of(names_of(draft_.entry.op).transmitter));
  Option7.select(option_of(Station::fixed));

  const std::string& stored = app.state.settings.iota_class;
  draft_.iota_class = stored.empty() ? default_iota_class : stored;
  const auto hit = std::ranges::find(Option5.options, draft_.iota_class, &OptionButton::caption);
  Option5.select(hit == Option5.options.end() ? 0 : static_cast<int>(hit - Option5.options.begin()));
}

/// True when the logger's summary names this contest too: by its name, or by a title of the same code.
bool select_cont::agrees_with_title(std::string_view row) const {
  const std::string& title = app.state.log.contest.contest_name;
  if (is_blank(title)) return false;
  return contains(title, row) || code_of_title(app, title) == code_of_title(app, row);
}

void select_cont::preset_contest() {
  if (app.state.log.input.in_kind == InputKind::zlog_zlo) return search_zlo_no_zsm();
  const auto row = contest_row_of_path(app.state.log.input.in_name);
  if (row && *row < static_cast<int>(List1.items.size())) {
    List1.selected = *row;
    take_row();
    draft_.guessed = !agrees_with_title(List1.items[static_cast<std::size_t>(*row)]);
  } else {
    scan_log();
  }
  select_scanned_options(draft_.scan.mode_sel, draft_.scan.band_sel);
}

void select_cont::search_zlo_no_zsm() {
  app.trace.line("Private Sub search_zlo_no_zsm()");
  draft_.scan = app.state.log.scan;
  const std::string& title = app.state.log.contest.zlo_title;
  auto hit = std::ranges::find(List1.items, title);
  if (hit == List1.items.end())  // today's titles go on behind the contest's name: "(JA)", "(DX)"
    hit = std::ranges::find_if(List1.items, [&](const std::string& name) { return title.starts_with(name); });
  if (hit != List1.items.end()) {
    List1.selected = static_cast<int>(hit - List1.items.begin());
    List1_Click();
  }
  select_scanned_options(draft_.scan.mode_sel, draft_.scan.band_sel);
}

void select_cont::select_scanned_options(Mode mode, Band band) {
  Option2.select(option_of(mode));
  Option4.select(option_of(band));
}

/// The choices can only win over a summary of the logger that is there.
void select_cont::preset_precedence() {
  const InputState& input = app.state.log.input;
  if (input.in_kind == InputKind::zlog_all || input.in_kind == InputKind::ccc_txt)
    cmdDisp_in.tip = input.in_name + " の表示";
  Check1.enabled = file_exists(input.zsm_name);
  Check1.checked = Check1.enabled && app.state.settings.select_cont_yusen != Precedence::summary;
  draft_.precedence = Check1.checked ? Precedence::dialog : Precedence::summary;
}

// ---- choices ----------------------------------------------------------------------------------------------

void select_cont::List1_Click() {
  draft_.guessed = false;
  take_row();
}

/// The chosen contest with all that hangs on it.
void select_cont::take_row() {
  app.trace.line("Private Sub List1_Click()");
  if (List1.selected < 0) return;
  const std::string& name = draft_.contest_name = List1.items.at(static_cast<std::size_t>(List1.selected));
  sends_power(name) ? select_power_of_log() : forget_power_of_log();
  scan_log();
  const bool jidx = family_of(name) == ContestFamily::jidx;
  lblMsg.text = jidx ? "JIDX : High Power(出力100wを超える局),Low Power(出力100w以下の局)" : "";
  enable_group(Option5, family_of(name) == ContestFamily::iota);
}

/// A ZLO log was scanned when it was opened.
void select_cont::scan_log() {
  if (app.state.log.input.in_kind != InputKind::zlog_zlo) get_mode_band_all(app, draft_.scan);
}

void select_cont::select_power_of_log() {
  if (app.state.log.input.in_kind == InputKind::zlog_all) get_power_all(app, draft_.scan);
  if (const auto power = power_category(draft_.scan.max_power_text)) {
    if (!power_before_log_) power_before_log_ = draft_.entry.power;
    Option1.select(option_of(*power));
    Option1_Check();
  }
  lblPower.text = power_label(draft_.scan);
}

/// Other contests send no power: what a first guess of the contest read as one must not stay.
void select_cont::forget_power_of_log() {
  if (!power_before_log_) return;
  Option1.select(option_of(*power_before_log_));
  power_before_log_.reset();
  draft_.scan.max_power_text.clear();
  Option1_Check();
  lblPower.text.clear();
}

void select_cont::Check1_Click() {
  app.trace.line("Private Sub Check1_Click()");
  draft_.precedence = Check1.checked ? Precedence::dialog : Precedence::summary;
}

void select_cont::cmdDisp_in_Click() {
  app.trace.line("Private Sub cmdDisp_in_Click()");
  app.state.display.disp_name = app.state.log.input.in_name;
  app.desk.show(FormName::frmDisp2);
}

void select_cont::All_Option_Check() {
  app.trace.line("Private Sub All_Option_Check()");
  Option1_Check();
  Option2_Check();
  Option3_Check();
  Option4_Check();
  Option5_Check();
  Option6_Check();  // behind the operator: what is chosen here wins over the operator's values
  Option7_Check();
}

void select_cont::Option1_Click() {
  power_before_log_.reset();
  Option1_Check();
}

void select_cont::Option1_Check() {
  Option1.select(chosen_option(Option1));
  draft_.entry.power = choice_at<Power>(Option1.selected);
}

void select_cont::Option2_Check() {
  Option2.select(chosen_option(Option2));
  draft_.entry.mode = choice_at<Mode>(Option2.selected);
}

void select_cont::Option3_Click() {
  const OperatorNames& names = names_of(choice_at<Operator>(chosen_option(Option3)));
  Option6.select(option_of(names.transmitter));
  if (names.dialog_sets_station) Option7.select(option_of(names.station));
  Option3_Check();
}

void select_cont::Option3_Check() {
  Option3.select(chosen_option(Option3));
  draft_.entry.op = choice_at<Operator>(Option3.selected);
}

void select_cont::Option4_Check() {
  Option4.select(chosen_option(Option4));
  draft_.entry.band_sel = choice_at<Band>(Option4.selected);
}

void select_cont::Option5_Check() {
  Option5.select(chosen_option(Option5));
  draft_.iota_class = Option5.options.at(static_cast<std::size_t>(Option5.selected)).caption;
}

void select_cont::Option6_Check() {
  Option6.select(chosen_option(Option6));
  draft_.entry.transmitter = choice_at<Transmitter>(Option6.selected);
}

void select_cont::Option7_Check() {
  Option7.select(chosen_option(Option7));
  draft_.entry.station = choice_at<Station>(Option7.selected);
}

// ---- OK ---------------------------------------------------------------------------------------------------

bool select_cont::has_contest() const {
  const ContestState& contest = app.state.log.contest;
  const bool zlo = app.state.log.input.in_kind == InputKind::zlog_zlo;
  return List1.selected >= 0 || !is_blank(zlo ? contest.zlo_title : contest.contest_name);
}

void select_cont::cmdOK_Click() {
  app.trace.line("Private Sub cmdOK_Click()");
  app.main.kaishi.enabled = false;  // until the choice has been taken
  if (!has_contest())
    return message_box(app, {lines({"ｺﾝﾃｽﾄ名が選択されていません。", "", "ｺﾝﾃｽﾄ名を選択して下さい。"}),
                             "　　ｺﾝﾃｽﾄ名の選択", Icon::exclamation});
  BeforeOk before{app};
  const SheetSteps steps = take_contest();
  if (steps == SheetSteps::iota) throw NotAvailable("IOTA");
  All_Option_Check();
  take_draft();
  make_sheet(steps);
  take_labels();
  if (!ask_for_overlay()) return;
  before.keep();
  write_current_settings(app);
  app.main.kaishi.enabled = !app.state.program.ini_missing_flag;
  app.state.display.dialog_confirmed = true;
  closed = true;
}

/// The contest of the draft with its code; the steps that its sheet takes.
SheetSteps select_cont::take_contest() {
  ContestState& contest = app.state.log.contest;
  if (!draft_.contest_name.empty()) {
    contest.contest_name = contest.contest_line = draft_.contest_name;
    write_cont_name(app, draft_.contest_name);
    if (family_of(draft_.contest_name) == ContestFamily::jidx)
      show_text(app, jidx_powers(draft_.contest_name), Color::green);
  }
  const bool zlo = app.state.log.input.in_kind == InputKind::zlog_zlo;
  if (!zlo) {
    contest.cont_id = contest.contest_name;
    get_contest_name(app);
  }
  return sheet_steps_of(zlo, contest.contest_name, contest.cont_id);
}

void select_cont::take_draft() {
  State& state = app.state;
  draft_.entry.op_from_dialog = draft_.entry.transmitter_chosen = draft_.entry.dialog_shown = true;
  take_entry(app, draft_.entry);
  state.settings.iota_class = draft_.iota_class;
  state.settings.select_cont_yusen = draft_.precedence;
  state.log.scan = draft_.scan;
  state.log.notes.set({NoteKind::contest_guessed, draft_.guessed ? 1 : 0, 0, state.log.contest.contest_name});
  if (state.log.input.in_kind == InputKind::zlog_zlo) return;
  state.log.input.z2a_name = state.log.input.in_name;
  state.log.contest.select_from = SelectFrom::za2c_zsm;
}

void select_cont::make_sheet(SheetSteps steps) {
  if (names_of(app.state.log.input.in_kind).is_ccc) return;  // CCC sheets come from the CCC converters
  switch (steps) {
    case SheetSteps::none:
    case SheetSteps::iota:
      return;
    case SheetSteps::tally:
    case SheetSteps::waedc:  // the contest's writer ends with the WAEDC tally, after the common one
      return Make_zlo2_za2c_zsm1(app);
    case SheetSteps::general_sheet:
      return make_listed_contest_zsm(app);
  }
}

void select_cont::take_labels() {
  LabelState& labels = app.state.log.labels;
  labels.dialog_wins = dialog_wins(app.state);
  labels.category = "CATEGORY: " +
                    (labels.dialog_wins ? dialog_category(app.state.entry) : app.state.log.category.cat_text);
  labels.power = sends_power(app.state.log.contest.contest_name) ? power_label(draft_.scan) : "";
  if (family_of(app.state.log.contest.cont_id) == ContestFamily::jidx)
    labels.power = jidx_power_label(app.state.settings);
  show_summary(app);
}

/// CQ WPX goes on to the overlay dialog; false when its return button led back here.
bool select_cont::ask_for_overlay() {
  if (family_of(app.state.log.contest.cont_id) != ContestFamily::cq_wpx) {
    app.state.entry.overlay_cat.clear();
    return true;
  }
  if (!file_exists(app.state.program.app_dir + "OVERLAY.txt")) return true;
  app.state.log.category.overlay_caller = OverlayCaller::select_cont;
  app.desk.show(FormName::frmOVERLAY);
  return !app.state.log.category.overlay_back;
}

}  // namespace varnisto
