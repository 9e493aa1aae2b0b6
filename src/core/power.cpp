#include "core/power.h"

#include "base/text.h"

namespace varnisto {

double power_watts(std::string_view power) {
  constexpr double kilowatt = 1000;
  return power.find_first_of("Kk") != std::string_view::npos ? kilowatt : numeric_value(power);
}

void HighestPower::add(std::string_view power) {
  const std::int64_t watts = round_half_even(power_watts(power));
  if (watts <= watts_) return;
  watts_ = watts;
  text_ = power;
}

std::string highest_power(TextReader& log, Columns column, std::string none) {
  HighestPower highest{std::move(none)};
  std::string_view text;
  log.next(text);  // title or contest
  while (log.next(text)) highest.add(trim(TextLine{text, log.ascii()}.cut(column)));
  return highest.text();
}

}  // namespace varnisto
