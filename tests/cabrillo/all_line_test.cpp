#include "cabrillo/all_line.h"

#include <gtest/gtest.h>

#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

QsoRec parsed(const std::string& line, const AllOptions& options = {}, QsoRec rec = {}) {
  parse_all_line(TextLine{line}, options, rec);
  return rec;
}

TEST(AllLine, FillsEveryFieldFromItsColumns) {
  const QsoRec rec = parsed(
      //        1         2         3         4         5         6         7         8
      // 2345678901234567890123456789012345678901234567890123456789012345678901234567890123456
      "2002/11/23 05:12 QX9DEF/QRPPPX599 1234567X579 8765432YM1    M2    21   SSB  12 NEWM1TX#2");
  EXPECT_EQ(rec.qso_date, "2002-11-23");
  EXPECT_EQ(rec.qso_hhmm, "0512");
  EXPECT_EQ(rec.his_call14, "QX9DEF/QRPPPX ");
  EXPECT_EQ(rec.sent_rst4, "599 ");
  EXPECT_EQ(rec.sent_exch, "1234567");
  EXPECT_EQ(rec.rcvd_rst4, "579 ");
  EXPECT_EQ(rec.rcvd_exch, "8765432");
  EXPECT_EQ(rec.mult1, "NEWM1");
  EXPECT_EQ(rec.mult2, "M2");
  EXPECT_EQ(rec.band_mhz + rec.freq5, "2121000");
  EXPECT_EQ(rec.mode2, "PH");
  EXPECT_EQ(rec.points, "12");
}

TEST(AllLine, AShortLineLeavesItsFieldsBlank) {
  const QsoRec rec = parsed("2002/11/23 05");
  EXPECT_EQ(rec.qso_hhmm, "05");
  EXPECT_EQ(rec.his_call14 + rec.rcvd_rst4, std::string(18, ' '));
  EXPECT_EQ(rec.sent_exch + rec.mult1 + rec.points + rec.band_mhz, "");
  EXPECT_EQ(rec.freq5 + rec.mode2, "       ");
}

TEST(AllLine, ColumnsCountCharactersNotBytes) {
  const QsoRec rec = parsed(all_line({.call = "漢字仮名", .rcvd_exch = "表7"}));
  EXPECT_EQ(rec.his_call14, "漢字仮名          ");
  EXPECT_EQ(rec.rcvd_exch, "表7");
  EXPECT_EQ(rec.freq5, " 7000");
}

TEST(Mode, IsThreeCharactersAndAnUnknownOneKeepsThePrevious) {
  struct Row {
    std::string column, mode2;
    bool rtty = false;
  };
  for (const Row& row : rows_of(Row{"CW ", "CW"}, Row{"SSB", "PH"}, Row{"RY ", "RY"}, Row{"RTY", "RY"},
                                Row{"RTTY", "RY"}, Row{"FM ", "FM"}, Row{"AM ", "??"}, Row{"cw ", "??"},
                                Row{" CW", "??"}, Row{"SSB", "RY", true}, Row{"AM ", "RY", true})) {
    SCOPED_TRACE(row.column);
    QsoRec previous;
    previous.mode2 = "??";
    AllOptions options;
    options.rtty = row.rtty;
    EXPECT_EQ(parsed(all_line({.mode = row.column + "  "}), options, previous).mode2, row.mode2);
  }
}

TEST(Frequency, ComesFromMemoBandOrPreviousLine) {
  struct Row {
    std::string band, memo, freq5;
    bool from_memo = false, as_1800 = false;
  };
  for (const Row& row :
       rows_of(Row{"1.9", "", " 1900"}, Row{"3.5", "", " 3500"}, Row{"7", "", " 7000"},
               Row{"14", "", "14000"}, Row{"29", "", "28000"}, Row{"50", "", "99999"}, Row{"", "", "99999"},
               Row{"1.9", "", " 1800", false, true}, Row{"7", "(7012)", " 7012", true},
               Row{"7", "(7012)", " 7000"}, Row{"14", "( 14025.5 )", "025.5", true},
               Row{"14", "()", "14000", true}, Row{"14", "(14025", "14000", true},
               Row{"14", ") (14025)", "14025", true}, Row{"14", "(A) (14025)", "    A", true},
               Row{"1.9", "(1900)", " 1800", true, true}, Row{"1.9", "(1900.0)", "900.0", true, true},
               Row{"1.9", "(1905)", " 1905", true, true})) {
    SCOPED_TRACE(row.band);
    QsoRec previous;
    previous.freq5 = "99999";
    const AllOptions options{false, row.from_memo, row.as_1800, ""};
    const std::string line = all_line({.band = row.band, .memo = row.memo});
    EXPECT_EQ(parsed(line, options, previous).freq5, row.freq5);
  }
}

TEST(AllLine, PrefectureNumberStandsInForABlankSentExchangeOnly) {
  AllOptions options;
  options.jidx_number = "10";
  EXPECT_EQ(parsed(all_line({.sent_exch = ""}), options).sent_exch, "10");
  EXPECT_EQ(parsed(all_line({.sent_exch = "25"}), options).sent_exch, "25");
}

TEST(AllLine, MarkersAreFoundInTheMemo) {
  EXPECT_EQ(memo_transmitter("x TX#1 TX#2"), "1");
  EXPECT_EQ(memo_transmitter("x TX# "), "");
  EXPECT_EQ(memo_transmitter("x TX#"), "");
  EXPECT_EQ(memo_transmitter("x tx#1"), std::nullopt);
  EXPECT_EQ(bracket_text("] [QTC2/10 QX9 d t] ]"), "QTC2/10 QX9 d t");
  EXPECT_EQ(bracket_text("x [QTC"), std::nullopt);
}

}  // namespace
}  // namespace varnisto::test
