#pragma once
// Code page 932, the Japanese code page of all text files, to and from UTF-8. Nothing is lost on the way: a
// byte that is no valid character becomes one of the private characters U+10FE80..U+10FEFF and turns back
// into that byte when the text is written again. The conversion of what
// is valid stands in cp932_converter.h.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/cp932_converter.h"

namespace varnisto {

/// What to do with a character that code page 932 does not have.
enum class Unmappable {
  refuse,         ///< RunTimeError 5 naming the character: for files that are handed in
  question_mark,  ///< "?": for reports and logs that name paths
};

/// A byte of 80 to FF that is no character stands as a private character of this length in UTF-8.
inline constexpr std::size_t escape_size = 4;
void append_escape(std::string& out, unsigned char byte);
/// The byte for which the first character of the text stands; nothing when it is another character.
std::optional<unsigned char> escaped_byte(std::string_view text);

/// Both directions of the conversion.
class CodePage {
 public:
  /// Appends code page 932 bytes to `out` as UTF-8.
  void decode(std::string_view bytes, std::string& out);
  /// Appends UTF-8 text to `out` as code page 932 bytes. Throws RunTimeError 5 as `policy` says.
  void encode(std::string_view utf8, std::string& out, Unmappable policy);

 private:
  Cp932Converter decoder_{Cp932Converter::To::utf8};
  Cp932Converter encoder_{Cp932Converter::To::cp932};
};

/// The same for single texts.
std::string from_cp932(std::string_view bytes);
std::string to_cp932(std::string_view utf8, Unmappable policy = Unmappable::refuse);

}  // namespace varnisto
