#include "cli/console.h"

#include <algorithm>

#include "base/text.h"

namespace varnisto {
namespace {

constexpr char caret_shift = 0x40;  // character 27 is shown as "^[", 127 as "^?"

bool is_shown_otherwise(char c) {
  return is_control(c) && c != '\n';
}

}  // namespace

bool ConsoleBuffer::put(char c) {
  if (!is_shown_otherwise(c)) return below_.sputc(c) != traits_type::eof();
  if (controls_ == Controls::blank) return below_.sputc(' ') != traits_type::eof();
  const char shown[] = {'^', static_cast<char>(c ^ caret_shift)};
  return below_.sputn(shown, sizeof shown) == sizeof shown;
}

ConsoleBuffer::int_type ConsoleBuffer::overflow(int_type c) {
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return put(traits_type::to_char_type(c)) ? c : traits_type::eof();
}

std::streamsize ConsoleBuffer::xsputn(const char* text, std::streamsize size) {
  const char* const end = text + size;
  if (std::none_of(text, end, is_shown_otherwise)) return below_.sputn(text, size);
  const char* const stop = std::find_if_not(text, end, [this](char c) { return put(c); });
  return stop - text;
}

}  // namespace varnisto
