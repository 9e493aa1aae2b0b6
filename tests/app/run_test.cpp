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

namespace fs = std::filesystem;

TEST(Start, WithoutSettingsTriesTheLegacyFile) {
  TestApp test;
  fs::remove(test.folder.path() + "Varnisto.ini");
  test.folder.write_text("Varnisto.cfg", "ver 3.09\nCALLSIGN:QX2DEF\n");
  Main(test.app, test.folder.path());
  EXPECT_FALSE(test.app.state.program.ini_found);
  EXPECT_TRUE(test.app.state.program.cfg_loaded);
  EXPECT_EQ(test.app.state.settings.mycall, "QX2DEF");
  EXPECT_EQ(test.app.state.settings.op_iota_island, "Honshu Island");
  EXPECT_EQ(test.app.state.program.this_year, "2025");
}

TEST(Start, TakesTheSettingsOfATestEditionAndShortensTheLabelsPath) {
  TestApp test;
  test.set("version", "3.09t2");
  std::string& label = test.app.state.log.labels.zsm_disp1;
  const std::string path = label = "/" + std::string(30, 'a') + "/" + std::string(9, 'b');
  test.start();
  EXPECT_TRUE(test.app.main.mnuOpen_file.enabled);
  EXPECT_EQ(label, shorten_path(path, 40));
  EXPECT_NE(label, path);
}

TEST(Start, AMissingListFileEndsTheProgramAfterAMessage) {
  for (const std::string_view name : required_files()) {
    TestApp test;
    fs::remove(test.folder.path() + std::string{name});
    EXPECT_EQ(run_action(test.app, [&] { test.start(); }).kind, ActionResult::ended);
    ASSERT_EQ(test.desk.boxes.size(), 1U);
    EXPECT_EQ(test.desk.boxes[0].title, "　　エラー　：　必要ファイルがありません。");
    EXPECT_EQ(test.desk.boxes[0].text,
              lines({"[  " + replace_all(name, ".", " ．") + "   ]  がありません。", "",
                     test.folder.path() + "　に ｃｏｐｙ して下さい。", "", ""}));
  }
}

/// An opened log with the logger's summary, ready to run.
class Run : public testing::Test {
 protected:
  void SetUp() override { open("CQWW DX Contest", {}); }
  void open(const std::string& contest, const AllQso& second) {
    work.write("a.zsm", contest + "\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n");
    test.open(work.write("a.all", "zLog\r\n" + all_line({}) + "\r\n" + all_line(second) + "\r\n"));
  }
  ActionResult run() {
    test.desk.boxes.clear();
    return run_action(test.app, [this] { kaishi_Click(test.app); });
  }

  StartedApp test;
  const TempDir& work = test.work;
  State& state = test.app.state;
};

TEST_F(Run, LeavesTwoEqualLogsAndNoScratchFiles) {
  for (const char* name : {"QX1ABC.cbr_2", "QX1ABC.cbr_3", "QX1ABC.cbr2", "QX1ABC.cbr_22", "in_name.000"})
    work.write(name, "x");
  work.write("QX1ABC.log", "an older and longer file" + std::string(9999, 'x'));
  run();
  EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));
  EXPECT_TRUE(work.has("QX1ABC.cbr_22"));
  EXPECT_EQ(work.files().size(), 5U);
  EXPECT_EQ(test.desk.hourglass_on, 0);
  EXPECT_EQ(state.display.progress, Progress::done);
  EXPECT_EQ(state.log.input.outputs, (std::vector{work.path() + "QX1ABC.cbr", work.path() + "QX1ABC.log"}));
}

