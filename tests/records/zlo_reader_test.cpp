#include "records/zlo_reader.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

#include "records/day_count.h"
#include "records/fields_table.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/temp_dir.h"
#include "support/zlo_log.h"

namespace varnisto::test {
namespace {

/// Every field holds something of its own.
const ZloQsoSpec full = {.day_count = 45990.25,
                         .call = "QX9DEF/QRP7X",
                         .sent = "123456789xyz",
                         .rcvd = "987654321xyz",
                         .band = 4,
                         .mode = 1,
                         .rst_sent = 0x0302,
                         .rst_rcvd = 0xF504,
                         .multi1 = "multi-1-of-thirty-characters..",
                         .multi2 = "multi-2-of-thirty-characters..",
                         .points = 253,
                         .op = "operator.of.14",
                         .memo = "memo " + std::string(59, 'm'),
                         .tx = 7,
                         .khz = "14012.5",
                         .invalid = 3};

ZloReader reader_of(const std::string& bytes, const std::string& name = "log.ZLO") {
  return ZloReader{RecordReader::from_bytes(bytes, name)};
}

TEST(ZloReader, TakesEveryFieldFromItsPlace) {
  for (const std::string& bytes : {zlo_log({full}), zlox_log({full})}) {
    const bool zlox = bytes.size() == 2 * 384;
    ZloReader log = reader_of(bytes);
    ZloQso qso;
    ASSERT_TRUE(log.next(qso));
    EXPECT_EQ(qso.day_count, full.day_count);
    EXPECT_EQ(qso.call, full.call);
    EXPECT_EQ(qso.sent_no, "123456789");
    EXPECT_EQ(qso.rcvd_no, "987654321");
    EXPECT_EQ(qso.rst_sent, 0x0302);
    EXPECT_EQ(qso.rst_rcvd, 0xF504);
    EXPECT_EQ(qso.mode_code, 1);
    EXPECT_EQ(qso.band_code, 4);
    EXPECT_EQ(qso.multi1, full.multi1);
    EXPECT_EQ(qso.multi2, full.multi2);
    EXPECT_EQ(qso.new_multi1, 1);
    EXPECT_EQ(qso.new_multi2, 1);
    EXPECT_EQ(qso.qso_pts, 253);
    EXPECT_EQ(qso.op_name, full.op);
    EXPECT_EQ(qso.memo, full.memo);
    EXPECT_EQ(qso.tx_num, 7);
    EXPECT_EQ(qso.khz, zlox ? full.khz : "");
    EXPECT_EQ(qso.invalid, zlox ? 3 : 0);
    EXPECT_FALSE(log.next(qso));
    EXPECT_EQ(log.number(), 2);
  }
}

TEST(ZloReader, TheMemoEndsWithItsRoom) {
  ZloQsoSpec spec = full;
  spec.memo = std::string(67, 'm');
  ZloQso qso;
  reader_of(zlo_log({spec})).next(qso);
  EXPECT_EQ(qso.memo.size(), 67);
  reader_of(zlox_log({spec})).next(qso);
  EXPECT_EQ(qso.memo.size(), 64);
}

TEST(ZloReader, ReadsTheHead) {
  ZloReader log = reader_of(zlox_log({full}, {.call = "QX1ABC/1", .title = "題名", .utc_offset = 32767}));
  const ZloHeadRecord head = log.head();
  EXPECT_EQ(head.letters, "ZLOX");
  EXPECT_EQ(head.qso_count, 1);
  EXPECT_EQ(head.call, "QX1ABC/1");
  EXPECT_EQ(head.utc_offset, log_is_utc);
  EXPECT_EQ(head.title, to_cp932("題名"));
  ZloQso qso;
  EXPECT_TRUE(log.next(qso));
}

TEST(ZloReader, TellsTheKindByExtensionAndLetters) {
  struct Case {
    const char* name;
    std::string bytes;
    std::size_t record_size;
  };
  const std::string bare = zlox_log({full}, {.letters = false});
  for (const Case& row : rows_of(Case{"a.zlo", zlo_log({full}), 256}, Case{"a.ZLO", zlox_log({full}), 384},
                                 Case{"a.zLoX", zlox_log({full}), 384}, Case{"a.ZLOX", bare, 384},
                                 Case{"ZLOX.ZLO", bare, 256}, Case{"a.ZLO", "ZLO", 256},
                                 Case{"a.ZLO", "ZLOY" + bare.substr(4), 256}, Case{"a.ZLO", "", 256}))
    EXPECT_EQ(reader_of(row.bytes, row.name).layout().record_size, row.record_size) << row.name;
}

TEST(ZloReader, CountsRecordsByRoundingTheLength) {
  struct Case {
    std::size_t records, bytes, qsos;
  };
  for (const Case& row :
       rows_of(Case{0, 0, 0}, Case{0, 128, 0}, Case{0, 129, 0}, Case{1, 0, 0}, Case{1, 127, 0},
               Case{1, 128, 1}, Case{2, 128, 1}, Case{2, 129, 2}, Case{11, 100, 10}, Case{11, 200, 11})) {
    std::string bytes = zlo_log(std::vector<ZloQsoSpec>(11, full));
    bytes.resize(row.records * 256 + row.bytes);
    ZloReader log = reader_of(bytes);
    ZloQso qso;
    std::size_t qsos = 0;
    while (log.next(qso)) ++qsos;
    EXPECT_EQ(qsos, row.qsos) << row.records << " and " << row.bytes;
  }
}

TEST(ZloReader, MissingBytesAreZeros) {
  std::string bytes = zlo_log({full, full});
  bytes.resize(2 * 256 + 159);
  ZloReader log = reader_of(bytes);
  ZloQso qso;
  ASSERT_TRUE(log.next(qso) && log.next(qso));
  EXPECT_EQ(qso.multi2, full.multi2);
  EXPECT_EQ(qso.qso_pts, 0);
  EXPECT_TRUE(qso.op_name.empty() && qso.memo.empty());
}

/// Files are longer than the reader's buffer, so that records lie across its end.
TEST(ZloReader, ReadsUpTo32767RecordsOfAFile) {
  const TempDir dir;
  const std::string path = dir.write("full.zlox", zlox_log(std::vector<ZloQsoSpec>(32766, full)));
  ZloReader log{path};
  ZloQso qso;
  std::size_t qsos = 0;
  for (; log.next(qso); ++qsos) ASSERT_EQ(qso.op_name, full.op) << qsos;
  EXPECT_EQ(qsos, 32766);

  ZloReader longer{dir.write("over.zlo", zlo_log(std::vector<ZloQsoSpec>(32767, full)))};
  const auto read_all = [&] {
    while (longer.next(qso)) continue;
  };
  EXPECT_EQ(error_text_of(read_all), dir.path() + "over.zlo: 32768 番目のレコード");
  EXPECT_EQ(longer.number(), 32768);
}

TEST(ZloReader, ALogHoldsAZeroByteOrNothing) {
  const TempDir dir;
  const std::string text(5000, 'x');
  EXPECT_TRUE(is_no_binary_log(dir.write("text.ZLO", text)));
  EXPECT_FALSE(is_no_binary_log(dir.write("late.ZLO", text + std::string(1, '\0'))));
  EXPECT_FALSE(is_no_binary_log(dir.write("empty.ZLO", "")));
  EXPECT_EQ(error_of([&] { is_no_binary_log(dir.path() + "none.ZLO"); }), RunTimeError::file_not_found);
}

TEST(ZloRecords, NameModesAndBandsByCode) {
  const auto modes = [](const ZloLayout& layout) {
    std::string all;
    for (int code = 0; code < 256; ++code)
      all += std::string{zlo_mode(layout, static_cast<std::uint8_t>(code))} + "|";
    return all.substr(0, all.find_last_not_of('|') + 1);
  };
  EXPECT_EQ(modes(zlo_layout), "CW|SSB|FM|AM|RTY|Other");
  EXPECT_EQ(modes(zlox_layout), "CW|SSB|FM|AM|RTY|||Other");
  std::string bands;
  for (int code = 0; code < 256; ++code)
    bands += std::string{zlo_band(static_cast<std::uint8_t>(code))} + "|";
  EXPECT_EQ(bands, "1.9|3.5|7|10|14|18|21|24|28|50|144|430|1200|2400|5600|10G|" + std::string(240, '|'));
}

TEST(FieldsTable, DropsHalfACharacter) {
  struct Case {
    std::string bytes, want;
  };
  const std::string so = "\x83\x5C", katakana = "\xB6";
  for (const Case& row : rows_of(
           Case{"", ""}, Case{"QX1", "QX1"}, Case{so, so}, Case{"a\x83", "a"}, Case{so + "\x83", so},
           Case{"\x83\x83", "\x83\x83"}, Case{"\x83\x83\x83", "\x83\x83"}, Case{katakana + "\xE0", katakana},
           Case{"\x9F", ""}, Case{"\xFC", ""}, Case{"\xA0", "\xA0"}, Case{"\xFD", "\xFD"},
           Case{"\x80", "\x80"}, Case{"\x83\x20\x83", "\x83\x20"}, Case{"\x81\x40\x81", "\x81\x40"},
           Case{"\xE0\xFC", "\xE0\xFC"}, Case{"\x83\x7F\x83", "\x83\x7F"}))
    EXPECT_EQ(without_half_character(row.bytes), row.want);
}

TEST(FieldsTable, RefusesATableWithAMistake) {
  using Head = ZloHeadRecord;
  constexpr auto fits = [](const auto&... fields) { return fields_fit(std::tuple{fields...}, 10); };
  EXPECT_TRUE(fits(Field{&Head::qso_count, 2, 4}, Field{&Head::call, 6, 4, FieldKind::text}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 3}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 7, 4}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 4, FieldKind::text}));
  EXPECT_FALSE(fits(Field{&Head::call, 2, 4}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 4}, Field{&Head::call, 5, 4, FieldKind::text}));
}

