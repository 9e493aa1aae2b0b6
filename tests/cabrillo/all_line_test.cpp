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
  EXPECT_EQ((std::vector<std::string_view>{rec.qso_date, rec.qso_hhmm, rec.his_call14, rec.sent_rst4,
                                           rec.sent_exch, rec.rcvd_rst4, rec.rcvd_exch, rec.mult1, rec.mult2,
                                           rec.band_mhz, rec.freq5, rec.mode2, rec.points}),
            (std::vector<std::string_view>{"2002-11-23", "0512", "QX9DEF/QRPPPX ", "599 ", "1234567", "579 ",
                                           "8765432", "NEWM1", "M2", "21", "21000", "PH", "12"}));
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

TEST(AllLine, AModeIsThreeCharactersAndAnUnknownOneKeepsThePrevious) {
  for (const auto& [column, mode2, rtty] :
       texts_of<3>("CW |CW|", "SSB|PH|", "RY |RY|", "RTY|RY|", "RTTY|RY|", "FM |FM|", "AM |??|", "cw |??|",
                   " CW|??|", "SSB|RY|box", "AM |RY|box")) {
    QsoRec previous;
    previous.mode2 = "??";
    AllOptions options;
    options.rtty = !rtty.empty();
    EXPECT_EQ(parsed(all_line({.mode = column + "  "}), options, previous).mode2, mode2) << column;
  }
}

TEST(AllLine, FrequencyComesFromMemoBandOrPreviousLine) {
  for (const auto& [band, memo, freq5, options] : texts_of<4>(
           "1.9|| 1900|", "3.5|| 3500|", "7|| 7000|", "14||14000|", "29||28000|", "50||99999|", "||99999|",
           "1.9|| 1800|1800", "7|(7012)| 7012|memo", "7|(7012)| 7000|", "14|( 14025.5 )|025.5|memo",
           "14|()|14000|memo", "14|(14025|14000|memo", "14|) (14025)|14025|memo", "14|(A) (14025)|    A|memo",
           "1.9|(1900)| 1800|memo1800", "1.9|(1900.0)|900.0|memo1800", "1.9|(1905)| 1905|memo1800")) {
    SCOPED_TRACE(band + memo);
    QsoRec previous;
    previous.freq5 = "99999";
    const AllOptions asked{false, options.starts_with("memo"), options.ends_with("1800"), ""};
    EXPECT_EQ(parsed(all_line({.band = band, .memo = memo}), asked, previous).freq5, freq5);
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
