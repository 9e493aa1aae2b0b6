#pragma once

#include <functional>
#include <string>

#include "base/run_time_error.h"

namespace varnisto::test {

/// Number of the RunTimeError that `action` throws; 0 when it throws none.
inline int error_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number;
  }
  return 0;
}

/// Text of the RunTimeError that `action` throws; "" when it throws none.
inline std::string error_text_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "";
}

}  // namespace varnisto::test
