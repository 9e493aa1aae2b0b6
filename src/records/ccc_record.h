#pragma once
// The records of the CCC logger's binary logs: fixed size, one a QSO, no header. The layout differs by
// contest, and nothing in the file says which one it is.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace varnisto {

/// One QSO as its record holds it: codes as they stand, texts as bytes of code page 932 with their blanks. A
/// field that the layout does not have keeps its value.
struct CccRecord {
  std::uint8_t month = 0, day = 0;
  std::uint16_t hhmm = 0;         ///< time of day as a decimal number: 905 is 09:05
  std::uint8_t band = 0;          ///< 0 to 5: 160 to 10 metres
  std::uint8_t mode = 0;          ///< 0 SSB, 1 CW
  std::uint8_t power = 0;         ///< code of the sent power (ARRL DX)
  std::uint16_t sent_serial = 0;  ///< sent number (CQ WPX)
  std::uint8_t points = 0;
  std::uint8_t new_mult = 0;  ///< not 0: a new multiplier
  std::string_view call;
  std::string_view exchange;   ///< received
  std::string_view mult_text;  ///< second multiplier; CQ WPX: the multiplier
};

/// One layout. The fields in front of the exchange are the same in every one; bytes in no field are not read.
struct CccLayout {
  std::array<std::size_t, 2> sizes;  ///< of a record: twice the same, or the smaller first
  /// Takes a record of either size into `rec`; its texts point into the bytes.
  void (*decode)(std::string_view bytes, CccRecord& rec);
};
extern const CccLayout ccc_zone_layout;    ///< CQ WW and JIDX
extern const CccLayout ccc_serial_layout;  ///< CQ WPX
extern const CccLayout ccc_iaru_layout;    ///< IARU HF
extern const CccLayout ccc_power_layout;   ///< ARRL DX

/// Size of the records of a file of `length` bytes: the layout's smaller size when that divides it.
std::size_t ccc_record_size(const CccLayout& layout, std::uint64_t length);

}  // namespace varnisto
