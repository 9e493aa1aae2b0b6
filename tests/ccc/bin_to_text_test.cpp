#include "ccc/bin_to_text.h"

#include <gtest/gtest.h>

#include "support/ccc_log.h"
#include "support/line_list.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

/// The lines that are made of a binary log, without the first one.
struct Made {
  std::vector<std::string> lines;
  CccBinCounts counts;

  /// The text of some columns (from 1) of each line.
  std::string column(std::size_t first, std::size_t width) const {
    std::string all;
    for (const std::string& line : lines) all.append("[").append(mid(line, first, width)).append("]");
    return all;
  }
};

Made made(const std::string& key, const CccKind& kind, const std::vector<CccLogQso>& qsos,
          std::optional<std::string> fixed_power = std::nullopt) {
  const CccContest& contest = *ccc_contest_of(key);
  const std::size_t size = contest.layout->sizes.front();
  RecordReader log = RecordReader::from_bytes(ccc_log(kind, size, qsos));
  LineList text;
  const CccBinCounts counts = put_ccc_text(log, size, contest, std::move(fixed_power), "3.09", text);
  return {{text.lines.begin() + 1, text.lines.end()}, counts};
}
Made cqww(const std::vector<CccLogQso>& qsos) {
  return made("CQWW ", ccc_cqww_jidx, qsos);
}
Made arrldx(const std::vector<CccLogQso>& qsos, std::optional<std::string> fixed_power = std::nullopt) {
  return made("ARRLD", ccc_arrldx, qsos, std::move(fixed_power));
}

TEST(CccBinToText, NumbersFillTheirColumns) {
  const Made times = cqww({{.month = 3, .day = 7, .time = 905, .points = 0},
                           {.month = 200, .day = 131, .time = 65535, .points = 255}});
  EXPECT_EQ(times.column(1, 13), "[03 07  0905  ][00 31  5535  ]");
  EXPECT_EQ(times.column(56, 9), "[0][255]");
  EXPECT_EQ(made("CQWPX", ccc_cqwpx, {{.serial = 5}, {.serial = 999}, {.serial = 1000}, {.serial = 65535}})
                .column(40, 9),
            "[005    59][999    59][1000   59][65535  59]");
}

TEST(CccBinToText, UnknownCodesKeepThePreviousRecordsTexts) {
  const std::vector<CccLogQso> qsos = {{.band = 6, .mode = 2},
                                       {.band = 9, .mode = 1},
                                       {.band = 0, .mode = 2},
                                       {.band = 255, .mode = 0},
                                       {.mode = 255}};
  const Made log = cqww(qsos);
  EXPECT_EQ(log.column(14, 5), "[     ][     ][160  ][160  ][40   ]");
  EXPECT_EQ(log.column(35, 5), "[     ][599  ][599  ][ 59  ][ 59  ]");
  EXPECT_EQ(log.counts.doubtful.count, 5);
  // They count for QSOs that are written: without a report there is no QSO line but in ARRL DX.
  struct Row {
    CccBinCounts counts;
    std::int64_t bands, modes;
    std::size_t first_band, first_mode;
  };
  for (const Row& row : rows_of(Row{log.counts, 2, 2, 2, 3}, Row{arrldx(qsos).counts, 3, 3, 1, 1})) {
    EXPECT_EQ(row.counts.band_kept.count, row.bands);
    EXPECT_EQ(row.counts.mode_kept.count, row.modes);
    EXPECT_EQ(row.counts.band_kept.first_line, row.first_band);
    EXPECT_EQ(row.counts.mode_kept.first_line, row.first_mode);
  }
}

TEST(CccBinToText, PowerComesFromItsCodeOrIsFixed) {
  std::vector<CccLogQso> qsos(13);
  for (unsigned i = 0; i < qsos.size(); ++i) qsos[i].power = i;
  qsos.front().power = 77;
  qsos[12].power = 0;
  const Made log = arrldx(qsos);
  EXPECT_EQ(log.column(40, 4),
            "[    ][2   ][5   ][10  ][20  ][25  ][50  ][100 ][200 ][500 ][KW  ][KW  ][1   ]");
  EXPECT_EQ(log.counts.power_kept.count, 2);
  EXPECT_EQ(log.counts.power_kept.first_line, 1U);
  const Made fixed = arrldx({{.power = 10}, {.power = 77}}, "100");
  EXPECT_EQ(fixed.column(40, 9), "[100    59][100    59]");
  EXPECT_EQ(fixed.counts.power_kept.count, 0);
  EXPECT_EQ(arrldx({{}}, "123456789").column(40, 10), "[1234567599]");
  EXPECT_EQ(arrldx({{}}, std::string(999, '\x80')).lines.size(), 1U);  // typed, but no text
}

TEST(CccBinToText, TextsLoseControlCharactersAndKeepTheirColumns) {
  struct Row {
    std::string call, columns;  ///< bytes of the record, columns 19 to 39
  };
  using namespace std::string_literals;
  for (const Row& row :
       rows_of(Row{"QX\0\t\r1\x7F"s, "QX   1          599  "}, Row{" QX9DEF ", " QX9DEF         599  "},
               Row{"\x8A\xBF\x8E\x9A\0"s, "漢字              599  "},
               Row{"ABCDEFGHI\x8A\xBF", "ABCDEFGHI       599  "},
               Row{"ABCDEFGH\x81\xAD", "ABCDEFGH        599  "}, Row{"\xB1\xB2", "ｱｲ              599  "}))
    EXPECT_EQ(cqww({{.call = row.call}}).column(19, 21), "[" + row.columns + "]");
  EXPECT_EQ(cqww({{.exchange = "1\0\0\x8A"s, .new_mult = 1, .mult = "\x8A\xBF   \x81"}}).column(40, 17),
            "[1   1   漢       1]");
}

TEST(CccBinToText, ImpossibleTimesAreCounted) {
  struct Row {
    CccLogQso qso;
    int doubtful;
  };
  for (const Row& row :
       rows_of(Row{{.month = 1, .day = 1, .time = 0}, 0}, Row{{.month = 12, .day = 31, .time = 2359}, 0},
               Row{{.month = 0}, 1}, Row{{.month = 13}, 1}, Row{{.day = 0}, 1}, Row{{.day = 32}, 1},
               Row{{.time = 2400}, 1}, Row{{.time = 1260}, 1}, Row{{.band = 6}, 1}, Row{{.mode = 2}, 1})) {
    const Occurrences doubtful = cqww({{}, row.qso}).counts.doubtful;
    EXPECT_EQ(doubtful.count, row.doubtful);
    EXPECT_EQ(doubtful.first_line, row.doubtful == 0 ? 0U : 2U);
  }
}

}  // namespace
}  // namespace varnisto::test
