#pragma once
// Binary logs of the CCC logger for tests, with the places of their fields typed anew.

#include <cstddef>
#include <string>
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

/// Where the fields lie in which the layouts differ; 0: there is none.
struct CccKind {
  std::size_t exchange_width, band, mode, power, mult, serial, points, new_mult;
};
inline constexpr CccKind ccc_cqww_jidx{4, 19, 20, 0, 22, 0, 28, 29}, ccc_cqwpx{4, 19, 20, 0, 22, 28, 30, 31},
    ccc_iaru{5, 20, 21, 0, 0, 0, 22, 23}, ccc_arrldx{4, 19, 20, 21, 0, 0, 22, 23};

/// The bytes of a log of records of this size. Those that hold nothing that is read are rubbish.
inline std::string ccc_log(const CccKind& kind, std::size_t record_size, const std::vector<CccLogQso>& qsos) {
  std::string log;
  for (const CccLogQso& qso : qsos) {
    std::string record(record_size, '\xEE');
    const auto number = [&](std::size_t at, unsigned value) { record[at] = static_cast<char>(value); };
    const auto text = [&](std::size_t at, std::size_t width, const std::string& value) {
      record.replace(at, width, (value + std::string(width, ' ')).substr(0, width));
    };
    number(0, qso.month);
    number(1, qso.day);
    number(2, qso.time % 256);
    number(3, qso.time / 256);
    text(4, 10, qso.call);
    text(15, kind.exchange_width, qso.exchange);
    number(kind.band, qso.band);
    number(kind.mode, qso.mode);
    if (kind.power != 0) number(kind.power, qso.power);
    if (kind.mult != 0) text(kind.mult, 6, qso.mult);
    if (kind.serial != 0) {
      number(kind.serial, qso.serial % 256);
      number(kind.serial + 1, qso.serial / 256);
    }
    number(kind.points, qso.points);
    number(kind.new_mult, qso.new_mult);
    log += record;
  }
  return log;
}

}  // namespace varnisto::test
