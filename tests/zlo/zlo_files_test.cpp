#include "zlo/zlo_files.h"

#include <gtest/gtest.h>
#include <limits>

#include "support/errors.h"
#include "support/rows.h"
#include "zlo/zlo_lines.h"
#include "zlo/zlo_test_support.h"

namespace varnisto::test {
namespace {

using Lines = std::vector<std::string>;

const std::vector<ZloQsoSpec> mixed_log = {{.day_count = day_count(1999, 11, 6, 15, 2),
                                            .call = "QX1ABC",
                                            .sent = "100H",
                                            .rcvd = "25",
                                            .band = 4,
                                            .multi1 = "25",
                                            .tx = 1},
                                           {.day_count = day_count(2025, 11, 29, 23, 59, 59.4),
                                            .call = "QX9DEF/1",
                                            .sent = "12345678X",
                                            .rcvd = "東京都",
                                            .band = 12,
                                            .mode = 1,
                                            .rst_sent = 59,
                                            .rst_rcvd = 57,
                                            .points = 12,
                                            .op = "山田太郎",
                                            .memo = "表示ソ能 ﾃｽﾄ",
                                            .tx = 12},
                                           {.day_count = day_count(2025, 11, 30, 0, 0),
                                            .call = "QX2GHI/QRP/P",
                                            .sent = "",
                                            .rcvd = "1",
                                            .band = 15,
                                            .mode = 4,
                                            .rst_sent = 32767,
                                            .rst_rcvd = 0,
                                            .multi1 = "ABCDEFGHI",
                                            .multi2 = "-",
                                            .points = 255},
                                           {.day_count = -657434 - 0.4 / 86400,
                                            .call = "QX\t9\x1A",
                                            .band = 0,
                                            .mode = 5,
                                            .multi1 = "-",
                                            .multi2 = "奈良県東部方面",
                                            .op = "\x01",
                                            .memo = "a\r\nb\x7F\tc"}};

TEST(ZloFiles, WriteTheTextLogAndTheLogSheet) {
  const Written files = written(zlo_log(mixed_log), {.transmitter = true});
  EXPECT_EQ(files.all,
            (Lines{"zLog for Windows       by Varnisto 3.09",
                   //        1         2         3         4         5         6         7         8
                   // 2345678901234567890123456789012345678901234567890123456789012345678901234567890123456
                   "1999/11/06 15:02 QX1ABC       599 100H    599 25      25    -     14   CW   1  TX#1  ",
                   "2025/11/29 23:59 QX9DEF/1     59  1234567857  東京都     -     -     1200 SSB  12 "
                   "%%山田太郎%%TX#12  表示ソ能 ﾃｽﾄ",
                   "2025/11/30 00:00 QX2GHI/QRP/P 3276        0   1       ABCDEF-     10G  RTY  255TX#0  ",
                   "0100/01/01 00:00 QX 9         599 25      599 14      -     奈良県東部方1.9  Other1  "
                   "%% %%TX#0  a  b  c"}));
  EXPECT_EQ(
      files.jarl,
      (Lines{
          "<LOGSHEET TYPE=zLog>",
          "DATE (JST) TIME   BAND MODE  CALLSIGN      SENTNo      RCVDNo      Mlt    Pts   by Varnisto 3.09",
          "1999-11-06 15:02   14  CW    QX1ABC        599 100H    599 25      25      1",
          "2025-11-29 23:59 1200  SSB   QX9DEF/1      59  1234567 57  東京都     -        12",
          "2025-11-30 00:00  10G  RTTY  QX2GHI/QRP/P  327         0   1       ABCDEFG 255",
          "0100-01-01 00:00  1.9  Other QX 9          599 25      599 14      -       1"}));
}

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
    EXPECT_EQ(files.all.size(), 1) << bytes.size();
    EXPECT_EQ(files.jarl.size(), 2) << bytes.size();
    EXPECT_EQ(files.found.count.qsos, 0) << bytes.size();
  }
}

TEST(ZloFiles, ZloAndZloxLogsOfOneListAreTheSame) {
  std::vector<ZloQsoSpec> qsos = mixed_log;
  qsos.pop_back();
  EXPECT_EQ(written(zlo_log(qsos)).all, written(zlox_log(qsos)).all);
  EXPECT_EQ(written(zlo_log(qsos)).jarl, written(zlox_log(qsos)).jarl);
}

/// Band and mode columns of the text log's QSOs.
std::string columns_of(const Written& files) {
  std::string columns;
  for (std::size_t i = 1; i < files.all.size(); ++i) columns += files.all[i].substr(66, 10) + "|";
  return columns;
}

