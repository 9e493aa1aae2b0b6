#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace varnisto {
namespace {

char ascii_upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char ascii_lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Beyond every counter of the program, and still exact as a 64-bit integer.
constexpr double largest_number = 9.0e18;

/// Byte offset at which character number `index` (0-based) begins, or the text's size when it has fewer.
std::size_t offset_of(std::string_view text, std::size_t index) {
  std::size_t pos = 0;
  while (index > 0 && pos < text.size()) {
    ++pos;
    while (pos < text.size() && is_continuation(text[pos])) ++pos;
    --index;
  }
  return pos;
}

}  // namespace

namespace detail {

bool is_ascii_long(std::string_view text) {
  // Independent sums of whole blocks keep the processor's wide registers busy.
  using Block = std::array<std::uint64_t, 8>;
  Block sums{};
  std::size_t i = 0;
  for (; i + sizeof(Block) <= text.size(); i += sizeof(Block)) {
    Block block;
    std::memcpy(block.data(), text.data() + i, sizeof block);
    for (std::size_t k = 0; k < block.size(); ++k) sums[k] |= block[k];
  }
  std::uint64_t bits = 0;
  for (const std::uint64_t sum : sums) bits |= sum;
  for (; i + sizeof bits <= text.size(); i += sizeof bits)
    bits |= WordEnds<std::uint64_t>{text.substr(i, sizeof bits)}.front;
  return (bits & high_bits) == 0 && is_ascii(text.substr(i));
}

bool holds_control_long(std::string_view text) {
  using Word = std::uint64_t;
  Word bits = control_bits(WordEnds<Word>{text}.back);
  for (; text.size() > sizeof(Word); text.remove_prefix(sizeof(Word)))
    bits |= control_bits(WordEnds<Word>{text.substr(0, sizeof(Word))}.front);
  return bits != 0;
}

std::size_t char_count_wide(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t pos = 0; pos < text.size(); ++count) {
    ++pos;
    while (pos < text.size() && is_continuation(text[pos])) ++pos;
  }
  return count;
}

std::string_view left_of_longer(std::string_view text, std::size_t n) {
  return text.substr(0, is_ascii(text.substr(0, n)) ? n : offset_of(text, n));
}

}  // namespace detail

std::string_view right(std::string_view text, std::size_t n) {
  if (n >= text.size()) return text;
  if (is_ascii(text)) return text.substr(text.size() - n);
  const std::size_t count = char_count(text);
  return n >= count ? text : text.substr(offset_of(text, count - n));
}

std::string_view mid(std::string_view text, std::size_t first, std::size_t n) {
  const std::size_t skip = first - 1;
  if (skip >= text.size()) return {};
  const std::string_view rest = text.substr(is_ascii(text.substr(0, skip)) ? skip : offset_of(text, skip));
  return left(rest, n);
}

void append_left_aligned(std::string& out, std::string_view text, std::size_t n) {
  const bool ascii = is_ascii(text);
  const std::string_view kept = ascii ? text.substr(0, n) : left(text, n);
  out.append(kept);
  const std::size_t width = ascii ? kept.size() : char_count(kept);
  if (width < n) out.append(n - width, ' ');
}

void append_right_aligned(std::string& out, std::string_view text, std::size_t n) {
  const std::string_view kept = right(text, n);
  const std::size_t width = char_count(kept);
  if (width < n) out.append(n - width, ' ');
  out.append(kept);
}

std::string pad_right(std::string_view text, std::size_t n) {
  std::string out;
  append_left_aligned(out, text, n);
  return out;
}

std::string pad_left(std::string_view text, std::size_t n) {
  std::string out;
  append_right_aligned(out, text, n);
  return out;
}

std::string replace_all(std::string_view text, std::string_view from, std::string_view to) {
  std::string out;
  if (from.empty()) return out.append(text);
  std::size_t pos = 0;
  for (std::size_t hit = text.find(from); hit != std::string_view::npos; hit = text.find(from, pos)) {
    out.append(text.substr(pos, hit - pos)).append(to);
    pos = hit + from.size();
  }
  return out.append(text.substr(pos));
}

std::string to_upper(std::string_view text) {
  std::string out{text};
  std::ranges::transform(out, out.begin(), ascii_upper);
  return out;
}

std::string to_lower(std::string_view text) {
  std::string out{text};
  std::ranges::transform(out, out.begin(), ascii_lower);
  return out;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, ascii_upper, ascii_upper);
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  std::size_t pos = 0;
  for (std::size_t hit = text.find(separator); hit != std::string_view::npos;
       hit = text.find(separator, pos)) {
    pieces.emplace_back(text.substr(pos, hit - pos));
    pos = hit + 1;
  }
  pieces.emplace_back(text.substr(pos));
  return pieces;
}

double numeric_value(std::string_view text) {
  text = trim_left(text);
  std::size_t end = 0;
  const auto digits = [&] {
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
  };
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  const std::size_t start = text.starts_with('+') ? 1 : 0;
  digits();
  if (end < text.size() && text[end] == '.') {
    ++end;
    digits();
  }
  double value = 0;
  const auto result = std::from_chars(text.data() + start, text.data() + end, value);
  if (result.ec == std::errc::result_out_of_range) {
    if (text.find_first_of("123456789") > text.find('.')) return 0;  // too small, not too large
    return text.starts_with('-') ? -largest_number : largest_number;
  }
  return result.ec == std::errc{} ? value : 0;
}

std::int64_t round_half_even(double value) {
  value = std::clamp(value, -largest_number, largest_number);
  const double floor = std::floor(value);
  const double rest = value - floor;
  const auto whole = static_cast<std::int64_t>(floor);
  if (rest < 0.5) return whole;
  if (rest > 0.5) return whole + 1;
  return whole % 2 == 0 ? whole : whole + 1;
}

std::string signed_decimal(std::int64_t value) {
  const std::string digits = std::to_string(value);
  return value < 0 ? digits : " " + digits;
}

}  // namespace varnisto
