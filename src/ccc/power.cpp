#include "ccc/power.h"

#include "core/power.h"

namespace varnisto {

std::string highest_ccc_power(TextReader& log) {
  constexpr Columns col_power{40, 4};
  return highest_power(log, col_power, "0");
}

}  // namespace varnisto
