#include "cli/json_bytes.h"

#include "base/cp932.h"
#include "base/text.h"

namespace varnisto {
namespace {

/// A row of the table of well-formed UTF-8: first byte, range of the second one, length.
struct Form {
  unsigned char first_low, first_high, second_low, second_high;
  std::size_t size;
};
constexpr Form forms[] = {{0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                          {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3},
                          {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
                          {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};

/// Length of the character at the start of the text; 0 when its first byte is part of none.
std::size_t character_size(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) < 0x80) return 1;
  for (const Form& form : forms) {
    if (byte(0) < form.first_low || byte(0) > form.first_high) continue;
    if (text.size() < form.size || byte(1) < form.second_low || byte(1) > form.second_high) return 0;
    for (std::size_t i = 2; i < form.size; ++i)
      if (!is_continuation(text[i])) return 0;
    return form.size;
  }
  return 0;
}

}  // namespace

std::string escape_bytes(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const std::size_t size = character_size(text);
    if (size == 0)
      append_escape(out, static_cast<unsigned char>(text.front()));
    else
      out += text.substr(0, size);
    text.remove_prefix(size == 0 ? 1 : size);
  }
  return out;
}

std::string with_surrogates(std::string_view json) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string out;
  while (!json.empty()) {
    const auto byte = escaped_byte(json);
    if (byte)
      out.append("\\udc").append(1, digits[*byte >> 4]).append(1, digits[*byte & 0xFU]);
    else
      out += json.front();
    json.remove_prefix(byte ? escape_size : 1);
  }
  return out;
}

}  // namespace varnisto
