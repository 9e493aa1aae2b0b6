#include "ccc/bin_to_text.h"

#include <gtest/gtest.h>

#include "support/ccc_log.h"
#include "support/line_list.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

/// Binary logs and the lines that are made of them.
struct Made {
  std::vector<std::string> lines;  ///< without the first one
  CccBinCounts counts;
};

Made made(const std::string& key, CccKind kind, const std::vector<CccLogQso>& qsos,
          std::optional<std::string> fixed_power = std::nullopt) {
  const CccContest& contest = *ccc_contest_of(key);
  const std::size_t size = contest.layout->sizes.front();
  CccRecordReader log = CccRecordReader::from_bytes(ccc_log(kind, size, qsos), size);
  LineList text;
  Made result;
  result.counts = put_ccc_text(log, contest, std::move(fixed_power), "3.09", text);
  result.lines.assign(text.lines.begin() + 1, text.lines.end());
  return result;
}
Made cqww(const std::vector<CccLogQso>& qsos) {
  return made("CQWW ", CccKind::cqww_jidx, qsos);
}
Made arrldx(const std::vector<CccLogQso>& qsos, std::optional<std::string> fixed_power = std::nullopt) {
  return made("ARRLD", CccKind::arrldx, qsos, std::move(fixed_power));
}
/// The text of some columns (from 1) of each line.
std::string column(const Made& log, std::size_t first, std::size_t width) {
  std::string all;
  for (const std::string& line : log.lines) all.append("[").append(mid(line, first, width)).append("]");
  return all;
}

TEST(CccBinToText, NumbersFillTheirColumns) {
  EXPECT_EQ(
      column(cqww({{.month = 3, .day = 7, .time = 905}, {.month = 200, .day = 131, .time = 65535}}), 1, 13),
      "[03 07  0905  ][00 31  5535  ]");
  EXPECT_EQ(column(cqww({{.points = 0}, {.points = 255}}), 56, 9), "[0][255]");
  EXPECT_EQ(column(made("CQWPX", CccKind::cqwpx,
                        {{.serial = 5}, {.serial = 999}, {.serial = 1000}, {.serial = 65535}}),
                   40, 9),
            "[005    59][999    59][1000   59][65535  59]");
}

TEST(CccBinToText, UnknownCodesKeepThePreviousRecordsTexts) {
  const Made log =
      cqww({{.band = 6, .mode = 1}, {.band = 0, .mode = 2}, {.band = 255, .mode = 0}, {.mode = 255}});
  EXPECT_EQ(column(log, 14, 5), "[     ][160  ][160  ][40   ]");
  EXPECT_EQ(column(log, 35, 5), "[599  ][599  ][ 59  ][ 59  ]");
  EXPECT_EQ(log.counts.band_kept.count, 2);
  EXPECT_EQ(log.counts.band_kept.first_line, 1U);
  EXPECT_EQ(log.counts.mode_kept.count, 2);
  EXPECT_EQ(log.counts.mode_kept.first_line, 2U);
  EXPECT_EQ(log.counts.doubtful.count, 4);
}

TEST(CccBinToText, KeptCodesCountForQsosThatAreWritten) {
  // Without a report there is no QSO line but in ARRL DX.
  const std::vector<CccLogQso> qsos = {{.band = 9, .mode = 9}, {.band = 9, .mode = 1}};
  const Made iaru = made("IARU ", CccKind::iaru, qsos);
  EXPECT_EQ(column(iaru, 35, 5) + column(iaru, 47, 5), "[     ][599  ][     ][599  ]");
  EXPECT_EQ(iaru.counts.mode_kept.count, 0);
  EXPECT_EQ(iaru.counts.band_kept.count, 1);
  EXPECT_EQ(iaru.counts.band_kept.first_line, 2U);
  const Made ardx = arrldx(qsos);
  EXPECT_EQ(ardx.counts.mode_kept.count, 1);
  EXPECT_EQ(ardx.counts.band_kept.count, 2);
}

TEST(CccBinToText, PowerComesFromItsCodeOrIsFixed) {
  std::vector<CccLogQso> qsos(13);
  for (unsigned i = 0; i < qsos.size(); ++i) qsos[i].power = i;
  qsos.front().power = 77;
  qsos[12].power = 0;
  const Made log = arrldx(qsos);
  EXPECT_EQ(column(log, 40, 4),
            "[    ][2   ][5   ][10  ][20  ][25  ][50  ][100 ][200 ][500 ][KW  ][KW  ][1   ]");
  EXPECT_EQ(log.counts.power_kept.count, 2);
  EXPECT_EQ(log.counts.power_kept.first_line, 1U);
  const Made fixed = arrldx({{.power = 10}, {.power = 77}}, "100");
  EXPECT_EQ(column(fixed, 40, 9), "[100    59][100    59]");
  EXPECT_EQ(fixed.counts.power_kept.count, 0);
  EXPECT_EQ(column(arrldx({{}}, "123456789"), 40, 10), "[1234567599]");
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
               Row{"ABCDEFGH\x81\xAD", "ABCDEFGH        599  "}, Row{"\xB1\xB2", "ｱｲ              599  "})) {
    SCOPED_TRACE(row.columns);
    EXPECT_EQ(column(cqww({{.call = row.call}}), 19, 21), "[" + row.columns + "]");
  }
  const Made log = cqww({{.exchange = "1\0\0\x8A"s, .new_mult = 1, .mult = "\x8A\xBF   \x81"}});
  EXPECT_EQ(column(log, 40, 17), "[1   1   漢       1]");
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
    const Made log = cqww({{}, row.qso});
    EXPECT_EQ(log.counts.doubtful.count, row.doubtful);
    EXPECT_EQ(log.counts.doubtful.first_line, row.doubtful == 0 ? 0U : 2U);
  }
}

TEST(CccBinToText, AnotherContestsLogIsDoubtfulThroughout) {
  const std::vector<CccLogQso> qsos(200);
  const std::string bytes = ccc_log(CccKind::cqww_jidx, 33, qsos);
  const CccContest& wpx = *ccc_contest_of("CQWPX");
  CccRecordReader log = CccRecordReader::from_bytes(bytes, 35);
  LineList text;
  const CccBinCounts counts = put_ccc_text(log, wpx, std::nullopt, "3.09", text);
  EXPECT_EQ(counts.records, 189U);
  EXPECT_EQ(counts.rest, 200U * 33 % 35);
  EXPECT_GT(counts.doubtful.count, 180);
  EXPECT_EQ(text.lines.size(), 190U);
}

}  // namespace
}  // namespace varnisto::test
