#pragma once
// The records of the CCC logger's binary logs: fixed size, one a QSO, no header. The layout differs by
// contest, and nothing in the file says which one it is.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace varnisto {

/// One QSO as its record holds it: codes as they stand, texts as bytes of code page 932 with their blanks. A
/// field that the layout does not have keeps its value.
struct CccRecord {
  std::uint32_t month = 0, day = 0;
  std::uint32_t hhmm = 0;         ///< time of day as a decimal number: 905 is 09:05
  std::uint32_t band = 0;         ///< 0 to 5: 160 to 10 metres
  std::uint32_t mode = 0;         ///< 0 SSB, 1 CW
  std::uint32_t power = 0;        ///< code of the sent power (ARRL DX)
  std::uint32_t sent_serial = 0;  ///< sent number (CQ WPX)
  std::uint32_t points = 0;
  std::uint32_t new_mult = 0;  ///< not 0: a new multiplier
  std::string_view call;
  std::string_view exchange;   ///< received
  std::string_view mult_text;  ///< second multiplier; CQ WPX: the multiplier
};

/// Where a field lies, in bytes, and where it goes: an unsigned little-endian number or a text.
struct CccField {
  std::size_t offset, width;
  std::variant<std::uint32_t CccRecord::*, std::string_view CccRecord::*> to;
};

/// One layout. The fields in front of the exchange are the same in every one; bytes in no field are not read.
struct CccLayout {
  std::array<std::size_t, 2> sizes;  ///< of a record: twice the same, or the smaller first
  std::span<const CccField> fields;  ///< behind those that all layouts share
};
extern const CccLayout ccc_zone_layout;    ///< CQ WW and JIDX
extern const CccLayout ccc_serial_layout;  ///< CQ WPX
extern const CccLayout ccc_iaru_layout;    ///< IARU HF
extern const CccLayout ccc_power_layout;   ///< ARRL DX

/// Size of the records of a file of `length` bytes: the layout's smaller size when that divides it.
std::size_t ccc_record_size(const CccLayout& layout, std::uint64_t length);

/// Takes one record into `rec`; its texts point into `bytes`, which hold at least the layout's smaller size.
void read_ccc_record(std::string_view bytes, const CccLayout& layout, CccRecord& rec);

}  // namespace varnisto
