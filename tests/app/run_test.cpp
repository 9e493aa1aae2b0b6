// Start, one run, exit.

#include <filesystem>
#include <gtest/gtest.h>

#include "app/action.h"
#include "app/driver.h"
#include "app/start_up.h"
#include "base/text.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Start, WithoutSettingsTriesTheLegacyFile) {
  TestApp test;
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
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
  Run() {
    test.start();
    work.write("a.zsm", "CQWW DX Contest\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n");
    test.open(work.write("a.all", "zLog\r\n" + all_line({}) + "\r\n"));
  }

  TestApp test;
  TempDir work;
};

TEST_F(Run, LeavesTwoEqualLogsAndNoScratchFiles) {
  for (const char* name : {"QX1ABC.cbr_2", "QX1ABC.cbr_3", "QX1ABC.cbr2", "QX1ABC.cbr_22"})
    work.write(name, "x");
  work.write("QX1ABC.log", "an older and longer file" + std::string(9999, 'x'));
  kaishi_Click(test.app);
  EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
  EXPECT_TRUE(work.has("QX1ABC.cbr_22"));
  EXPECT_EQ(work.files().size(), 5U);
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_EQ(test.desk.boxes[0].title, "　　提 出 前 の 注 意 事 項");
  EXPECT_EQ(test.desk.hourglass_on, 0);
  EXPECT_EQ(test.app.state.input.outputs,
            (std::vector{work.path() + "QX1ABC.cbr", work.path() + "QX1ABC.log"}));
}

TEST_F(Run, AFolderThatTakesNoFileIsAnErrorNotAShortLog) {
  std::filesystem::create_directory(work.path() + "QX1ABC.cbr");
  const ActionResult result = run_action(test.app, [&] { kaishi_Click(test.app); });
  EXPECT_EQ(result.kind, ActionResult::failed);
  EXPECT_EQ(result.number, 75);
  EXPECT_EQ(test.desk.hourglass_on, 0);
}

}  // namespace
}  // namespace varnisto::test