std::string text_of(LogMinute minute) {
  const auto day = std::chrono::floor<std::chrono::days>(minute);
  const std::chrono::year_month_day date{day};
  const auto minutes = static_cast<int>((minute - day).count());
  std::array<char, 32> room{};
  std::snprintf(room.data(), room.size(), "%04d-%02u-%02u %02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), minutes / 60,
                minutes % 60);
  return room.data();
}

TEST(DayCount, IsTheNearestSecondCutToTheMinute) {
  const double second = 1.0 / 86400, nan = std::numeric_limits<double>::quiet_NaN();
  const double first = -657434, end = 2958466;  // 0100-01-01, 10000-01-01
  struct Case {
    double days;
    std::string want;
  };
  for (const Case& row : rows_of(
           Case{0, "1899-12-30 00:00"}, Case{36470 + 902.0 / 1440, "1999-11-06 15:02"},
           Case{-0.25, "1899-12-29 18:00"}, Case{60, "1900-02-28 00:00"}, Case{61, "1900-03-01 00:00"},
           Case{45990 + 59.4 * second, "2025-11-29 00:00"}, Case{45990 + 59.6 * second, "2025-11-29 00:01"},
           Case{45990 - 0.4 * second, "2025-11-29 00:00"}, Case{45990 - 0.6 * second, "2025-11-28 23:59"},
           Case{45351.75, "2024-02-29 18:00"}, Case{first, "0100-01-01 00:00"}, Case{first - second, ""},
           Case{end - second, "9999-12-31 23:59"}, Case{end - 0.4 * second, ""}, Case{end, ""}, Case{nan, ""},
           Case{1e300, ""}, Case{-1e300, ""})) {
    const auto minute = minute_of(row.days);
    EXPECT_EQ(minute ? text_of(*minute) : "", row.want) << row.days;
  }
}

}  // namespace
}  // namespace varnisto::test