/// From now on no file may grow beyond this size.
void limit_file_size(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(Run, ThatFailsLeavesEveryEarlierFileAsItWas) {
  struct Fault {
    const char* name;
    int error;
    std::function<void()> plant;
  };
  const auto folder = [this](const char* name) {
    return [=, this] { fs::create_directory(work.path() + name); };
  };
  const auto linked = [this](const char* input, const char* name) {
    return [=, this] { fs::create_hard_link(work.path() + input, work.path() + name); };
  };
  const Fault faults[] = {
      {"no minute, with UTC", 13, [this] { state.settings.jst_to_utc_flag = true; }},
      {"the second copy is a folder", 75, folder("QX1ABC.log")},
      {"the ADIF file is a folder", 75, folder("QX1ABC.adi")},
      {"the log is a link to its input", 75, linked("a.all", "QX1ABC.cbr")},
      {"the second copy is a link to the input", 75, linked("a.all", "QX1ABC.log")},
      {"the ADIF file is a link to the summary", 75, linked("a.zsm", "QX1ABC.adi")},
      {"the disk is full", 61, [] { limit_file_size(64); }},
      {"the folder takes no files", 70, [this] { fs::permissions(work.path(), fs::perms{0555}); }},
  };
  install_signal_handlers();
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.name);
    open("CQWW DX Contest", {.time = fault.error == 13 ? "99:99" : "00:12"});
    work.write("QX1ABC.cbr_2", "earlier");
    state.settings.for_eqsl_flag = true;
    fault.plant();
    const auto before = work.files();
    {
      const OtherUser no_root{{work.path(), test.folder.path()}};
      const ActionResult result = run();
      limit_file_size(RLIM_INFINITY);
      EXPECT_EQ(result.number, fault.error) << result.text;
    }
    EXPECT_EQ(work.files(), before);
    EXPECT_EQ(test.desk.hourglass_on, 0);
    fs::permissions(work.path(), fs::perms{0777});
    for (const auto& entry : fs::directory_iterator{work.path()}) fs::remove_all(entry);
    state.settings.jst_to_utc_flag = false;
  }
}

TEST_F(Run, OfJidxShowsItsNoticeUnlessSwitchedOff) {
  struct Row {
    const char* contest;
    std::int16_t off;
    bool shown;
  };
  for (const Row& row :
       {Row{"JIDX Contest", 0, true}, {"JIDX Contest", 1, false}, {"CQWW DX Contest", 0, false}}) {
    state.log.contest.contest_name = row.contest;
    state.settings.jidx_no_disp_flag = row.off;
    run();
    ASSERT_EQ(test.desk.boxes.size(), row.shown ? 2U : 1U) << row.contest << row.off;
    EXPECT_EQ(contains(test.desk.boxes[0].text, "JIDX-PH :   "), row.shown);
    EXPECT_EQ(test.desk.boxes.back().title, "　　提 出 前 の 注 意 事 項");
  }
}

