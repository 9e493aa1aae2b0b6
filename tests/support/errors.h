#pragma once

#include <functional>

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

}  // namespace varnisto::test
