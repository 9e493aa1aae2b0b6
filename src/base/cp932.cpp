#include "base/cp932.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

// U+10FE80 + (byte - 0x80), so F4 8F BA 80 for byte 80 and F4 8F BB BF for byte FF.
constexpr std::string_view escape_lead = "\xF4\x8F";

/// Length of the UTF-8 sequence at the start of `text`; 1 where none begins.
std::size_t sequence_size(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t wanted = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  std::size_t size = 1;
  while (size < wanted && size < text.size() && is_continuation(text[size])) ++size;
  return size == wanted ? size : 1;
}

/// Number of bytes that stand for no character at the start of `bytes`. A lead byte takes a second high byte
/// with it: else that one would begin the next character, which may be written in another spelling, and the
/// lead byte would make a new character with it.
std::size_t invalid_size(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const bool lead = (byte(0) >= 0x81 && byte(0) <= 0x9F) || (byte(0) >= 0xE0 && byte(0) <= 0xFC);
  return lead && bytes.size() > 1 && byte(1) >= 0x80 && byte(1) <= 0xFC ? 2 : 1;
}

/// Length of the ASCII text in front of the first other byte.
std::size_t ascii_prefix(std::string_view text) {
  std::size_t n = 0;
  while (n < text.size() && static_cast<unsigned char>(text[n]) < 0x80) ++n;
  return n;
}

}  // namespace

void append_escape(std::string& out, unsigned char byte) {
  out.append(escape_lead);
  out.push_back(static_cast<char>(byte < 0xC0 ? 0xBA : 0xBB));
  out.push_back(static_cast<char>(0x80 | (byte & 0x3F)));
}

std::optional<unsigned char> escaped_byte(std::string_view text) {
  const bool is_escape = text.size() >= escape_size && text.starts_with(escape_lead) &&
                         (text[2] == '\xBA' || text[2] == '\xBB') && is_continuation(text[3]);
  if (!is_escape) return std::nullopt;
  const unsigned high = text[2] == '\xBA' ? 0x80U : 0xC0U;
  return static_cast<unsigned char>(high | (static_cast<unsigned char>(text[3]) & 0x3FU));
}

void CodePage::decode(std::string_view bytes, std::string& out) {
  const std::size_t plain = ascii_prefix(bytes);
  out.append(bytes.substr(0, plain));
  bytes.remove_prefix(plain);
  while (!bytes.empty()) {
    decoder_.run(bytes, out);
    if (bytes.empty()) return;
    const std::size_t size = invalid_size(bytes);
    for (const char byte : bytes.substr(0, size)) append_escape(out, static_cast<unsigned char>(byte));
    bytes.remove_prefix(size);
  }
}

void CodePage::encode(std::string_view utf8, std::string& out, Unmappable policy) {
  const std::size_t plain = ascii_prefix(utf8);
  out.append(utf8.substr(0, plain));
  utf8.remove_prefix(plain);
  while (!utf8.empty()) {
    encoder_.run(utf8, out);
    if (utf8.empty()) return;
    const std::size_t size = sequence_size(utf8);
    if (const auto byte = escaped_byte(utf8))
      out.push_back(static_cast<char>(*byte));
    else if (policy == Unmappable::question_mark)
      out.push_back('?');
    else
      throw RunTimeError(RunTimeError::bad_argument,
                         "「" + std::string{utf8.substr(0, size)} + "」 はシフトＪＩＳの文字ではありません");
    utf8.remove_prefix(size);
  }
}

std::string from_cp932(std::string_view bytes) {
  std::string out;
  CodePage{}.decode(bytes, out);
  return out;
}

std::string to_cp932(std::string_view utf8, Unmappable policy) {
  std::string out;
  CodePage{}.encode(utf8, out, policy);
  return out;
}

}  // namespace varnisto
