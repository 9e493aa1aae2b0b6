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
#include "cli/options.h"
#include "cli/run_cli.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

/// The program on a folder of its own and a log with the logger's summary.
class Cli : public testing::Test {
 protected:
  Cli() { work.copy_from(source_dir("examples/cqww-cw")); }

  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--app-dir", test.folder.path()});
    out.str("");
    err.str("");
    return run_cli(arguments, out, err);
  }
  /// The same with words of one line, of which LOG is the log.
  int run(const std::string& line) { return run(split(replace_all(line, "LOG", log), ' ')); }
  /// Runs each line in a process of its own, all at a time.
  void run_together(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
      if (::fork() == 0) ::_exit(run(line));
    for (int status = 0; ::wait(&status) > 0;) EXPECT_EQ(status, 0);
  }
  void expect_out(std::string_view text) { EXPECT_TRUE(contains(out.str(), text)) << out.str() << err.str(); }
  void expect_err(std::string_view text) { EXPECT_TRUE(contains(err.str(), text)) << err.str(); }

  TestApp test;
  const TempDir& work = test.work;
  const std::string log = work.path() + "QX1ABC.ALL";
  const std::string one_line = "zLog\n" + all_line({}) + "\n";
  std::ostringstream out, err;
};

TEST_F(Cli, ConvertsTheExamplesWithSettingsForThisRunOnly) {
  test.set("NAME", "Other");
  const std::string ini = test.folder.read("Varnisto.ini");
  for (
      const auto& [folder, name, options, values] : texts_of<4>(
          R"(cqww-cw|QX1ABC.ALL||"contest":"CQ-WW-CW ","cont_id":"CQ-WW-","callsign":"QX1ABC",)"
          R"("category":"SINGLE-OP ALL LOW","cabrillo":{"CATEGORY-OPERATOR":"SINGLE-OP",)"
          R"("CATEGORY-TRANSMITTER":"ONE","CATEGORY-POWER":"LOW","CATEGORY-MODE":"CW","CATEGORY-BAND":"ALL",)"
          R"("CATEGORY-STATION":"FIXED","CATEGORY-ASSISTED":"NON-ASSISTED"},"score":215498,"qsos":408,)",
          R"(wpx-ssb-m2|qx2def.all| --memo-freq --power=high --set=CALLSIGN=QX2DEF|"cabrillo":{)"
          R"("CATEGORY-OPERATOR":"MULTI-OP","CATEGORY-TRANSMITTER":"ONE","CATEGORY-POWER":"HIGH",)"
          R"("CATEGORY-MODE":"SSB","CATEGORY-BAND":"ALL","CATEGORY-STATION":"FIXED",)"
          R"("CATEGORY-ASSISTED":"NON-ASSISTED"},"score":96193,"qsos":252,)",
          R"(arrl-10m|QX4JKL.ALL| --set=CALLSIGN=QX4JKL|"in_kind":"zlog_all","zsm_kind":"zlog_all_zsm1",)"
          R"("select_from":"zlog_zsm","contest":"ARRL-10","cont_id":"ARRL-10","callsign":"QX4JKL",)")) {
    TempDir logs, expected;
    logs.copy_from(source_dir("examples/" + folder));
    expected.copy_from(source_dir("examples/" + folder));
    expected.copy_from(source_dir("tests/data/expected/" + folder));
    std::vector<std::string> arguments = split("convert --json" + options, ' ');
    arguments.insert(arguments.end(), {"--set=NAME=Taro Mihon", logs.path() + name});
    EXPECT_EQ(run(arguments), 0);
    EXPECT_EQ(logs.files(), expected.files()) << folder;
    expect_out(values);
    expect_out("],\"ok\":true,\"error\":null}\n");
  }
  EXPECT_EQ(test.folder.read("Varnisto.ini"), ini);
}

