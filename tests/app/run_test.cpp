// Start, one run, exit.

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <sys/resource.h>

#include "app/action.h"
#include "app/driver.h"
#include "app/start_up.h"
#include "base/interruption.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "support/other_user.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Start, WithoutSettingsTriesTheLegacyFile) {
  TestApp test;
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  test.folder.write_text("Varnisto.cfg", "ver 3.09\nCALLSIGN:QX2DEF\n");
  Main(test.app, test.folder.path());
  EXPECT_FALSE(test.app.state.program.ini_found);
  EXPECT_TRUE(test.app.state.program.cfg_loaded);
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
  for (const char* name : {"QX1ABC.cbr_2", "QX1ABC.cbr_3", "QX1ABC.cbr2", "QX1ABC.cbr_22", "in_name.000"})
    work.write(name, "x");
  work.write("QX1ABC.log", "an older and longer file" + std::string(9999, 'x'));
  kaishi_Click(test.app);
  EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
  EXPECT_TRUE(work.has("QX1ABC.cbr_22"));
  EXPECT_EQ(work.files().size(), 5U);
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_EQ(test.desk.boxes[0].title, "　　提 出 前 の 注 意 事 項");
  EXPECT_EQ(test.desk.hourglass_on, 0);
  EXPECT_EQ(test.app.state.log.input.outputs,
            (std::vector{work.path() + "QX1ABC.cbr", work.path() + "QX1ABC.log"}));
}

/// What stands in the way of a run, and the error it ends with.
struct Fault {
  const char* name;
  std::function<void(TestApp&, const TempDir&)> plant;
  std::function<void()> mend;
  int error;
};

/// While this lives no file may grow.
void limit_file_size(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(AFailingStep, LeavesEveryEarlierFileAsItWas) {
  const auto nothing = [] {};
  const auto utc = [](TestApp& test, const TempDir&) { test.app.state.settings.jst_to_utc_flag = true; };
  const auto folder = [](const char* name) {
    return [name](TestApp&, const TempDir& work) { std::filesystem::create_directory(work.path() + name); };
  };
  const auto linked = [](const char* input, const char* name) {
    return [=](TestApp&, const TempDir& work) {
      std::filesystem::create_hard_link(work.path() + input, work.path() + name);
    };
  };
  const Fault faults[] = {
      {"no minute, with UTC", utc, nothing, 13},
      {"the second copy is a folder", folder("QX1ABC.log"), nothing, 75},
      {"the ADIF file is a folder", folder("QX1ABC.adi"), nothing, 75},
      {"the second copy is a link to the log", linked("a.all", "QX1ABC.log"), nothing, 75},
      {"the ADIF file is a link to the summary", linked("a.zsm", "QX1ABC.adi"), nothing, 75},
      {"the disk is full", [](TestApp&, const TempDir&) { limit_file_size(64); },
       [] { limit_file_size(RLIM_INFINITY); }, 61},
      {"the folder takes no files",
       [](TestApp&, const TempDir& work) {
         std::filesystem::permissions(work.path(), std::filesystem::perms{0555});
       },
       nothing, 70},
  };
  install_signal_handlers();
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.name);
    StartedApp test;
    TempDir work;
    work.write("a.zsm", "CQWW DX Contest\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n");
    const std::string time = fault.error == 13 ? "99:99" : "00:12";
    test.open(work.write("a.all", "zLog\r\n" + all_line({}) + "\r\n" + all_line({.time = time}) + "\r\n"));
    work.write("QX1ABC.cbr", "earlier");
    work.write("QX1ABC.cbr_2", "earlier");
    test.app.state.settings.for_eqsl_flag = true;
    fault.plant(test, work);
    const auto before = work.files();
    const OtherUser no_root{{work.path(), test.folder.path()}};
    const ActionResult result = run_action(test.app, [&] { kaishi_Click(test.app); });
    fault.mend();
    EXPECT_EQ(result.kind, ActionResult::failed);
    EXPECT_EQ(result.number, fault.error) << result.text;
    EXPECT_EQ(work.files(), before);
    EXPECT_EQ(test.desk.hourglass_on, 0);
  }
}

