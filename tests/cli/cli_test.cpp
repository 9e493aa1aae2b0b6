#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/interruption.h"
#include "base/text.h"
#include "cli/console.h"
#include "cli/json_bytes.h"
#include "cli/run_cli.h"
#include "support/rows.h"
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
  EXPECT_TRUE(contains(objects[1], ",\"messages\":[")) << objects[1];
  EXPECT_TRUE(objects[1].ends_with("],\"ok\":true,\"error\":null}")) << objects[1];
}

TEST_F(Cli, ARefusalHasItsStatusAndWritesNothing) {
  const auto inputs = work.files();
  EXPECT_EQ(convert("--power=much"), 2);
  EXPECT_TRUE(contains(err.str(), "{high,low,qrp}")) << err.str();
  EXPECT_EQ(run({"send", log}), 2);
  EXPECT_TRUE(contains(err.str(), "not available yet: send")) << err.str();
  for (const char* option : {"--lint", "--year=2025"}) EXPECT_EQ(convert(option), 2) << option;
  for (const char* option : {"--lint", "--year"})
    EXPECT_TRUE(contains(err.str(), std::string{"not available yet: "} + option)) << err.str();
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

TEST_F(Cli, ABatchGoesOnWhateverHappensToALog) {
  const std::string endless = work.write_text("endless.ALL", "zLog\n2025/11/29 " + std::string(1100000, 'x'));
  EXPECT_EQ(run({"convert", "--json", endless, work.path(), log}), 1);
  const auto objects = split(out.str(), '\n');
  ASSERT_EQ(objects.size(), 4U);
  EXPECT_TRUE(contains(objects[0], "\"outputs\":[]")) << objects[0];
  EXPECT_TRUE(contains(objects[0], "\"error\":{\"number\":5,")) << objects[0];
  EXPECT_TRUE(contains(objects[1], "\"error\":{\"number\":0,")) << objects[1];
  EXPECT_TRUE(objects[2].ends_with("\"ok\":true,\"error\":null}")) << objects[2];

  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  std::filesystem::create_directory(test.folder.path() + "Varnisto.ini");
  EXPECT_EQ(run({"convert", "--json", log, log}), 1);
  ASSERT_EQ(split(out.str(), '\n').size(), 3U);
  EXPECT_TRUE(contains(out.str(), "\"error\":{\"number\":75,")) << out.str();
  EXPECT_EQ(run({"settings"}), 1);
}

TEST_F(Cli, NotesAndBytesThatAreNoTextAreInTheReportAndInJson) {
  const std::string odd = work.write_text("a\xFF.ALL", "zLog\n" + all_line({}) + "\n\x1A" + all_line({}));
  work.write_text("a\xFF.zsm", "CQWW DX Contest\nCategory: Single-op All band CW\nTotal score : 1\n");
  EXPECT_EQ(run({"convert", "--json", odd}), 0) << err.str();
  EXPECT_TRUE(contains(out.str(), "{\"input\":\"" + work.path() + "a\\udcff.ALL\"")) << out.str();
  EXPECT_TRUE(
      contains(out.str(), "\"finding_count\":0,\"notes\":[{\"kind\":\"after_eof\",\"count\":1,\"line\":3,"))
      << out.str();
  EXPECT_EQ(run({"convert", odd}), 0);
  EXPECT_TRUE(contains(out.str(), "\n  note      終端文字")) << out.str();
}

TEST_F(Cli, AGuessedContestIsTold) {
  struct Row {
    std::string title;  ///< of the summary; empty: there is none
    bool asked, told;
  };
  for (const Row& row :
       rows_of(Row{"", false, true}, Row{"", true, false}, Row{"JIDX Contest 2025", false, false},
               Row{"The JIDX Contest", false, false}, Row{"JIDX-X", false, true})) {
    SCOPED_TRACE(row.title);
    const std::string jidx = work.write_text("jidx.ALL", "zLog\n" + all_line({}) + "\n");
    std::filesystem::remove(work.path() + "jidx.zsm");
    if (!row.title.empty())
      work.write_text("jidx.zsm", row.title + "\nCategory: Single-op All band CW\nTotal score : 1\n");
    std::vector<std::string> arguments = {"convert", "--json", jidx};
    if (row.asked) arguments.insert(arguments.end(), {"--contest", "JIDX Contest"});
    EXPECT_EQ(run(arguments), 0) << err.str();
    EXPECT_EQ(contains(out.str(), "contest_guessed"), row.told) << out.str();
  }
}

TEST_F(Cli, CheckRefusesAFileWithoutAQsoAndStreamsTheRest) {
  EXPECT_EQ(run({"check", work.write_text("a.cbr", "NAME:\nEND-OF-LOG:\n")}), 1);
  EXPECT_EQ(out.str(), "");
  EXPECT_TRUE(contains(err.str(), "ログに交信データがありません。"));
  const std::string file = work.write_text("b.cbr",
                                           "x\nNAME:\nQSO:\ny\n\x1A"
                                           "z");
  EXPECT_EQ(run({"check", file}), 0);
  EXPECT_TRUE(out.str().starts_with("入力ファイル名 ： " + file + "\n出力ファイル名 ： " + file +
                                    "\n\n\nNAME: 項目が空白です。\n\n\n\n   "))
      << out.str();
  EXPECT_TRUE(out.str().ends_with("his exch が空白です。\n\n\n")) << out.str();
  EXPECT_TRUE(contains(err.str(), "終端文字"));
  convert("--quiet");
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(run({"check", work.path() + "QX1ABC.cbr"}), 0);
  EXPECT_EQ(out.str(), work.path() + "QX1ABC.cbr: OK (408 QSO)\n");
  EXPECT_EQ(run({"check", "--quiet", work.path() + "QX1ABC.cbr"}), 0);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(run({"check", "--json", file}), 0);
  EXPECT_TRUE(contains(out.str(), "\"finding_count\":11,")) << out.str();
}

TEST_F(Cli, WrongUsageIsTwo) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"settings", "JIDX_no_Disp_flag=99999"},
        {"settings", "NAME=a\x1B"},
        {"settings", "NAME=\u20AC"},
        {"convert", "--set", "NAME=a\x07", log},
        {"--version"}})
    EXPECT_EQ(run(arguments), 2) << arguments.back();
  EXPECT_EQ(run_cli({"--app-dir", work.path() + "none", "settings"}, out, err), 2);
  EXPECT_EQ(run_cli({"--app-dir", work.path(), "settings"}, out, err), 4);
  EXPECT_TRUE(contains(err.str(), "contest_name.cfg")) << err.str();
  EXPECT_EQ(run({"convert", "--help"}), 0);
  EXPECT_FALSE(contains(out.str(), "{false}"));
  EXPECT_EQ(run({"--help"}), 0);
  EXPECT_TRUE(contains(out.str(), " not available yet\n"));
  EXPECT_TRUE(contains(err.str(), "\n--version stands alone\n")) << err.str();
  EXPECT_TRUE(contains(err.str(), "JIDX_no_Disp_flag: エラー")) << err.str();
  out.setstate(std::ios::badbit);
  EXPECT_EQ(run_cli({"--version"}, out, err), 1);
}