TEST_F(Cli, ReportsWhatARunWrote) {
  EXPECT_EQ(run("convert LOG"), 0);
  EXPECT_EQ(out.str(), log +
                           "\n  kind      zlog_all (zlog_all_zsm1, zlog_zsm)\n  contest   CQ-WW-CW\n"
                           "  call sign QX1ABC\n  category  SINGLE-OP ALL LOW\n  score     215498\n"
                           "  QSOs      408\n  written   " +
                           work.path() + "QX1ABC.cbr\n  written   " + work.path() + "QX1ABC.log\n");
  const std::string odd = work.write_text("a\xFF.ALL", one_line + "\x1A" + one_line);
  std::filesystem::copy(work.path() + "QX1ABC.zsm", work.path() + "a\xFF.zsm");
  EXPECT_EQ(run({"convert", odd}), 0);
  expect_out("\n  note      終端文字");
  EXPECT_EQ(run({"convert", "--json", odd}), 0);
  expect_out("{\"input\":\"" + work.path() + "a\\udcff.ALL\"");
  expect_out("\"finding_count\":0,\"notes\":[{\"kind\":\"after_eof\",\"count\":2,\"line\":3,");
  expect_out("}],\"mail\":{\"to\":\"\",\"subject\":\"QX1ABC CQ-WW ");
  expect_out("\"qsos\":1,\"outputs\":[\"" + work.path() + "QX1ABC.cbr\",");
  expect_out("\"messages\":[\"提 出 前");
  EXPECT_EQ(run({"to-zlog", work.write_text("my.cbr", "QSO:  7000 CW 2025-11-29 0012\n")}), 0);
  expect_out("\n  kind      cbr\n  QSOs      1\n  written ");
  EXPECT_TRUE(contains(work.read_text("my_c2z.txt"), "\n 11  29 0012  "));
}

TEST(Options, EachFlagSetsItsOwnSetting) {
  std::ostringstream out, err;
  int status = 0;
  for (const auto& [name, key] :
       texts_of<2>("rtty|mode_2_rtty_flag", "eqsl|for_eQSL_flag", "memo-freq|get_freq_flag",
                   "as-1.8|freq19_to_18_flag", "utc|jst_to_utc_flag", "slash|tenki_flag", "qtc|add_qtc_flag",
                   "subject-cbr|e_mail_subject_flag"))
    for (const std::string value : {"0", "1"}) {
      const auto options =
          parse_options({"convert", (value == "0" ? "--no-" : "--") + name, "x"}, out, err, status);
      ASSERT_TRUE(options) << err.str();
      EXPECT_EQ(options->overrides, (std::vector<SettingOverride>{{key, value}}));
    }
  EXPECT_TRUE(parse_options({"convert", "x"}, out, err, status)->overrides.empty());
}

/// All answers of the command line that choose in a dialog's groups; -1 for one that was not given.
std::vector<int> groups_of(const DialogAnswers& answers) {
  std::vector<int> groups;
  for (const auto& answer : {answers.power, answers.op, answers.mode, answers.band, answers.transmitter,
                             answers.station, answers.iota_class})
    groups.push_back(answer.value_or(-1));
  return groups;
}

TEST(Options, EachChoiceReadsItsOwnAnswer) {
  std::ostringstream out, err;
  int status = 0;
  std::vector<int> expected(7, -1);
  std::size_t group = 0;
  for (const auto& [name, choices] : texts_of<2>(
           "power|high low qrp",
           "operator|single-op single-op-assisted school-club multi-one multi-two multi-multi checklog",
           "mode|mixed ssb cw rtty", "band|all 1.9 3.5 7 14 21 28",
           "transmitter|one two limited unlimited swl",
           "station|fixed mobile driver-mobile portable expedition hq school",
           "iota-class|24-hours 12-hours 6-hours")) {
    for (const std::string& choice : split(choices, ' ')) {
      const auto options = parse_options({"convert", "--" + name, choice, "x"}, out, err, status);
      ASSERT_TRUE(options) << err.str();
      ++expected.at(group);
      EXPECT_EQ(groups_of(options->answers), expected) << name << " " << choice;
    }
    expected.at(group++) = -1;
  }
}

