#include "platform/clock.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace varnisto {

std::tm SystemClock::now() const {
  std::time_t seconds = std::time(nullptr);
  if (const char* fixed = std::getenv("SOURCE_DATE_EPOCH")) {
    std::time_t value = 0;
    const char* end = fixed + std::strlen(fixed);
    if (const auto result = std::from_chars(fixed, end, value); result.ec == std::errc{} && result.ptr == end)
      seconds = value;
  }
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

}  // namespace varnisto
