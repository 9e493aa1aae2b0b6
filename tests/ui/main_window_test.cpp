#include "ui/main_window.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "base/text.h"
#include "core/settings.h"
#include "support/events.h"
#include "support/rows.h"
#include "support/test_app.h"
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

TEST(CheckBoxFlag, FollowsTheBox) {
  struct Row {
    std::string box;
    bool Settings::*flag;
  };
  for (const Row& row :
       rows_of(Row{"Check2", &Settings::mode_2_rtty_flag}, Row{"Check3", &Settings::for_eqsl_flag},
               Row{"Check4", &Settings::get_freq_flag}, Row{"Check5", &Settings::freq19_to_18_flag},
               Row{"Check6", &Settings::jst_to_utc_flag}, Row{"Check7", &Settings::tenki_flag},
               Row{"Check8", &Settings::add_qtc_flag}, Row{"Check9", &Settings::e_mail_subject_flag})) {
    SCOPED_TRACE(row.box);
    OpenWindow open;
    open.state.display.progress = Progress::done;
    CheckBox& box = *open.window.find<CheckBox>(row.box);
    box.checked = true;
    open.click(row.box);
    EXPECT_TRUE(open.state.settings.*row.flag);
    EXPECT_EQ(open.main.lblShori.text, "");
    box.checked = false;
    open.click(row.box);
    EXPECT_FALSE(open.state.settings.*row.flag);
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

TEST_F(MainWindowTest, ReSelectShowsTheDialogAndTakesTheContestNameForAnEmptyLine) {
  open();
  test.desk.forms.clear();
  state.log.contest.contest_line.clear();
  test.desk.on_show = [&](FormName) {
    state.log.contest.contest_name = "IOTA Contest";
    state.entry.dialog_shown = state.display.dialog_confirmed = true;
  };
  click("cmdReSelect");
  EXPECT_EQ(test.desk.forms, std::vector{FormName::select_cont});
  EXPECT_EQ(state.log.contest.contest_line, "IOTA Contest");
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
