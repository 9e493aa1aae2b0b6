#pragma once

#include <chrono>
#include <optional>

namespace varnisto {

/// A point in time by the clock of the log's station.
using RecordMinute = std::chrono::local_time<std::chrono::minutes>;

/// The minute that a count of days since 1899-12-30 00:00 lies in, its fraction being the time of day: the
/// nearest second (a half goes to the even one), then cut to the minute. Nothing for a count that is no date
/// of the years 100 to 9999.
std::optional<RecordMinute> minute_of(double day_count);

}  // namespace varnisto
