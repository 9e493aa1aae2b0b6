#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

#include "app/action.h"
#include "app/driver.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "support/zlo_log.h"
#include "ui/select_cont.h"
#include "zlo/zlo_head.h"

namespace varnisto::test {
namespace {

constexpr const char* bands[] = {"1.9", "3.5", "7", "10", "14", "18", "21", "24", "28"};
constexpr const char* modes[] = {"CW", "SSB", "FM", "AM", "RTY"};

constexpr double first_day = 45990;  // 2025-11-29

/// One QSO each minute from ten to nine on; what differs is told.
std::vector<ZloQsoSpec> log_of(std::vector<ZloQsoSpec> qsos) {
  for (ZloQsoSpec& qso : qsos) qso.sent = " " + qso.sent;  // where the text log's reader looks for a power
  for (std::size_t i = 0; i < qsos.size(); ++i)
    qsos[i].day_count = first_day + (8 * 60 + 50 + static_cast<double>(i)) / (24 * 60);
  return qsos;
}

/// The same QSOs as the logger's text log.
std::string all_log(const std::vector<ZloQsoSpec>& qsos) {
  std::string text = "zLog for Windows \n";
  for (std::size_t i = 0; i < qsos.size(); ++i) {
    const ZloQsoSpec& qso = qsos[i];
    const std::size_t minute = 50 + i;
    const std::string hhmm = (minute < 60 ? "08:" : "09:") + pad_left(std::to_string(minute % 60), 2);
    text += all_line({.date = "2025/11/29",
                      .time = replace_all(hhmm, " ", "0"),
                      .call = qso.call,
                      .sent_exch = qso.sent,
                      .rcvd_exch = qso.rcvd,
                      .mult1 = qso.multi1.empty() ? "-" : qso.multi1,
                      .mult2 = qso.multi2.empty() ? "-" : qso.multi2,
                      .band = bands[qso.band],
                      .mode = modes[qso.mode],
                      .points = std::to_string(qso.points),
                      .memo = qso.memo}) +
            "\n";
  }
  return text;
}

/// A run of one log in a folder of its own; the selection dialog is answered with this contest and operator.
struct LogRun {
  LogRun(const std::string& name, const std::string& bytes, const std::string& contest, int op = 0) {
    test.desk.on_show = [this, contest, op](FormName form) {
      if (form != FormName::select_cont) return;
      select_cont dialog{test.app};
      dialog.Form_Load();
      const auto hit = std::ranges::find(dialog.List1.items, contest);
      dialog.List1.selected = static_cast<int>(hit - dialog.List1.items.begin());
      dialog.click("List1", dialog.List1.selected);
      dialog.Option3.selected = op;
      dialog.click("Option3", op);
      dialog.click("cmdOK");
    };
    test.start();
    test.work.write(name, bytes);
    path = test.work.path() + name;
  }
  ActionResult convert() {
    return run_action(test.app, [this] {
      test.open(path);
      kaishi_Click(test.app);
    });
  }
  std::map<std::string, std::string> notes() const {
    std::map<std::string, std::string> found;
    for (const Note& note : test.app.state.log.notes.all())
      found[std::string{note_name(note.kind)}] = std::to_string(note.count) + "/" + std::to_string(note.line);
    return found;
  }
  std::map<std::string, std::string> pair() {
    std::map<std::string, std::string> files = test.work.files();
    std::erase_if(files, [](const auto& file) {
      return !file.first.starts_with("QX1ABC") || file.first.find('_') != std::string::npos;
    });
    return files;
  }

