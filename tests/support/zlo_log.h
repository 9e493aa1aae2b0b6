#pragma once
// Writes ZLO and ZLOX logs. It knows the records by their description alone and shares nothing with the
// reader.

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/cp932.h"

namespace varnisto::test {

/// The head of a log; texts in UTF-8.
struct ZloHeadSpec {
  std::string call = "QX1ABC";
  std::string title = "CQWW DX Contest";
  int utc_offset = -540;
  int count_error = 0;  ///< ZLOX: the logger's count is wrong by this
  bool letters = true;  ///< ZLOX: the head has its letters
};

/// One QSO of either kind of log.
struct ZloQsoSpec {
  double day_count = 0;
  std::string call = "QX9DEF", sent = "25", rcvd = "14";
  int band = 0, mode = 0;  ///< codes of both kinds
  int rst_sent = 599, rst_rcvd = 599;
  std::string multi1 = {}, multi2 = {};  ///< new ones, when not empty
  int points = 1;
  std::string op = {}, memo = {};
  int tx = 0;
  std::string khz = {};  ///< ZLOX
  int invalid = 0;       ///< ZLOX
};

/// A record, full of rubbish where nothing was set, as the logger leaves it.
struct ZloBytes {
  explicit ZloBytes(std::size_t size) : bytes(size, '\0') {
    for (const std::size_t unread : {88U, 94U, 120U, 150U, 170U, 245U}) bytes[unread] = '#';
  }
  void number(std::size_t offset, std::size_t width, std::int64_t value) {
    for (std::size_t i = 0; i < width; ++i) bytes[offset + i] = static_cast<char>(value >> (8 * i) & 0xFF);
  }
  /// A length byte, the text, and rubbish behind it.
  void text(std::size_t offset, std::size_t room, std::string_view utf8) {
    const std::string text = to_cp932(utf8);
    bytes[offset] = static_cast<char>(text.size());
    bytes.replace(offset + 1, room, (text + std::string(room, '~')).substr(0, room));
  }
  /// A text, and whether it is a new multiplier.
  void multiplier(std::size_t offset, std::size_t flag, const std::string& text_of_new) {
    text(offset, 30, text_of_new.empty() ? "old" : text_of_new);
    number(flag, 1, text_of_new.empty() ? 0 : 1);
  }

  std::string bytes;
};

inline std::string zlo_qso(const ZloQsoSpec& spec, bool zlox) {
  ZloBytes record{zlox ? 384U : 256U};
  record.number(0, 8, std::bit_cast<std::int64_t>(spec.day_count));
  record.text(8, 12, spec.call);
  record.text(21, 30, spec.sent);
  record.text(52, 31, spec.rcvd);
  record.number(84, 2, spec.rst_sent);
  record.number(86, 2, spec.rst_rcvd);
  record.number(92, 1, spec.mode);
  record.number(93, 1, spec.band);
  record.multiplier(95, 157, spec.multi1);
  record.multiplier(126, 158, spec.multi2);
  record.number(159, 1, spec.points);
  record.text(160, 14, spec.op);
  record.text(175, zlox ? 64 : 67, spec.memo);
  record.number(243, 1, spec.tx);
  if (zlox) {
    record.text(256, 10, spec.khz);
    record.number(281, 1, spec.invalid);
  }
  return record.bytes;
}

/// The bytes of a ZLO log.
inline std::string zlo_log(const std::vector<ZloQsoSpec>& qsos, const ZloHeadSpec& head = {},
                           bool zlox = false) {
  ZloBytes log{zlox ? 384U : 256U};
  log.text(8, 12, head.call);
  log.number(84, 2, head.utc_offset);
  log.text(175, 60, head.title);
  if (zlox && head.letters) {
    log.bytes.replace(0, 4, "ZLOX");
    log.number(4, 4, static_cast<int>(qsos.size()) + head.count_error);
  }
  for (const ZloQsoSpec& spec : qsos) log.bytes += zlo_qso(spec, zlox);
  return log.bytes;
}

/// The bytes of a ZLOX log.
inline std::string zlox_log(const std::vector<ZloQsoSpec>& qsos, const ZloHeadSpec& head = {}) {
  return zlo_log(qsos, head, true);
}

}  // namespace varnisto::test
