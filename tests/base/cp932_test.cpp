#include "base/cp932.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/errors.h"

namespace varnisto::test {
namespace {

constexpr std::string_view escape_lead = "\xF4\x8F";

std::string pair_of(int lead, int trail) {
  return {static_cast<char>(lead), static_cast<char>(trail)};
}

bool is_lead(int byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

TEST(Cp932, EveryBytePairComesBackOrInItsFirstSpelling) {
  int second_spellings = 0;
  for (int lead = 0; lead < 256; ++lead) {
    for (int trail = 0; trail < 256; ++trail) {
      const std::string bytes = pair_of(lead, trail);
      const std::string text = from_cp932(bytes);
      const std::string again = to_cp932(text);
      if (again == bytes) continue;
      ++second_spellings;
      ASSERT_TRUE(is_lead(lead)) << lead << " " << trail;
      ASSERT_FALSE(contains(text, escape_lead)) << lead << " " << trail;  // only a character may be respelt
      ASSERT_EQ(from_cp932(again), text) << lead << " " << trail;
    }
  }
  EXPECT_EQ(second_spellings, 398);
}

TEST(Cp932, CharactersTakeTheUsualCodes) {
  const std::pair<std::string, std::string> codes[] = {
      {"表", "\x95\x5C"}, {"ソ", "\x83\x5C"}, {"ｶ", "\xB6"},      {"～", "\x81\x60"},
      {"－", "\x81\x7C"}, {"∥", "\x81\x61"},  {"―", "\x81\x5C"},  {"\\", "\\"},
      {"~", "~"},         {"①", "\x87\x40"},  {"髙", "\xFB\xFC"}, {"纊", "\xFA\x5C"}};
  for (const auto& [text, bytes] : codes) {
    EXPECT_EQ(to_cp932(text), bytes) << text;
    EXPECT_EQ(from_cp932(bytes), text) << text;
  }
}

TEST(Cp932, TheOtherUnicodeSpellingsAreWrittenToo) {
  EXPECT_EQ(to_cp932("\u301C\u2212\u2016\u2014"), "\x81\x60\x81\x7C\x81\x61\x81\x5C");
}

TEST(Cp932, AHalfCharacterAtTheEndSurvives) {
  for (const std::string bytes : {"AB\x83", "\x83\x83\xFF", "\x80\xA0\xFD\xFE\xFF", "\xFC\xFC\x81"})
    EXPECT_EQ(to_cp932(from_cp932(bytes)), bytes);
}

TEST(Cp932, PartOfAnEscapeIsNone) {
  EXPECT_EQ(to_cp932(std::string{escape_lead} + "\xBA\r", Unmappable::question_mark), "???\r");
}

TEST(Cp932, AStrayLeadByteDoesNotSwallowARespeltCharacter) {
  const std::string bytes = "\xEE\xEE\xEE\x72";  // no character, then the second spelling of one
  const std::string again = to_cp932(from_cp932(bytes));
  EXPECT_EQ(again, "\xEE\xEE\xFB\x8F");
  EXPECT_EQ(from_cp932(again), from_cp932(bytes));
}

TEST(Cp932, ACharacterBeyondTheConvertersBufferIsNotCut) {
  std::string bytes = "x";
  for (int i = 0; i < 9000; ++i) bytes += "\x95\x5C";
  EXPECT_EQ(char_count(from_cp932(bytes)), 9001U);
  EXPECT_EQ(to_cp932(from_cp932(bytes)), bytes);
}

TEST(Cp932, AnUnmappableCharacterIsRefusedOrAQuestionMark) {
  for (const std::string text : {"QX1\u20AC", "a\U0001F4FBb", "\xE6\xBC", "\xC0\x80"}) {
    EXPECT_EQ(error_of([&] { to_cp932(text); }), 5) << text;
    EXPECT_TRUE(contains(to_cp932(text, Unmappable::question_mark), "?")) << text;
  }
  EXPECT_EQ(to_cp932("a\U0001F4FBb", Unmappable::question_mark), "a?b");
}

}  // namespace
}  // namespace varnisto::test