TEST_F(Cli, AnswersThatNobodyAskedForAreNotices) {
  EXPECT_EQ(run("convert --json --contest=X --mode=cw --band=7 --transmitter=one --station=hq "
                "--iota-class=6-hours --prefer --overlay=Y --quiet LOG"),
            0);
  for (const char* option : {"--contest", "--mode", "--band", "--transmitter", "--station", "--iota-class",
                             "--prefer", "--overlay"})
    expect_out("\"" + std::string{option} + ": not asked for this log; see --reselect\"");
}

TEST_F(Cli, AnOptionThatIsNotGivenLeavesTheFlagOfTheSettingsFile) {
  test.set("get_freq_flag", "1");
  work.write_text("QX1ABC.ALL", "zLog\n" + all_line({.memo = "(7012)"}) + "\n");
  EXPECT_EQ(run("convert --quiet LOG"), 0) << err.str();
  EXPECT_EQ(out.str() + err.str(), "");
  EXPECT_TRUE(contains(work.read_text("QX1ABC.cbr"), "\nQSO:  7012 CW"));
  EXPECT_EQ(run("convert --no-memo-freq LOG"), 0) << err.str();
  EXPECT_TRUE(contains(work.read_text("QX1ABC.cbr"), "\nQSO:  7000 CW"));
}

TEST_F(Cli, AStatusTellsWhyNothingIsWritten) {
  const auto inputs = work.files();
  for (const auto& [line, status, text] : texts_of<3>(
           "convert none.ALL|1|none.ALL", "to-zlog none.cbr|1|none.cbr", "check none.cbr|1|none.cbr",
           "convert|2|LOG is required", "settings NAME|2|KEY=VALUE expected",
           "settings X=1|2|unknown setting", "settings version=3.09|2|unknown setting",
           "settings JIDX_no_Disp_flag=99999|2|_flag: エラー", "settings NAME=a\x1B|2|control character",
           "settings NAME=\u20AC|2|NAME: ", "convert --set NAME=a\x07 LOG|2|control character",
           "--version|2|--version stands alone", "convert --power=much LOG|2|{high,low,qrp}",
           "convert --overlay=X --no-overlay LOG|2|exclude",
           "convert --reselect --contest=X LOG|2|\"X\" is not offered",
           "convert --lint LOG|2|not available yet: --lint",
           "convert --year=2025 LOG|2|not available yet: --year",
           "convert --number=1 LOG|2|not available yet: --number",
           "convert --score=1 LOG|2|not available yet: --score",
           "convert --fixed-power=1 LOG|2|not available yet: --fixed-power",
           "convert --ccc-contest=X LOG|2|not available yet: --ccc-contest",
           "send LOG|2|not available yet: send", "lint LOG|2|not available yet: lint",
           "ask LOG|2|not available yet: ask", "chart LOG|2|not available yet: chart")) {
    EXPECT_EQ(run(line), std::stoi(status)) << line;
    expect_err(text);
  }
  EXPECT_EQ(run("settings NAME=" + std::string(127, 'x')), 0);
  EXPECT_EQ(run("settings NAME=" + std::string(128, 'x')), 2);
  expect_err("more than 127");
  test.folder.write_text("contest_name.cfg", replace_all(std::string(51, '.'), ".", "T,C,N\n"));
  EXPECT_EQ(run("convert --quiet LOG"), 4);
  test.set("CALLSIGN", "");
  EXPECT_EQ(run("convert --quiet LOG"), 3);
  expect_err("missing: CALLSIGN");
  test.set("version", "3.08");
  EXPECT_EQ(run("convert --quiet LOG"), 3);
  expect_err("version \"3.08\", expected");
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  test.folder.write_text("Varnisto.cfg", "ver 3.07\n");
  EXPECT_EQ(run("convert --quiet LOG"), 3);
  expect_err("version \"3.07\", expected");
  std::filesystem::remove(test.folder.path() + "web_url.txt");
  EXPECT_EQ(run("convert --quiet LOG"), 4);
  expect_err("web_url");
  EXPECT_EQ(run_cli({"--app-dir", work.path() + "none", "settings"}, out, err), 2);
  EXPECT_EQ(run_cli({"--app-dir", work.path(), "settings"}, out, err), 4);
  expect_err("contest_name.cfg");
  EXPECT_EQ(work.files(), inputs);
}

