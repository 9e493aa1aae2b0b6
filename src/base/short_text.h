#pragma once
// Fields of a few bytes, set anew line after line: copied in place and in line, since a library call or an
// allocation would cost more than the work itself. Pieces must not be parts of the text that they are put
// into.

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/text.h"

namespace varnisto {

/// Copies `piece` to `to`, which has room for it; returns the end of the copy.
[[gnu::always_inline]] inline char* copy_piece(char* to, std::string_view piece) {
  char* const end = to + piece.size();
  if (piece.size() > longest_word_pair)
    std::memcpy(to, piece.data(), piece.size());
  else if (!piece.empty())
    with_word_ends(piece, [&]<class Word>(WordEnds<Word> ends) {
      std::memcpy(to, &ends.front, sizeof(Word));
      std::memcpy(end - sizeof(Word), &ends.back, sizeof(Word));
    });
  return end;
}

/// Equality of two texts, without a call for the short ones.
inline bool same_text(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a.size() > longest_word_pair) return a == b;
  return a.empty() || with_word_ends(a, [&]<class Word>(WordEnds<Word> ends) {
           const WordEnds<Word> others{b};
           return ends.front == others.front && ends.back == others.back;
         });
}

/// `field` = `text`.
inline void set_text(std::string& field, std::string_view text) {
  if (field.size() == text.size())
    copy_piece(field.data(), text);
  else
    field.assign(text);
}

/// `field` = `text`, left-aligned in `n`.
template <std::size_t n>
void set_left_aligned(std::string& field, std::string_view text) {
  if (field.size() != n || text.size() > n || !is_ascii(text)) {
    field.clear();
    return append_left_aligned(field, text, n);
  }
  std::memset(field.data(), ' ', n);
  copy_piece(field.data(), text);
}

/// A text among the blanks that bring it to its width: a piece of set_joined().
struct Aligned {
  std::size_t before;
  std::string_view text;
  std::size_t after;
};
inline Aligned left_aligned(std::string_view text, std::size_t width) {
  const std::string_view kept = left(text, width);
  return {0, kept, width - char_count(kept)};
}
inline Aligned right_aligned(std::string_view text, std::size_t width) {
  const std::string_view kept = right(text, width);
  return {width - char_count(kept), kept, 0};
}

namespace detail {

inline std::size_t piece_size(std::string_view piece) {
  return piece.size();
}
inline std::size_t piece_size(const Aligned& piece) {
  return piece.before + piece.text.size() + piece.after;
}
[[gnu::always_inline]] inline char* put_piece(char* to, std::string_view piece) {
  return copy_piece(to, piece);
}
[[gnu::always_inline]] inline char* put_piece(char* to, const Aligned& piece) {
  static constexpr std::string_view blanks = "                ";
  const auto put_blanks = [](char* at, std::size_t count) {
    if (count <= blanks.size()) return copy_piece(at, blanks.substr(0, count));
    std::memset(at, ' ', count);
    return at + count;
  };
  return put_blanks(copy_piece(put_blanks(to, piece.before), piece.text), piece.after);
}

}  // namespace detail

/// `out` = the pieces, one behind the other.
template <class... Piece>
void set_joined(std::string& out, const Piece&... pieces) {
  out.resize((detail::piece_size(pieces) + ...));
  char* end = out.data();
  ((end = detail::put_piece(end, pieces)), ...);
}

}  // namespace varnisto
