#include "ccc/qso.h"

#include <gtest/gtest.h>
#include <limits>

#include "ccc/convert.h"
#include "ccc/power.h"
#include "ccc/tally.h"
#include "support/errors.h"
#include "support/line_list.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

const CccContest& contest_of(std::string_view key) {
  return *ccc_contest_of(key);
}

/// A line with texts at these columns, from 1.
std::string line_with(const std::vector<std::pair<std::size_t, std::string>>& texts) {
  std::string line = "11 29  0905  40   QX9DEF";
  for (const auto& [first, text] : texts) {
    if (line.size() < first - 1) line.resize(first - 1, ' ');
    line.replace(first - 1, text.size(), text);
  }
  return line;
}

/// The QSO of a line; the options outlive it.
CccQso parsed(std::string_view line, std::string_view key = "CQWW ", const CccOptions& options = {},
              CccQso qso = {}) {
  parse_ccc_line(TextLine{line}, contest_of(key), options, qso);
  return qso;
}

CccResult converted(const std::string& bytes, std::string_view key = "CQWW ") {
  TextReader log = TextReader::from_bytes(bytes);
  LineList work;
  const CccResult result = convert_ccc(log, contest_of(key), {}, &work);
  EXPECT_EQ(work.lines.size(), result.qsos);
  TextReader again = TextReader::from_bytes(bytes);
  EXPECT_EQ(convert_ccc(again, contest_of(key), {}, nullptr).qsos, result.qsos);
  return result;
}

TEST(CccLine, TakesDateTimeAndCallFromTheirColumns) {
  for (const auto& [line, month, day, time, call] :
       texts_of<5>(" 3  7  0905|03|07|0905|", "3  7   0905|03|07|0905|", "       0905|0|0|0905|", "1|01|0||",
                   "12 31   905  40    QX1ABCDEFGHIJK|12|31| 905| QX1ABCDEFGHI", "11 29  09|11|29|09|",
                   "11 29  0905  40   漢字9DEF|11|29|0905|漢字9DEF")) {
    SCOPED_TRACE(line);
    const CccQso qso = parsed(line);
    EXPECT_EQ((std::vector{qso.month, qso.day, std::string{qso.hhmm}, std::string{qso.call}}),
              (std::vector{month, day, time, call}));
  }
}

TEST(CccLine, FrequencyComesFromTheBandOrThePreviousLine) {
  CccQso previous;
  previous.freq5 = " 1900";
  for (const auto& [band, freq5, as_1800] :
       texts_of<3>("160| 1900| 1800", "80 | 3500| 3500", " 40| 7000| 7000", "20 |14000|14000",
                   "15 |21000|21000", "10 |28000|28000", "6  | 1900| 1800", "   | 1900| 1800")) {
    const std::string line = line_with({{14, band}});
    EXPECT_EQ(parsed(line, "CQWW ", {}, previous).freq5, freq5);
    EXPECT_EQ(parsed(line, "CQWW ", {.as_1800 = true}, previous).freq5, as_1800);
  }
  EXPECT_EQ(parsed(line_with({{14, "6  "}})).freq5, "     ");
}

TEST(CccLine, ModeFollowsTheWidthOfAReport) {
  CccQso previous;
  previous.sent_rst = "57";
  for (const auto& [key, first, second, plain, rtty] :  // reports in columns 35 and 47; mode and sent report
       texts_of<5>("CQWW |599||CW 599|RY 57", "CQWW |59||PH 59|RY 57", "CQWW ||599|PH 59|RY 57",
                   "JIDX |579||CW 599|CW 599", "JIDX | 59||PH 59|PH 59", "IARU |579|59|CW 579|RY 579",
                   "IARU |57|599|PH 57|RY 57", "ARRLD|449|59|CW 449|RY 449", "ARRLD||599|PH |RY ",
                   "CQWPX|599|59|CW 599|CW 599", "CQWPX|59|599|PH 59|PH 59")) {
    const std::string line = line_with({{35, first}, {47, second}});
    for (const bool box : {false, true}) {
      const CccQso qso = parsed(line, key, {.rtty = box}, previous);
      EXPECT_EQ(std::string{qso.mode2} + " " + std::string{qso.sent_rst}, box ? rtty : plain) << key << first;
    }
  }
}

