#include "records/ccc_record.h"

#include <gtest/gtest.h>

#include "records/ccc_record_reader.h"
#include "support/ccc_log.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

/// How many records a file of this many bytes has.
std::size_t record_count(std::size_t length, std::size_t record_size) {
  const std::string bytes(length, 'x');
  CccRecordReader reader = CccRecordReader::from_bytes(bytes, record_size);
  std::string_view record;
  while (reader.next(record)) EXPECT_EQ(record.size(), record_size);
  EXPECT_FALSE(reader.next(record));
  EXPECT_EQ(reader.rest(), length % record_size);
  return reader.number();
}

TEST(CccRecords, CountIsLengthByRecordRoundedHalfToEven) {
  struct Row {
    std::size_t length, size, count;
  };
  for (const Row& row :
       rows_of(Row{0, 33, 0}, Row{16, 33, 0}, Row{17, 33, 1}, Row{33, 33, 1}, Row{49, 33, 1}, Row{50, 33, 2},
               Row{66, 33, 2}, Row{13, 26, 0}, Row{39, 26, 2}, Row{65, 26, 2}, Row{66, 26, 3})) {
    SCOPED_TRACE(row.length);
    EXPECT_EQ(record_count(row.length, row.size), row.count);
  }
}

TEST(CccRecords, MissingBytesOfTheLastRecordAreZeros) {
  CccRecordReader reader = CccRecordReader::from_bytes("abcdefg", 4);
  std::string_view record;
  EXPECT_TRUE(reader.next(record));
  EXPECT_TRUE(reader.next(record));
  EXPECT_EQ(record, (std::string_view{"efg\0", 4}));
  EXPECT_EQ(reader.rest(), 3);
}

TEST(CccRecords, AreReadFromAFileOverTheEndOfTheBuffer) {
  std::vector<CccLogQso> qsos;
  for (unsigned i = 0; i < 5000; ++i) qsos.push_back({.time = i});
  const TempDir folder;
  CccRecordReader reader{folder.write("LOG.BIN", ccc_log(CccKind::cqwpx, 35, qsos)), 35};
  CccRecord rec;
  std::string_view record;
  for (const CccLogQso& qso : qsos) {
    ASSERT_TRUE(reader.next(record));
    read_ccc_record(record, ccc_serial_layout, rec);
    ASSERT_EQ(rec.hhmm, qso.time);
  }
  EXPECT_FALSE(reader.next(record));
  EXPECT_EQ(reader.rest(), 0);
}

TEST(CccRecords, ThereAreAtMost32767) {
  EXPECT_EQ(record_count(32767, 1), 32767);
  CccRecordReader reader = CccRecordReader::from_bytes(std::string(32768, 'x'), 1, "LOG.BIN");
  const auto read_all = [&] {
    for (std::string_view record; reader.next(record);) continue;
  };
  EXPECT_EQ(error_text_of(read_all), "LOG.BIN: 32768 番目の交信");
  EXPECT_EQ(error_of(read_all), RunTimeError::overflow);
}

TEST(CccRecords, TheSmallerSizeHoldsWhereItDividesTheLength) {
  EXPECT_EQ(ccc_record_size(ccc_iaru_layout, 702), 26);  // 26 records of 27 bytes too
  EXPECT_EQ(ccc_record_size(ccc_iaru_layout, 54), 27);
  EXPECT_EQ(ccc_record_size(ccc_power_layout, 52), 26);
  EXPECT_EQ(ccc_record_size(ccc_power_layout, 53), 27);
  EXPECT_EQ(ccc_record_size(ccc_zone_layout, 52), 33);
  EXPECT_EQ(ccc_record_size(ccc_serial_layout, 66), 35);
}

TEST(CccRecords, FieldsComeFromTheirPlacesInEveryLayout) {
  struct Row {
    CccKind kind;
    std::size_t size;
    const CccLayout* layout;
    std::string exchange, mult;
    unsigned serial, power;
  };
  const CccLogQso qso{12, 31, 2359, "QX9DEF/QRP", 5, 1, "1234567", 200, 255, "ABCDEFG", 65534, 10};
  for (const Row& row : rows_of(Row{CccKind::cqww_jidx, 33, &ccc_zone_layout, "1234", "ABCDEF", 0, 0},
                                Row{CccKind::cqwpx, 35, &ccc_serial_layout, "1234", "ABCDEF", 65534, 0},
                                Row{CccKind::iaru, 26, &ccc_iaru_layout, "12345", "", 0, 0},
                                Row{CccKind::arrldx, 27, &ccc_power_layout, "1234", "", 0, 10})) {
    SCOPED_TRACE(row.size);
    CccRecord rec;
    const std::string bytes = ccc_log(row.kind, row.size, {qso});
    read_ccc_record(bytes, *row.layout, rec);
    EXPECT_EQ((std::vector{rec.month, rec.day, rec.hhmm, rec.band, rec.mode, rec.points, rec.new_mult}),
              (std::vector{12U, 31U, 2359U, 5U, 1U, 200U, 255U}));
    EXPECT_EQ((std::vector{rec.sent_serial, rec.power}), (std::vector{row.serial, row.power}));
    EXPECT_EQ((std::vector{rec.call, rec.exchange, rec.mult_text}),
              (std::vector<std::string_view>{"QX9DEF/QRP", row.exchange, row.mult}));
  }
}

}  // namespace
}  // namespace varnisto::test
