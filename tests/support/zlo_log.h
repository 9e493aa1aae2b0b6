#pragma once
// Writes ZLO and ZLOX logs. It knows the records by their description alone and shares nothing with the
// reader.

#include <bit>
#include <chrono>
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

/// Days since 1899-12-30 of a date and time.
inline double day_count(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                        double second = 0) {
  using namespace std::chrono;
  const auto date = [](int y, unsigned m, unsigned d) {
    return sys_days{std::chrono::year{y} / std::chrono::month{m} / std::chrono::day{d}};
  };
  return static_cast<double>((date(year, month, day) - date(1899, 12, 30)).count()) +
         ((hour * 60 + minute) * 60 + second) / 86400;
}

namespace zlo_bytes {

/// A record full of rubbish, as the logger leaves it where nothing was set.
inline std::string blank_record(std::size_t size) {
  std::string record(size, '\0');
  for (const std::size_t unread : {88U, 94U, 120U, 150U, 170U, 245U}) record[unread] = '#';
  return record;
}

template <class Number>
void put_number(std::string& record, std::size_t offset, Number value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i)
    record[offset + i] = static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i) & 0xFFU);
}

/// A length byte, the text, and rubbish behind it.
inline void put_text(std::string& record, std::size_t offset, std::size_t room, std::string_view utf8) {
  const std::string bytes = to_cp932(utf8);
  record[offset] = static_cast<char>(bytes.size());
  for (std::size_t i = 0; i < room; ++i) record[offset + 1 + i] = i < bytes.size() ? bytes[i] : '~';
}

inline std::string head(const ZloHeadSpec& spec, std::size_t size) {
  std::string record = blank_record(size);
  put_text(record, 8, 12, spec.call);
  put_number(record, 84, spec.utc_offset, 2);
  put_text(record, 175, 60, spec.title);
  return record;
}

inline std::string qso(const ZloQsoSpec& spec, std::size_t size) {
  std::string record = blank_record(size);
  put_number(record, 0, std::bit_cast<std::uint64_t>(spec.day_count), 8);
  put_text(record, 8, 12, spec.call);
  put_text(record, 21, 30, spec.sent);
  put_text(record, 52, 31, spec.rcvd);
  put_number(record, 84, spec.rst_sent, 2);
  put_number(record, 86, spec.rst_rcvd, 2);
  put_number(record, 92, spec.mode, 1);
  put_number(record, 93, spec.band, 1);
  put_text(record, 95, 30, spec.multi1.empty() ? "old1" : spec.multi1);
  put_text(record, 126, 30, spec.multi2.empty() ? "old2" : spec.multi2);
  put_number(record, 157, spec.multi1.empty() ? 0 : 1, 1);
  put_number(record, 158, spec.multi2.empty() ? 0 : 1, 1);
  put_number(record, 159, spec.points, 1);
  put_text(record, 160, 14, spec.op);
  put_text(record, 175, size == 256 ? 67 : 64, spec.memo);
  put_number(record, 243, spec.tx, 1);
  return record;
}

}  // namespace zlo_bytes

/// The bytes of a ZLO log.
inline std::string zlo_log(const std::vector<ZloQsoSpec>& qsos, const ZloHeadSpec& head = {}) {
  std::string bytes = zlo_bytes::head(head, 256);
  for (const ZloQsoSpec& spec : qsos) bytes += zlo_bytes::qso(spec, 256);
  return bytes;
}

/// The bytes of a ZLOX log.
inline std::string zlox_log(const std::vector<ZloQsoSpec>& qsos, const ZloHeadSpec& head = {}) {
  std::string bytes = zlo_bytes::head(head, 384);
  if (head.letters) {
    bytes.replace(0, 4, "ZLOX");
    zlo_bytes::put_number(bytes, 4, static_cast<int>(qsos.size()) + head.count_error, 4);
  }
  for (const ZloQsoSpec& spec : qsos) {
    std::string record = zlo_bytes::qso(spec, 384);
    zlo_bytes::put_text(record, 256, 10, spec.khz);
    zlo_bytes::put_number(record, 281, spec.invalid, 1);
    bytes += record;
  }
  return bytes;
}

}  // namespace varnisto::test