TEST(CccLine, EachContestHasItsColumns) {
  const std::string line = "11 29  0905  40   QX9DEF          abcd-efghijklmnopqrstuvwxyz0123456789ABCDEFGH";
  for (const auto& [key, sent, rcvd_rst, rcvd, mult1, mult2, points] :
       texts_of<7>("CQWW |25|abc|efghij|ijkl|mnop|uv", "JIDX |13|abc|efghij|ijk|mnop|u",
                   "IARU |efghij|lmn|qrstuv|yz0123||67", "ARRLD|13|lmn|qrstuv|yz0123||67",
                   "CQWPX|efgh|lmn|qrstuv|yz01||56")) {
    const CccQso qso = parsed(line, key, {.number = "13"});
    EXPECT_EQ((std::vector{qso.sent_exch, qso.rcvd_rst, qso.rcvd_exch, qso.mult1, qso.mult2, qso.points}),
              (std::vector<std::string_view>{sent, rcvd_rst, rcvd, mult1, mult2, points}))
        << key;
  }
}

TEST(CccWorkFile, QuotesInTextsAreDoubled) {
  std::string line;
  set_ccc_work_line(parsed(line_with({{35, "5\"9"}, {40, "1\"\"2"}})), line);
  EXPECT_EQ(line, R"("11","29","0905","QX9DEF       "," 7000","599","25","5""9","1""""2","CW")");
  set_ccc_work_line(parsed("11 29  0905", "ARRLD", {.number = "\"K"}), line);
  EXPECT_EQ(line, R"("11","29","0905","","     ","","""K","","","PH")");
}

TEST(CccTally, MultipliersCountUnlessBlankOrADash) {
  for (const auto& [key, mult1, mult2, counts] :
       texts_of<4>("CQWW |14|QX9|1 1", "CQWW |-|-|0 0", "CQWW |||0 0", "CQWW |--|- -|1 1", "IARU |-||0 0",
                   "ARRLD|-||0 0", "JIDX |-|-|0 0", "CQWPX|-||1 0", "CQWPX|||0 0")) {
    CccQso qso;
    qso.band = band_at(5);
    qso.mult1 = mult1;
    qso.mult2 = mult2;
    CccTally tally;
    tally_ccc_qso(qso, contest_of(key), tally);
    EXPECT_EQ(std::to_string(tally.bands[5].mult1) + " " + std::to_string(tally.bands[5].mult2), counts)
        << key << mult1;
  }
}

TEST(CccTally, PointsAreRoundedSumBySum) {
  struct Row {
    std::vector<std::string_view> points;
    int sum;
  };
  for (const Row& row : rows_of(Row{{"3", "12"}, 15}, Row{{"", "x", "-"}, 0}, Row{{"1.5", "1"}, 3},
                                Row{{"1", "1.5"}, 2}, Row{{"5", "-2"}, 3}, Row{{"3x"}, 3}, Row{{"1e2"}, 1})) {
    CccTally tally;
    CccQso qso;
    qso.band = band_at(0);
    for (const std::string_view points : row.points) {
      qso.points = points;
      tally_ccc_qso(qso, contest_of("CQWW "), tally);
    }
    EXPECT_EQ(tally.bands[0].points, row.sum);
  }
}

TEST(CccTally, AQsoOnAnotherBandCountsNowhere) {
  const CccTally tally =
      converted("CCC\r\n" + line_with({{14, "6  "}, {35, "599"}, {44, "14"}, {48, "QX"}, {56, "9"}})).tally;
  EXPECT_EQ(tally.cw + tally.qsos + tally.points + tally.mult1 + tally.mult2 + tally.score, 0);
}

