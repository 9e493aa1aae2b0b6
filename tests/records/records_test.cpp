#include <gtest/gtest.h>

#include "records/fields_table.h"
#include "records/zlo_reader.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/temp_dir.h"
#include "support/zlo_log.h"

namespace varnisto::test {
namespace {

TEST(Records, CountIsLengthByRecordRoundedHalfToEven) {
  struct Row {
    std::size_t length, size, count;
  };
  for (const Row& row : rows_of(Row{0, 33, 0}, Row{16, 33, 0}, Row{17, 33, 1}, Row{49, 33, 1}, Row{50, 33, 2},
                                Row{13, 26, 0}, Row{39, 26, 2}, Row{65, 26, 2}, Row{66, 26, 3})) {
    SCOPED_TRACE(row.length);
    RecordReader reader = RecordReader::from_bytes(std::string(row.length, 'x'));
    std::string_view record;
    std::string bytes;
    while (reader.next(row.size, record)) bytes += record;
    EXPECT_FALSE(reader.next(row.size, record));
    EXPECT_EQ(reader.number(), row.count);
    EXPECT_EQ(reader.rest(), row.length % row.size);
    std::string filled(row.length, 'x');  // what the last record lacks are zeros
    filled.resize(row.count * row.size);
    EXPECT_EQ(bytes, filled);
  }
}

TEST(Records, UpTo32767AreReadFromAFileOverTheEndOfTheBuffer) {
  const TempDir folder;
  std::string bytes;
  for (int i = 1; i <= 32768; ++i) bytes += std::to_string(1000000 + i);
  RecordReader reader{folder.write("LOG.BIN", bytes)};
  std::string_view record;
  for (std::size_t i = 0; i < most_records; ++i) {
    ASSERT_TRUE(reader.next(7, record));
    ASSERT_EQ(record, bytes.substr(i * 7, 7));
  }
  EXPECT_EQ(error_text_of([&] { reader.next(7, record); }), folder.path() + "LOG.BIN: 32768 番目のレコード");
  EXPECT_EQ(error_of([&] { reader.next(7, record); }), RunTimeError::overflow);
}

TEST(ZloReader, TellsTheKindByExtensionAndLetters) {
  struct Row {
    const char* name;
    std::string bytes;
    std::size_t record_size;
  };
  const std::string bare = zlox_log({}, {.letters = false});
  for (const Row& row :
       rows_of(Row{"a.zlo", zlo_log({}), 256}, Row{"a.ZLO", zlox_log({}), 384}, Row{"a.zLoX", bare, 384},
               Row{"ZLOX.ZLO", bare, 256}, Row{"a.ZLO", "ZLO", 256}, Row{"a.ZLO", "ZLOY", 256}))
    EXPECT_EQ(ZloReader{RecordReader::from_bytes(row.bytes, row.name)}.layout().record_size, row.record_size)
        << row.name;
}

TEST(ZloReader, ALogHoldsAZeroByteOrNothing) {
  const TempDir dir;
  const std::string text(5000, 'x');
  EXPECT_TRUE(is_no_binary_log(dir.write("text.ZLO", text)));
  EXPECT_FALSE(is_no_binary_log(dir.write("late.ZLO", text + std::string(1, '\0'))));
  EXPECT_FALSE(is_no_binary_log(dir.write("empty.ZLO", "")));
}

TEST(ZloRecords, NameModesAndBandsByCode) {
  std::string zlo, zlox, bands;
  for (unsigned code = 0; code < 256; ++code) {
    const auto byte = static_cast<std::uint8_t>(code);
    zlo.append(zlo_mode(zlo_layout, byte)).append("|");
    zlox.append(zlo_mode(zlox_layout, byte)).append("|");
    bands.append(zlo_band(byte)).append("|");
  }
  EXPECT_EQ(zlo, "CW|SSB|FM|AM|RTY|Other|" + std::string(250, '|'));
  EXPECT_EQ(zlox, "CW|SSB|FM|AM|RTY|||Other|" + std::string(248, '|'));
  EXPECT_EQ(bands, "1.9|3.5|7|10|14|18|21|24|28|50|144|430|1200|2400|5600|10G|" + std::string(240, '|'));
}

TEST(FieldsTable, DropsHalfACharacter) {
  for (const auto& [bytes, want] : texts_of<2>(
           "|", "QX1|QX1", "\x83\x5C|\x83\x5C", "a\x83|a", "\x83\x5C\x83|\x83\x5C", "\x83\x83|\x83\x83",
           "\x83\x83\x83|\x83\x83", "\xB6\xE0|\xB6", "\x9F|", "\xFC|", "\xA0|\xA0", "\xFD|\xFD", "\x80|\x80",
           "\x83\x20\x83|\x83\x20", "\x81\x40\x81|\x81\x40", "\xE0\xFC|\xE0\xFC", "\x83\x7F\x83|\x83\x7F"))
    EXPECT_EQ(without_half_character(bytes), want);
}

TEST(FieldsTable, RefusesATableWithAMistake) {
  using Head = ZloHeadRecord;
  constexpr auto fits = [](const auto&... fields) { return fields_fit(std::tuple{fields...}, 10); };
  EXPECT_TRUE(fits(Field{&Head::qso_count, 2, 4}, Field{&Head::call, 6, 4, FieldKind::text}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 3}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 7, 4}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 4, FieldKind::text}));
  EXPECT_FALSE(fits(Field{&Head::qso_count, 2, 4}, Field{&Head::call, 5, 4, FieldKind::text}));
}

}  // namespace
}  // namespace varnisto::test
