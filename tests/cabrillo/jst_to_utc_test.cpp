#include "cabrillo/jst_to_utc.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(JstToUtc, MovesDateAndTimeOfAQsoLine) {
  for (const auto& [japan, utc] :
       texts_of<2>("2002-11-24 0900|2002-11-24 0000", "2002-11-24 0300|2002-11-23 1800",
                   "2002-11-24 0859|2002-11-23 2359", "2002-07-01 0000|2002-06-30 1500",
                   "2003-01-01 0500|2002-12-31 2000", "2004-03-01 0100|2004-02-29 1600",
                   "2003-03-01 0100|2003-02-28 1600", "1900-03-01 0100|1900-02-28 1600",
                   "2000-03-01 0100|2000-02-29 1600", "2002/11/24 0300|2002-11-23 1800",
                   "9999-12-31 2359|9999-12-31 1459", "0100-01-01 0900|0100-01-01 0000", "0100-01-01 0859|",
                   "2004-02-30 0100|", "2003-02-29 0100|", "2003-13-01 0100|", "2003-12-00 0100|",
                   "2003-12-01 2400|", "2003-12-01 0060|", "2003-12-0x 0100|", "2003-12- 1 0100|",
                   "2003.12.01 0100|", "               |")) {
    SCOPED_TRACE(japan);
    const std::string start = "QSO: 14025 CW ";
    const std::string rest = " QX1ABC        599 25     QX2DEF        599 05     ";
    std::string line = start + japan + rest;
    const std::string before = line;
    EXPECT_EQ(J2U(line, is_ascii(line)), !utc.empty());
    EXPECT_EQ(line, utc.empty() ? before : start + utc + rest);
  }
}

TEST(JstToUtc, CountsCharactersAndTakesALineThatEndsBehindTheTime) {
  for (const auto& [japan, utc] :
       texts_of<2>("QSO: 表7000 CW 2002-11-24 0300 QX1ABC|QSO: 表7000 CW 2002-11-23 1800 QX1ABC",
                   "QSO: 14025 CW 2002-11-24 0300|QSO: 14025 CW 2002-11-23 1800 ",
                   "QSO: 14025 CW 2002-11-24 030|QSO: 14025 CW 2002-11-24 030")) {
    std::string line = japan;
    EXPECT_EQ(J2U(line, is_ascii(line)), utc != japan);
    EXPECT_EQ(line, utc);
  }
}

TEST(JstToUtc, GivesTheDateOfTheQtcLog) {
  EXPECT_EQ(J2U_qtc("2002/11/23", "14:12"), "23 Nov 2002  0512z");
  EXPECT_EQ(J2U_qtc("2003/01/01", "05:00"), "31 Dec 2002  2000z");
  EXPECT_THROW(J2U_qtc("2003/01/01", "0500"), RunTimeError);
}

TEST(ConvJ2U, ConvertsTheFileThatWasWrittenAndNothingElse) {
  TestApp test;
  test.app.state.log.input.out_name =
      test.work.write_text("QX1ABC-7L.log",
                           "SOAPBOX: QSO: 14025 CW 2002-11-24 0300 in a comment 楽\n"
                           "QSO: 14025 CW 2003-01-01 0500 QX1ABC\n"
                           "QTC: 14025 CW 2003-01-01 0500 QX1ABC\n");
  conv_J2U(test.app);
  test.app.outputs.commit();
  EXPECT_EQ(test.work.files().size(), 1U);
  EXPECT_EQ(test.work.read_text("QX1ABC-7L.log"),
            "SOAPBOX: QSO: 14025 CW 2002-11-24 0300 in a comment 楽\n"
            "QSO: 14025 CW 2002-12-31 2000 QX1ABC\n"
            "QTC: 14025 CW 2003-01-01 0500 QX1ABC\n");
}

TEST(ConvJ2U, NamesTheLineOfADateThatIsNoneAndLeavesTheLog) {
  TestApp test;
  const std::string text = "QSO: 14025 CW 2003-01-01 0500 QX1ABC\nQSO: 14025 CW 2003-02-30 0500 QX1ABC\n";
  test.app.state.log.input.out_name = test.work.write_text("QX1ABC.cbr", text);
  EXPECT_TRUE(contains(error_text_of([&] { conv_J2U(test.app); }), ": 2 行目: QSO: 14025 CW 2003-02-30"));
  test.app.outputs.back_to(0);
  EXPECT_EQ(error_of([&] { conv_J2U(test.app); }), RunTimeError::type_mismatch);
  EXPECT_EQ(test.work.read_text("QX1ABC.cbr"), text);
}

}  // namespace
}  // namespace varnisto::test
