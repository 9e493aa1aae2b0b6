#include "base/cp932.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/errors.h"

namespace varnisto::test {
namespace {

constexpr std::string_view escape_lead = "\xF4\x8F";

bool is_lead(int byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

TEST(Cp932, EveryBytePairComesBackOrInItsFirstSpelling) {
  int second_spellings = 0;
  for (int pair = 0; pair < 65536; ++pair) {
    const std::string bytes{static_cast<char>(pair / 256), static_cast<char>(pair % 256)};
    const std::string text = from_cp932(bytes), again = to_cp932(text);
    if (again == bytes) continue;
    ++second_spellings;
    ASSERT_TRUE(is_lead(pair / 256) && !contains(text, escape_lead)) << pair;  // only a character
    ASSERT_EQ(from_cp932(again), text) << pair;
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
  EXPECT_EQ(to_cp932("\u301C\u2212\u2016\u2014"), "\x81\x60\x81\x7C\x81\x61\x81\x5C");  // other spellings
}

TEST(Cp932, BytesThatAreNoCharacterSurvive) {
  std::string beyond_the_buffer = "x";
  for (int i = 0; i < 9000; ++i) beyond_the_buffer += "\x95\x5C";
  EXPECT_EQ(char_count(from_cp932(beyond_the_buffer)), 9001U);
  for (const std::string& bytes : {std::string{"AB\x83"},
                                   {"\x83\x83\xFF"},
                                   {"\x80\xA0\xFD\xFE\xFF"},
                                   {"\xFC\xFC\x81"},
                                   beyond_the_buffer})
    EXPECT_EQ(to_cp932(from_cp932(bytes)), bytes);
  // A stray lead byte does not swallow a character that is respelt.
  EXPECT_EQ(to_cp932(from_cp932("\xEE\xEE\xEE\x72")), "\xEE\xEE\xFB\x8F");
}

TEST(Cp932, AnUnmappableCharacterIsRefusedOrAQuestionMark) {
  const std::pair<std::string, std::string> rows[] = {{"QX1\u20AC", "QX1?"},
                                                      {"a\U0001F4FBb", "a?b"},
                                                      {"\xE6\xBC", "??"},
                                                      {"\xC0\x80", "?"},
                                                      {std::string{escape_lead} + "\xBA\r", "???\r"}};
  for (const auto& [text, marked] : rows) {
    EXPECT_EQ(error_of([&, &unmappable = text] { to_cp932(unmappable); }), 5) << text;
    EXPECT_EQ(to_cp932(text, Unmappable::question_mark), marked);
  }
}

}  // namespace
}  // namespace varnisto::test
