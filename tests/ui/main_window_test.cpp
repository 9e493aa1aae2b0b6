#include "ui/main_window.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/settings.h"
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

TEST(MainWindow, EveryControlHasOneName) {
  OpenWindow open;
  std::vector<std::string_view> names;
  for (const NamedControl& named : open.window.controls()) names.push_back(named.name);
  std::ranges::sort(names);
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
}

struct Opening {
  std::string menu, title, filter;
};
class OpenDialog : public testing::TestWithParam<Opening> {};
TEST_P(OpenDialog, AsksWithFolderTitleAndFilterAndCancelKeepsTheLog) {
  OpenWindow open;
  open.open();
  const std::string title_line = open.state.contest.contest_line;
  open.window.click(GetParam().menu);
  ASSERT_EQ(open.test.desk.open_requests.size(), 1U);
  EXPECT_EQ(open.test.desk.open_requests[0].title, "　logs/" + GetParam().title);
  EXPECT_EQ(open.test.desk.open_requests[0].filter, GetParam().filter);
  EXPECT_EQ(open.test.desk.open_requests[0].folder, "logs/");
  EXPECT_EQ(open.state.input.in_name, open.log());
  EXPECT_EQ(open.state.contest.contest_line, title_line);
  open.window.click("kaishi");
  EXPECT_TRUE(open.work.has("QX1ABC.cbr"));
  EXPECT_FALSE(open.window.closed);
}
INSTANTIATE_TEST_SUITE_P(
    Menus, OpenDialog,
    testing::Values(Opening{"mnuOpen_all", "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ａｌｌ ) ファイルを  開く ....",
                            "ﾃｷｽﾄﾌｧｲﾙ ( *.all )|*.all|"},
                    Opening{"mnuOpen_bin", "　の ﾊﾞｲﾅﾘｰﾌｧｲﾙ ( ＊．ｂｉｎ ) ファイルを  開く ....",
                            "ﾃｷｽﾄﾌｧｲﾙ ( *.bin )|*.bin|"},
                    Opening{"mnuOpen_cbr", "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ｃｂｒ ) ファイルを  開く ....",
                            "ﾃｷｽﾄﾌｧｲﾙ ( *.cbr )|*.cbr|"}),
    [](const auto& test) { return test.param.menu; });

TEST(MainWindow, CabrilloFileBecomesTheInputOfTheWayBack) {
  OpenWindow open;
  const std::string file = open.work.write_text("QX1ABC.cbr", "START-OF-LOG: 3.0\n");
  open.test.desk.next_file = file;
  open.window.click("mnuOpen_cbr");
  EXPECT_EQ(open.state.input.in_type, "cbr");
  EXPECT_EQ(open.state.input.out_name, open.work.path() + "QX1ABC_c2z.txt");
  EXPECT_TRUE(open.main.kaishi.enabled);
  open.window.click("mnuMake");  // loading the window again keeps it
  EXPECT_EQ(open.state.input.in_name, file);
}

struct Dropped {
  std::string name, file;
  bool opens;
};
class DroppedFile : public testing::TestWithParam<Dropped> {};
TEST_P(DroppedFile, OpensByItsExtension) {
  OpenWindow open;
  open.work.write_text("notes.doc", "x\n");
  open.window.open_dropped_file(open.work.path() + GetParam().file);
  EXPECT_EQ(open.main.kaishi.enabled, GetParam().opens);
  EXPECT_EQ(open.test.desk.boxes.size(), GetParam().opens ? 0U : 1U);
  EXPECT_FALSE(open.window.closed);
}
INSTANTIATE_TEST_SUITE_P(Kinds, DroppedFile,
                         testing::Values(Dropped{"Log", "QX1ABC.ALL", true},
                                         Dropped{"CaseOfTheNameDoesNotMatter", "qx1abc.all", true},
                                         Dropped{"UnknownExtension", "notes.doc", false},
                                         Dropped{"Missing", "nothing.all", false},
                                         Dropped{"Folder", ".", false}),
                         [](const auto& test) { return test.param.name; });