TEST_F(Run, AProgramFolderThatCannotBeWrittenCostsANotice) {
  std::filesystem::create_directories(test.folder.path() + "check_Cabrillo.txt/full");
  kaishi_Click(test.app);
  EXPECT_TRUE(work.has("QX1ABC.cbr") && work.has("QX1ABC.log"));
  ASSERT_EQ(test.desk.boxes.size(), 2U);
  EXPECT_TRUE(contains(test.desk.boxes[0].text, "check_Cabrillo.txt")) << test.desk.boxes[0].text;
}

TEST_F(Run, OfJidxShowsItsNoticeUnlessSwitchedOff) {
  for (const bool off : {false, true}) {
    test.app.state.log.contest.contest_name = "JIDX Contest";
    test.app.state.settings.jidx_no_disp_flag = off ? 1 : 0;
    test.desk.boxes.clear();
    kaishi_Click(test.app);
    EXPECT_EQ(test.desk.boxes.size(), off ? 1U : 2U);
  }
  EXPECT_EQ(test.app.state.display.progress, Progress::done);
}

TEST(Action, AnErrorTellsWhatToDo) {
  struct Row {
    std::function<void()> work;
    std::string advice;
    int number;
  };
  const auto error = [](RunTimeError::Number number) { return [=] { throw RunTimeError(number, "x"); }; };
  for (const Row& row :
       rows_of(Row{error(RunTimeError::bad_argument), "この値または行を修正", 5},
               Row{error(RunTimeError::overflow), "ログの値が大き過ぎます", 6},
               Row{[] { throw std::bad_alloc{}; }, "他のプログラムを終了", 7},
               Row{error(RunTimeError::type_mismatch), "この行を修正", 13},
               Row{error(RunTimeError::file_not_found), "ファイルの名前と場所", 53},
               Row{[] { throw std::logic_error{"x"}; }, "もう一度", 57},
               Row{error(RunTimeError::disk_full), "ディスクの空きを増やして", 61},
               Row{error(RunTimeError::past_end), "ファイルの内容を確認", 62},
               Row{error(RunTimeError::permission_denied), "ファイルとフォルダが読み取り専用", 70},
               Row{error(RunTimeError::path_access_error), "ファイルの名前と種類", 75},
               Row{error(RunTimeError::path_not_found), "フォルダがあるか", 76})) {
    TestApp test;
    test.app.state.program.window_open = true;
    test.app.desk.hourglass(true);
    const ActionResult result = run_action(test.app, row.work);
    EXPECT_EQ(result.number, row.number);
    EXPECT_FALSE(result.ends_program);
    EXPECT_TRUE(test.desk.boxes.at(0).text.starts_with(result.text + "\r\n\r\n" + row.advice))
        << test.desk.boxes[0].text;
    EXPECT_EQ(test.desk.hourglass_on, 0);
    test.app.state.program.window_open = false;
    EXPECT_TRUE(run_action(test.app, row.work).ends_program);
    EXPECT_EQ(test.desk.boxes.at(1).text, result.text);
  }
}

TEST(Action, TheOutermostOneShowsTheNotices) {
  TestApp test;
  std::size_t inside = 9;
  run_action(test.app, [&] {
    run_action(test.app, [&] { add_notice(test.app, "x"); });
    inside = test.desk.boxes.size();
  });
  EXPECT_EQ(inside, 0U);
  EXPECT_EQ(test.desk.boxes.size(), 1U);
}

TEST(Action, ARefusalSwitchesTheStartButtonOff) {
  TestApp test;
  test.app.main.kaishi.enabled = true;
  test.app.desk.hourglass(true);
  EXPECT_EQ(run_action(test.app, [] { throw Refusal("no"); }).kind, ActionResult::refused);
  EXPECT_FALSE(test.app.main.kaishi.enabled);
  EXPECT_FALSE(test.app.state.log.input.opened);
  EXPECT_EQ(test.desk.texts, std::vector<std::string>{"no"});
  EXPECT_EQ(test.desk.hourglass_on, 0);
}

