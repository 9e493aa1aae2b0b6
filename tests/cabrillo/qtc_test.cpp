#include <gtest/gtest.h>

#include "app/driver.h"
#include "base/text.h"
#include "cabrillo/qtc_memo.h"
#include "cabrillo/qtc_merge.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(QtcMemos, AreTakenWhenReceiverDateAndTimeAreThere) {
  for (const auto& [line, complete, incomplete] :
       texts_of<3>("memo [TX] (7012)||0",
                   "x [QTC2/10 QX9EUR 2025-08-09 0712 20m] y|2/10 QX9EUR 2025-08-09 0712 20m;|0",
                   "[qtc2/10 QX9EUR 2025-08-09 0712]|2/10 QX9EUR 2025-08-09 0712 ;|0",
                   "[TX] [QTC2/10 QX9EUR 2025-08-09 0712 20m]|2/10 QX9EUR 2025-08-09 0712 20m;|0",
                   "[QTC2/10 QX9EUR 2025-08-09 0712 20m][QTC3/5 QX8EUR 2025-08-09 0713 20m]|"
                   "2/10 QX9EUR 2025-08-09 0712 20m;3/5 QX8EUR 2025-08-09 0713 20m;|0",
                   "[QTC2/10  QX9EUR 2025/08/09  0712 20m ]|2/10 QX9EUR 2025-08-09 0712 20m;|0",
                   "[QTC2 QX9EUR 2025-08-09 0712]|2/ QX9EUR 2025-08-09 0712 ;|0",
                   "[QTC/10 QX9EUR 2025-08-09 0712]|/10 QX9EUR 2025-08-09 0712 ;|0",
                   "[QTC2/10 2025-08-09 0712 20m]||1", "[QTC2/10 QX9EUR 0712 20m]||1",
                   "[QTC2/10 QX9EUR 2025-08-09 20m]||1", "[QTC2/10 QX9EUR 2025-02-29 0712 20m]||1",
                   "[QTC]||1", "[QTC2/10 QX9EUR 2025-08-09 0712||1",
                   "[QTC2/10] [QTC2/10 QX9EUR 2025-08-09 0712 20m]|2/10 QX9EUR 2025-08-09 0712 20m;|1")) {
    SCOPED_TRACE(line);
    Occurrences missing;
    std::string found;
    for_each_qtc(line, 3, missing, [&](const QtcMemo& memo) {
      const QtcTime when = qtc_time(memo, false);
      found.append(memo.group).append("/").append(memo.number).append(" ").append(memo.receiver);
      found.append(" " + when.date + " " + when.time + " ").append(memo.band).append(";");
    });
    EXPECT_EQ(found, complete);
    EXPECT_EQ(std::to_string(missing.count), incomplete);
  }
}

TEST(QtcLine, HasTheSponsorsColumns) {
  std::string line;
  put_qtc_line(
      {" 7000", "CW", "2025-08-09", "0712", "QX9EUR", "3", "10", "QX1ABC        ", "0645", "QX8DEF", "123"},
      line);
  EXPECT_EQ(line,
            "QTC:  7000 CW 2025-08-09 0712 QX9EUR          3/10     QX1ABC        0645 QX8DEF         123");
  put_qtc_line({"14025", "PH", "2025-08-09", "0712", "QX9EUR/LONGERCALL", "1234", "5678901234", "QX1ABC", "",
                "", "12345"},
               line);
  EXPECT_EQ(line,
            "QTC: 14025 PH 2025-08-09 0712 QX9EUR/LONGERC234/5678901QX1ABC                           2345");
}

TEST(WaedcRuns, GiveMergedLogAndQtcLog) {
  for (const auto& [utc, columns] : texts_of<2>("0|0", "0|1", "1|0", "1|1")) {
    SCOPED_TRACE(utc);
    TestApp test;
    test.set("jst_to_utc_flag", utc);
    test.set("add_qtc_flag", columns);
    test.work.copy_from(source_dir("tests/data/waedc/in"));
    auto inputs = test.work.files();
    test.start();
    test.open(test.work.path() + "QX1ABC.ALL");
    kaishi_Click(test.app);

    TempDir expected;
    expected.copy_from(source_dir("tests/data/waedc") / (utc == "1" ? "utc" : "local"));
    auto files = expected.files();
    files.merge(inputs);
    EXPECT_EQ(test.work.files(), files);
    EXPECT_EQ(test.app.state.log.input.qsos_written, 60);
    EXPECT_EQ(test.app.state.log.input.outputs,
              (std::vector<std::string>{test.work.path() + "QX1ABC.cbr", test.work.path() + "QX1ABC.qlg",
                                        test.work.path() + "QX1ABC.log"}));
    EXPECT_TRUE(std::filesystem::is_empty(test.app.tmp_dir.path()));
    ASSERT_FALSE(test.desk.boxes.empty());
    EXPECT_EQ(test.desk.boxes.front().text,
              "QTC のメモ 2 件は、相手局・日付・時刻がそろっていません。\r\n"
              "これらの QTC 行は作成していません。（ 最初は 13 行目 ）");
  }
}