TEST(MainWindow, OperatorAndPowerClicksReachTheCategoryAndTheSettingsFile) {
  OpenWindow open;
  open.state.category.cat_summary = "ALL LOW";
  open.window.click("Option1", 2);
  EXPECT_EQ(open.state.category.cat_summary, "ALL QRP");
  open.window.click("Option1", 0);
  EXPECT_EQ(open.state.category.cat_summary, "ALL HIGH");
  open.window.click("Option3", 4);
  EXPECT_EQ(open.state.category.cat_transmitter, "TWO");
  EXPECT_EQ(open.state.category.multi_tx, 1);
  open.window.click("Option3", 0);
  EXPECT_EQ(open.state.category.cat_transmitter, "ONE");
  EXPECT_EQ(open.state.category.multi_tx, 0);
  EXPECT_EQ(open.main.Option3.options[0].color, Color::blue);
  EXPECT_EQ(open.main.Option3.options[4].color, Color::black);
  const std::string ini = open.test.folder.read_text("Varnisto.ini");
  EXPECT_NE(ini.find("power_sel=0\n"), std::string::npos);
  EXPECT_NE(ini.find("operator_sel=0\n"), std::string::npos);
}

struct Flag {
  std::string box;
  std::string Settings::*flag;
};
class CheckBoxFlag : public testing::TestWithParam<Flag> {};
TEST_P(CheckBoxFlag, FollowsTheBox) {
  OpenWindow open;
  open.main.lblShori.text = "処理終了";
  CheckBox& box = *open.window.find<CheckBox>(GetParam().box);
  const Settings before = open.state.settings;
  box.checked = true;
  open.window.click(GetParam().box);
  EXPECT_EQ(open.state.settings.*GetParam().flag, "1");
  EXPECT_EQ(open.main.lblShori.text, "");
  box.checked = false;
  open.window.click(GetParam().box);
  EXPECT_EQ(open.state.settings.*GetParam().flag, "0");
}
INSTANTIATE_TEST_SUITE_P(
    Boxes, CheckBoxFlag,
    testing::Values(Flag{"Check2", &Settings::mode_2_rtty_flag}, Flag{"Check3", &Settings::for_eqsl_flag},
                    Flag{"Check4", &Settings::get_freq_flag}, Flag{"Check5", &Settings::freq19_to_18_flag},
                    Flag{"Check6", &Settings::jst_to_utc_flag}, Flag{"Check7", &Settings::tenki_flag},
                    Flag{"Check8", &Settings::add_qtc_flag}, Flag{"Check9", &Settings::e_mail_subject_flag}),
    [](const auto& test) { return test.param.box; });

TEST(EditorBox, WithoutAnEditorBlocksOpeningUntilItIsUnticked) {
  OpenWindow open;
  open.open();
  open.main.Check1.checked = true;
  open.window.click("Check1");
  EXPECT_EQ(open.main.lblPad_use.text, "要設定");
  EXPECT_FALSE(open.main.mnuOpen_file.enabled);
  EXPECT_EQ(open.main.Text1.color, Color::red);
  EXPECT_TRUE(open.main.mnu_edit.enabled);
  open.main.Check1.checked = false;
  open.window.click("Check1");
  EXPECT_EQ(open.main.lblPad_use.text, "しない");
  EXPECT_TRUE(open.main.mnuOpen_file.enabled);
  EXPECT_FALSE(open.main.mnu_edit.enabled);
}

TEST(Editor, MissingOneGivesAMessageAndStartsNothing) {
  OpenWindow open;
  open.state.settings.dir_pad = "/no/such/editor";
  open.window.click("mnu_contest_name");
  ASSERT_EQ(open.test.desk.boxes.size(), 1U);
  EXPECT_EQ(open.test.desk.boxes[0].text, "[ c作成 ] にてエディターの設定をして下さい");
  EXPECT_TRUE(open.test.launcher.started.empty());
}

