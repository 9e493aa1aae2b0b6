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

/// Where the fields of a kind stand; 0 for one that it does not hold. New multiplier is next to the points.
struct CccPlaces {
  std::size_t exchange_width, band, power, mult, serial, points;
};
inline constexpr CccPlaces ccc_places[] = {
    {4, 19, 0, 22, 0, 28}, {4, 19, 0, 22, 28, 30}, {5, 20, 0, 0, 0, 22}, {4, 19, 21, 0, 0, 22}};

/// Puts one record of `size` bytes behind `log`. Bytes that hold nothing that is read are rubbish.
inline void append_ccc_record(std::string& log, CccKind kind, std::size_t size, const CccLogQso& qso) {
  const CccPlaces& places = ccc_places[static_cast<std::size_t>(kind)];
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
  text(15, places.exchange_width, qso.exchange);
  number(places.band, qso.band);
  number(places.band + 1, qso.mode);
  if (places.power > 0) number(places.power, qso.power);
  if (places.mult > 0) text(places.mult, 6, qso.mult);
  if (places.serial > 0) word(places.serial, qso.serial);
  number(places.points, qso.points);
  number(places.points + 1, qso.new_mult);
  log += record;
}

inline std::string ccc_log(CccKind kind, std::size_t record_size, const std::vector<CccLogQso>& qsos) {
  std::string log;
  for (const CccLogQso& qso : qsos) append_ccc_record(log, kind, record_size, qso);
  return log;
}

}  // namespace varnisto::test
