#pragma once
// Small text operations shared by every conversion. Texts are UTF-8; widths and positions count characters,
// and texts of plain ASCII (nearly all) take a byte-offset fast path.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnisto {

namespace detail {  // the longer ways of the functions below
inline constexpr std::uint64_t high_bits = 0x8080808080808080U;
bool is_ascii_long(std::string_view text);
bool holds_control_long(std::string_view text);
/// The high bit of every byte that is a control character.
template <class Word>
constexpr Word control_bits(Word bytes) {
  constexpr auto each = [](std::uint64_t byte) { return static_cast<Word>(0x0101010101010101U * byte); };
  const auto low = static_cast<Word>(bytes & each(0x7F));
  const auto printed = static_cast<Word>(low + each(0x60));  // high bit: 32 and more
  const auto last = static_cast<Word>(low + each(1));        // high bit: 127
  return static_cast<Word>((~printed | last) & ~bytes & each(0x80));
}
std::size_t char_count_wide(std::string_view text);
std::string_view left_of_longer(std::string_view text, std::size_t n);
}  // namespace detail

/// Both ends of a text of at least one word, as words.
template <class Word>
struct WordEnds {
  explicit WordEnds(std::string_view text) {
    std::memcpy(&front, text.data(), sizeof front);
    std::memcpy(&back, text.data() + text.size() - sizeof back, sizeof back);
  }
  Word front{}, back{};
};

/// Calls `work` with the ends of a text of 1 to 16 bytes, as the widest words that fit: they touch or
/// overlap, so that `work` sees every byte without a loop.
inline constexpr std::size_t longest_word_pair = 2 * sizeof(std::uint64_t);
template <class Work>
[[gnu::always_inline]] inline auto with_word_ends(std::string_view text, Work work) {
  if (text.size() >= sizeof(std::uint64_t)) return work(WordEnds<std::uint64_t>{text});
  if (text.size() >= sizeof(std::uint32_t)) return work(WordEnds<std::uint32_t>{text});
  if (text.size() >= sizeof(std::uint16_t)) return work(WordEnds<std::uint16_t>{text});
  return work(WordEnds<std::uint8_t>{text});
}

/// True when no byte has its high bit set.
inline bool is_ascii(std::string_view text) {
  if (text.size() > longest_word_pair) return detail::is_ascii_long(text);
  return text.empty() || with_word_ends(text, []<class Word>(WordEnds<Word> ends) {
           return ((ends.front | ends.back) & static_cast<Word>(detail::high_bits)) == 0;
         });
}

/// True for the second and later bytes of a UTF-8 character.
constexpr bool is_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// True for the characters that stand for no sign: 0 to 31 but the tab, and 127.
constexpr bool is_control(char c) {
  return (c >= 0 && c < ' ' && c != '\t') || c == 127;
}

/// True when the text holds one of them or a tab.
inline bool holds_control(std::string_view text) {
  if (text.size() > longest_word_pair) return detail::holds_control_long(text);
  return !text.empty() && with_word_ends(text, []<class Word>(WordEnds<Word> ends) {
    return (detail::control_bits(ends.front) | detail::control_bits(ends.back)) != 0;
  });
}

/// Number of characters in a UTF-8 text. An ill-formed byte counts as one character.
inline std::size_t char_count(std::string_view text) {
  return is_ascii(text) ? text.size() : detail::char_count_wide(text);
}

/// The text without leading and trailing blanks. Only U+0020 counts: tabs and full-width blanks are text.
inline std::string_view trim_left(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}
inline std::string_view trim_right(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}
inline std::string_view trim(std::string_view text) {
  return trim_left(trim_right(text));
}

/// True when the text holds nothing but blanks.
inline bool is_blank(std::string_view text) {
  return trim_left(text).empty();
}

/// First `n` characters, or the whole text when it is shorter.
inline std::string_view left(std::string_view text, std::size_t n) {
  return n >= text.size() ? text : detail::left_of_longer(text, n);
}
/// Last `n` characters, or the whole text when it is shorter.
std::string_view right(std::string_view text, std::size_t n);
/// `n` characters from position `first` (1-based); empty when the text is shorter than that.
std::string_view mid(std::string_view text, std::size_t first, std::size_t n = std::string_view::npos);

/// Left-aligned in `n`: the text followed by blanks, cut to its first `n` characters.
std::string pad_right(std::string_view text, std::size_t n);
/// Right-aligned in `n`: blanks followed by the text, cut to its last `n` characters.
std::string pad_left(std::string_view text, std::size_t n);
/// The same two, appended to `out` without a temporary.
void append_left_aligned(std::string& out, std::string_view text, std::size_t n);
void append_right_aligned(std::string& out, std::string_view text, std::size_t n);

/// Case-sensitive substring test. The empty text occurs in every text.
inline bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

/// Every occurrence of `from` becomes `to`, in one pass from the left. An empty `from` changes nothing.
std::string replace_all(std::string_view text, std::string_view from, std::string_view to);
/// Every occurrence of `part` removed.
inline std::string remove_all(std::string_view text, std::string_view part) {
  return replace_all(text, part, "");
}
/// Every double blank becomes one blank, in one pass (so four blanks become two).
inline std::string single_blanks(std::string_view text) {
  return replace_all(text, "  ", " ");
}

/// a..z become A..Z (A..Z become a..z); every other character stays.
std::string to_upper(std::string_view text);
std::string to_lower(std::string_view text);
/// Equality of two texts when the case of ASCII letters does not matter.
bool equal_ignoring_case(std::string_view a, std::string_view b);

/// The pieces between single occurrences of `separator`; empty pieces are kept, an empty text has one empty
/// piece.
std::vector<std::string> split(std::string_view text, char separator);

/// The leading number of a text (blanks before it allowed, sign, digits, one decimal point); 0 when there is
/// none.
double numeric_value(std::string_view text);
/// Whole number nearest to `value`; a half goes to the even neighbour.
std::int64_t round_half_even(double value);

/// Decimal text of a counter the way the files of this program hold it: a blank in front of a number that is
/// not negative.
std::string signed_decimal(std::int64_t value);

}  // namespace varnisto