TEST(Editor, OpensTheOutputAndKeepsWhatADialogChose) {
  OpenWindow open;
  const std::string editor = open.work.write("editor", "");
  open.test.set("dir_pad", editor);
  read_settings(open.test.app);
  open.open();
  open.state.category.cat_station = "PORTABLE";
  open.window.click("mnu_mc");
  open.window.click("mnu_email_add");
  EXPECT_EQ(
      open.test.launcher.started,
      (std::vector<std::string>{"editor " + editor + " " + open.work.path() + "QX1ABC.cbr",
                                "editor " + editor + " " + open.test.folder.path() + "e_mail_add.cfg"}));
  EXPECT_EQ(open.main.lblShori.text, "編集終了");
  EXPECT_EQ(open.state.category.cat_station, "PORTABLE");
}

TEST(Viewer, OutputMenusFollowTheRun) {
  OpenWindow open;
  open.open();
  EXPECT_TRUE(open.main.mnuDisp2_in.enabled);
  EXPECT_FALSE(open.main.mnuDisp2_out1.enabled);
  open.window.click("kaishi");
  EXPECT_TRUE(open.main.mnuDisp2_out1.enabled);
  EXPECT_FALSE(open.main.mnuDisp2_out2.enabled);
  for (const auto& [menu, file] : {std::pair{"mnuDisp2_in", "QX1ABC.ALL"},
                                   {"mnuDisp2_out1", "QX1ABC.cbr"},
                                   {"mnuDisp2_out3", "QX1ABC.log"}}) {
    open.test.desk.forms.clear();
    open.window.click(menu);
    EXPECT_EQ(open.state.display.disp_name, open.work.path() + file);
    EXPECT_EQ(open.test.desk.forms, std::vector{FormName::frmDisp2});
  }
}

struct Viewed {
  std::string menu, file;
};
class ViewerFile : public testing::TestWithParam<Viewed> {};
TEST_P(ViewerFile, IsTheMenusFile) {
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
  const auto menus = viewer_menus();
  const auto menu = std::ranges::find(menus, GetParam().menu, &ViewerMenu::name);
  ASSERT_NE(menu, menus.end());
  EXPECT_EQ(menu->file(input), GetParam().file);
}
INSTANTIATE_TEST_SUITE_P(
    Menus, ViewerFile,
    testing::Values(Viewed{"mnuDisp2_in", ""}, Viewed{"mnuDisp2_out1", "/d/C.cbr"},
                    Viewed{"mnuDisp2_out3", "/d/C.log"}, Viewed{"mnuDisp2_out2", "/d/C.adi"},
                    Viewed{"mnuDisp2_Qtc", "/d/C.qlg"}, Viewed{"all_Disp_z2a", "/d/a_z2a.all"},
                    Viewed{"txt_Disp_c2t", "/d/a_cb2t.txt"}, Viewed{"zsm_Disp_zsm", "/d/a_zz2c.zsm"},
                    Viewed{"zsm_Disp_za2c", "/d/a_za2c.zsm"}, Viewed{"zsm_Disp_cb2c", "/d/a_cb2c.zsm"}),
    [](const auto& test) { return test.param.menu; });

TEST(ReSelect, ShowsTheDialogAndTakesTheContestNameForAnEmptyLine) {
  OpenWindow open;
  open.open();
  open.test.desk.forms.clear();
  open.state.contest.contest_line.clear();
  open.test.desk.on_show = [&](FormName) { open.state.contest.contest_name = "IOTA Contest"; };
  open.window.click("cmdReSelect");
  EXPECT_EQ(open.test.desk.forms, std::vector{FormName::select_cont});
  EXPECT_EQ(open.state.contest.select_caller, "za2c_zsm");
  EXPECT_EQ(open.state.contest.contest_line, "IOTA Contest");
}

TEST(Mail, IsNotAvailableAndTheWindowGoesOn) {
  OpenWindow open;
  open.open();
  open.window.click("cmdMail_Send");
  ASSERT_EQ(open.test.desk.boxes.size(), 1U);
  EXPECT_FALSE(open.window.closed);
  EXPECT_TRUE(open.main.kaishi.enabled);
}

