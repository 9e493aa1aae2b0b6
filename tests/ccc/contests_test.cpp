// All five contests: a binary log, the text log that says the same QSOs, the work file and the tallies made
// of it.

#include <gtest/gtest.h>

#include "base/files.h"
#include "ccc/bin_to_text.h"
#include "ccc/category.h"
#include "ccc/convert.h"
#include "support/ccc_log.h"
#include "support/line_list.h"
#include "support/rows.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

struct Example {
  std::string folder, key;
  CccKind kind;
  std::vector<std::size_t> record_sizes;
  std::vector<CccLogQso> qsos;
  std::vector<int> bands;   ///< QSOs, points, first and second multipliers from 160 to 10 metres
  std::vector<int> totals;  ///< the same of all bands, score, QSOs in CW and SSB
};

const std::vector<Example> examples = {
    {"cqww",
     "CQWW ",
     ccc_cqww_jidx,
     {33},
     {{11, 29, 905, "QX9DEF", 2, 1, "14", 3, 1, "QX9"},
      {11, 29, 907, "QX5MNO/1", 3, 0, "25", 1, 0, "-"},
      {11, 30, 0, "QX8JKL", 0, 1, "3", 0, 0, "JA"},
      {11, 30, 1, "QX8JKL", 5, 1, "40", 2, 255, ""}},
     {1, 0, 0, 1, 0, 0, 0, 0, 1, 3, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 2, 1, 0},
     {4, 6, 2, 2, 24, 3, 1}},
    {"jidx",
     "JIDX ",
     ccc_cqww_jidx,
     {33},
     {{4, 12, 905, "QX9DEF", 2, 1, "4", 2, 1, "QX9"},
      {4, 12, 1200, "QX5MNO", 4, 0, "05", 4, 0, "W1"},
      {4, 13, 100, "QX1A", 1, 1, "03", 12, 1, "-"}},
     {0, 0, 0, 0, 1, 1, 1, 0, 1, 2, 1, 1, 0, 0, 0, 0, 1, 4, 0, 1, 0, 0, 0, 0},
     {3, 7, 2, 2, 28, 2, 1}},
    {"iaru",
     "IARU ",
     ccc_iaru,
     {26, 27},
     {{7, 13, 905, "QX9DEF", 2, 1, "28", 5, 1},
      {7, 13, 911, "QX5MNO/1", 3, 0, "NRRL", 12, 0},
      {7, 14, 0, "QX1ABCDEFG", 4, 1, "12345", 1, 1}},
     {0, 0, 0, 0, 0, 0, 0, 0, 1, 5, 1, 0, 1, 12, 0, 0, 1, 1, 1, 0, 0, 0, 0, 0},
     {3, 18, 2, 0, 36, 2, 1}},
    {"arrldx",
     "ARRLD",
     ccc_arrldx,
     {26, 27},
     {{2, 15, 905, "QX9DEF", 2, 1, "MA", 3, 1, "", 0, 7},
      {2, 15, 906, "QX5MNO", 3, 0, "CT", 3, 0, "", 0, 10},
      {2, 15, 907, "QX8JKL", 5, 1, "DC", 3, 1, "", 0, 2}},
     {0, 0, 0, 0, 0, 0, 0, 0, 1, 3, 1, 0, 1, 3, 0, 0, 0, 0, 0, 0, 1, 3, 1, 0},
     {3, 9, 2, 0, 18, 2, 1}},
    {"cqwpx",
     "CQWPX",
     ccc_cqwpx,
     {35},
     {{3, 28, 905, "QX9DEF", 2, 1, "0123", 6, 1, "QX9", 7},
      {3, 28, 906, "QX5MNO", 3, 0, "12", 1, 1, "-", 1000},
      {3, 29, 2359, "QX8JKL", 0, 1, "1", 0, 0, "QX8", 999}},
     {1, 0, 0, 0, 0, 0, 0, 0, 1, 6, 1, 0, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0},
     {3, 7, 2, 0, 14, 2, 1}},
};

class CccContests : public testing::TestWithParam<Example> {
 protected:
  static TextReader file(const std::string& name) {
    return TextReader{(source_dir("tests/data") / "ccc" / GetParam().folder / name).string()};
  }
  static std::vector<std::string> lines(const std::string& name) {
    TextReader reader = file(name);
    std::vector<std::string> all;
    for (std::string_view line; reader.next(line);) all.emplace_back(line);
    return all;
  }
  const CccContest& contest = *ccc_contest_of(GetParam().key);
};

TEST_P(CccContests, ABinaryLogGivesTheTextLogOfTheSameQsos) {
  for (const std::size_t size : GetParam().record_sizes) {
    const std::string bytes = ccc_log(GetParam().kind, size, GetParam().qsos);
    EXPECT_EQ(ccc_record_size(*contest.layout, bytes.size()), size);
    RecordReader log = RecordReader::from_bytes(bytes + "rest");
    LineList text;
    const CccBinCounts counts = put_ccc_text(log, size, contest, std::nullopt, "3.09", text);
    EXPECT_EQ(text.lines, lines("log.txt"));
    EXPECT_EQ(counts.records, GetParam().qsos.size());
    EXPECT_EQ(counts.doubtful.count + counts.band_kept.count + counts.mode_kept.count, 0);
    EXPECT_EQ(counts.power_kept.count, 0);
    EXPECT_EQ(counts.rest, 4U);
  }
}

