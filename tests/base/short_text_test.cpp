#include "base/short_text.h"

#include <gtest/gtest.h>

namespace varnisto::test {
namespace {

/// Texts of every length that takes a way of its own through the words, and of some on the long way behind.
std::vector<std::string> texts() {
  std::vector<std::string> texts(1);
  while (texts.size() < 90) texts.push_back(texts.back() + static_cast<char>('!' + texts.size()));
  return texts;
}

TEST(ShortText, OfEveryLengthIsCopiedWhole) {
  for (const std::string& text : texts()) {
    std::string field{"old"}, line{"old"};
    set_text(field, text);
    EXPECT_EQ(field, text);
    set_joined(line, "<", text, ">", left_aligned(text, 30), right_aligned(text, 30));
    EXPECT_EQ(line, "<" + text + ">" + pad_right(text, 30) + pad_left(text, 30));
    for (int times = 0; times < 2; ++times) {  // the second time it has its size
      set_left_aligned<14>(field, text);
      EXPECT_EQ(field, pad_right(text, 14));
    }
  }
}

TEST(ShortText, OfEveryLengthIsLookedAtWhole) {
  for (const std::string& text : texts()) {
    EXPECT_TRUE(is_ascii(text) && same_text(text, std::string{text}));
    EXPECT_FALSE(same_text(text, text + " "));
    for (std::size_t i = 0; i < text.size(); ++i) {
      std::string other = text;
      other[i] = '\x80';
      EXPECT_FALSE(is_ascii(other) || same_text(text, other)) << i;
    }
  }
}

TEST(ShortText, AlignsByCharacters) {
  std::string line;
  set_joined(line, left_aligned("漢字", 4), right_aligned("漢字仮名", 3), left_aligned("漢字仮名", 1));
  EXPECT_EQ(line, "漢字  字仮名漢");
  set_left_aligned<4>(line, "漢");
  EXPECT_EQ(line, "漢   ");
}

}  // namespace
}  // namespace varnisto::test
