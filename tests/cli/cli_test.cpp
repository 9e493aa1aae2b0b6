#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

#include "base/text.h"
#include "cli/run_cli.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

/// The program on a folder of its own and a log with the logger's summary.
class Cli : public testing::Test {
 protected:
  Cli() { test.work.copy_from(source_dir("examples/cqww-cw")); }

  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--app-dir", test.folder.path()});
    out.str("");
    return run_cli(arguments, out, err);
  }
  int convert(const std::string& option) { return run({"convert", option, log}); }

  TestApp test;
  const TempDir& work = test.work;
  const std::string log = work.path() + "QX1ABC.ALL";
  std::ostringstream out, err;
};

TEST_F(Cli, ConvertsWithASettingForThisRunOnly) {
  test.set("NAME", "Other");
  const std::string ini = test.folder.read("Varnisto.ini");
  EXPECT_EQ(convert("--set=NAME=Taro Mihon"), 0) << err.str();
  TempDir expected;
  expected.copy_from(source_dir("tests/data/expected/cqww-cw"));
  for (const auto& [name, bytes] : expected.files()) EXPECT_EQ(work.read(name), bytes) << name;
  const std::string report =
      "\n  kind      zlog_all (zlog_all_zsm1, zlog_zsm)\n  contest   CQ-WW-CW\n  call sign QX1ABC\n"
      "  category  SINGLE-OP ALL LOW\n  score     215498\n  QSOs      408\n  written   ";
  EXPECT_TRUE(out.str().starts_with(log + report + work.path() + "QX1ABC.cbr\n")) << out.str();
  EXPECT_EQ(test.folder.read("Varnisto.ini"), ini);
}

TEST_F(Cli, AnOptionThatIsNotGivenLeavesTheFlagOfTheSettingsFile) {
  test.set("get_freq_flag", "1");
  work.write_text("QX1ABC.ALL", "zLog\n" + all_line({.memo = "(7012)"}) + "\n");
  EXPECT_EQ(convert("--quiet"), 0) << err.str();
  EXPECT_TRUE(contains(work.read_text("QX1ABC.cbr"), "\nQSO:  7012 CW"));
  EXPECT_EQ(convert("--no-memo-freq"), 0) << err.str();
  EXPECT_TRUE(contains(work.read_text("QX1ABC.cbr"), "\nQSO:  7000 CW"));
}

TEST_F(Cli, JsonIsOneObjectALogAndTheWorstStatusCounts) {
  EXPECT_EQ(run({"convert", "--json", "none.ALL", log}), 1);
  const auto objects = split(out.str(), '\n');
  ASSERT_EQ(objects.size(), 3U);  // nothing behind the last line end
  EXPECT_TRUE(contains(objects[0], "\"ok\":false,\"error\":{\"number\":53,")) << objects[0];
  EXPECT_TRUE(objects[1].ends_with("\"ok\":true,\"error\":null}")) << objects[1];
}

TEST_F(Cli, ARefusalHasItsStatusAndWritesNothing) {
  const auto inputs = work.files();
  EXPECT_EQ(convert("--power=much"), 2);
  EXPECT_TRUE(contains(err.str(), "{high,low,qrp}")) << err.str();
  EXPECT_EQ(run({"send", log}), 2);
  EXPECT_TRUE(contains(err.str(), "not available yet: send")) << err.str();
  test.folder.write_text("contest_name.cfg", replace_all(std::string(51, '.'), ".", "T,C,N\n"));
  EXPECT_EQ(convert("--quiet"), 4);
  test.set("version", "3.08");
  EXPECT_EQ(convert("--quiet"), 3);
  std::filesystem::remove(test.folder.path() + "web_url.txt");
  EXPECT_EQ(convert("--quiet"), 4);
  EXPECT_TRUE(contains(err.str(), "web_url")) << err.str();
  EXPECT_EQ(work.files(), inputs);
}

TEST_F(Cli, SettingsAreWrittenAndPrinted) {
  EXPECT_EQ(run({"settings", "NAME=Hanako Mihon"}), 0) << err.str();
  EXPECT_EQ(run({"settings"}), 0);
  EXPECT_TRUE(contains(out.str(), "\nNAME=Hanako Mihon\n")) << out.str();
}

TEST_F(Cli, ToZlogWritesALoggersText) {
  EXPECT_EQ(run({"to-zlog", work.write_text("my.cbr", "QSO:  7000 CW 2025-11-29 0012\n")}), 0) << err.str();
  EXPECT_TRUE(contains(work.read_text("my_c2z.txt"), "\n 11  29 0012  "));
  EXPECT_TRUE(contains(out.str(), "\n  kind      cbr\n  QSOs      1\n  written ")) << out.str();
}

}  // namespace
}  // namespace varnisto::test
