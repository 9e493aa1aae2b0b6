#include "cabrillo/conversions.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace varnisto {
namespace {

struct Pair {
  std::string_view key, value;
};

constexpr Pair metre_frequencies[] = {{"160", " 1900"}, {"80", " 3500"}, {"40", " 7000"},
                                      {"20", "14000"},  {"15", "21000"}, {"10", "28000"}};

constexpr Pair adif_bands[] = {{"1", "160M"}, {"3", "80M"},  {"7", "40M"},  {"10", "30M"}, {"14", "20M"},
                               {"18", "17M"}, {"21", "15M"}, {"24", "12M"}, {"28", "10M"}, {"29", "10M"}};

template <std::size_t n>
std::optional<std::string_view> find_value(const Pair (&pairs)[n], std::string_view key) {
  const auto* hit = std::ranges::find(pairs, key, &Pair::key);
  return hit == std::end(pairs) ? std::nullopt : std::optional{hit->value};
}

}  // namespace

std::optional<std::string_view> band_henkan(std::string_view metres, bool as_1800) {
  const auto frequency = find_value(metre_frequencies, metres);
  return as_1800 && frequency == " 1900" ? std::optional<std::string_view>{" 1800"} : frequency;
}

std::optional<std::string_view> freq_band(std::string_view freq5) {
  const std::string field = " " + std::string{freq5};
  return find_value(adif_bands, trim(left(right(field, 5), 2)));
}

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
