#pragma once
// Fixed-length records of bytes. A layout is a table (a tuple) of fields, each with its member of the record
// struct, its place and its width; one walk over the table fills the struct. Nothing else knows an offset.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace varnisto {

/// How the bytes of a field stand.
enum class FieldKind {
  number,   ///< little-endian; the member's type says integer or IEEE 754, signed or not
  text,     ///< characters of code page 932, all of the width
  counted,  ///< a length byte, then room for characters; a length beyond the room means all of it
};

/// One field: the member of `Record` that takes its value (a number, or a std::string_view into the record's
/// bytes).
template <class Record, class Value>
struct Field {
  Value Record::*member;
  std::size_t offset;  ///< of its first byte, from 0
  std::size_t width;   ///< in bytes; of a counted text with the length byte
  FieldKind kind = FieldKind::number;
};
template <class Record, class Value>
Field(Value Record::*, std::size_t, std::size_t, FieldKind = FieldKind::number) -> Field<Record, Value>;

namespace detail {

/// True for a byte that is the first one of two.
constexpr bool is_lead(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
/// True when the last byte begins a character.
bool ends_in_half(std::string_view cp932);

}  // namespace detail

/// The text without the lead byte of a character of which a cut left no more.
[[gnu::always_inline]] inline std::string_view without_half_character(std::string_view cp932) {
  if (cp932.empty() || !detail::is_lead(cp932.back())) return cp932;  // nearly always
  return cp932.substr(0, cp932.size() - (detail::ends_in_half(cp932) ? 1 : 0));
}

namespace detail {

template <std::size_t size>
using UnsignedOf =
    std::conditional_t<size == 1, std::uint8_t,
                       std::conditional_t<size == 2, std::uint16_t,
                                          std::conditional_t<size == 4, std::uint32_t, std::uint64_t>>>;

template <class Value>
Value little_endian(const char* bytes) {
  using Bits = UnsignedOf<sizeof(Value)>;
  Bits bits = 0;
  for (std::size_t i = sizeof(Value); i > 0; --i)
    bits = static_cast<Bits>(std::uint64_t{bits} << 8U | static_cast<unsigned char>(bytes[i - 1]));
  return std::bit_cast<Value>(bits);
}

template <class Record, class Value>
[[gnu::always_inline]] inline void read_field(std::string_view bytes, const Field<Record, Value>& field,
                                              Record& record) {
  const char* const start = bytes.data() + field.offset;
  if constexpr (std::is_arithmetic_v<Value>) {
    record.*field.member = little_endian<Value>(start);
  } else {
    const bool counted = field.kind == FieldKind::counted;
    const std::size_t room = field.width - (counted ? 1 : 0);
    const std::size_t size = counted ? std::min<std::size_t>(static_cast<unsigned char>(*start), room) : room;
    record.*field.member = without_half_character({start + field.width - room, size});
  }
}

template <class Record, class Value>
constexpr bool field_fits(const Field<Record, Value>& field, std::size_t record_size) {
  const bool numeric = std::is_arithmetic_v<Value>;
  if (numeric != (field.kind == FieldKind::number)) return false;
  if (numeric && field.width != sizeof(Value)) return false;
  return field.width > 0 && field.offset + field.width <= record_size;
}

}  // namespace detail

/// Takes every field of the table out of a record's bytes. They must be as long as the layout says, and
/// outlive the texts in `record`.
template <class Record, class... Values>
void read_fields(std::string_view bytes, const std::tuple<Field<Record, Values>...>& table, Record& record) {
  std::apply([&](const auto&... field) { (detail::read_field(bytes, field, record), ...); }, table);
}

/// True when every field lies within the record, is as wide as its member, and begins where the one before it
/// has ended: a check of the table for the compiler.
template <class Record, class... Values>
constexpr bool fields_fit(const std::tuple<Field<Record, Values>...>& table, std::size_t record_size) {
  return std::apply(
      [&](const auto&... field) {
        std::size_t end = 0;
        const auto follows = [&](std::size_t offset, std::size_t width) {
          const bool behind = offset >= end;
          end = offset + width;
          return behind;
        };
        return ((detail::field_fits(field, record_size) && follows(field.offset, field.width)) && ...);
      },
      table);
}

}  // namespace varnisto
