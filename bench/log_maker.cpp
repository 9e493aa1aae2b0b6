#include "log_maker.h"

#include <array>

#include "base/text.h"
#include "base/text_writer.h"

namespace varnisto::bench {
namespace {

std::string two_digits(std::size_t value) {
  return {static_cast<char>('0' + value / 10 % 10), static_cast<char>('0' + value % 10)};
}

std::string call_sign(std::size_t number) {
  const auto letter = [](std::size_t value) { return static_cast<char>('A' + value % 26); };
  return {'Q',
          letter(number * 7),
          static_cast<char>('0' + number % 10),
          letter(number / 3),
          letter(number / 78),
          letter(number / 2028)};
}

}  // namespace

std::string all_line(std::size_t number) {
  constexpr std::array<const char*, 6> bands = {"1.9", "3.5", "7", "14", "21", "28"};
  const std::size_t minute = number % 2880;
  std::string line = "2025/11/" + two_digits(29 + minute / 1440) + " " + two_digits(minute / 60 % 24) + ":" +
                     two_digits(minute % 60) + " ";
  append_left_aligned(line, call_sign(number), 13);
  line += "599 25      599 ";
  append_left_aligned(line, std::to_string(1 + number % 40), 8);
  append_left_aligned(line, number % 9 == 0 ? two_digits(number % 40) : "-", 6);
  append_left_aligned(line, "-", 6);
  append_left_aligned(line, bands.at(number % bands.size()), 5);
  return line + "CW   " + std::to_string(1 + number % 3) + "  ";
}

void make_log(const std::string& stem, std::size_t qsos) {
  TextWriter log = TextWriter::scratch(stem + ".all");
  log.put("zLog for Windows ");
  for (std::size_t i = 0; i < qsos; ++i) log.put(all_line(i));
  log.close();
  TextWriter summary = TextWriter::scratch(stem + ".zsm");
  for (const char* line : {"CQWW DX Contest 2025", "", "Call sign: QX1ABC", "",
                           "Category: Single-op All band CW", "", "Total score : 1234567"})
    summary.put(line);
  summary.close();
}

}  // namespace varnisto::bench
