#include "ccc/power.h"

#include "base/columns.h"

namespace varnisto {
namespace {

constexpr Columns col_power{40, 4};

}  // namespace

std::int64_t ccc_power_watts(std::string_view power) {
  constexpr std::int64_t kilowatt = 1000;
  return power.find_first_of("Kk") != std::string_view::npos ? kilowatt
                                                             : round_half_even(numeric_value(power));
}

std::string highest_ccc_power(TextReader& log) {
  std::int64_t highest = 0;
  std::string highest_text = "0";
  std::string_view text;
  log.next(text);  // names the contest
  while (log.next(text)) {
    const std::string_view power = trim(TextLine{text, log.ascii()}.cut(col_power));
    const std::int64_t watts = ccc_power_watts(power);
    if (watts <= highest) continue;
    highest = watts;
    highest_text = power;
  }
  return highest_text;
}

}  // namespace varnisto
