#include "core/bands.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/text.h"

namespace varnisto {
namespace {

/// The bands by their megahertz, those without contests too. Source: the band enumeration of ADIF.
struct AdifBand {
  std::string_view megahertz, name;
};
constexpr AdifBand adif_bands[] = {{"1", "160M"}, {"3", "80M"},  {"7", "40M"},  {"10", "30M"}, {"14", "20M"},
                                   {"18", "17M"}, {"21", "15M"}, {"24", "12M"}, {"28", "10M"}, {"29", "10M"}};

}  // namespace

std::optional<std::string_view> band_henkan(std::string_view metres, bool as_1800) {
  const auto band = band_of_metres(metres);
  if (!band) return std::nullopt;
  return as_1800 && band == Band::m160 ? " 1800" : names_of(*band).freq5;
}

std::optional<std::string_view> freq_band(std::string_view freq5) {
  const std::string field = " " + std::string{freq5};
  const auto* hit = std::ranges::find(adif_bands, trim(left(right(field, 5), 2)), &AdifBand::megahertz);
  return hit == std::end(adif_bands) ? std::nullopt : std::optional{hit->name};
}

}  // namespace varnisto
