#include "records/fields_table.h"

namespace varnisto {
namespace {

constexpr bool is_lead(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

constexpr bool is_trail(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

}  // namespace

std::string_view without_half_character(std::string_view cp932) {
  if (cp932.empty() || !is_lead(cp932.back())) return cp932;
  // The last byte may also be the second one of a character: only the way from the front tells.
  const std::size_t last = cp932.size() - 1;
  std::size_t at = 0;
  while (at < last) at += is_lead(cp932[at]) && is_trail(cp932[at + 1]) ? 2 : 1;
  return at == last ? cp932.substr(0, last) : cp932;
}

}  // namespace varnisto
