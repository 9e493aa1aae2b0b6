#include "platform/clock.h"

#include <charconv>
#include <string>

#include "base/os.h"

namespace varnisto {

std::tm SystemClock::now() const {
  std::time_t seconds = std::time(nullptr);
  const std::string fixed = os::environment("SOURCE_DATE_EPOCH");
  const char* const end = fixed.data() + fixed.size();
  std::time_t value = 0;
  const auto result = std::from_chars(fixed.data(), end, value);
  if (result.ec == std::errc{} && result.ptr == end) seconds = value;
  return os::local_time(seconds);
}

}  // namespace varnisto
