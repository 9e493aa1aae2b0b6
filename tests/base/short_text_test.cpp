#include "base/short_text.h"

#include <gtest/gtest.h>

namespace varnisto::test {
namespace {

/// Every length takes one of the ways through the words, or the long way behind them.
class EveryLength : public testing::TestWithParam<std::size_t> {
 protected:
  std::string text() const {
    std::string text;
    for (std::size_t i = 0; i < GetParam(); ++i) text += static_cast<char>('!' + i % 90);
    return text;
  }
};

TEST_P(EveryLength, IsCopiedWhole) {
  std::string field{"old"};
  set_text(field, text());
  EXPECT_EQ(field, text());
  std::string line{"old"};
  set_joined(line, "<", text(), ">", left_aligned(text(), 30), right_aligned(text(), 30));
  EXPECT_EQ(line, "<" + text() + ">" + pad_right(text(), 30) + pad_left(text(), 30));
  set_left_aligned<14>(field, text());
  EXPECT_EQ(field, pad_right(text(), 14));
  set_left_aligned<14>(field, text());  // the second time it has its size
  EXPECT_EQ(field, pad_right(text(), 14));
}

TEST_P(EveryLength, IsLookedAtWhole) {
  const std::string plain = text();
  EXPECT_TRUE(is_ascii(plain));
  EXPECT_TRUE(same_text(plain, text()));
  EXPECT_FALSE(same_text(plain, plain + " "));
  for (std::size_t i = 0; i < plain.size(); ++i) {
    std::string other = plain;
    other[i] = '\x80';
    EXPECT_FALSE(is_ascii(other)) << i;
    EXPECT_FALSE(same_text(plain, other)) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Lengths, EveryLength, testing::Range(std::size_t{0}, std::size_t{90}));

TEST(ShortText, AlignsByCharacters) {
  std::string line;
  set_joined(line, left_aligned("漢字", 4), right_aligned("漢字仮名", 3), left_aligned("漢字仮名", 1));
  EXPECT_EQ(line, "漢字  字仮名漢");
  set_left_aligned<4>(line, "漢");
  EXPECT_EQ(line, "漢   ");
}

}  // namespace
}  // namespace varnisto::test
