#include "ui/main_window.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "base/text.h"
#include "core/settings.h"
#include "support/events.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/main_view.h"
#include "ui/recent_files.h"
#include "ui/select_cont.h"

namespace varnisto::test {
namespace {

/// A started program with its window and a folder that holds an example log.
struct OpenWindow {
  OpenWindow() {
    work.copy_from(source_dir("examples/cqww-cw"));
    Main(test.app, test.folder.path());
    window.Form_Load();
  }
  void open() {
    hand_in(test.app, window, [&] { window.open_dropped_file(log()); });
  }
  void click(std::string_view name, int index = 0) { click_in(test.app, window, name, index); }
  std::string log() const { return work.path() + "QX1ABC.ALL"; }

  TestApp test;
  TempDir work;
  MainWindow window{test.app};
  MainForm& main = test.app.main;
  State& state = test.app.state;
};
class MainWindowTest : public testing::Test, protected OpenWindow {};

TEST_F(MainWindowTest, WindowOperatorAndPowerClicksReachTheCategoryAndTheSettingsFile) {
  state.log.category.cat_summary = "ALL LOW";
  click("Option1", 2);
  EXPECT_EQ(state.log.category.cat_summary, "ALL QRP");
  click("Option1", 0);
  EXPECT_EQ(state.log.category.cat_summary, "ALL HIGH");
  click("Option3", 4);
  EXPECT_EQ(state.entry.transmitter, Transmitter::two);
  click("Option3", 0);
  EXPECT_EQ(state.entry.transmitter, Transmitter::one);
  EXPECT_EQ(main.Option3.options[0].color, Color::blue);
  EXPECT_EQ(main.Option3.options[4].color, Color::black);
  const std::string ini = test.folder.read_text("Varnisto.ini");
  EXPECT_NE(ini.find("power_sel=0\n"), std::string::npos);
  EXPECT_NE(ini.find("operator_sel=0\n"), std::string::npos);
}

TEST_F(MainWindowTest, EachBoxSetsItsOwnFlagAndIsShownFromIt) {
  std::vector<bool Settings::*> flags = {
      &Settings::pad_use_flag,  &Settings::mode_2_rtty_flag,  &Settings::for_eqsl_flag,
      &Settings::get_freq_flag, &Settings::freq19_to_18_flag, &Settings::jst_to_utc_flag,
      &Settings::tenki_flag,    &Settings::add_qtc_flag,      &Settings::e_mail_subject_flag};
  for (std::size_t box = 0; box < flags.size(); ++box) {
    const std::string name = "Check" + std::to_string(box + 1);
    SCOPED_TRACE(name);
    for (const bool on : {true, false}) {
      for (auto flag : flags) state.settings.*flag = !on;
      show_state(test.app);
      EXPECT_EQ(window.find<CheckBox>(name)->checked, !on);
      window.find<CheckBox>(name)->checked = on;
      click(name);
      for (std::size_t other = 0; other < flags.size(); ++other)
        EXPECT_EQ(state.settings.*flags[other], (other == box) == on) << other;
      EXPECT_EQ(window.find<CheckBox>(name)->checked, on);
    }
  }
}

TEST_F(MainWindowTest, ShowsLabelsAndStates) {
  state.log.labels = {"1", "2", "3", "4", "5", "6", true};
  state.entry.overlay_cat = "YOUTH";
  state.entry.power = Power::qrp;
  state.entry.op = Operator::checklog;
  show_state(test.app);
  EXPECT_EQ(main.lblGet_zsm1.text + main.lblGet_zsm2.text + main.lblGet_zsm3.text + main.lblGet_zsm4.text +
                main.lblPower.text + main.lblCategory.text + main.lblYusen.text + main.Label2.text,
            "123456設定優先CATEGORY-OVERLAY : YOUTH");
  EXPECT_EQ(main.lblGet_zsm1.color, Color::blue);
  EXPECT_EQ(main.Option1.selected, 2);
  EXPECT_EQ(main.Option3.selected, 6);
  struct EditorRow {
    bool ticked;
    std::string editor, text;
    Color color;
  };
  for (const EditorRow& row :
       rows_of(EditorRow{false, "vi", "しない", Color::green}, EditorRow{true, " ", "要設定", Color::red},
               EditorRow{true, "vi", "可能", Color::blue})) {
    state.settings.pad_use_flag = row.ticked;
    state.settings.dir_pad = row.editor;
    show_state(test.app);
    EXPECT_EQ(main.lblPad_use.text, row.text);
    EXPECT_EQ(main.lblPad_use.color, row.color);
  }
  struct ProgressRow {
    Progress progress;
    std::string text;
    Color color;
  };
  for (const ProgressRow& row : rows_of(ProgressRow{Progress::none, "", Color::black},
                                        ProgressRow{Progress::done, "処理終了", Color::blue},
                                        ProgressRow{Progress::given_up, "処理中止", Color::red},
                                        ProgressRow{Progress::edited, "編集終了", Color::blue})) {
    state.display.progress = row.progress;
    show_state(test.app);
    EXPECT_EQ(main.lblShori.text, row.text);
    EXPECT_EQ(main.lblShori.color, row.color);
  }
}

TEST_F(MainWindowTest, MenusGoByTheFilesThatAreThere) {
  InputState& input = state.log.input;
  input.in_kind = InputKind::zlog_all;
  struct Row {
    std::string InputState::*name;
    std::vector<const MenuItem*> menus;
  };
  for (const Row& row : rows_of(
           Row{&InputState::in_name, {&main.mnuDisp2_in}}, Row{&InputState::adi_name, {&main.mnuDisp2_out2}},
           Row{&InputState::qlg_name, {&main.mnuDisp2_Qtc}}, Row{&InputState::z2a_name, {&main.all_Disp_z2a}},
           Row{&InputState::cb2t_name, {&main.txt_Disp_c2t}}, Row{&InputState::zsm_use_name, {&main.mnuZsm}},
           Row{&InputState::zsm_name, {&main.zsm_Disp_zsm, &main.mnuZsm}})) {
    for (const bool there : {true, false}) {
      input.*row.name = work.path() + (there ? "QX1ABC.ALL" : "none");
      show_state(test.app);
      for (const MenuItem* menu : row.menus) EXPECT_EQ(menu->enabled, there);
    }
  }
}

TEST_F(MainWindowTest, EditorOpensTheOutputAndKeepsWhatADialogChose) {
  const std::string editor = work.write("editor", "");
  test.set("dir_pad", editor);
  read_settings(test.app);
  open();
  state.entry.station = Station::portable;
  click("mnu_mc");
  click("mnu_email_add");
  EXPECT_EQ(test.launcher.started,
            (std::vector<std::string>{"editor " + editor + " " + work.path() + "QX1ABC.cbr",
                                      "editor " + editor + " " + test.folder.path() + "e_mail_add.cfg"}));
  EXPECT_EQ(main.lblShori.text, "編集終了");
  EXPECT_EQ(state.entry.station, Station::portable);
}

TEST_F(MainWindowTest, ErrorGivesUpTheActionAndNotTheProgram) {
  open();
  std::filesystem::rename(log(), log() + "-");
  click("kaishi");
  EXPECT_FALSE(window.closed);
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  for (const std::string& part : {std::string{"エラー 53"}, log(), std::string{"確認して下さい。"}})
    EXPECT_NE(test.desk.boxes[0].text.find(part), std::string::npos) << test.desk.boxes[0].text;
  EXPECT_EQ(main.lblShori.text, "処理中止");
  EXPECT_EQ(main.lblShori.color, Color::red);
  std::filesystem::rename(log() + "-", log());
  ASSERT_TRUE(main.kaishi.enabled);  // the same run can be tried again
  click("kaishi");
  EXPECT_EQ(main.lblShori.text, "処理終了");

  work.write_text("QX1ABC.zsm", "CQWW DX Contest\nCategory: Single-op All band CW\nTotal score : many\n");
  open();  // half an opened log is none
  EXPECT_FALSE(main.kaishi.enabled || window.closed);
  click("mnuMake");
  EXPECT_FALSE(main.kaishi.enabled);
}

TEST_F(MainWindowTest, SelectionLeftWithoutOkChangesNothing) {
  test.desk.on_show = [&](FormName form) {
    if (form == FormName::frmOVERLAY) state.log.category.overlay_back = true;
    if (form != FormName::select_cont) return;
    select_cont dialog{test.app};
    dialog.Form_Load();
    dialog.find<OptionGroup>("Option1")->selected = 2;
    dialog.click("Option1", 2);
    for (const int row : {5, 2}) {  // JIDX shows its powers, CQ WPX leads to the overlays and back
      dialog.List1.selected = row;
      dialog.click("List1", row);
    }
    dialog.Check1.checked = !dialog.Check1.checked;
    dialog.click("Check1");
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.closed);
  };
  open();
  const std::string text = main.Text1.text, label = main.lblGet_zsm3.text;
  const Precedence yusen = state.settings.select_cont_yusen;
  const auto files = work.files();
  click("cmdReSelect");
  EXPECT_EQ(state.log.contest.contest_name, "CQWW DX Contest 2025");
  EXPECT_EQ(main.Text1.text + main.lblGet_zsm3.text, text + label);
  EXPECT_EQ(state.entry.power, Power::low);
  EXPECT_EQ(state.settings.select_cont_yusen, yusen);
  EXPECT_FALSE(main.kaishi.enabled);  // the choice that was confirmed does not hold any more
  EXPECT_EQ(work.files(), files);
}

TEST_F(MainWindowTest, ErrorInDebugModeEndsTheProgram) {
  open();
  click("mnuDebug_mode");
  std::filesystem::remove(log());
  click("kaishi");
  EXPECT_TRUE(window.closed);
  EXPECT_EQ(test.desk.boxes.at(0).text, "エラー発生、終了します");
}

TEST_F(MainWindowTest, ErrorWritingSettingsIsANotice) {
  std::filesystem::permissions(test.folder.path() + "Varnisto.ini", std::filesystem::perms{0444});
  open();
  click("kaishi");
  EXPECT_EQ(main.lblShori.text, "処理終了");
  EXPECT_NE(test.desk.boxes.at(0).text.find("Varnisto.ini"), std::string::npos);
  click("owari");
  EXPECT_TRUE(window.closed);
}

TEST_F(MainWindowTest, RecentFilesNewestFirstWithoutDoublesAndWithoutMissingFiles) {
  std::vector<std::string> logs;
  for (int i = 0; i < 10; ++i) {
    logs.push_back(work.path() + "log" + std::to_string(i) + ".ALL");
    std::filesystem::copy(log(), logs.back());
    remember_file(test.app, logs.back());
  }
  remember_file(test.app, logs[5]);
  EXPECT_EQ(recent_files(test.app),
            (std::vector{logs[5], logs[9], logs[8], logs[7], logs[6], logs[4], logs[3], logs[2]}));
  std::filesystem::remove(logs[9]);
  window.Form_Load();
  EXPECT_EQ(main.mnuRecent_in[1].caption, logs[8]);
  EXPECT_FALSE(main.mnuRecent_in[7].visible);
  click("mnuRecent2");
  EXPECT_EQ(state.log.input.in_name, logs[8]);
  EXPECT_EQ(main.mnuRecent_in[0].caption, logs[8]);
  click("Option1", 2);  // writing the settings keeps the list
  EXPECT_EQ(recent_files(test.app).front(), logs[8]);
}

}  // namespace
}  // namespace varnisto::test
