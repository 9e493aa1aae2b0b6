#include "base/text.h"

#include <gtest/gtest.h>

#include "base/checked_int.h"
#include "base/columns.h"
#include "support/errors.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

TEST(Cut, CountsCharactersFromOne) {
  struct Row {
    std::string text;
    std::size_t first, width;
    std::string expected;
  };
  for (const Row& c : rows_of(
           Row{"QSO: 14000", 6, 5, "14000"}, Row{"abc", 3, 5, "c"}, Row{"abc", 4, 1, ""}, Row{"", 1, 3, ""},
           Row{"漢字AB仮名", 1, 2, "漢字"}, Row{"漢字AB仮名", 3, 3, "AB仮"}, Row{"漢字AB仮名", 6, 9, "名"},
           Row{"漢字AB仮名", 7, 1, ""}, Row{"AB漢字", 1, 3, "AB漢"}, Row{"ｶﾅx", 2, 2, "ﾅx"})) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(TextLine{c.text}.cut({c.first, c.width}), c.expected);
    EXPECT_EQ(mid(c.text, c.first, c.width), c.expected);
  }
}

TEST(Text, IsMadeOfCharactersAndBlanksOfAscii) {
  EXPECT_EQ(left("AB漢字", 3), "AB漢");
  EXPECT_EQ(left("漢", 5), "漢");
  EXPECT_EQ(right("漢字AB", 3), "字AB");
  EXPECT_EQ(right("漢字", 0), "");
  EXPECT_EQ(pad_right("25", 7), "25     ");
  EXPECT_EQ(pad_right("12345678", 7), "1234567");
  EXPECT_EQ(pad_left("14025.5", 5), "025.5");
  EXPECT_EQ(pad_left("MA", 6), "    MA");
  EXPECT_EQ(pad_right("東京", 4), "東京  ");
  EXPECT_EQ(pad_left("東京都", 2), "京都");
  EXPECT_EQ(trim("  a b "), "a b");
  EXPECT_EQ(trim("\ta\t"), "\ta\t");
  EXPECT_EQ(trim("　a "), "　a");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(single_blanks("a    b"), "a  b");
  EXPECT_EQ(replace_all("---", "--", "-"), "--");
  EXPECT_EQ(replace_all("abc", "", "x"), "abc");
  EXPECT_EQ(to_upper("ａzソ構"), "ａZソ構");  // two of them hold bytes that are letters in code page 932
  EXPECT_EQ(char_count("漢字AB"), 4U);
  EXPECT_FALSE(is_blank("　"));
  EXPECT_TRUE(equal_ignoring_case("Ab漢", "aB漢"));
  EXPECT_FALSE(equal_ignoring_case("ab", "abc"));
}

TEST(Number, IsTheLeadingNumber) {
  const std::string zeros(400, '0');
  const std::pair<std::string, double> rows[] = {{"007", 7},
                                                 {" 12abc", 12},
                                                 {"-3.5x", -3.5},
                                                 {"+4", 4},
                                                 {"+-4", 0},
                                                 {".5", 0.5},
                                                 {"5.", 5},
                                                 {".", 0},
                                                 {"-", 0},
                                                 {"abc", 0},
                                                 {"", 0},
                                                 {"1e5", 1},
                                                 {"1,000", 1},
                                                 {"inf", 0},
                                                 {"0x10", 0},
                                                 {"1" + zeros, 9e18},
                                                 {"-1" + zeros, -9e18},
                                                 {"." + zeros + "1", 0}};
  for (const auto& [text, expected] : rows) EXPECT_DOUBLE_EQ(numeric_value(text), expected) << text;
}

TEST(Number, HalvesRoundToTheEvenNeighbour) {
  const std::pair<double, std::int64_t> cases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},    {-0.5, 0},
                                                   {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {-2.51, -3}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(round_half_even(value), expected) << value;
}

TEST(CheckedInt, OverflowIsError6NeverAWrap) {
  std::int16_t counter = 32766;
  add_checked(counter, 1, "");
  EXPECT_EQ(to_i16(-32768, ""), -32768);
  EXPECT_EQ(multiply_i32(46340, 46340, ""), 2147395600);
  const std::function<void()> overflows[] = {[] { to_i16(32768, ""); }, [] { to_i32(-2147483649, ""); },
                                             [] { multiply_i32(46341, 46341, ""); },
                                             [&] { add_checked(counter, 1, ""); }};
  for (const auto& overflow : overflows) EXPECT_EQ(error_of(overflow), 6);
  EXPECT_EQ(counter, 32767);
}

}  // namespace
}  // namespace varnisto::test
