#include "cabrillo/conversions.h"

#include "base/text.h"

namespace varnisto {

CallParts calls_check(std::string_view call) {
  CallParts parts;
  const std::size_t slash = call.find('/');
  if (slash == std::string_view::npos) {
    parts.main_call = call;
    if (char_count(call) > 6) parts.full_call = call;
    return parts;
  }
  const std::string_view first = trim(call.substr(0, slash));
  const std::string_view second = trim(call.substr(slash + 1));
  if (contains(to_upper(second), "QRP")) {
    parts.main_call = first;
    return parts;
  }
  const bool first_is_longer = char_count(first) > char_count(second);
  parts.main_call = first_is_longer ? first : second;
  parts.other_part = first_is_longer ? second : first;
  parts.full_call = call;
  return parts;
}

}  // namespace varnisto
