#include "app/checker.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/line_list.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

const std::string good_qso =
    "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14     ";
const std::string no_call = good_qso.substr(0, 55) + "             " + good_qso.substr(68);
const std::string frame =
    "                              --------info sent------- -------info rcvd--------\n"
    "QSO: freq  mo date       time call          rst exch   call          rst exch   t\n"
    "QSO: ***** ** yyyy-mm-dd nnnn ************* nnn ****** ************* nnn ****** n\n";

TEST(Check, ReportsToTheLetter) {
  struct Row {
    std::string log, report;  ///< the report behind its head
    int errors, qsos;
  };
  const std::string indent(12, ' ');
  for (const Row& row :
       rows_of(Row{"CONTEST: X\n" + good_qso + "\nEND-OF-LOG:\n", "\n\n\n", 0, 1},
               Row{good_qso + "\n" + no_call + "\n",
                   "\n\n" + frame + no_call + "\n 2 行目の" + indent + "his call が空白です。\n\n", 1, 2},
               Row{good_qso.substr(0, 61),
                   "\n" + frame + good_qso.substr(0, 61) + "\n 1 行目の" + indent + "his rst が空白です。\n" +
                       indent + "his exch が空白です。\n\n",
                   1, 1},
               Row{"IOTA-ISLAND-NAME:  \n", "NAME: 項目が空白です。\n\n\n", 1, 0},
               Row{"NAME:NAME: \nNAME:　\n", "\n\n", 0, 0},
               Row{"CONTEST: CALLSIGN:\n", "CALLSIGN: 項目が空白です。\n\n\n", 1, 0})) {
    TextReader log = TextReader::from_bytes(to_cp932(row.log));
    LineList report;
    const CheckResult result = check_cabrillo(log, "in.all", "out.cbr", report);
    std::string text;
    for (const std::string& line : report.lines) text += line + "\n";
    EXPECT_EQ(text, "入力ファイル名 ： in.all\n出力ファイル名 ： out.cbr\n\n" + row.report);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.qsos, row.qsos);
  }
}

TEST(Check, FindsEveryBlankTagAndColumn) {
  std::vector<std::string> expected;
  std::string text;
  for (const char* tag : {"LOCATION:", "CONTEST:", "CALLSIGN:", "CATEGORY-OPERATOR:", "CATEGORY-TRANSMITTER:",
                          "CATEGORY-POWER:", "CATEGORY-MODE:", "CATEGORY-BAND:", "CATEGORY-STATION:",
                          "CATEGORY-ASSISTED:", "CLAIMED-SCORE:", "OPERATORS:", "NAME:"}) {
    text += std::string{tag} + "\r\n";
    expected.push_back(std::string{tag} + " 項目が空白です。");
  }
  for (const char* column :
       {"freq", "mode", "date", "time", "my call", "his rst", "his exch", "his call", "his rst", "his exch"})
    expected.push_back(std::string{column} + " が空白です。");
  const auto head = static_cast<std::ptrdiff_t>(expected.size()) - 10;
  expected.at(static_cast<std::size_t>(head)).insert(0, "1 行目の            ");
  for (int i = 0; i < 200; ++i) text += std::string(80, ' ') + "QSO:\r\n";  // every column is blank
  TextReader log = TextReader::from_bytes(text);
  LineList report;
  const CheckResult result = check_cabrillo(log, "in.all", "out.cbr", report);
  EXPECT_EQ(std::vector(result.findings.begin(), result.findings.begin() + head + 10), expected);
  EXPECT_EQ(result.findings.size(), most_findings);
  EXPECT_EQ(result.finding_count, head + 2000);
  EXPECT_EQ(result.errors, head + 200);
}

/// The checker as the last step of a run.
class CheckOfARun : public testing::Test {
 protected:
  CheckResult check(const char* log) {
    test.app.state.log.input.out_name = test.folder.write("out.cbr", log);
    CheckResult found = check_Cabrillo_sub(test.app);
    test.app.outputs.commit();
    show_check_report(test.app, found);
    return found;
  }

  StartedApp test;
  const std::string report = "check_Cabrillo.txt";
};

TEST_F(CheckOfARun, ShowsAReportWithFindingsAndDeletesOneWithout) {
  EXPECT_EQ(check("NAME:\r\n").findings, std::vector<std::string>{"NAME: 項目が空白です。"});
  EXPECT_EQ(test.desk.forms, std::vector{FormName::frmDisp2});
  EXPECT_EQ(test.app.state.display.disp_name, test.folder.path() + report);
  EXPECT_TRUE(test.folder.has(report));
  EXPECT_EQ(check("NAME: x\r\n").errors, 0);
  EXPECT_EQ(test.desk.forms.size(), 1U);
  EXPECT_FALSE(test.folder.has(report));
}

TEST_F(CheckOfARun, NeverShowsAnEarlierReportForOneThatCouldNotBeWritten) {
  std::filesystem::permissions(test.folder.write(report, "of another log"), std::filesystem::perms{0444});
  check("NAME:\r\n");
  EXPECT_TRUE(test.desk.forms.empty());
  ASSERT_EQ(test.app.state.program.notices.size(), 1U);
  EXPECT_TRUE(contains(test.app.state.program.notices[0], report));
}

}  // namespace
}  // namespace varnisto::test