TEST(Notes, ReadAsTheUserSeesThem) {
  const std::pair<Note, const char*> rows[] = {
      {{NoteKind::after_eof, 2, 3}, "終端文字 ( 1A ) より後の行は読んでいません。 （ 2 行、最初は 3 行目 ）"},
      {{NoteKind::left_out, 1, 4},
       "相手局のレポートが空白の交信は書いていません。 （ 1 件、最初は 4 行目 ）"},
      {{NoteKind::mode_kept, 1, 4},
       "表に無いモードの交信は前の交信のモードで書いています。 （ 1 件、最初は 4 行目 ）"},
      {{NoteKind::band_kept, 1, 4},
       "表に無いバンドの交信は前の交信の周波数で書いています。 （ 1 件、最初は 4 行目 ）"},
      {{NoteKind::tx_kept, 1, 4},
       "TX# の無い交信は前の交信の送信機番号で書いています。 （ 1 件、最初は 4 行目 ）"},
      {{NoteKind::tx_dropped, 1, 4},
       "ログの名前が all で終わらないため、送信機番号を 0 で書いています。 （ 1 件、最初は 4 行目 ）"},
      {{NoteKind::contest_guessed, 1, 0, "JIDX"}, "ｺﾝﾃｽﾄ名はファイル名からの推定です。 [ JIDX ]"},
      {{NoteKind::qtc_unread, 1, 4},
       "相手局・日付・時刻がそろわない QTC のメモは行にしていません。 （ 1 件、最初は 4 行目 ）"}};
  for (const auto& [note, text] : rows) EXPECT_EQ(note_text(note), text);
}

/// Runs a log of these lines; answers name, count and line of every note.
std::string notes_of(TestApp& test, const std::string& log_name, const std::string& op,
                     const std::string& lines) {
  for (const char* summary : {"a.zsm", "b.zsm"})
    test.work.write(summary, "CQWW DX Contest\r\nCategory: " + op + " 7 MHz CW\r\nTotal score : 5\r\n");
  test.open(test.work.write(log_name, "zLog\r\n" + lines));
  const ActionResult result = run_action(test.app, [&] { kaishi_Click(test.app); });
  std::string text = result.kind == ActionResult::done ? "" : result.text;
  for (const Note& note : test.app.state.log.notes.all())
    text.append(text.empty() ? "" : " ").append(note_name(note.kind)) +=
        "/" + std::to_string(note.count) + "/" + std::to_string(note.line);
  return text;
}

TEST(Notes, TellWhatTheLinesDoNotSay) {
  const std::string end = "\r\n", good = all_line({}) + end;
  const std::string no_mode = all_line({.mode = "FT8"}) + end,
                    no_band = all_line({.band = "50", .memo = "(50125)"}) + end;
  const std::string unsent = all_line({.rcvd = "", .mode = "FT8"}) + end,
                    tx = all_line({.memo = "TX#2"}) + end;
  const std::string tx0 = all_line({.memo = "TX#0"}) + end;
  struct Row {
    std::string log, lines, setting, notes;
  };
  for (const Row& row :
       rows_of(Row{"a.all", good + good, "", ""},
               Row{"a.all", good + "\x1A" + good + "\r\n\t\x1A\r\n" + good, "", "after_eof/2/3"},
               Row{"a.all", good + end + unsent + unsent, "", "left_out/2/4"},
               Row{"a.all", no_mode + good + no_mode, "", "mode_kept/2/2"},
               Row{"a.all", good + no_band, "", "band_kept/1/3"},
               Row{"a.all", good + no_band, "get_freq_flag", ""}, Row{"a.all", good + tx + good, "", ""},
               Row{"a.all", good + tx + good, "multi", "tx_kept/2/2"},
               Row{"b.ALL", good + tx + tx0 + tx, "multi", "tx_dropped/2/3"},
               Row{"a.all", unsent, "", std::string{no_qso_text} + " left_out/1/2"})) {
    SCOPED_TRACE(row.notes);
    TestApp test;
    const bool multi = row.setting == "multi";
    if (!multi && !row.setting.empty()) test.set(row.setting, "1");
    test.start();
    EXPECT_EQ(notes_of(test, row.log, multi ? "Multi-Two" : "Single-op", row.lines), row.notes);
    for (const Note& note : test.app.state.log.notes.all())
      EXPECT_TRUE(contains(test.app.state.display.text, note_text(note)) || contains(row.notes, no_qso_text));
  }
}

}  // namespace
}  // namespace varnisto::test
