#pragma once
// Small text operations shared by every conversion. Texts are UTF-8; widths and positions count characters,
// and texts of plain ASCII (nearly all) take a byte-offset fast path.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnisto {

/// True when no byte has its high bit set.
bool is_ascii(std::string_view text);

/// Number of characters in a UTF-8 text. An ill-formed byte counts as one character.
std::size_t char_count(std::string_view text);

/// The text without leading and trailing blanks. Only U+0020 counts: tabs and full-width blanks are text.
std::string_view trim(std::string_view text);
std::string_view trim_left(std::string_view text);
std::string_view trim_right(std::string_view text);

/// True when the text holds nothing but blanks.
bool is_blank(std::string_view text);

/// First `n` characters, or the whole text when it is shorter.
std::string_view left(std::string_view text, std::size_t n);
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

/// The three below fill a text anew, line after line, without giving up its memory; the pieces must not be
/// parts of it. `field` = `text`.
inline void set_text(std::string& field, std::string_view text) {
  if (field.size() == text.size())
    text.copy(field.data(), text.size());
  else
    field.assign(text);
}
/// `field` = `text`, left-aligned in `n`.
void set_left_aligned(std::string& field, std::string_view text, std::size_t n);
/// `out` = the pieces, one behind the other.
inline void set_joined(std::string& out, std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  out.resize(size);
  char* end = out.data();
  for (const std::string_view piece : pieces) end += piece.copy(end, piece.size());
}

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
