// Start, one run, exit.

#include <filesystem>
#include <gtest/gtest.h>

#include "app/action.h"
#include "app/debug_log.h"
#include "app/driver.h"
#include "app/start_up.h"
#include "base/text.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

void without_ini(TestApp& test) {
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
}

TEST(Start, BlocksUntilTheSettingsAreCurrentAndComplete) {
  struct Row {
    std::string name;
    void (*prepare)(TestApp&);
    int blocked;
    std::string prompt, way;
  };
  for (const Row& row : rows_of(Row{"current", [](TestApp& test) { test.set("dir_pad", "vi"); }, 0,
                                    "ﾒﾆｭｰより入力ﾌｧｲﾙを指定して下さい", ""},
                                Row{"test_version",
                                    [](TestApp& test) {
                                      test.set("dir_pad", "vi");
                                      test.set("version", "3.09t2");
                                    },
                                    0, "ﾒﾆｭｰより入力ﾌｧｲﾙを指定して下さい", ""},
                                Row{"old_version",
                                    [](TestApp& test) {
                                      test.set("dir_pad", "vi");
                                      test.set("version", "3.08");
                                    },
                                    1, "旧 ini の為、環境 」より新 ini を作成必要",
                                    "ﾒﾆｭｰの[  ｉｎｉ ]よりVarnisto.iniを作成して下さい"},
                                Row{"incomplete", [](TestApp& test) { test.set("e_mail", ""); }, 1,
                                    "旧 ini の為、環境 」より新 ini を作成必要",
                                    "ﾒﾆｭｰの[  ｉｎｉ ]よりVarnisto.iniを作成して下さい"})) {
    SCOPED_TRACE(row.name);
    TestApp test;
    row.prepare(test);
    test.start();
    EXPECT_EQ(test.app.state.input.in_err_flag, row.blocked);
    EXPECT_EQ(test.app.main.mnuOpen_file.enabled, row.blocked == 0);
    EXPECT_EQ(test.app.main.lblIn.text, row.prompt);
    EXPECT_EQ(test.app.main.Text1.text,
              row.way.empty() ? "" : "Varnisto.ini がまだ作成されていません\r\n" + row.way);
  }
}

TEST(Start, BeforeVersion093OnlyTheIslandsNameWasWritten) {
  const std::pair<const char*, const char*> rows[] = {
      {"0.92", "1"}, {"0.93", "0"}, {"0.92t", "1"}, {"", "1"}};
  for (const auto& [version, flag] : rows) {
    TestApp test;
    test.set("version", version);
    Main(test.app, test.folder.path());
    EXPECT_EQ(test.app.state.settings.iota_name_only, flag) << version;
  }
}

TEST(Start, WithoutSettingsTriesTheLegacyFile) {
  TestApp test;
  without_ini(test);
  test.folder.write_text("Varnisto.cfg", "ver 3.09\nCALLSIGN:QX2DEF\n");
  Main(test.app, test.folder.path());
  EXPECT_EQ(test.app.state.program.cfg_missing, 1);
  EXPECT_EQ(test.app.state.program.cfg_loaded, 1);
  EXPECT_EQ(test.app.state.settings.mycall, "QX2DEF");
  EXPECT_EQ(test.app.state.settings.op_iota_island, "Honshu Island");
  EXPECT_EQ(test.app.state.program.this_year, "2025");
}

TEST(Start, AMissingListFileEndsTheProgramAfterAMessage) {
  for (const std::string_view name : required_files()) {
    TestApp test;
    std::filesystem::remove(test.folder.path() + std::string{name});
    EXPECT_EQ(run_action(test.app, [&] { test.start(); }).kind, ActionResult::ended);
    ASSERT_EQ(test.desk.boxes.size(), 1U);
    EXPECT_EQ(test.desk.boxes[0].title, "　　エラー　：　必要ファイルがありません。");
    EXPECT_EQ(test.desk.boxes[0].text, "[  " + replace_all(name, ".", " ．") +
                                           "   ]  がありません。\r\n\r\n" + test.folder.path() +
                                           "　に ｃｏｐｙ して下さい。\r\n\r\n");
  }
}

TEST(Start, AMalformedListFileNamesItsLine) {
  TestApp test;
  test.folder.write_text("category-assisted.txt", "; x\nCQ-WW\n");
  const ActionResult result = run_action(test.app, [&] { test.start(); });
  EXPECT_EQ(result.kind, ActionResult::list_file);
  EXPECT_TRUE(contains(result.text, "category-assisted.txt: 2 行目")) << result.text;
}

/// An opened log with the logger's summary, ready to run.
class Run : public testing::Test {
 protected:
  void open(const std::string& title, const std::string& set_key = "", const std::string& value = "") {
    if (!set_key.empty()) test.set(set_key, value);
    test.start();
    work.write("a.zsm", title + "\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n");
    test.open(work.write("a.all", "zLog\r\n" + all_line({}) + "\r\n"));
  }

