#pragma once
// The modes: one row a mode with every name that a file or a window gives it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace varnisto {

/// A mode category, the first four numbered as the selection dialog's options; a QSO's mode is never `mixed`.
enum class Mode : std::uint8_t { mixed, ssb, cw, rtty, fm };

struct ModeNames {
  Mode mode;
  std::string_view cabrillo;  ///< mode field of a QSO line
  std::string_view cat_mode;  ///< CATEGORY-MODE value; empty where the mode is no category
  std::string_view word;      ///< mode word of category texts, with its blank
  std::string_view sheet;     ///< in the category line of a sheet
  std::string_view dialog;    ///< the same when it was chosen in the selection dialog
  std::string_view caption;   ///< option of the selection dialog
  std::string_view adif;      ///< MODE of an ADIF record
  std::string_view column;    ///< mode column of the logger's text logs
};
inline constexpr std::array<ModeNames, 5> mode_table = {
    {{Mode::mixed, "", "MIXED", "Mixed", "Mixed", "Mixed", "Mixed", "", ""},
     {Mode::ssb, "PH", "SSB", "SSB ", "Ph", "PH", "S S B", "SSB", "SSB"},
     {Mode::cw, "CW", "CW", "CW ", "CW", "CW", "C   W", "CW", "CW "},
     {Mode::rtty, "RY", "RTY", "RTTY ", "Rtty", "RTY", "R T T Y", "RTTY", "RTY"},
     {Mode::fm, "FM", "", "FM ", "Fm", "", "", "FM", "FM "}}};

constexpr const ModeNames& names_of(Mode mode) {
  return mode_table[static_cast<std::size_t>(mode)];
}

/// The mode of a Cabrillo mode field; nothing for another text.
constexpr std::optional<Mode> mode_of_cabrillo(std::string_view mode2) {
  for (std::size_t i = 1; i < mode_table.size(); ++i)
    if (mode2 == mode_table[i].cabrillo) return mode_table[i].mode;
  return std::nullopt;
}

/// The mode of a mode column of the logger's text logs, three characters; "RY " and "RTT" are RTTY too.
constexpr std::optional<Mode> mode_of_column(std::string_view column) {
  for (std::size_t i = 1; i < mode_table.size(); ++i)
    if (column == mode_table[i].column) return mode_table[i].mode;
  return column == "RY " || column == "RTT" ? std::optional{Mode::rtty} : std::nullopt;
}

/// The mode that a word of a category line names, in capitals: "PH" and "SSB", "CW", "RTTY" and "RTY";
/// nothing for another word.
constexpr std::optional<Mode> mode_of_word(std::string_view word) {
  for (const Mode mode : {Mode::ssb, Mode::cw, Mode::rtty})
    if (word == names_of(mode).cat_mode || word == names_of(mode).dialog || word == names_of(mode).adif)
      return mode;
  return std::nullopt;
}

}  // namespace varnisto
