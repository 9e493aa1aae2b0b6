#pragma once
// Counters have 16 bits and totals 32: an overflow is an error, never a wrap.

#include <cstdint>
#include <limits>
#include <string>

#include "base/run_time_error.h"

namespace varnisto {

/// `value` as a signed integer of type Int. Throws RunTimeError 6 naming `where` when it does not fit.
template <class Int>
Int checked(std::int64_t value, const std::string& where) {
  if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
    throw RunTimeError(RunTimeError::overflow, where);
  return static_cast<Int>(value);
}

inline std::int16_t to_i16(std::int64_t value, const std::string& where) {
  return checked<std::int16_t>(value, where);
}
inline std::int32_t to_i32(std::int64_t value, const std::string& where) {
  return checked<std::int32_t>(value, where);
}

/// Product of two totals. Throws RunTimeError 6 when it needs more than 32 bits.
inline std::int32_t multiply_i32(std::int32_t a, std::int32_t b, const std::string& where) {
  return to_i32(std::int64_t{a} * b, where);
}

/// Adds to a counter in place; `where` names the counter in the error.
template <class Int>
void add_checked(Int& counter, std::int64_t amount, const char* where) {
  const std::int64_t sum = counter + amount;
  if (sum < std::numeric_limits<Int>::min() || sum > std::numeric_limits<Int>::max())
    throw RunTimeError(RunTimeError::overflow, where);
  counter = static_cast<Int>(sum);
}

}  // namespace varnisto
