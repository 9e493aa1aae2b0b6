#include "app/checker.h"

#include <gtest/gtest.h>

#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

class Report final : public LineSink {
 public:
  std::string text;
  void put(std::string_view line) override { text.append(line).append("\n"); }
};

const std::string head = "入力ファイル名 ： in.all\n出力ファイル名 ： out.cbr\n\n";
const std::string good_qso =
    "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14     \n";
const std::string frame =
    "                              --------info sent------- -------info rcvd--------\n"
    "QSO: freq  mo date       time call          rst exch   call          rst exch   t\n"
    "QSO: ***** ** yyyy-mm-dd nnnn ************* nnn ****** ************* nnn ****** n\n";

const std::string no_call =
    "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25                   599 14     \n";
const std::string sixty = "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DE\n";
std::string six_good() {
  std::string text;
  for (int i = 0; i < 6; ++i) text += good_qso;
  return text;
}

TEST(Check, ReportsToTheLetter) {
  struct Row {
    std::string log, report;  ///< the report behind its head
    int errors, qsos;
  };
  for (const Row& row : rows_of(
           Row{"CONTEST: X\n" + good_qso + "END-OF-LOG:\n", "\n\n\n", 0, 1},
           Row{six_good() + no_call,
               "\n\n\n\n\n\n\n" + frame + no_call + " 7 行目の            his call が空白です。\n\n", 1, 7},
           Row{sixty,
               "\n" + frame + sixty +
                   " 1 行目の            his rst が空白です。\n            his exch が空白です。\n\n",
               1, 1},
           Row{"CLAIMED-SCORE:   \n", "CLAIMED-SCORE: 項目が空白です。\n\n\n", 1, 0},
           Row{"IOTA-ISLAND-NAME:\n", "NAME: 項目が空白です。\n\n\n", 1, 0}, Row{"NAME:NAME: \n", "\n", 0, 0},
           Row{"NAME:　\n", "\n", 0, 0},
           Row{"CONTEST: CALLSIGN:\n", "CALLSIGN: 項目が空白です。\n\n\n", 1, 0},
           Row{"X QSO:\n",
               "\n" + frame +
                   "X QSO:\n 1 行目の            mode が空白です。\n"
                   "            date が空白です。\n            time が空白です。\n"
                   "            my call が空白です。\n            his rst が空白です。\n"
                   "            his exch が空白です。\n            his call が空白です。\n"
                   "            his rst が空白です。\n            his exch が空白です。\n\n",
               1, 1})) {
    SCOPED_TRACE(row.log);
    TextReader log = TextReader::from_bytes(row.log);
    Report report;
    const CheckResult result = check_cabrillo(log, "in.all", "out.cbr", report);
    EXPECT_EQ(report.text, head + row.report);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.qsos, row.qsos);
  }
}

TEST(Check, CountsEveryFindingAndKeepsTheFirstThousand) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "QSO:\r\n";
  TextReader log = TextReader::from_bytes(text);
  Report report;
  const CheckResult result = check_cabrillo(log, "in.all", "out.cbr", report);
  EXPECT_EQ(result.finding_count, 2000);
  EXPECT_EQ(result.findings.size(), most_findings);
  EXPECT_EQ(result.errors, 200);
}

TEST(Check, ShowsAReportWithFindingsAndDeletesOneWithout) {
  StartedApp test;
  test.app.state.log.input.out_name = test.folder.write("out.cbr", "NAME:\r\n");
  const CheckResult found = check_Cabrillo_sub(test.app);
  EXPECT_EQ(found.findings, std::vector<std::string>{"NAME: 項目が空白です。"});
  EXPECT_FALSE(test.folder.has("check_Cabrillo.txt"));
  test.app.outputs.commit();
  show_check_report(test.app, found);
  EXPECT_EQ(test.desk.forms, std::vector{FormName::frmDisp2});
  EXPECT_EQ(test.app.state.display.disp_name, test.folder.path() + "check_Cabrillo.txt");
  EXPECT_TRUE(test.folder.has("check_Cabrillo.txt"));
  test.folder.write("out.cbr", "NAME: x\r\n");
  EXPECT_EQ(check_Cabrillo_sub(test.app).errors, 0);
  test.app.outputs.commit();
  EXPECT_FALSE(test.folder.has("check_Cabrillo.txt"));
}

TEST(Check, NeverShowsAnEarlierReportForOneThatCouldNotBeWritten) {
  StartedApp test;
  const std::string report = test.folder.write("check_Cabrillo.txt", "of another log");
  std::filesystem::permissions(report, std::filesystem::perms{0444});
  test.app.state.log.input.out_name = test.folder.write("out.cbr", "NAME:\r\n");
  const CheckResult found = check_Cabrillo_sub(test.app);
  test.app.outputs.commit();
  show_check_report(test.app, found);
  EXPECT_TRUE(test.desk.forms.empty());
  EXPECT_EQ(test.app.state.program.notices.size(), 1U);
}

}  // namespace
}  // namespace varnisto::test