  std::vector<std::string> titles() const {
    std::vector<std::string> all;
    for (const MessageBox& box : test.desk.boxes) all.push_back(box.title);
    return all;
  }

  TestApp test;
  TempDir work;
};

TEST_F(Run, LeavesTwoEqualLogsAndNoScratchFiles) {
  open("CQWW DX Contest");
  for (const char* name : {"QX1ABC.cbr_2", "QX1ABC.cbr_3", "QX1ABC.cbr2", "QX1ABC.cbr_22"})
    work.write(name, "x");
  work.write("QX1ABC.log", "an older and longer file" + std::string(9999, 'x'));
  kaishi_Click(test.app);
  EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
  EXPECT_TRUE(work.has("QX1ABC.cbr_22"));
  EXPECT_EQ(work.files().size(), 5U);
  EXPECT_EQ(titles(), std::vector<std::string>{"　　提 出 前 の 注 意 事 項"});
  EXPECT_EQ(test.desk.hourglass_on, 0);
  EXPECT_EQ(test.app.state.input.outputs,
            (std::vector{work.path() + "QX1ABC.cbr", work.path() + "QX1ABC.log"}));
}

TEST_F(Run, JidxNoticeNamesBothAddresses) {
  open("JIDX Contest (JA)");
  kaishi_Click(test.app);
  ASSERT_EQ(titles(),
            (std::vector<std::string>{"　　Ｊ Ｉ ＤＸ　時 の 注 意 事 項。", "　　提 出 前 の 注 意 事 項"}));
  const std::string& text = test.desk.boxes[0].text;
  EXPECT_TRUE(
      text.starts_with("Ｊ Ｉ ＤＸコンテストの時には下記を良く確認して下さい。\r\n\r\nJAPAN INTERNATIONAL DX "
                       "CONTEST\r\n\r\n"));
  EXPECT_TRUE(text.ends_with("\r\n\r\nJIDX-CW :   cw@jidx.org\r\n\r\nJIDX-PH :   ph@jidx.org\r\n"));
  EXPECT_TRUE(contains(text, "SSBの時は　　　:   JIDX-PH\r\n\r\n\r\nCATEGORY："));
  EXPECT_EQ(work.read("QX1ABC-7L.log"), work.read("QX1ABC-7L.cbr"));
}

TEST_F(Run, JidxNoticeCanBeSwitchedOff) {
  open("JIDX Contest (JA)", "JIDX_no_Disp_flag", "1");
  kaishi_Click(test.app);
  EXPECT_EQ(titles(), std::vector<std::string>{"　　提 出 前 の 注 意 事 項"});
}

TEST_F(Run, AFolderThatTakesNoFileIsAnErrorNotAShortLog) {
  open("CQWW DX Contest");
  std::filesystem::create_directory(work.path() + "QX1ABC.cbr");
  const ActionResult result = run_action(test.app, [&] { kaishi_Click(test.app); });
  EXPECT_EQ(result.kind, ActionResult::failed);
  EXPECT_EQ(result.number, 75);
  EXPECT_EQ(test.desk.hourglass_on, 0);
}

TEST_F(Run, DebugModeLogsEveryRoutineAndTheError) {
  open("CQWW DX Contest");
  mnuDebug_mode_Click(test.app);
  const std::string name = "20251130_123456.txt";
  const std::string opened = test.folder.read_text(name);
  EXPECT_TRUE(opened.starts_with("[Varnisto.ini]\nversion=3.09\n"));
  EXPECT_TRUE(opened.ends_with("exe_rec=0\n-----------------------\n" + work.path() + "a.all\n")) << opened;
  std::filesystem::create_directory(work.path() + "QX1ABC.cbr");
  run_action(test.app, [&] { kaishi_Click(test.app); });
  const std::string log = test.folder.read_text("20251130_123456_2.txt");  // the run has a log of its own
  EXPECT_TRUE(contains(log, "入力ファイル ： " + work.path() + "a.all\nPrivate Sub Kaishi_Click()\n")) << log;
  EXPECT_TRUE(contains(log, "\nPublic Sub zlog_all_zsm_print()\n"));
  EXPECT_TRUE(log.ends_with("エラー発生 ：　75\n")) << log;
  EXPECT_EQ(test.desk.boxes.back().text, "エラー発生、終了します");
}

TEST(Exit, EveryTenthRunAsksForAReport) {
  const std::pair<const char*, const char*> rows[] = {
      {"8", " 9"}, {" 9", " 10"}, {"19x", " 20"}, {"x", " 1"}};
  for (const auto& [before, after] : rows) {
    StartedApp test;
    test.app.state.settings.exe_rec = before;
    owari_Click(test.app);
    EXPECT_EQ(test.app.state.settings.exe_rec, after);
    EXPECT_EQ(test.desk.boxes.size(), std::string_view{after}.ends_with('0') ? 1U : 0U) << before;
    EXPECT_TRUE(contains(test.folder.read("Varnisto.ini"), "exe_rec=" + std::string{after} + "\r\n"));
  }
}

}  // namespace
}  // namespace varnisto::test
