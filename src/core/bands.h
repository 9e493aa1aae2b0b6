#pragma once
// The contest bands: one row a band with every name and number that a file or a window gives it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace varnisto {

/// A band category, numbered as the selection dialog's options; a QSO's band is never `all`.
enum class Band : std::uint8_t { all, m160, m80, m40, m20, m15, m10 };

/// How many bands there are beside `all`. Tables by band begin with 160 m.
inline constexpr std::size_t band_count = 6;

struct BandNames {
  Band band;
  std::string_view megahertz;     ///< in logs and category texts; "ALL" for all of them
  std::string_view second;        ///< another name in logs and summaries; may be empty
  std::string_view freq5;         ///< Cabrillo frequency field, kHz
  std::string_view metres;        ///< as CCC logs name it
  std::string_view cabrillo;      ///< CATEGORY-BAND value
  std::string_view summary_word;  ///< in the category text of a log whose band nobody chose
  std::string_view sheet;         ///< in the category line of a sheet
  std::string_view caption;       ///< option of the selection dialog
  std::string_view jidx;          ///< start of the JIDX category code
};
inline constexpr std::array<BandNames, band_count + 1> band_table = {
    {{Band::all, "ALL", "All", "", "", "ALL", "All Band", "All Band", "All Band", "AB"},
     {Band::m160, "1.9", "1.8", " 1900", "160", "160M", "160m", "1.9 MHz", "1.9MHz", "1.8"},
     {Band::m80, "3.5", "", " 3500", "80", "80M", "80m", "3.5 MHz", "3.5MHz", "3.5"},
     {Band::m40, "7", "", " 7000", "40", "40M", "40m", "7 MHz", "7MHz", "7"},
     {Band::m20, "14", "", "14000", "20", "20M", "20m", "14 MHz", "14MHz", "14"},
     {Band::m15, "21", "", "21000", "15", "15M", "15m", "21 MHz", "21MHz", "21"},
     {Band::m10, "28", "29", "28000", "10", "10M", "10m", "28 MHz", "28MHz", "28"}}};

constexpr const BandNames& names_of(Band band) {
  return band_table[static_cast<std::size_t>(band)];
}
/// Position of a band in tables by band, 0 to 5. Not for `all`.
constexpr std::size_t index_of(Band band) {
  return static_cast<std::size_t>(band) - 1;
}
constexpr Band band_at(std::size_t index) {
  return static_cast<Band>(index + 1);
}

/// The band of a log's band column or of a word in a summary: "1.9" to "28", "1.8" and "29" too.
constexpr std::optional<Band> band_of_megahertz(std::string_view text) {
  for (std::size_t i = 1; i < band_table.size(); ++i)
    if (text == band_table[i].megahertz || (!text.empty() && text == band_table[i].second))
      return band_table[i].band;
  return std::nullopt;
}

/// The band of this many metres, "160" to "10"; nothing for another text.
constexpr std::optional<Band> band_of_metres(std::string_view metres) {
  for (std::size_t i = 1; i < band_table.size(); ++i)
    if (metres == band_table[i].metres) return band_table[i].band;
  return std::nullopt;
}

/// Frequency field (kHz, right-aligned in 5) of a band in metres; with `as_1800` 160 m gives " 1800". Nothing
/// for another band.
std::optional<std::string_view> band_henkan(std::string_view metres, bool as_1800);

/// ADIF band ("160M" .. "10M", 30, 17 and 12 metres too) of a frequency field in kHz; nothing for another
/// frequency.
std::optional<std::string_view> freq_band(std::string_view freq5);

}  // namespace varnisto