/// Runs a WAEDC log of these lines; answers the folder.
void run_waedc(TestApp& test, const TempDir& work, const std::string& all) {
  work.write_text("QX1ABC.ALL", all);
  work.write_text("QX1ABC.zsm", "WAEDC Contest\nCategory: Single-op All band CW\nTotal score : 1\n");
  test.start();
  test.open(work.path() + "QX1ABC.ALL");
  kaishi_Click(test.app);
}

std::string lines_beginning(const std::string& text, std::string_view start) {
  std::string found;
  for (const std::string& line : split(text, '\n'))
    if (line.starts_with(start)) found += line + "\n";
  return found;
}

constexpr std::string_view qtc_log_head =
    "                           WORKED ALL EUROPE QTC LOG\n"
    "\n"
    "  QX1ABC   DARC WORKED ALL EUROPE CONTEST   \n"
    "Single-op All band CW     30 Nov 2025  0334z\n"
    "\n"
    "GRP/NUM  TIME CALL\n";

TEST(Waedc, LogWithoutMemosGivesTitlesOnly) {
  TestApp test;
  run_waedc(test, test.work, "zLog for Windows \n" + all_line({}) + "\n");
  EXPECT_EQ(test.work.read_text("QX1ABC.qlg"), qtc_log_head);
  EXPECT_EQ(lines_beginning(test.work.read_text("QX1ABC.cbr"), "QTC:"), "");
  EXPECT_TRUE(test.desk.texts.empty() || !contains(test.desk.texts.back(), "QTC"));
}

TEST(Waedc, QtcLogHasEachSeriesOnceByNumber) {
  TestApp test;
  std::string all = "zLog for Windows \n";
  for (const std::string series : {"10/3 QX3EUR", "2/10 QX2EUR", "10/3 QX3EUR", "9/1 QX1EUR", "2/10 QX2EUR"})
    all += all_line({.memo = "[QTC" + series + " 2025-11-29 0100 40m]"}) + "\n";
  run_waedc(test, test.work, all);
  EXPECT_EQ(test.work.read_text("QX1ABC.qlg"), std::string{qtc_log_head} +
                                                   "  2/10   0100 QX2EUR\n"
                                                   "  9/1    0100 QX1EUR\n"
                                                   " 10/3    0100 QX3EUR\n");
}

TEST(Waedc, QuotesCommasAndCommentsSurviveTheScratchFiles) {
  TestApp test;
  test.set("Comments_1", "QSO: 1 was the best");
  test.set("Comments_3", "END-OF-LOG: is not here");
  run_waedc(test, test.work,
            "zLog for Windows \n" +
                all_line({.call = "Q\"X\",9", .sent_exch = "\"\"", .rcvd_exch = ",\"", .memo = "[\",\"]"}) +
                "\n\n   \n" +
                all_line({.time = "00:11", .call = "QX9表", .sent_exch = "2", .rcvd_exch = "3"}) + "\n");
  const std::string log = test.work.read_text("QX1ABC.cbr");
  EXPECT_EQ(lines_beginning(log, "QSO:"),
            "QSO:  7000 CW 2025-11-29 0011 QX1ABC        599      2 QX9表          599      3\n"
            "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599     \"\" Q\"X\",9        599     ,\"\n");
  EXPECT_EQ(lines_beginning(log, "SOAPBOX: "),
            "SOAPBOX: QSO: 1 was the best\nSOAPBOX: 楽しいコンテストを有り難うございました。\n"
            "SOAPBOX: END-OF-LOG: is not here\n");
  EXPECT_TRUE(log.ends_with("\nEND-OF-LOG:\n"));
}

TEST(Waedc, MemoFrequencyAndTopBandOptionCountInTheMergedLog) {
  TestApp test;
  test.set("get_freq_flag", "1");
  test.set("freq19_to_18_flag", "1");
  run_waedc(test, test.work,
            "zLog for Windows \n" + all_line({.memo = "(7012) [QTC1/2 QX9EUR 2025-11-29 0100]"}) + "\n" +
                all_line({.band = "1.9", .memo = "[QTC1/2 QX9EUR 2025-11-29 0100 160M]"}) + "\n");
  const std::string log = test.work.read_text("QX1ABC.cbr");
  EXPECT_EQ(left(lines_beginning(log, "QSO:"), 10), "QSO:  7012");
  const std::string qtcs = lines_beginning(log, "QTC:");
  EXPECT_EQ(left(qtcs, 10), "QTC:  7012");
  EXPECT_EQ(left(qtcs.substr(qtcs.find('\n') + 1), 10), "QTC:  1800");
}

TEST(Waedc, LogOfAnotherLoggerKeepsTheWritersLinesAndGetsNoQtcLog) {
  TestApp test;
  run_waedc(test, test.work,
            "Date       Time\n" + all_line({.memo = "[QTC1/2 QX9EUR 2025-11-29 0100]"}) + "\n");
  EXPECT_FALSE(test.work.has("QX1ABC.qlg"));
  EXPECT_EQ(lines_beginning(test.work.read_text("QX1ABC.cbr"), "QTC:"), "");
}

}  // namespace
}  // namespace varnisto::test