TEST_F(Cli, HelpAndVersionAreNoMistake) {
  EXPECT_EQ(run("convert --help"), 0);
  EXPECT_FALSE(contains(out.str(), "{false}"));
  EXPECT_EQ(run("--help"), 0);
  expect_out(" not available yet\n");
  out.setstate(std::ios::badbit);
  EXPECT_EQ(run_cli({"--version"}, out, err), 1);
}

TEST_F(Cli, ABatchGoesOnWhateverHappensToALog) {
  work.write_text("endless.ALL", "zLog\n2025/11/29 " + std::string(1100000, 'x'));
  EXPECT_EQ(run("convert --json none.ALL " + work.path() + "endless.ALL " + work.path() + " LOG"), 1);
  const auto objects = split(out.str(), '\n');
  ASSERT_EQ(objects.size(), 5U);  // nothing behind the last line end
  const char* const errors[] = {"\"ok\":false,\"error\":{\"number\":53,", "\"error\":{\"number\":5,",
                                "\"error\":{\"number\":0,", "],\"ok\":true,\"error\":null}"};
  for (std::size_t i = 0; i < std::size(errors); ++i)
    EXPECT_TRUE(contains(objects[i], errors[i])) << objects[i];
  EXPECT_TRUE(contains(objects[1], "\"outputs\":[]"));

  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  std::filesystem::create_directory(test.folder.path() + "Varnisto.ini");
  EXPECT_EQ(run("convert --json LOG LOG"), 1);
  ASSERT_EQ(split(out.str(), '\n').size(), 3U);
  expect_out("\"error\":{\"number\":75,");
  EXPECT_EQ(run("settings"), 1);
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
    std::vector<std::string> arguments = {"convert", "--json", work.write_text("jidx.ALL", one_line)};
    std::filesystem::remove(work.path() + "jidx.zsm");
    if (!row.title.empty())
      work.write_text("jidx.zsm", row.title + "\nCategory: Single-op All band CW\nTotal score : 1\n");
    if (row.asked) arguments.insert(arguments.end(), {"--contest", "JIDX Contest"});
    EXPECT_EQ(run(arguments), 0) << err.str();
    EXPECT_EQ(contains(out.str(), "contest_guessed"), row.told) << out.str();
  }
}

TEST_F(Cli, CheckRefusesAFileWithoutAQsoAndStreamsTheRest) {
  EXPECT_EQ(run({"check", work.write_text("a.cbr", "NAME:\nEND-OF-LOG:\n")}), 1);
  EXPECT_EQ(out.str(), "");
  expect_err("ログに交信データがありません。");
  const std::string file = work.write_text("b.cbr", "x\nNAME:\nQSO:\ny\n\x1Az");
  EXPECT_EQ(run({"check", file}), 0);
  EXPECT_TRUE(out.str().starts_with("入力ファイル名 ： " + file + "\n出力ファイル名 ： " + file +
                                    "\n\n\nNAME: 項目が空白です。\n\n\n\n   "))
      << out.str();
  EXPECT_TRUE(out.str().ends_with("his exch が空白です。\n\n\n")) << out.str();
  expect_err("終端文字");
  EXPECT_EQ(run({"check", "--json", file}), 0);
  expect_out("\"qsos\":1,\"findings\":[\"NAME: 項目が空白です。\",");
  expect_out("\"finding_count\":11,\"notes\":[{\"kind\":\"after_eof\",");
  const std::string good = work.write_text("c.cbr",
                                           "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     "
                                           "QX9DEF        599 14     \n");
  EXPECT_EQ(run({"check", good}), 0);
  EXPECT_EQ(out.str(), good + ": OK (1 QSO)\n");
  EXPECT_EQ(run({"check", "--quiet", good}), 0);
  EXPECT_EQ(out.str(), "");
}