TEST_F(Cli, TwoRunsOfOneLogGiveAWholePairFromOne) {
  std::string text = "zLog\n";
  for (int i = 0; i < 2000; ++i) text += all_line({.call = "QX" + std::to_string(i)}) + "\n";
  work.write_text("QX1ABC.ALL", text);
  const std::string other = test.work.write_text("b.ALL", "zLog\n" + all_line({.call = "QX0"}) + "\n");
  std::filesystem::copy(work.path() + "QX1ABC.zsm", work.path() + "b.zsm");
  convert("--utc");
  const std::string whole = work.read("QX1ABC.cbr");
  run({"convert", "--utc", other});
  const std::string small = work.read("QX1ABC.cbr");
  for (int round = 0; round < 10; ++round) {
    for (const std::string& input : {log, other})
      if (::fork() == 0) ::_exit(run({"convert", "--utc", input}));
    for (int status = 0; ::wait(&status) > 0;) EXPECT_EQ(status, 0);
    EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
    EXPECT_TRUE(work.read("QX1ABC.cbr") == whole || work.read("QX1ABC.cbr") == small);
  }
  EXPECT_EQ(work.files().size(), 6U);
}

TEST_F(Cli, RunsOfDifferentLogsInOneProgramFolderKeepTheirContests) {
  const std::pair<const char*, const char*> runs[] = {{"a", "CQ WPX Contest"}, {"b", "All Asian DX Contest"}};
  for (int round = 0; round < 5; ++round) {
    for (const auto& [name, contest] : runs) {
      const std::string input = work.write_text(name + std::string{".ALL"}, "zLog\n" + all_line({}) + "\n");
      if (::fork() == 0) ::_exit(run({"convert", input, "--contest", contest}));
    }
    for (int status = 0; ::wait(&status) > 0;) EXPECT_EQ(status, 0);
    for (const auto& [name, contest] : runs)
      EXPECT_TRUE(work.read_text(name + std::string{"_za2c.zsm"}).starts_with(contest));
  }
}