TEST(ErrorTrap, RunTimeErrorEndsTheWindow) {
  OpenWindow open;
  open.open();
  std::filesystem::remove(open.log());
  open.window.click("kaishi");
  EXPECT_TRUE(open.window.closed);
  EXPECT_EQ(open.test.desk.boxes.size(), 1U);
}

TEST(Exit, CountsTheRunOnce) {
  OpenWindow open;
  open.test.set("exe_rec", "0");
  open.window.click("owari");
  open.window.click("owari");
  EXPECT_TRUE(open.window.closed);
  EXPECT_NE(open.test.folder.read_text("Varnisto.ini").find("exe_rec= 1\n"), std::string::npos);
}

TEST(RecentFiles, NewestFirstWithoutDoublesAndWithoutMissingFiles) {
  OpenWindow open;
  std::vector<std::string> logs;
  for (int i = 0; i < 10; ++i) {
    logs.push_back(open.work.path() + "log" + std::to_string(i) + ".ALL");
    std::filesystem::copy(open.log(), logs.back());
    remember_file(open.test.app, logs.back());
  }
  remember_file(open.test.app, logs[5]);
  EXPECT_EQ(recent_files(open.test.app),
            (std::vector{logs[5], logs[9], logs[8], logs[7], logs[6], logs[4], logs[3], logs[2]}));
  std::filesystem::remove(logs[9]);
  open.window.load();
  EXPECT_EQ(open.main.mnuRecent_in[1].caption, logs[8]);
  EXPECT_FALSE(open.main.mnuRecent_in[7].visible);
  open.window.click("mnuRecent2");
  EXPECT_EQ(open.state.input.in_name, logs[8]);
  EXPECT_EQ(open.main.mnuRecent_in[0].caption, logs[8]);
  open.window.click("Option1", 2);  // writing the settings keeps the list
  EXPECT_EQ(recent_files(open.test.app).front(), logs[8]);
}

TEST(RecentFiles, AreNotKeptWithoutASettingsFile) {
  TestApp test;
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  Main(test.app, test.folder.path());
  remember_file(test.app, "/x.all");
  keep_window_geometry(test.app, "1 2 3 4");
  EXPECT_FALSE(test.folder.has("Varnisto.ini"));
}

TEST(WindowPlace, SurvivesWritingTheSettings) {
  OpenWindow open;
  open.window.keep_geometry("AdnQywAD=/");
  open.window.click("Option3", 1);
  EXPECT_EQ(open.window.geometry(), "AdnQywAD=/");
}

TEST(WebMenu, OpensTheListedAddress) {
  OpenWindow open;
  open.test.folder.write_text("web_menu.cfg", ";mnuAA,no\nmnuARRL, \nmnuAA,https://a.example/?x=1\n");
  open.window.click("mnuAA");
  EXPECT_EQ(open.test.launcher.started, std::vector<std::string>{"browser https://a.example/?x=1"});
  open.window.click("mnuARRL");
  open.window.click("mnuJIDX");
  EXPECT_EQ(open.test.launcher.started.size(), 1U);
  EXPECT_EQ(open.test.desk.boxes.size(), 2U);
  EXPECT_FALSE(open.window.closed);
}

TEST(WebMenu, ShippedListHasAnAddressForEveryEntry) {
  const std::string list = (source_dir("data") / "web_menu.cfg").string();
  for (const WebLink& link : web_links())
    EXPECT_TRUE(web_address(TextReader{list}, link.name).starts_with("https://")) << link.name;
}

TEST(Help, OpensThePageOfTheProgramFolder) {
  OpenWindow open;
  open.window.click("mnuDispHelp");
  EXPECT_EQ(open.test.launcher.started,
            std::vector<std::string>{"help " + open.test.folder.path() + "help/index.html"});
}

TEST(DebugMode, CaptionStaysOnWhenTheWindowLoadsAgain) {
  OpenWindow open;
  open.window.click("mnuDebug_mode");
  open.window.click("mnuMake");
  EXPECT_TRUE(open.main.mnuDebug_mode.checked);
  EXPECT_EQ(open.main.mnuDebug.caption, "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ ON");
}

}  // namespace
}  // namespace varnisto::test