TEST(Action, AnErrorTellsWhatToDo) {
  const std::pair<int, std::string> rows[] = {{5, "この値または行を修正"},
                                              {6, "ログの値が大き過ぎます"},
                                              {7, "他のプログラムを終了"},
                                              {13, "この行を修正"},
                                              {53, "ファイルの名前と場所"},
                                              {57, "もう一度"},
                                              {61, "ディスクの空きを増やして"},
                                              {62, "ファイルの内容を確認"},
                                              {70, "ファイルとフォルダが読み取り専用"},
                                              {75, "ファイルの名前と種類"},
                                              {76, "フォルダがあるか"}};
  for (const auto& [number, advice] : rows) {
    const auto work = [number = number] {
      if (number == 7) throw std::bad_alloc{};
      if (number == 57) throw std::logic_error{"x"};
      throw RunTimeError(static_cast<RunTimeError::Number>(number), "x");
    };
    TestApp test;
    test.app.state.program.window_open = true;
    test.app.desk.hourglass(true);
    const ActionResult result = run_action(test.app, work);
    EXPECT_EQ(result.number, number);
    EXPECT_FALSE(result.ends_program);
    EXPECT_TRUE(test.desk.boxes.at(0).text.starts_with(result.text + "\r\n\r\n" + advice)) << number;
    EXPECT_EQ(test.desk.hourglass_on, 0);
    test.app.state.program.window_open = false;
    EXPECT_TRUE(run_action(test.app, work).ends_program);
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
  EXPECT_FALSE(test.app.main.kaishi.enabled || test.app.state.log.input.opened);
  EXPECT_EQ(test.desk.texts, std::vector<std::string>{"no"});
  EXPECT_EQ(test.desk.hourglass_on, 0);
}

TEST(Notes, ReadAsTheUserSeesThem) {
  EXPECT_EQ(note_text({NoteKind::after_eof, 2, 3}),
            "終端文字 ( 1A ) より後の行は読んでいません。 （ 2 行、最初は 3 行目 ）");
  EXPECT_EQ(note_text({NoteKind::contest_guessed, 1, 0, "JIDX"}),
            "ｺﾝﾃｽﾄ名はファイル名からの推定です。 [ JIDX ]");
  const std::pair<NoteKind, std::string> rows[] = {
      {NoteKind::left_out, "相手局のレポートが空白の交信は書いていません。"},
      {NoteKind::mode_kept, "表に無いモードの交信は前の交信のモードで書いています。"},
      {NoteKind::band_kept, "表に無いバンドの交信は前の交信の周波数で書いています。"},
      {NoteKind::tx_kept, "TX# の無い交信は前の交信の送信機番号で書いています。"},
      {NoteKind::tx_dropped, "ログの名前が all で終わらないため、送信機番号を 0 で書いています。"},
      {NoteKind::qtc_unread, "相手局・日付・時刻がそろわない QTC のメモは行にしていません。"}};
  for (const auto& [kind, text] : rows)
    EXPECT_EQ(note_text({kind, 1, 4}), text + " （ 1 件、最初は 4 行目 ）");
}

TEST(Notes, TellWhatTheLinesDoNotSay) {
  const auto line = [](const AllQso& qso) { return all_line(qso) + "\r\n"; };
  const std::string good = line({}), no_mode = line({.mode = "FT8"}),
                    no_band = line({.band = "50", .memo = "(50125)"}),
                    unsent = line({.rcvd = "", .mode = "FT8"}), tx = line({.memo = "TX#2"}),
                    tx0 = line({.memo = "TX#0"});
  struct Row {
    std::string log, lines, setting, notes;
  };
  for (const Row& row :
       rows_of(Row{"a.all", good + good, "", ""},
               Row{"a.all", good + "\x1A" + good + "\r\n\t\x1A\r\n" + good, "", " after_eof/2/3"},
               Row{"a.all", good + "\r\n" + unsent + unsent, "", " left_out/2/4"},
               Row{"a.all", no_mode + good + no_mode, "", " mode_kept/2/2"},
               Row{"a.all", good + no_band, "", " band_kept/1/3"},
               Row{"a.all", good + no_band, "get_freq_flag", ""}, Row{"a.all", good + tx + good, "", ""},
               Row{"a.all", good + tx + good, "multi", " tx_kept/2/2"},
               Row{"b.ALL", good + tx + tx0 + tx, "multi", " tx_dropped/2/3"},
               Row{"a.all", unsent, "", std::string{no_qso_text} + " left_out/1/2"})) {
    SCOPED_TRACE(row.notes);
    TestApp test;
    const bool multi = row.setting == "multi";
    if (!multi && !row.setting.empty()) test.set(row.setting, "1");
    test.start();
    for (const char* summary : {"a.zsm", "b.zsm"})
      test.work.write(summary, std::string{"CQWW DX Contest\r\nCategory: "} +
                                   (multi ? "Multi-Two" : "Single-op") + " 7 MHz CW\r\nTotal score : 5\r\n");
    test.open(test.work.write(row.log, "zLog\r\n" + row.lines));
    const ActionResult result = run_action(test.app, [&] { kaishi_Click(test.app); });
    std::string notes = result.text;
    for (const Note& note : test.app.state.log.notes.all()) {
      notes.append(" ").append(note_name(note.kind)) +=
          "/" + std::to_string(note.count) + "/" + std::to_string(note.line);
      EXPECT_EQ(contains(test.app.state.display.text, note_text(note)), result.text.empty());
    }
    EXPECT_EQ(notes, row.notes);
  }
}

}  // namespace
}  // namespace varnisto::test