TEST_F(Cli, SettingsThatCannotBeReadCanBeReplaced) {
  test.set("JIDX_no_Disp_flag", "99999");
  EXPECT_EQ(run({"settings"}), 1);
  EXPECT_TRUE(contains(err.str(), "Varnisto.ini: JIDX_no_Disp_flag")) << err.str();
  EXPECT_EQ(run({"settings", "JIDX_no_Disp_flag=1"}), 0) << err.str();
  test.set("version", "0.92");
  test.set("op_iota_island", "");
  EXPECT_EQ(run({"settings"}), 0);
  for (const char* line :
       {"version=3.09\n", "JIDX_no_Disp_flag=1\n", "op_iota_island=Honshu Island\n", "iota_name_only=1\n"})
    EXPECT_TRUE(contains(out.str(), line)) << out.str();
}

TEST_F(Cli, ADebugLogThatCannotBeWrittenCostsANotice) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const pid_t child = ::fork();
  if (child == 0) {
    install_signal_handlers();
    const rlimit small{16, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const int status = run({"--debug", "convert", "--json", log, log});
    ::_exit(status == 1 && split(out.str(), '\n').size() == 3 ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST_F(Cli, FourSettingsWritersLoseNothing) {
  const std::string values[] = {"NAME=N1", "OPERATORS=O1", "ADDRESS1=A1", "eQSLcom=E1"};
  for (const std::string& value : values)
    if (::fork() == 0) ::_exit(run({"settings", value}));
  for (int status = 0; ::wait(&status) > 0;) EXPECT_EQ(status, 0);
  const std::string ini = test.folder.read("Varnisto.ini");
  for (const std::string& value : values) EXPECT_TRUE(contains(ini, "\r\n" + value + "\r\n")) << ini;
  EXPECT_TRUE(contains(ini, "CALLSIGN=QX1ABC\r\n"));
}

TEST(Console, ControlCharactersAreShownOrBlank) {
  for (const auto& [controls, text] :
       {std::pair{Controls::caret, "a^[[1m\tb^?^M\n"}, {Controls::blank, "a [1m\tb  \n"}}) {
    std::stringbuf below;
    ConsoleBuffer buffer{below, controls};
    std::ostream stream{&buffer};
    stream << "a\x1B[1m\tb" << '\x7F' << "\r\n" << std::flush;
    EXPECT_EQ(below.str(), text);
  }
}

TEST(JsonBytes, WhatIsNoCharacterBecomesHalfASurrogatePair) {
  for (const std::string text :
       {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xE0\xBF\xBF", "\xE1\x80\x80", "\xEC\xBF\xBF",
        "\xED\x80\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
        "\xF0\xBF\xBF\xBF", "\xF1\x80\x80\x80", "\xF3\xBF\xBF\xBF", "\xF4\x80\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_EQ(with_surrogates(escape_bytes(text)), text);
  for (const auto& [bytes, first] :
       texts_of<2>("\x80|80", "\xC1\xBF|c1", "\xC2\x7F|c2", "\xDF\xC0|df", "\xE0\x9F\xBF|e0",
                   "\xE1\x7F\x80|e1", "\xED\xA0\x80|ed", "\xEF\xBF|ef", "\xEF\xBFx|ef", "\xF0\x8F\xBF\xBF|f0",
                   "\xF3\xBF\xBF|f3", "\xF4\x90\x80\x80|f4", "\xF5\x80\x80\x80|f5"))
    EXPECT_TRUE(with_surrogates(escape_bytes(bytes)).starts_with("\\udc" + first)) << first;
}

TEST_F(Cli, ToZlogWritesALoggersText) {
  EXPECT_EQ(run({"to-zlog", work.write_text("my.cbr", "QSO:  7000 CW 2025-11-29 0012\n")}), 0) << err.str();
  EXPECT_TRUE(contains(work.read_text("my_c2z.txt"), "\n 11  29 0012  "));
  EXPECT_TRUE(contains(out.str(), "\n  kind      cbr\n  QSOs      1\n  written ")) << out.str();
}

}  // namespace
}  // namespace varnisto::test
