#include "cabrillo/category.h"

#include <gtest/gtest.h>

#include "cabrillo/contest.h"
#include "cabrillo/summary.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Title, BecomesACode) {
  for (const auto& [title, code] :
       texts_of<2>("CQWW DX Contest 2002|CQ-WW", "CQ WPX Contest|CQ-WPX", "ARRL International DX|ARRL-DX",
                   "IARU HF World|IARU-HF", "ARRL 160m Contest|ARRL-160", "Asia Pacific Sprint|AA-SP",
                   "All Asian DX|AA-DX", "WAEDC Contest|WAEDC", "ARRL 10m Contest|ARRL-10",
                   "CQWW160     x|CQ-160", "CQWW160 Contest|CQ-LIST", "JIDX|JIDX", "JIDX Contest (JA)|JIDX",
                   "cqww dx contest|cqww dx contest", "Stew Perry Topband|FIRST", "|")) {
    SCOPED_TRACE(title);
    TestApp test;
    test.folder.write_text("contest_name.cfg", "Perry,FIRST,x\nStew Perry,STEW-PERRY,x\nCQ,CQ-LIST,x\n");
    test.app.state.program.app_dir = test.folder.path();
    test.app.state.log.contest.cont_id = title;
    map_title_to_code(test.app);
    EXPECT_EQ(test.app.state.log.contest.cont_id, code);
  }
}

TEST(CategoryCode, DecidesCodeContestAndSummary) {
  for (const auto& [code, taken, contest, summary] : texts_of<4>(
           "WAEDC-|WAEDC-CW|WAEDC-CW |SINGLE-OP 7 LOW", "CQ-160|CQ-160-CW|CQ-160-CW |SINGLE-OP 7 LOW",
           "ARRL-160|ARRL-160|ARRL-160|SINGLE-OP 7 LOW CW ", "ARRL-10|ARRL-10|ARRL-10|SINGLE-OP 10M LOW CW ",
           "ARRL-DX|ARRL-DX|ARRL-DX-CW |SINGLE-OP 7 LOW", "IARU-HF|IARU-HF|IARU-HF|SINGLE-OP 7 LOW CW ",
           "CQ-WW|CQ-WW|CQ-WW-CW |SINGLE-OP 40M LOW", "|||SINGLE-OP 7 LOW CW ")) {
    SCOPED_TRACE(code);
    TestApp test;
    test.app.state.log.contest.cont_id = code;
    apply_texts(test.app, {"SINGLE-OP ", "7", "40M", "LOW", "CW "});
    EXPECT_EQ(test.app.state.log.contest.cont_id, taken);
    EXPECT_EQ(test.app.state.log.contest.contest, contest);
    EXPECT_EQ(test.app.state.log.category.cat_summary, summary);
  }
}

TEST(JidxCategory, IsBandAndLowPowerOrMop) {
  const std::array<std::string, 4> rows[] = {
      {"Single-op ", "7", "LOW", "7L"},      {"SINGLE-OP", "All Band", "HIGH", "AB"},
      {"single-op", "160M ", "LOW", "1.8L"}, {"SINGLE-OP", "1.9", "QRP", "1.8"},
      {"SINGLE-OP", "80m", "LOW", "3.5L"},   {"SINGLE-OP", "50M", "LOW", "ABL"},
      {"SINGLE-OP", "28", "LOW", "28L"},     {"SINGLE-OP-ASSISTED", "7", "LOW", "MOP"},
      {"Multi-One", "7", "LOW", "MOP"}};
  for (const auto& [op, band, power, code] : rows)
    EXPECT_EQ(jidx_category_code(op, band, power), code) << op << band;
}

TEST(Score, IsAWholeNumberWithCommas) {
  EXPECT_EQ(score_value("1,234,567", ""), 1234567);
  EXPECT_EQ(score_value("-5", ""), -5);
  for (const char* text : {"", "-", "12 points", "1.5", "+5", "１２"})
    EXPECT_EQ(error_of([&] { score_value(text, ""); }), 13) << text;
  EXPECT_EQ(error_of([] { score_value("2147483648", ""); }), 6);
  EXPECT_EQ(error_of([] { score_value(std::string(400, '9'), ""); }), 6);
}

TEST(Summary, SetsTheCategoryValues) {
  for (const auto& [category, op, band, mode, contest, summary] : texts_of<6>(
           "Single-op 28 MHz Ph|SINGLE-OP|10M|SSB|CQ-WPX-SSB |Single-op 10M LOW",
           "Single-op All Band Mixed|SINGLE-OP|ALL|MIXED|CQ-WPX-|Single-op ALL LOW",
           "Single-op Assisted 7 MHz CW|SINGLE-OP-ASSISTED|40M|CW|CQ-WPX-CW |Single-op-Assisted 40M LOW",
           "Multi-Two 1.9 MHz RTTY|MULTI-TWO|160M|RTY|CQ-WPX-RTY |Multi-Two 160M LOW",
           "Single-op 29 MHz SSB|SINGLE-OP|10M|SSB|CQ-WPX-SSB |Single-op 10M LOW",
           "Multi-op 50 MHz FM|SINGLE-OP|50M|MIXED|CQ-WPX-|Multi-op 50M LOW")) {
    SCOPED_TRACE(category);
    StartedApp test;
    App& app = test.app;
    read_summary(app, TextReader::from_bytes("CQ WPX Contest \r\nCall sign: QX9\r\nCategory: " + category +
                                             "\r\nTotal score : 123 = 4 x 5\r\nTotal : 9\r\n"));
    sep_space_cbr(app);
    const CategoryState& read = app.state.log.category;
    EXPECT_EQ(names_of(app.state.entry.op).name, op);
    EXPECT_EQ(read.cat_band, band);
    EXPECT_EQ(names_of(app.state.entry.mode).cat_mode, mode);
    EXPECT_EQ(read.cat_text, category);
    EXPECT_EQ(app.state.log.contest.contest, contest);
    EXPECT_EQ(read.cat_summary, summary);
    EXPECT_EQ(app.state.log.contest.contest_line, "CQ WPX Contest");
    EXPECT_EQ(app.state.log.tally.total_score, 123);
  }
}

TEST(Summary, WithFewerThanFourCategoryWordsEndsTheProgramAfterAMessage) {
  StartedApp test;
  test.app.state.log.input.zsm_use_name = "x.zsm";
  EXPECT_THROW(read_summary(test.app, TextReader::from_bytes("T\nCategory: Single-op 7 MHz\n")), ProgramEnd);
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_EQ(test.desk.boxes[0].title, "　　Category 項目数が足りません。");
  EXPECT_TRUE(test.desk.boxes[0].text.starts_with(
      "[　x.zsm ] の Category 項目数が足りません。\r\n\r\n読み込んだデータ ：  Single-op 7 "
      "MHz\r\n\r\n下記の例"));
  EXPECT_EQ(error_of([&] { read_summary(test.app, TextReader::from_bytes("")); }), 62);
}

}  // namespace
}  // namespace varnisto::test
