#pragma once
// The lines that a QSO of a ZLO log becomes: one of the zLog text log (ALL), one of the JARL log sheet.

#include <array>
#include <string>
#include <string_view>

#include "base/cp932.h"
#include "zlo/zlo_walk.h"

namespace varnisto {

/// First line of an ALL log made by this program, and the first two of the log sheet.
std::string zlo_all_title();
inline constexpr std::string_view jarl_sheet_title = "<LOGSHEET TYPE=zLog>";
std::string jarl_sheet_columns();

/// A decimal number of at most five digits.
class SmallDecimal {
 public:
  SmallDecimal() = default;
  explicit SmallDecimal(std::uint16_t value);
  std::string_view text() const { return {digits_.data(), size_}; }

 private:
  std::array<char, 5> digits_{};
  std::size_t size_ = 0;
};

/// A QSO as texts in UTF-8. They lie in the record, or in the ZloTextMaker that made them.
struct ZloTexts {
  std::array<char, 16> date_time{};  ///< yyyy-mm-dd hh:mm
  std::string_view call, sent_no, rcvd_no;
  SmallDecimal rst_sent, rst_rcvd, qso_pts, tx_num;
  std::string_view band, mode;
  std::string_view multi1, multi2;
  bool new_multi1 = false, new_multi2 = false;  ///< the QSO is the first with that multiplier
  std::string_view op_name;
  std::string_view memo;  ///< with the frequency in front, "(7012) text", when the record has one
};

/// Makes the texts of one QSO after the other, in the same room.
class ZloTextMaker {
 public:
  /// The texts of the walk's QSO; valid until the next call. Throws RunTimeError 6 naming the record for a
  /// date outside the years 100 to 9999 and for a report above 32767.
  const ZloTexts& texts_of(const ZloWalk& walk);

 private:
  std::string_view utf8(std::string_view cp932);
  std::string_view memo_of(const ZloQso& qso);

  ZloTexts texts_;
  std::string room_;  ///< texts that are not plain ASCII
  std::string memo_;
  CodePage code_page_;
};

/// Frequency field of a ZLOX record in whole kHz, without leading zeros; empty when it is no number from 1
/// up to five digits.
std::string_view whole_khz(std::string_view field);

/// Sets `out` to the line of the ALL log. `transmitter`: with the piece "TX#n". Control characters become
/// blanks.
void set_all_line(std::string& out, const ZloTexts& qso, bool transmitter);
/// Sets `out` to the line of the log sheet.
void set_jarl_line(std::string& out, const ZloTexts& qso);

}  // namespace varnisto