TEST(ZloFiles, ACodeOutsideTheTablesKeepsTheTextBefore) {
  const std::vector<ZloQsoSpec> qsos = {{.band = 16, .mode = 6},
                                        {.band = 2, .mode = 0},
                                        {.band = 255, .mode = 255},
                                        {.band = 9, .mode = 7},
                                        {.band = 17, .mode = 5}};
  EXPECT_EQ(columns_of(written(zlo_log(qsos))), "          |7    CW   |7    CW   |50   CW   |50   Other|");
  EXPECT_EQ(columns_of(written(zlox_log(qsos))), "          |7    CW   |7    CW   |50   Other|50   Other|");
}

struct KeptCase {
  Choices choices;
  std::int64_t modes;
  std::size_t first_mode;
  std::int64_t bands;
  std::size_t first_band;
};

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
  for (const KeptCase& row : rows_of(KeptCase{{}, 4, 6, 3, 6}, KeptCase{{.rtty = true}, 0, 0, 3, 6},
                                     KeptCase{{.memo_frequency = true}, 4, 6, 2, 9})) {
    const ZloWritten found = written(bytes, row.choices).found;
    EXPECT_EQ(found.mode_kept.count, row.modes);
    EXPECT_EQ(found.mode_kept.first_line, row.first_mode);
    EXPECT_EQ(found.band_kept.count, row.bands);
    EXPECT_EQ(found.band_kept.first_line, row.first_band);
  }
}

TEST(ZloFiles, PassOverInvalidQsosUnseen) {
  const double no_date = std::numeric_limits<double>::quiet_NaN();
  const ZloQsoSpec good = {.day_count = 45990};
  const ZloQsoSpec bad = {.day_count = no_date, .rst_sent = 40000, .invalid = 255};
  const Written files = written(zlox_log({good, bad, bad, good, bad, good}));
  EXPECT_EQ(files.all.size(), 1 + 3);
  EXPECT_EQ(files.jarl.size(), 2 + 3);
  const ZloCount& count = files.found.count;
  EXPECT_EQ(count.records, 6);
  EXPECT_EQ(count.qsos, 3);
  EXPECT_EQ(count.invalid.count, 3);
  EXPECT_EQ(count.invalid.first_line, 3);
  EXPECT_EQ(count.record_of_line(2), 2);
  EXPECT_EQ(count.record_of_line(3), 5);
  EXPECT_EQ(count.record_of_line(4), 7);
}

TEST(ZloFiles, AnErrorNamesTheRecord) {
  const ZloQsoSpec good = {.day_count = 45990};
  struct Case {
    ZloQsoSpec qso;
    std::string what;
  };
  for (const Case& row : rows_of(Case{{.day_count = 1e9}, "日時"}, Case{{.day_count = -657435}, "日時"},
                                 Case{{.rst_sent = 32768}, " RST"}, Case{{.rst_rcvd = 65535}, " RST"})) {
    const auto write = [&] { written(zlo_log({good, row.qso})); };
    EXPECT_EQ(error_of(write), RunTimeError::overflow);
    EXPECT_EQ(error_text_of(write), "log.ZLO: 3 番目のレコード の" + row.what);
  }
}

TEST(ZloLines, TheFrequencyStandsInFrontOfTheMemo) {
  for (const auto& [khz, memo, want] :
       texts_of<3>("7012.5||(7012)", "7012|ﾃｽﾄ|(7012) ﾃｽﾄ", "7012|a(b|a(b", "7012|)|(7012) )", "|memo|memo",
                   "||", "0||", "0.9|x|x", "000||", "00000007||(7)", "99999.9||(99999)", "100000||",
                   "-7012||", "+7012||", " 7012 ||(7012)", "7012.||(7012)", ".5||", ".||", "7012,5||",
                   "7.012.5||", "7012.5k||", "QRG||", "70 12||")) {
    const Written files = written(zlox_log({{.day_count = 45990, .memo = memo, .khz = khz}}));
    EXPECT_EQ(files.all.back().substr(79), want) << khz << " " << memo;
  }
}

TEST(ZloLines, TheFirstQsoMayBeAllZeros) {
  const ZloQsoSpec zeros = {.day_count = 25569, .rst_sent = 0, .rst_rcvd = 0, .points = 0};
  const Written files = written(zlo_log({zeros}), {.transmitter = true});
  EXPECT_EQ(files.all.back(),
            "1970/01/01 00:00 QX9DEF       0   25      0   14      -     -     1.9  CW   0  TX#0  ");
}

TEST(ZloLines, ATextCutWithinACharacterLosesIt) {
  // 9 bytes of the number are four characters and a half.
  const Written files = written(zlo_log({{.day_count = 45990, .sent = "漢字仮名文字", .op = "o"}}));
  EXPECT_EQ(files.all.back(),
            "2025/11/29 00:00 QX9DEF       599 漢字仮名    599 14      -     -     1.9  CW   1  %%o%%");
}

}  // namespace
}  // namespace varnisto::test
