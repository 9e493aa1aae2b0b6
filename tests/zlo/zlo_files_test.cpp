#include "zlo/zlo_files.h"

#include <gtest/gtest.h>
#include <limits>

#include "support/errors.h"
#include "support/rows.h"
#include "zlo/zlo_test_support.h"

namespace varnisto::test {
namespace {

using Lines = std::vector<std::string>;

// The first four of a QSO are day count, call sign and numbers; then codes of band and mode, reports, new
// multipliers, points, operator, memo and transmitter.
const std::vector<ZloQsoSpec> mixed_log = {
    {36470 + 902.0 / 1440, "QX1ABC", "100H", "25", 4, 0, 599, 599, "25", "", 1, "", "", 1},
    {45990 + 86399.4 / 86400, "QX9DEF/1", "12345678X", "東京都", 12, 1, 59, 57, "", "", 12, "山田太郎",
     "表示ソ能 ﾃｽﾄ", 12},
    // 9 bytes of a number count: four characters and a half
    {45991, "QX2GHI/QRP/P", "漢字仮名文字", "1", 15, 4, 32767, 0, "ABCDEFGHI", "-", 255},
    {0, "QX\t9\x1A", "25", "14", 0, 5, 0, 599, "-", "奈良県東部方面", 0, "\x01", "a\r\nb\x7F\tc"}};

// NOLINTBEGIN(bugprone-suspicious-missing-comma): long lines in pieces
TEST(ZloFiles, WriteTheTextLogAndTheLogSheet) {
  const Lines all = {

      "zLog for Windows       by Varnisto 3.09",
      //        1         2         3         4         5         6         7         8
      // 2345678901234567890123456789012345678901234567890123456789012345678901234567890123456
      "1999/11/06 15:02 QX1ABC       599 100H    599 25      25    -     14   CW   1  TX#1  ",
      "2025/11/29 23:59 QX9DEF/1     59  1234567857  東京都     -     -     1200 SSB  12 "
      "%%山田太郎%%TX#12  表示ソ能 ﾃｽﾄ",
      "2025/11/30 00:00 QX2GHI/QRP/P 3276漢字仮名    0   1       ABCDEF-     10G  RTY  255TX#0  ",
      "1899/12/30 00:00 QX 9         0   25      599 14      -     奈良県東部方1.9  Other0  "
      "%% %%TX#0  a  b  c"};
  const Lines jarl = {
      "<LOGSHEET TYPE=zLog>",
      "DATE (JST) TIME   BAND MODE  CALLSIGN      SENTNo      RCVDNo      Mlt    Pts   by Varnisto 3.09",
      "1999-11-06 15:02   14  CW    QX1ABC        599 100H    599 25      25      1",
      "2025-11-29 23:59 1200  SSB   QX9DEF/1      59  1234567 57  東京都     -        12",
      "2025-11-30 00:00  10G  RTTY  QX2GHI/QRP/P  327 漢字仮名    0   1       ABCDEFG 255",
      "1899-12-30 00:00  1.9  Other QX 9          0   25      599 14      -       0"};
  std::vector<ZloQsoSpec> zlox = mixed_log;
  zlox.back().mode = 7;  // the code of that mode in the other kind of log
  for (const std::string& bytes : {zlo_log(mixed_log), zlox_log(zlox)}) {
    const Written files = written(bytes, {.transmitter = true});
    EXPECT_EQ(files.all, all);
    EXPECT_EQ(files.jarl, jarl);
  }
}
// NOLINTEND(bugprone-suspicious-missing-comma)

TEST(ZloFiles, ATextLogAloneNamesNoTransmitter) {
  LineList all;
  ZloReader log = reader_of(zlo_log({mixed_log[0]}));
  write_zlo_files(log, {all});
  EXPECT_EQ(all.lines.back(),
            "1999/11/06 15:02 QX1ABC       599 100H    599 25      25    -     14   CW   1  ");
}

TEST(ZloFiles, ALogWithoutQsosHasItsTitles) {
  for (const std::string& bytes :
       {std::string{}, zlo_log({}), zlox_log({{.day_count = 1e9, .rst_sent = 40000, .invalid = 1}})}) {
    const Written files = written(bytes);
    EXPECT_EQ(files.all.size() + files.jarl.size(), 3) << bytes.size();
    EXPECT_EQ(files.found.count.qsos, 0) << bytes.size();
  }
}

TEST(ZloFiles, ACodeOutsideTheTablesKeepsTheTextBefore) {
  const std::vector<ZloQsoSpec> qsos = {{.band = 16, .mode = 6},
                                        {.band = 2, .mode = 0},
                                        {.band = 255, .mode = 255},
                                        {.band = 9, .mode = 7},
                                        {.band = 17, .mode = 5}};
  const auto columns = [](const Written& files) {
    std::string all;
    for (std::size_t i = 1; i < files.all.size(); ++i) all += files.all[i].substr(66, 10) + "|";
    return all;
  };
  EXPECT_EQ(columns(written(zlo_log(qsos))), "          |7    CW   |7    CW   |50   CW   |50   Other|");
  EXPECT_EQ(columns(written(zlox_log(qsos))), "          |7    CW   |7    CW   |50   Other|50   Other|");
}

TEST(ZloFiles, CountModesAndBandsThatALaterLogCarriesOver) {
  const std::string bytes = zlox_log({{.band = 0, .mode = 0},
                                      {.band = 1, .mode = 1},
                                      {.band = 99, .mode = 2, .invalid = 1},
                                      {.band = 2, .mode = 4, .khz = "10100"},
                                      {.band = 99, .mode = 3, .khz = "21001"},
                                      {.band = 4, .mode = 5},
                                      {.band = 6, .mode = 2},
                                      {.band = 3, .mode = 5},
                                      {.band = 8, .mode = 7},
                                      {.band = 9, .mode = 0}});
  const ZloWritten found = written(bytes).found;
  const auto told = [](const Occurrences& some) { return std::pair{some.count, some.first_line}; };
  EXPECT_EQ(told(found.unnamed_mode), std::pair(std::int64_t{4}, std::size_t{6}));
  EXPECT_EQ(told(found.unnamed_band), std::pair(std::int64_t{3}, std::size_t{6}));
  EXPECT_EQ(told(found.unnamed_frequency), std::pair(std::int64_t{2}, std::size_t{9}));
}

TEST(ZloFiles, PassOverInvalidQsosUnseen) {
  const ZloQsoSpec bad = {.day_count = 1e9, .rst_sent = 40000, .invalid = 255};
  const Written files = written(zlox_log({{}, bad, bad, {}, bad, {}}));
  EXPECT_EQ(files.all.size(), 1 + 3);
  EXPECT_EQ(files.jarl.size(), 2 + 3);
  const ZloCount& count = files.found.count;
  EXPECT_EQ(count.records, 6);
  EXPECT_EQ(count.qsos, 3);
  EXPECT_EQ(count.invalid.count, 3);
  EXPECT_EQ(count.invalid.first_line, 3);
  EXPECT_EQ(count.passed_over, (std::vector<std::uint16_t>{3, 4, 6}));
}

TEST(ZloFiles, TheTimeIsTheNearestSecondCutToTheMinute) {
  const double second = 1.0 / 86400, nan = std::numeric_limits<double>::quiet_NaN();
  const double first = -657434, end = 2958466;  // 0100-01-01, 10000-01-01
  struct Row {
    double days;
    std::string want;  ///< empty: an error
  };
  for (const Row& row :
       rows_of(Row{-0.25, "1899/12/29 18:00"}, Row{60, "1900/02/28 00:00"}, Row{61, "1900/03/01 00:00"},
               Row{45990 + 59.4 * second, "2025/11/29 00:00"}, Row{45990 + 59.6 * second, "2025/11/29 00:01"},
               Row{45990 - 0.4 * second, "2025/11/29 00:00"}, Row{45990 - 0.6 * second, "2025/11/28 23:59"},
               Row{45351.75, "2024/02/29 18:00"}, Row{first - 0.4 * second, "0100/01/01 00:00"},
               Row{first - second, ""}, Row{end - second, "9999/12/31 23:59"}, Row{end - 0.4 * second, ""},
               Row{nan, ""}, Row{1e300, ""}, Row{-1e300, ""})) {
    std::string time;
    const std::string error = error_text_of([&] {
      time = written(zlo_log({{}, {.day_count = row.days}})).all.back().substr(0, 16);
    });
    EXPECT_EQ(time, row.want) << row.days;
    EXPECT_EQ(error, row.want.empty() ? "log.ZLO: 3 番目のレコード の日時" : "") << row.days;
  }
}

TEST(ZloFiles, AReportBeyondFifteenBitsIsAnError) {
  for (const ZloQsoSpec& qso : {ZloQsoSpec{.rst_sent = 32768}, {.rst_rcvd = 65535}}) {
    const auto write = [&] { written(zlo_log({{}, qso})); };
    EXPECT_EQ(error_of(write), RunTimeError::overflow);
    EXPECT_EQ(error_text_of(write), "log.ZLO: 3 番目のレコード の RST");
  }
}

TEST(ZloLines, TheFrequencyStandsInFrontOfTheMemo) {
  for (const auto& [khz, memo, want] :
       texts_of<3>("7012.5||(7012)", "7012|ﾃｽﾄ|(7012) ﾃｽﾄ", "7012|a(b|a(b", "7012|)|(7012) )", "|memo|memo",
                   "||", "0||", "0.9|x|x", "000||", "00000070123||(7012)", "99999.9||(99999)", "100000||",
                   "-7012||", "+7012||", " 7012 ||(7012)", "7012.||(7012)", ".5||", ".||", "7012,5||",
                   "7.012.5||", "7012.5k||", "QRG||", "70 12||")) {
    const Written files = written(zlox_log({{.memo = memo, .khz = khz}}));
    EXPECT_EQ(files.all.back().substr(79), want) << khz << " " << memo;
  }
}

TEST(ZloLines, OperatorAndMemoEndWithTheirRoom) {
  const std::string memo(67, 'm');
  const std::vector<ZloQsoSpec> qsos = {{.op = "operator.of.14", .memo = memo}};
  EXPECT_EQ(written(zlo_log(qsos)).all.back().substr(79), "%%operator.of.14%%" + memo);
  EXPECT_EQ(written(zlox_log(qsos)).all.back().substr(79), "%%operator.of.14%%" + memo.substr(3));
}

}  // namespace
}  // namespace varnisto::test
