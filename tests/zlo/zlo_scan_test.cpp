#include "zlo/zlo_scan.h"

#include <gtest/gtest.h>

#include "support/rows.h"
#include "support/temp_dir.h"
#include "zlo/zlo_head.h"
#include "zlo/zlo_test_support.h"

namespace varnisto::test {
namespace {

TEST(ZloScan, GuessesModeAndBand) {
  struct Row {
    std::vector<std::pair<int, int>> band_mode;  ///< codes
    int mode_sel, band_sel;
    bool lowband;
    bool rtty = false;
  };
  for (const Row& row :
       rows_of(Row{{}, 0, 0, false}, Row{{{0, 0}}, 2, 1, true}, Row{{{1, 1}}, 1, 2, true},
               Row{{{2, 4}}, 3, 3, true}, Row{{{4, 2}}, 0, 4, false}, Row{{{6, 0}, {6, 1}}, 0, 5, false},
               Row{{{8, 0}, {8, 7}}, 2, 6, false}, Row{{{4, 0}, {6, 0}}, 2, 0, false},
               Row{{{4, 0}, {2, 4}}, 0, 0, true}, Row{{{4, 1}, {4, 4}}, 0, 4, false},
               // 50 MHz counts with the band before, 10 MHz nowhere and with what follows it
               Row{{{4, 0}, {9, 0}}, 2, 4, false}, Row{{{4, 0}, {3, 0}, {9, 0}}, 2, 4, false},
               Row{{{9, 0}}, 2, 0, false}, Row{{{255, 255}}, 0, 0, false}, Row{{{2, 0}, {5, 1}}, 0, 3, true},
               Row{{{4, 0}, {4, 1}}, 3, 4, false, true})) {
    SCOPED_TRACE(testing::PrintToString(row.band_mode));
    std::vector<ZloQsoSpec> qsos = {};
    for (const auto& [band, mode] : row.band_mode)
      qsos.push_back({.day_count = 1e9, .band = band, .mode = mode});
    ZloReader log = reader_of(zlo_log(qsos));
    ScanState scan;
    scan_zlo(log, row.rtty).tell(scan);
    EXPECT_EQ(option_of(scan.mode_sel), row.mode_sel);
    EXPECT_EQ(option_of(scan.band_sel), row.band_sel);
    EXPECT_EQ(scan.lowband, row.lowband);
  }
}

TEST(ZloScan, CountsAnUnknownModeWithTheOneBefore) {
  ZloReader log = reader_of(zlox_log({{.mode = 0},
                                      {.mode = 6},
                                      {.mode = 1},
                                      {.mode = 2},
                                      {.mode = 4},
                                      {.mode = 5},
                                      {.mode = 0, .invalid = 1},
                                      {.mode = 9}}));
  const ScanCounts scan = scan_zlo(log, false);
  EXPECT_EQ((std::vector{scan.cw, scan.ssb, scan.rtty, scan.bands[0]}), (std::vector{2, 1, 3, 7}));
}

TEST(ZloScan, FindsTheHighestPower) {
  struct Row {
    std::vector<std::string> sent;
    std::string want;
  };
  for (const Row& row :
       rows_of(Row{{"100", "5", "1K"}, "1K"}, Row{{"5"}, "5"}, Row{{}, "0"}, Row{{"0", "none"}, "0"},
               Row{{" 100W ", "100X"}, "100W"}, Row{{"kw", "1000"}, "kw"}, Row{{"0.4", "0.6"}, "0.6"},
               Row{{"ケ", "5"}, "5"}, Row{{"12345678K"}, "12345678K"}, Row{{"123456789K"}, "123456789"})) {
    std::vector<ZloQsoSpec> qsos = {};
    for (const std::string& sent : row.sent) qsos.push_back({.sent = sent});
    ZloReader log = reader_of(zlo_log(qsos));
    EXPECT_EQ(highest_zlo_power(log), row.want);
  }
}

TEST(ZloHead, IsTrimmedAndDecoded) {
  for (const auto& [title, want] :
       texts_of<2>(" CQ WPX Contest |CQ WPX Contest", "|", "  |", "全市全郡コンテスト|全市全郡コンテスト",
                   "CQWW160|CQWW160 Contest", "2025 CQWW160 SSB|CQWW160 Contest", "CQWW 160|CQWW 160")) {
    ZloReader log = reader_of(zlo_log({}, {.call = " QX1ABC/1/2 ", .title = title}));
    const ZloHead head = read_zlo_head(log);
    EXPECT_EQ(head.call, "QX1ABC/1/2");
    EXPECT_EQ(head.title, want);
    EXPECT_EQ(head.titled, !title.empty());
    EXPECT_EQ(head.qso_count, std::nullopt);
  }
}

TEST(ZloHead, TellsUtcAndTheLoggersCount) {
  for (const int offset : {-540, 32766, 32767}) {
    ZloReader log = reader_of(zlox_log({{}, {}}, {.utc_offset = offset, .count_error = 5}));
    const ZloHead head = read_zlo_head(log);
    EXPECT_EQ(head.utc, offset == 32767);
    EXPECT_EQ(head.qso_count, 7);
  }
  ZloReader empty = reader_of("");
  EXPECT_EQ(read_zlo_head(empty).title, "");
}

TEST(ZloHead, ATextFileIsNoLog) {
  const TempDir dir;
  EXPECT_EQ(why_no_zlo_log(dir.write("a.ZLO", "zLog for Windows ")), "zLog の ZLO ファイルではありません。");
  EXPECT_EQ(why_no_zlo_log(dir.write("b.ZLO", zlo_log({}))), "");
}

TEST(ZloHead, TheMessageBoxShowsContestAndScore) {
  EXPECT_EQ(zlo_found_text("CQ WPX", "123"), "取得 ｺﾝﾃｽﾄ 名 ： CQ WPX\r\nTotal score   :  123");
  EXPECT_EQ(zlo_found_text("JIDX Contest", ""),
            "取得 ｺﾝﾃｽﾄ 名 ： JIDX Contest\r\nTotal score   :  \r\n"
            "                 High Power(出力100wを超える局),\r\n"
            "                 Low Power(出力100w以下の局)");
}

}  // namespace
}  // namespace varnisto::test
