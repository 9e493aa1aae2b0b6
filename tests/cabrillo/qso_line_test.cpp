#include "cabrillo/qso_line.h"

#include <gtest/gtest.h>

#include "cabrillo/all_line.h"
#include "cabrillo/conversions.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

const AllQso plain{};
const AllQso serial{.sent_exch = "001", .rcvd_exch = "007", .band = "28"};
const AllQso province{.sent_exch = "012", .rcvd_exch = "MA", .band = "28"};
const AllQso watts{.sent_exch = "100", .rcvd_exch = "CA"};
const AllQso unreported{.rcvd = "", .rcvd_exch = ""};
const AllQso second_tx{.call = "QX9DEF/P", .sent_exch = "12345678", .after = "TX#1"};
const AllQso qtc{.memo = "[QTC2/10 QX8EUR 2025-08-09 0712 20m]"};
const AllQso bare_qtc{.memo = "[]"};

TEST(QsoLine, IsTheGoldenLine) {
  struct Row {
    std::string name;
    std::string cont_id;
    AllQso qso;
    bool multi_tx, named_all, qtc;
    std::string expected;  ///< empty: not written
  };
  for (
      const Row& c : rows_of(
          //                              1         2         3         4         5         6         7 8
          //                     12345678901234567890123456789012345678901234567890123456789012345678901234567890
          Row{"cq_ww", "CQ-WW", plain, false, false, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14     "},
          Row{"cq_ww_no_report", "CQ-WW", unreported, false, false, false, ""},
          Row{"else_no_report", "CQ-WPX", unreported, false, false, false, ""},
          Row{"else_cuts_at_7", "CQ-WW-RTTY", second_tx, true, true, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 1234567QX9DEF/P      599 14      1"},
          Row{"upper_case_name", "CQ-WPX", second_tx, true, false, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 1234567QX9DEF/P      599 14      0"},
          Row{"tx_kept_without_marker", "CQ-WPX", plain, true, true, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14      9"},
          Row{"arrl_10_serial", "ARRL-10", serial, false, false, false,
              "QSO: 28000 CW 2025-11-29 0012 QX1ABC        599      1 QX9DEF        599      7"},
          Row{"arrl_10_province", "ARRL-10", province, true, false, false,
              "QSO: 28000 CW 2025-11-29 0012 QX1ABC        599     12 QX9DEF        599     MA 0"},
          Row{"arrl_dx", "ARRL-DX", watts, false, false, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 100   QX9DEF        599 CA     "},
          Row{"arrl_dx_all", "ARRL-DX", watts, false, true, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 100    QX9DEF        599 CA     "},
          Row{"arrl_dx_no_report", "ARRL-DX", unreported, false, false, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25    QX9DEF                   "},
          Row{"waedc", "WAEDC", qtc, true, false, false,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25    QX9DEF        599 14      0"},
          Row{"waedc_qtc", "WAEDC", qtc, true, false, true,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25    QX9DEF        599 14      2/10  "
              "0712  QX8EUR"},
          Row{"waedc_bare_qtc", "WAEDC-CW", bare_qtc, false, false, true,
              "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25    QX9DEF        599 14                 "
              " "})) {
    SCOPED_TRACE(c.name);
    const std::string line = all_line(c.qso);
    QsoRec rec;
    rec.tx_no = "9";
    parse_all_line(TextLine{line}, {}, rec);
    std::string out;
    const bool written =
        formatter_for(c.cont_id)({"QX1ABC        ", c.multi_tx, c.named_all, c.qtc}, line, rec, out);
    EXPECT_EQ(written ? out : "", c.expected);
  }
}

TEST(QsoLine, FormatterGoesByTheFirstSevenCharacters) {
  const std::pair<const char*, QsoFormatter*> rows[] = {{"WAEDC-SSB", WAEDC}, {"WAEDC-", Else_},
                                                        {"CQ-WW-", Else_},    {"ARRL-DX-CW", ARRL_DX},
                                                        {"arrl-10", Else_},   {"", Else_}};
  for (const auto& [code, formatter] : rows) EXPECT_EQ(formatter_for(code), formatter) << code;
}

TEST(Conversions, BandsOfFrequencies) {
  for (const auto& [freq5, band] :
       texts_of<2>(" 1900|160M", " 3500|80M", " 7012|40M", "10100|30M", "14000|20M", "18100|17M", "21000|15M",
                   "24900|12M", "28000|10M", "29000|10M", "7000|40M", "7.1|40M", "50000|none"))
    EXPECT_EQ(freq_band(freq5).value_or("none"), band) << freq5;
  EXPECT_EQ(band_henkan("160", true), " 1800");
  EXPECT_EQ(band_henkan("20", true), "14000");
  EXPECT_EQ(band_henkan("30", false), std::nullopt);
}

TEST(Calls, AreTakenApartAtTheStroke) {
  for (const auto& [call, main_call, other_part, full_call] : texts_of<4>(
           "QX1ABC|QX1ABC||", "QX1ABCD|QX1ABCD||QX1ABCD", "QX4JKL/1|QX4JKL|1|QX4JKL/1",
           "QX4JKL/qrpp|QX4JKL||", "QX5MNO/QX1|QX5MNO|QX1|QX5MNO/QX1", "QX1/QX5MNO|QX5MNO|QX1|QX1/QX5MNO",
           "AB/CD|CD|AB|AB/CD", "QX1/A/P|A/P|QX1|QX1/A/P", "|||")) {
    SCOPED_TRACE(call);
    const CallParts parts = calls_check(call);
    EXPECT_EQ(parts.main_call, main_call);
    EXPECT_EQ(parts.other_part, other_part);
    EXPECT_EQ(parts.full_call, full_call);
  }
}

}  // namespace
}  // namespace varnisto::test
