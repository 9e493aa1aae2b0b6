#pragma once

#include <ctime>

namespace varnisto {

/// The date and time of the run.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Local time, as TZ says.
  virtual std::tm now() const = 0;
};

/// The system's clock, or the environment variable SOURCE_DATE_EPOCH (seconds since 1970, UTC) when it is
/// set.
class SystemClock final : public Clock {
 public:
  std::tm now() const override;
};

}  // namespace varnisto
