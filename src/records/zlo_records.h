#pragma once
// The records of the zLog logger's binary logs: ZLO (256 bytes a record) and its successor ZLOX (384 bytes),
// whose first 256 bytes are nearly those of ZLO. Record 1 is the head, the others are QSOs.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace varnisto {

/// The head record as it stands. Texts are bytes of code page 932.
struct ZloHeadRecord {
  std::string_view letters;   ///< `zlox_letters`, or anything in a log without them
  std::int32_t qso_count{};   ///< QSOs as the logger counted them; says nothing without the letters
  std::string_view call;      ///< own call sign
  std::int16_t utc_offset{};  ///< minutes to add for UTC, -540 or 0 in Japan; or `log_is_utc`
  std::string_view title;     ///< the contest's title
};

/// What the head's `utc_offset` says of a log whose times are UTC.
inline constexpr std::int16_t log_is_utc = 32767;
/// What the head of most ZLOX logs begins with.
inline constexpr std::string_view zlox_letters = "ZLOX";

/// One QSO as it stands. Texts are bytes of code page 932, parts of the record that was decoded.
struct ZloQso {
  double day_count{};  ///< date and time: days since 1899-12-30 00:00 by the log's clock
  std::string_view call;
  std::string_view sent_no, rcvd_no;        ///< exchanges, at most 9 bytes
  std::uint16_t rst_sent{}, rst_rcvd{};     ///< reports; above 32767 they are none
  std::uint8_t mode_code{}, band_code{};    ///< see ZloLayout::modes and zlo_band()
  std::string_view multi1, multi2;          ///< multipliers
  std::uint8_t new_multi1{}, new_multi2{};  ///< 1: the QSO is the first with that multiplier
  std::uint8_t qso_pts{};
  std::string_view op_name;
  std::string_view memo;
  std::uint8_t tx_num{};   ///< transmitter number
  std::string_view khz;    ///< frequency in kHz, or empty; ZLOX alone
  std::uint8_t invalid{};  ///< not 0: the QSO does not count; ZLOX alone
};

/// What tells the kinds of log apart.
struct ZloLayout {
  std::size_t record_size;                               ///< bytes
  void (*decode)(std::string_view record, ZloQso& qso);  ///< takes a QSO record of that size
  std::span<const std::string_view> modes;  ///< mode texts by `mode_code`; empty for a code without a mode
};
extern const ZloLayout zlo_layout, zlox_layout;

/// Decodes the head record of either kind, at least 256 bytes.
ZloHeadRecord zlo_head_record(std::string_view record);

/// The mode that a code stands for: "CW", "SSB", "FM", "AM", "RTY" or "Other"; empty for another code.
std::string_view zlo_mode(const ZloLayout& layout, std::uint8_t mode_code);
/// The band in MHz ("1.9" to "5600", "10G") that a code stands for; empty for a code above 15.
std::string_view zlo_band(std::uint8_t band_code);

}  // namespace varnisto