  TestApp test;
  std::string path;
};

TEST(ZloRuns, GiveThePairOfTheTextLog) {
  const auto qsos =
      log_of({{.band = 2, .multi1 = "14", .multi2 = "DL"},
              {.call = "QX1X/P", .sent = "100", .rcvd = "5", .band = 4, .multi1 = "5", .points = 3},
              {.band = 4, .rst_sent = 599, .points = 3, .memo = "[QTC1/2 QX9EUR 2025-11-29 0100]"},
              {.call = "QX7", .band = 8, .multi1 = "表", .points = 3, .memo = "楽しい"}});
  struct Row {
    std::string contest, title;
    int op = 0;
  };
  for (const Row& row : rows_of(
           Row{"CQWW DX Contest", "CQWW DX Contest"}, Row{"CQ WPX Contest", "CQ WPX Contest", 4},
           Row{"IARU HF Championship", "IARU HF Championship"}, Row{"ARRL 10m Contest", "ARRL 10m Contest"},
           Row{"ARRL International DX Contest", "ARRL International DX Contest"},
           Row{"JIDX Contest", "JIDX Contest"}, Row{"WAEDC Contest", "WAEDC Contest"},
           Row{"UBA DX Contest", "UBA DX Contest (JA)"})) {
    SCOPED_TRACE(row.contest);
    LogRun text{"log.ALL", all_log(qsos), row.contest, row.op};
    ASSERT_EQ(text.convert().kind, ActionResult::done);
    ASSERT_EQ(text.pair().size(), row.contest == "WAEDC Contest" ? 3U : 2U);
    for (const auto& [name, bytes] : {std::pair{"log.ZLO", zlo_log(qsos, {.title = row.title})},
                                      std::pair{"log.zlox", zlox_log(qsos, {.title = row.title})}}) {
      LogRun binary{name, bytes, row.contest, row.op};
      const ActionResult result = binary.convert();
      EXPECT_EQ(result.text, "");
      EXPECT_EQ(binary.pair(), text.pair()) << name;
      EXPECT_TRUE(binary.test.work.has("log_z2a.all") && binary.test.work.has("log_jarl.txt") &&
                  binary.test.work.has("log_zz2c.zsm"));
      EXPECT_TRUE(binary.notes().empty());
    }
  }
}

TEST(ZloRuns, TakeTheLoggersSummary) {
  LogRun run{"log.ZLOX", zlox_log(log_of({{.band = 2, .mode = 1}, {.band = 2, .mode = 1}})), "", 0};
  run.test.app.state.settings.select_cont_yusen = Precedence::summary;
  run.test.work.write_text("log.zsm", "CQWW DX Contest\nCategory: Single-op 7 MHz Ph\nTotal score : 1,234\n");
  ASSERT_EQ(run.convert().text, "");
  EXPECT_TRUE(run.test.desk.forms.empty());
  const std::string log = run.test.work.read_text("QX1ABC.cbr");
  for (const char* line : {"CONTEST: CQ-WW-SSB \n", "CLAIMED-SCORE: 1234\n", "CATEGORY-BAND: 40M\n",
                           "CATEGORY-MODE: SSB\n", "QSO:  7000 PH 2025-11-29 0851 QX1ABC"})
    EXPECT_NE(log.find(line), std::string::npos) << line << log;
  EXPECT_FALSE(run.test.work.has("log_zz2c.zsm"));
}

TEST(ZloRuns, TellWhatTheRecordsSay) {
  const auto qsos = log_of({{.band = 2, .mode = 0},
                            {.band = 2, .invalid = 1},
                            {.band = 9, .mode = 3},
                            {.band = 9, .mode = 0, .memo = "(7012)"},
                            {.band = 2, .mode = 0, .tx = 2}});
  LogRun run{"log.ZLOX",
             zlox_log(qsos, {.title = "All Asian DX Contest", .utc_offset = 32767, .count_error = 1}),
             "All Asian DX Contest", 4};
  run.test.set("jst_to_utc_flag", "1");
  run.test.start();
  ASSERT_EQ(run.convert().text, "");
  EXPECT_EQ(run.notes(), (std::map<std::string, std::string>{{"invalid", "1/3"},
                                                             {"mode_kept", "1/4"},
                                                             {"band_kept", "2/4"},
                                                             {"tx_dropped", "1/6"},
                                                             {"score_not_computed", "1/0"},
                                                             {"utc_twice", "1/0"},
                                                             {"count_differs", "1/0"}}));
  run.test.app.state.settings.get_freq_flag = run.test.app.state.settings.mode_2_rtty_flag = true;
  run.test.app.state.settings.jst_to_utc_flag = false;
  kaishi_Click(run.test.app);
  EXPECT_EQ(run.notes()["band_kept"], "1/4");
  EXPECT_EQ(run.notes().count("mode_kept") + run.notes().count("utc_twice"), 0U);
}

TEST(ZloRuns, RefuseWhatIsNoLogAndLeaveEarlierFiles) {
  struct Row {
    std::string name, bytes, text;
  };
  auto invalid = log_of({{.invalid = 1}});
  auto late = log_of({{}, {}});
  late[1].day_count = 1e9;
  for (const Row& row : rows_of(Row{"text.ZLO", all_log({}), std::string{no_zlo_log_text}},
                                Row{"empty.zlo", "", std::string{no_qso_text}},
                                Row{"head.ZLOX", zlox_log({}), std::string{no_qso_text}},
                                Row{"invalid.ZLOX", zlox_log(invalid), std::string{no_qso_text}},
                                Row{"late.ZLO", zlo_log(late), "エラー 6"})) {
    SCOPED_TRACE(row.name);
    LogRun run{row.name, row.bytes, "CQWW DX Contest"};
    run.test.work.write("QX1ABC.cbr", "earlier");
    const auto before = run.test.work.files();
    const ActionResult result = run.convert();
    EXPECT_NE(result.kind, ActionResult::done);
    EXPECT_NE(result.text.find(row.text), std::string::npos) << result.text;
    run.test.app.outputs.back_to(0);
    EXPECT_EQ(run.test.work.files(), before);
  }
}

}  // namespace
}  // namespace varnisto::test