TEST_P(CccContests, ATextLogGivesWorkFileAndTallies) {
  TextReader log = file("log.txt");
  LineList work;
  const std::string number = GetParam().key == "JIDX " ? "13" : "KW";
  const CccResult result = convert_ccc(log, contest, {.number = number}, &work);
  EXPECT_EQ(ccc_contest_of(ccc_contest_name(lines("log.txt").front()).substr(0, 5)), &contest);
  EXPECT_EQ(work.lines, lines("work.txt"));
  EXPECT_EQ(result.qsos, work.lines.size());
  std::vector<int> bands;
  for (const CccBandTally& band : result.tally.bands)
    bands.insert(bands.end(), {band.qsos, band.points, band.mult1, band.mult2});
  EXPECT_EQ(bands, GetParam().bands);
  const CccTally& tally = result.tally;
  EXPECT_EQ((std::vector<int>{tally.qsos, tally.points, tally.mult1, tally.mult2, tally.score, tally.cw,
                              tally.ssb}),
            GetParam().totals);
  EXPECT_EQ(result.band_kept.count + result.left_out.count, 0);
}

INSTANTIATE_TEST_SUITE_P(, CccContests, testing::ValuesIn(examples),
                         [](const auto& example) { return example.param.folder; });

TEST(CccNames, AreWhatIsLeftOfTheFirstLine) {
  EXPECT_EQ(ccc_contest_name("CCC TXT file for   JIDX contest 2002 contest"), "JIDX  2002 ");
  EXPECT_EQ(ccc_contest_name("CCC TXT file for CCC TXT file for"), "");
  EXPECT_EQ(ccc_contest_of("CQ-WW"), ccc_contest_of("CQWW "));
  EXPECT_NE(ccc_contest_of("CQ-WW"), nullptr);
  EXPECT_EQ(ccc_contest_of("CQWW"), nullptr);
  EXPECT_EQ(ccc_contest_of("ALL A"), nullptr);
}

TEST(CccRecords, TheSmallerSizeHoldsWhereItDividesTheLength) {
  EXPECT_EQ(ccc_record_size(ccc_iaru_layout, 702), 26);  // 26 records of 27 bytes too
}

TEST(CccNames, TheDialogOffersTheContestsInThisOrder) {
  std::string keys;
  for (const CccContest& contest : ccc_contests()) keys.append(contest.key);
  EXPECT_EQ(keys, "ARRLDIARU CQWW JIDX CQWPX");
}

TEST(CccSheet, HasTitleAndCodeOfItsContest) {
  struct Row {
    std::string key, title;
    CccInput input;
    std::int16_t cw, ssb;
    std::size_t band;  ///< of the QSOs
    std::string code;
    int mode = 0, lowband = 0;
  };
  constexpr CccInput txt = CccInput::text, bin = CccInput::binary;
  const std::string key = "JIDX ", jidx = "JIDX Contest (JA) ", iaru = "IARU HF World Championship ";
  for (const Row& row : rows_of(
           Row{"ARRLD", "ARRL International DX Contest (DX) ", txt, 1, 0, 2, "ARRL-DX"},
           Row{"IARU ", iaru, bin, 1, 0, 2, iaru}, Row{"CQWW ", "CQWW DX Contest ", bin, 1, 0, 2, "CQWW-DX"},
           Row{"CQWPX", "CQ WPX Contest ", txt, 1, 0, 2, "CQ-WPX"},
           Row{key, jidx, txt, 1, 0, 2, "JIDX-CW", 2}, Row{key, jidx, txt, 0, 1, 2, "JIDX-PH", 1},
           Row{key, jidx, txt, 1, 1, 2, jidx}, Row{key, jidx, txt, 0, 0, 2, jidx},
           Row{key, jidx, bin, 1, 0, 2, "JIDX-LF", 2, 1}, Row{key, jidx, bin, 1, 0, 3, "JIDX-HF", 2, 2},
           Row{key, jidx, bin, 1, 0, 0, "JIDX-LF", 2, 1}, Row{key, jidx, bin, 0, 1, 2, "JIDX", 1, 1},
           Row{key, jidx, bin, 0, 1, 5, "JIDX", 1, 2}, Row{key, jidx, bin, 1, 1, 3, "JIDX-HF", 0, 2})) {
    SCOPED_TRACE(row.title + row.code);
    const CccContest& contest = *ccc_contest_of(row.key);
    EXPECT_EQ(contest.title, row.title);
    CccTally tally{.cw = row.cw, .ssb = row.ssb};
    tally.bands.at(row.band).qsos = 1;
    const CccSheetCode code = ccc_sheet_code(contest, row.input, tally);
    EXPECT_EQ(code.code, row.code);
    EXPECT_EQ(code.mode_sel_cat.value_or(0), row.mode);
    EXPECT_EQ(code.lowband_flag.value_or(0), row.lowband);
  }
}

}  // namespace
}  // namespace varnisto::test