TEST_F(Cli, TwoRunsOfOneLogGiveAWholePairFromOne) {
  std::string text = "zLog\n";
  for (int i = 0; i < 2000; ++i) text += all_line({.call = "QX" + std::to_string(i)}) + "\n";
  work.write_text("QX1ABC.ALL", text);
  const std::string other = "convert --utc " + work.write_text("b.ALL", one_line);
  std::filesystem::copy(work.path() + "QX1ABC.zsm", work.path() + "b.zsm");
  run("convert --utc LOG");
  const std::string whole = work.read("QX1ABC.cbr");
  run(other);
  const std::string small = work.read("QX1ABC.cbr");
  for (int round = 0; round < 10; ++round) {
    run_together({"convert --utc LOG", other});
    EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
    EXPECT_TRUE(work.read("QX1ABC.cbr") == whole || work.read("QX1ABC.cbr") == small);
  }
  EXPECT_EQ(work.files().size(), 6U);
}

TEST_F(Cli, RunsOfDifferentLogsInOneProgramFolderKeepTheirContests) {
  test.folder.write_text("contest_name.cfg", "WPX,CQ-WPX,\nAA,AA-DX,\n");
  const std::string a = work.write_text("a.ALL", one_line), b = work.write_text("b.ALL", one_line);
  for (int round = 0; round < 5; ++round) {
    run_together({"convert --contest=WPX " + a, "convert --contest=AA " + b});
    EXPECT_TRUE(work.read_text("a_za2c.zsm").starts_with("WPX"));
    EXPECT_TRUE(work.read_text("b_za2c.zsm").starts_with("AA"));
  }
}

TEST_F(Cli, SettingsWritersLoseNothing) {
  const std::vector<std::string> values = {"NAME=N1", "OPERATORS=O1", "ADDRESS1=A1", "eQSLcom=E1"};
  std::vector<std::string> lines;
  lines.reserve(values.size());
  for (const std::string& value : values) lines.push_back("settings " + value);
  run_together(lines);
  EXPECT_EQ(run("settings"), 0);
  for (const std::string& value : values) expect_out("\n" + value + "\n");
  expect_out("CALLSIGN=QX1ABC\n");
}

TEST_F(Cli, SettingsThatCannotBeReadCanBeReplaced) {
  test.set("JIDX_no_Disp_flag", "99999");
  EXPECT_EQ(run("settings"), 1);
  expect_err("Varnisto.ini: JIDX_no_Disp_flag");
  EXPECT_EQ(run("settings JIDX_no_Disp_flag=1"), 0) << err.str();
  test.set("version", "0.92");
  test.set("op_iota_island", "");
  EXPECT_EQ(run("settings"), 0);
  for (const char* line :
       {"version=3.09\n", "JIDX_no_Disp_flag=1\n", "op_iota_island=Honshu Island\n", "iota_name_only=1\n"})
    expect_out(line);
  EXPECT_EQ(run("settings --json"), 0);
  expect_out("\"JIDX_no_Disp_flag\":\"1\",");
}

TEST_F(Cli, ADebugLogThatCannotBeWrittenCostsANotice) {
  const pid_t child = ::fork();
  if (child == 0) {
    install_signal_handlers();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = 16;
    setrlimit(RLIMIT_FSIZE, &limit);
    const int status = run("--debug convert --json LOG LOG");
    ::_exit(status == 1 && split(out.str(), '\n').size() == 3 ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
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

}  // namespace
}  // namespace varnisto::test
