#pragma once
// Binary logs of the CCC logger for tests, with the places of their fields typed anew.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace varnisto::test {

/// One QSO of a binary log, codes as they are in its record. A layout without the field does not hold it.
struct CccLogQso {
  unsigned month = 11, day = 29, time = 905;
  std::string call = "QX9DEF";
  unsigned band = 2, mode = 1;
  std::string exchange = "14";
  unsigned points = 1, new_mult = 0;
  std::string mult = "";
  unsigned serial = 1, power = 7;
};

enum class CccKind { cqww_jidx, cqwpx, iaru, arrldx };

/// Puts one record of `size` bytes behind `log`. Bytes that hold nothing that is read are rubbish.
inline void append_ccc_record(std::string& log, CccKind kind, std::size_t size, const CccLogQso& qso) {
  std::string record(size, '\xEE');
  const auto number = [&](std::size_t at, unsigned value) { record[at] = static_cast<char>(value); };
  const auto word = [&](std::size_t at, unsigned value) {
    number(at, value % 256);
    number(at + 1, value / 256);
  };
  const auto text = [&](std::size_t at, std::size_t width, const std::string& value) {
    record.replace(at, width, (value + std::string(width, ' ')).substr(0, width));
  };
  number(0, qso.month);
  number(1, qso.day);
  word(2, qso.time);
  text(4, 10, qso.call);
  if (kind == CccKind::iaru) {
    text(15, 5, qso.exchange);
    number(20, qso.band);
    number(21, qso.mode);
    number(22, qso.points);
    number(23, qso.new_mult);
  } else {
    text(15, 4, qso.exchange);
    number(19, qso.band);
    number(20, qso.mode);
  }
  if (kind == CccKind::arrldx) {
    number(21, qso.power);
    number(22, qso.points);
    number(23, qso.new_mult);
  }
  if (kind == CccKind::cqww_jidx) {
    text(22, 6, qso.mult);
    number(28, qso.points);
    number(29, qso.new_mult);
  }
  if (kind == CccKind::cqwpx) {
    text(22, 6, qso.mult);
    word(28, qso.serial);
    number(30, qso.points);
    number(31, qso.new_mult);
  }
  log += record;
}

inline std::string ccc_log(CccKind kind, std::size_t record_size, const std::vector<CccLogQso>& qsos) {
  std::string log;
  for (const CccLogQso& qso : qsos) append_ccc_record(log, kind, record_size, qso);
  return log;
}

}  // namespace varnisto::test
