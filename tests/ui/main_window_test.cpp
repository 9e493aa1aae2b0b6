#include "ui/main_window.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/settings.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/main_menus.h"
#include "ui/recent_files.h"

namespace varnisto::test {
namespace {

/// A started program with its window and a folder that holds an example log.
struct OpenWindow {
  OpenWindow() {
    work.copy_from(source_dir("examples/cqww-cw"));
    Main(test.app, test.folder.path());
    window.load();
  }
  void open() { window.open_dropped_file(log()); }
  std::string log() const { return work.path() + "QX1ABC.ALL"; }

  TestApp test;
  TempDir work;
  MainWindow window{test.app};
  MainForm& main = test.app.main;
  State& state = test.app.state;
};
class MainWindowTest : public testing::Test, protected OpenWindow {};

TEST(OpenDialog, AsksWithFolderTitleAndFilterAndCancelKeepsTheLog) {
  struct Row {
    std::string menu, title, filter;
  };
  for (const Row& row : rows_of(Row{"mnuOpen_all", "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ａｌｌ ) ファイルを  開く ....",
                                    "ﾃｷｽﾄﾌｧｲﾙ ( *.all )|*.all|"},
                                Row{"mnuOpen_bin", "　の ﾊﾞｲﾅﾘｰﾌｧｲﾙ ( ＊．ｂｉｎ ) ファイルを  開く ....",
                                    "ﾃｷｽﾄﾌｧｲﾙ ( *.bin )|*.bin|"},
                                Row{"mnuOpen_cbr", "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ｃｂｒ ) ファイルを  開く ....",
                                    "ﾃｷｽﾄﾌｧｲﾙ ( *.cbr )|*.cbr|"})) {
    SCOPED_TRACE(row.menu);
    OpenWindow open;
    open.open();
    const std::string title_line = open.state.contest.contest_line;
    open.window.click(row.menu);
    ASSERT_EQ(open.test.desk.open_requests.size(), 1U);
    EXPECT_EQ(open.test.desk.open_requests[0].title, "　logs/" + row.title);
    EXPECT_EQ(open.test.desk.open_requests[0].filter, row.filter);
    EXPECT_EQ(open.test.desk.open_requests[0].folder, "logs/");
    EXPECT_EQ(open.state.input.in_name, open.log());
    EXPECT_EQ(open.state.contest.contest_line, title_line);
    open.window.click("kaishi");
    EXPECT_TRUE(open.work.has("QX1ABC.cbr"));
    EXPECT_FALSE(open.window.closed);
  }
}

TEST_F(MainWindowTest, WindowCabrilloFileBecomesTheInputOfTheWayBack) {
  const std::string file = work.write_text("QX1ABC.cbr", "START-OF-LOG: 3.0\n");
  test.desk.next_file = file;
  window.click("mnuOpen_cbr");
  EXPECT_EQ(state.input.in_type, "cbr");
  EXPECT_EQ(state.input.out_name, work.path() + "QX1ABC_c2z.txt");
  EXPECT_TRUE(main.kaishi.enabled);
  window.click("mnuMake");  // loading the window again keeps it
  EXPECT_EQ(state.input.in_name, file);
}

TEST(DroppedFile, OpensByItsExtension) {
  struct Row {
    std::string name, file;
    bool opens;
  };
  for (const Row& row :
       rows_of(Row{"Log", "QX1ABC.ALL", true}, Row{"CaseOfTheNameDoesNotMatter", "qx1abc.all", true},
               Row{"UnknownExtension", "notes.doc", false}, Row{"Missing", "nothing.all", false},
               Row{"Folder", ".", false})) {
    SCOPED_TRACE(row.name);
    OpenWindow open;
    open.work.write_text("notes.doc", "x\n");
    open.window.open_dropped_file(open.work.path() + row.file);
    EXPECT_EQ(open.main.kaishi.enabled, row.opens);
    EXPECT_EQ(open.test.desk.boxes.size(), row.opens ? 0U : 1U);
    EXPECT_FALSE(open.window.closed);
  }
}

TEST_F(MainWindowTest, WindowOperatorAndPowerClicksReachTheCategoryAndTheSettingsFile) {
  state.category.cat_summary = "ALL LOW";
  window.click("Option1", 2);
  EXPECT_EQ(state.category.cat_summary, "ALL QRP");
  window.click("Option1", 0);
  EXPECT_EQ(state.category.cat_summary, "ALL HIGH");
  window.click("Option3", 4);
  EXPECT_EQ(state.category.cat_transmitter, "TWO");
  EXPECT_EQ(state.category.multi_tx, 1);
  window.click("Option3", 0);
  EXPECT_EQ(state.category.cat_transmitter, "ONE");
  EXPECT_EQ(state.category.multi_tx, 0);
  EXPECT_EQ(main.Option3.options[0].color, Color::blue);
  EXPECT_EQ(main.Option3.options[4].color, Color::black);
  const std::string ini = test.folder.read_text("Varnisto.ini");
  EXPECT_NE(ini.find("power_sel=0\n"), std::string::npos);
  EXPECT_NE(ini.find("operator_sel=0\n"), std::string::npos);
}

TEST(CheckBoxFlag, FollowsTheBox) {
  struct Row {
    std::string box;
    std::string Settings::*flag;
  };
  for (const Row& row :
       rows_of(Row{"Check2", &Settings::mode_2_rtty_flag}, Row{"Check3", &Settings::for_eqsl_flag},
               Row{"Check4", &Settings::get_freq_flag}, Row{"Check5", &Settings::freq19_to_18_flag},
               Row{"Check6", &Settings::jst_to_utc_flag}, Row{"Check7", &Settings::tenki_flag},
               Row{"Check8", &Settings::add_qtc_flag}, Row{"Check9", &Settings::e_mail_subject_flag})) {
    SCOPED_TRACE(row.box);
    OpenWindow open;
    open.main.lblShori.text = "処理終了";
    CheckBox& box = *open.window.find<CheckBox>(row.box);
    const Settings before = open.state.settings;
    box.checked = true;
    open.window.click(row.box);
    EXPECT_EQ(open.state.settings.*row.flag, "1");
    EXPECT_EQ(open.main.lblShori.text, "");
    box.checked = false;
    open.window.click(row.box);
    EXPECT_EQ(open.state.settings.*row.flag, "0");
  }
}

TEST_F(MainWindowTest, EditorBoxWithoutAnEditorBlocksOpeningUntilItIsUnticked) {
  open();
  main.Check1.checked = true;
  window.click("Check1");
  EXPECT_EQ(main.lblPad_use.text, "要設定");
  EXPECT_FALSE(main.mnuOpen_file.enabled);
  EXPECT_EQ(main.Text1.color, Color::red);
  EXPECT_TRUE(main.mnu_edit.enabled);
  main.Check1.checked = false;
  window.click("Check1");
  EXPECT_EQ(main.lblPad_use.text, "しない");
  EXPECT_TRUE(main.mnuOpen_file.enabled);
  EXPECT_FALSE(main.mnu_edit.enabled);
}

TEST_F(MainWindowTest, EditorMissingOneGivesAMessageAndStartsNothing) {
  state.settings.dir_pad = "/no/such/editor";
  window.click("mnu_contest_name");
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_EQ(test.desk.boxes[0].text, "[ c作成 ] にてエディターの設定をして下さい");
  EXPECT_TRUE(test.launcher.started.empty());
}

TEST_F(MainWindowTest, EditorOpensTheOutputAndKeepsWhatADialogChose) {
  const std::string editor = work.write("editor", "");
  test.set("dir_pad", editor);
  read_settings(test.app);
  open();
  state.category.cat_station = "PORTABLE";
  window.click("mnu_mc");
  window.click("mnu_email_add");
  EXPECT_EQ(test.launcher.started,
            (std::vector<std::string>{"editor " + editor + " " + work.path() + "QX1ABC.cbr",
                                      "editor " + editor + " " + test.folder.path() + "e_mail_add.cfg"}));
  EXPECT_EQ(main.lblShori.text, "編集終了");
  EXPECT_EQ(state.category.cat_station, "PORTABLE");
}

TEST_F(MainWindowTest, ViewerOutputMenusFollowTheRun) {
  open();
  EXPECT_TRUE(main.mnuDisp2_in.enabled);
  EXPECT_FALSE(main.mnuDisp2_out1.enabled);
  window.click("kaishi");
  EXPECT_TRUE(main.mnuDisp2_out1.enabled);
  EXPECT_FALSE(main.mnuDisp2_out2.enabled);
  for (const auto& [menu, file] : {std::pair{"mnuDisp2_in", "QX1ABC.ALL"},
                                   {"mnuDisp2_out1", "QX1ABC.cbr"},
                                   {"mnuDisp2_out3", "QX1ABC.log"}}) {
    test.desk.forms.clear();
    window.click(menu);
    EXPECT_EQ(state.display.disp_name, work.path() + file);
    EXPECT_EQ(test.desk.forms, std::vector{FormName::frmDisp2});
  }
}

TEST(ViewerMenus, ShowTheFileOfTheirName) {
  InputState input;
  input.in_name = "/d/a.ZLO";
  input.in_kind = "zlog_zlo";
  input.out_name = "/d/C.log";
  input.log_name = "/d/C.cbr";
  input.adi_name = "/d/C.adi";
  input.qlg_name = "/d/C.qlg";
  input.z2a_name = "/d/a_z2a.all";
  input.cb2t_name = "/d/a_cb2t.txt";
  input.zsm_name = "/d/a.zsm";
  input.zsm_use_name = "/d/a_zz2c.zsm";
  std::string files;
  for (const ViewerMenu& menu : viewer_menus())
    files += std::string{menu.name} + " " + menu.file(input) + "\n";
  for (const std::string row :
       {"mnuDisp2_in ", "mnuDisp2_out1 /d/C.cbr", "mnuDisp2_out3 /d/C.log", "mnuDisp2_out2 /d/C.adi",
        "mnuDisp2_Qtc /d/C.qlg", "all_Disp_z2a /d/a_z2a.all", "txt_Disp_c2t /d/a_cb2t.txt",
        "zsm_Disp_zsm /d/a_zz2c.zsm", "zsm_Disp_za2c /d/a_za2c.zsm", "zsm_Disp_cb2c /d/a_cb2c.zsm"})
    EXPECT_TRUE(contains("\n" + files, "\n" + row + "\n")) << row;
}

TEST_F(MainWindowTest, ReSelectShowsTheDialogAndTakesTheContestNameForAnEmptyLine) {
  open();
  test.desk.forms.clear();
  state.contest.contest_line.clear();
  bool confirmed = false;
  test.desk.on_show = [&](FormName) {
    state.contest.contest_name = "IOTA Contest";
    state.category.dialog_shown = confirmed;
  };
  window.click("cmdReSelect");
  EXPECT_EQ(test.desk.forms, std::vector{FormName::select_cont});
  EXPECT_EQ(state.contest.contest_name, "CQWW DX Contest 2025");  // left without OK
  state.contest.contest_line.clear();
  confirmed = true;
  window.click("cmdReSelect");
  EXPECT_EQ(state.contest.select_caller, "za2c_zsm");
  EXPECT_EQ(state.contest.contest_line, "IOTA Contest");
}

TEST_F(MainWindowTest, MailIsNotAvailableAndTheWindowGoesOn) {
  open();
  window.click("cmdMail_Send");
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_FALSE(window.closed);
  EXPECT_TRUE(main.kaishi.enabled);
}

TEST_F(MainWindowTest, ErrorTrapRunTimeErrorEndsTheWindow) {
  open();
  std::filesystem::remove(log());
  window.click("kaishi");
  EXPECT_TRUE(window.closed);
  EXPECT_EQ(test.desk.boxes.size(), 1U);
}

TEST_F(MainWindowTest, ExitCountsTheRunOnce) {
  test.set("exe_rec", "0");
  window.click("owari");
  window.click("owari");
  EXPECT_TRUE(window.closed);
  EXPECT_NE(test.folder.read_text("Varnisto.ini").find("exe_rec= 1\n"), std::string::npos);
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
  window.load();
  EXPECT_EQ(main.mnuRecent_in[1].caption, logs[8]);
  EXPECT_FALSE(main.mnuRecent_in[7].visible);
  window.click("mnuRecent2");
  EXPECT_EQ(state.input.in_name, logs[8]);
  EXPECT_EQ(main.mnuRecent_in[0].caption, logs[8]);
  window.click("Option1", 2);  // writing the settings keeps the list
  EXPECT_EQ(recent_files(test.app).front(), logs[8]);
}

TEST(RecentFiles, AreNotKeptWithoutASettingsFile) {
  TestApp test;
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  Main(test.app, test.folder.path());
  remember_file(test.app, "/x.all");
  keep_window_geometry(test.app, "1 2 3 4");
  EXPECT_FALSE(test.folder.has("Varnisto.ini"));
}

TEST_F(MainWindowTest, WindowPlaceSurvivesWritingTheSettings) {
  window.keep_geometry("AdnQywAD=/");
  window.click("Option3", 1);
  EXPECT_EQ(window.geometry(), "AdnQywAD=/");
}

TEST_F(MainWindowTest, WebMenuOpensTheListedAddress) {
  test.folder.write_text("web_menu.cfg", ";mnuAA,no\nmnuARRL, \nmnuAA,https://a.example/?x=1\n");
  window.click("mnuAA");
  EXPECT_EQ(test.launcher.started, std::vector<std::string>{"browser https://a.example/?x=1"});
  window.click("mnuARRL");
  window.click("mnuJIDX");
  EXPECT_EQ(test.launcher.started.size(), 1U);
  EXPECT_EQ(test.desk.boxes.size(), 2U);
  EXPECT_FALSE(window.closed);
}

TEST(WebMenu, ShippedListHasAnAddressForEveryEntry) {
  const std::string list = (source_dir("data") / "web_menu.cfg").string();
  for (const WebLink& link : web_links())
    EXPECT_TRUE(web_address(TextReader{list}, link.name).starts_with("https://")) << link.name;
}

TEST_F(MainWindowTest, DebugModeCaptionStaysOnWhenTheWindowLoadsAgain) {
  window.click("mnuDebug_mode");
  window.click("mnuMake");
  EXPECT_TRUE(main.mnuDebug_mode.checked);
  EXPECT_EQ(main.mnuDebug.caption, "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ ON");
}

}  // namespace
}  // namespace varnisto::test