TEST(CccTally, RttyHasACounterOfItsOwn) {
  CccTally tally;
  CccQso qso;
  qso.band = band_at(0);
  qso.mode2 = "RY";
  tally_ccc_qso(qso, contest_of("CQWW "), tally);
  EXPECT_EQ(tally.rtty, 1);
}

TEST(CccTally, CountersOverflowBeyond16BitsAndTheScoreBeyond32) {
  constexpr std::int16_t most = std::numeric_limits<std::int16_t>::max();
  const auto overflow_of = [](CccTally tally) {
    CccQso qso;
    qso.band = band_at(1);
    qso.mode2 = "CW";
    qso.mult1 = qso.mult2 = qso.points = "1";
    return error_text_of([&] { tally_ccc_qso(qso, contest_of("CQWW "), tally); });
  };
  struct Row {
    std::int16_t CccBandTally::*counter;
    std::string name, total;
  };
  EXPECT_EQ(overflow_of({}), "");
  for (const Row& row : rows_of(Row{&CccBandTally::qsos, "qso_cnt", "total_qso"},
                                Row{&CccBandTally::points, "pts_sum", "total_points"},
                                Row{&CccBandTally::mult1, "mult1_cnt", "total_mult1"},
                                Row{&CccBandTally::mult2, "mult2_cnt", "total_mult2"})) {
    CccTally tally;
    tally.bands[1].*row.counter = most;
    EXPECT_EQ(overflow_of(tally), row.name);
    EXPECT_EQ(error_text_of([&] { sum_ccc_tally(tally); }), "");
    tally.bands[4].*row.counter = 1;
    EXPECT_EQ(error_text_of([&] { sum_ccc_tally(tally); }), row.total);
  }
  EXPECT_EQ(overflow_of({.cw = most}), "cw_count");
  CccTally tally;
  tally.bands[0] = {0, most, most, most};
  sum_ccc_tally(tally);
  EXPECT_EQ(tally.score, 2147352578);
}

TEST(CccLog, BlankLinesAreNoQsosAndLinesCountInTheFile) {
  const std::string blank_report = line_with({{14, "6  "}});
  const std::string other_band = line_with({{14, "6  "}, {35, "599"}});
  const std::string bytes =
      "CCC\r\n\r\n   \r\n" + blank_report + "\r\n\r\n" + other_band + "\r\n" + other_band + "\r\n";
  const CccResult result = converted(bytes);
  EXPECT_EQ(result.qsos, 3U);
  EXPECT_EQ(result.left_out.count, 1);
  EXPECT_EQ(result.left_out.first_line, 4U);
  EXPECT_EQ(result.band_kept.count, 2);
  EXPECT_EQ(result.band_kept.first_line, 6U);
  for (const auto& [key, left_out] : {std::pair{"ARRLD", 0}, {"IARU ", 3}, {"JIDX ", 1}, {"CQWPX", 3}})
    EXPECT_EQ(converted(bytes, key).left_out.count, left_out) << key;
  EXPECT_EQ(converted("CCC\r\n \r\n\r\n\x1A"
                      "11 29")
                .qsos,
            0U);
}

TEST(CccPower, HighestIsTheFirstOfItsValue) {
  for (const auto& [first, second, third, highest] :
       texts_of<4>("100|1K|500|1K", "KW|1000|1k|KW", "1000|KW||1000", "1000|1001||1001", "x|0|0.5|0",
                   "0.6|5| 5|5", "12345|||1234")) {
    std::string bytes = line_with({{40, "9999"}}) + "\n";  // a first line counts never
    for (const std::string& power : {first, second, third}) bytes += line_with({{40, power}}) + "\n";
    TextReader log = TextReader::from_bytes(bytes);
    EXPECT_EQ(highest_ccc_power(log), highest);
  }
}

}  // namespace
}  // namespace varnisto::test
