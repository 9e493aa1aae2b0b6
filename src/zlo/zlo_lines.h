#pragma once
// The lines that a QSO of a ZLO log becomes: one of the zLog text log (ALL), one of the JARL log sheet.

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/cp932.h"
#include "records/day_count.h"
#include "zlo/zlo_walk.h"

namespace varnisto {

/// First line of an ALL log made by this program, and the first two of the log sheet.
std::string zlo_all_title();
inline constexpr std::string_view jarl_sheet_title = "<LOGSHEET TYPE=zLog>";
std::string jarl_sheet_columns();

/// The text of a number of at most five digits that is often the same as the one before.
class SmallDecimal {
 public:
  void set(std::uint16_t value);
  std::string_view text() const { return {digits_.data(), size_}; }

 private:
  std::uint16_t value_ = 0;
  std::array<char, 5> digits_{'0'};
  std::size_t size_ = 1;
};

/// Date and time, "yyyy-mm-dd hh:mm".
class DateTimeText {
 public:
  void set(RecordMinute time);
  std::string_view text() const { return {text_.data(), text_.size()}; }

 private:
  void set_day(std::chrono::local_days day);

  std::chrono::local_days day_{};
  std::array<char, 16> text_{'1', '9', '7', '0', '-', '0', '1', '-', '0', '1', ' ', '0', '0', ':', '0', '0'};
};

/// A QSO as texts, the pieces of its lines.
struct ZloTexts {
  DateTimeText date_time;
  std::string_view call, sent_no, rcvd_no;
  SmallDecimal rst_sent, rst_rcvd, qso_pts, tx_num;
  std::string_view band, mode;
  bool new_multi1 = false, new_multi2 = false;  ///< the QSO is the first with that multiplier
  std::string_view multi1, multi2;              ///< "-" for one that is not new
  std::string_view op_name;
  std::string_view khz;  ///< frequency that stands in front of the memo; empty for none
  std::string_view memo;
};

/// Makes the lines of one QSO after the other, in the same room.
class ZloLines {
 public:
  /// `transmitter`: the lines of the ALL log have the piece "TX#n".
  explicit ZloLines(bool transmitter) : transmitter_(transmitter) {}

  /// Takes the walk's QSO. Control characters become blanks, so that it stays one line. Throws RunTimeError 6
  /// naming the record for a date outside the years 100 to 9999 and for a report above 32767.
  void take(const ZloWalk& walk);
  /// Its line of the ALL log; valid until the next take().
  std::string_view all() const { return all_; }
  /// Its line of the log sheet; valid until the next call, or take().
  std::string_view jarl();

 private:
  /// Room for the texts of a record, were each byte an escape, and the blanks between them.
  using Room = std::array<char, 1280>;

  void set_numbers(const ZloWalk& walk);
  void set_texts(const ZloQso& qso);
  bool is_plain() const;
  void decode_texts();
  std::string_view utf8(std::string_view cp932);

  bool transmitter_;
  bool plain_ = true;  ///< the texts are ASCII without control characters
  ZloTexts texts_;
  std::string decoded_;  ///< texts that are not plain
  CodePage code_page_;
  Room all_room_, jarl_room_;
  std::string_view all_;
};

/// Frequency field of a ZLOX record in whole kHz, without leading zeros; empty when it is no number from 1
/// up to five digits.
std::string_view whole_khz(std::string_view field);

}  // namespace varnisto
