#include "records/day_count.h"

#include "base/text.h"

namespace varnisto {
namespace {

using std::chrono::local_days;
using std::chrono::local_seconds;

constexpr local_days day_zero{std::chrono::December / 30 / 1899};
constexpr local_seconds first_second{local_days{std::chrono::January / 1 / 100}};
constexpr local_seconds end_of_time{local_days{std::chrono::January / 1 / 10000}};
constexpr double seconds_a_day = 86400;

}  // namespace

std::optional<RecordMinute> minute_of(double day_count) {
  if (!(day_count > -1e7 && day_count < 1e7)) return std::nullopt;  // so that the seconds can be counted
  const local_seconds time{day_zero + std::chrono::seconds{round_half_even(day_count * seconds_a_day)}};
  if (time < first_second || time >= end_of_time) return std::nullopt;
  return std::chrono::floor<std::chrono::minutes>(time);
}

}  // namespace varnisto
