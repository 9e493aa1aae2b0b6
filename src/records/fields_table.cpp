#include "records/fields_table.h"

namespace varnisto::detail {
namespace {

constexpr bool is_trail(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

}  // namespace

bool ends_in_half(std::string_view cp932) {
  // A lead byte may also be the second one of a character: only the way from the front tells.
  std::size_t at = 0;
  while (at + 1 < cp932.size()) at += is_lead(cp932[at]) && is_trail(cp932[at + 1]) ? 2 : 1;
  return at + 1 == cp932.size() && is_lead(cp932[at]);
}

}  // namespace varnisto::detail
