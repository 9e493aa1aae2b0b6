#include "zlo/zlo_files.h"

#include <algorithm>
#include <array>

#include "cabrillo/all_line.h"
#include "zlo/zlo_lines.h"

namespace varnisto {
namespace {

/// Which codes of a log stand for something that a Cabrillo line has a name for.
class CabrilloNames {
 public:
  explicit CabrilloNames(const ZloLayout& layout) {
    for (unsigned code = 0; code < modes_.size(); ++code) {
      modes_.at(code) = names_mode(zlo_mode(layout, static_cast<std::uint8_t>(code)));
      bands_.at(code) = band_of_megahertz(zlo_band(static_cast<std::uint8_t>(code))).has_value();
    }
  }
  bool mode(std::uint8_t code) const { return modes_[code]; }
  bool band(std::uint8_t code) const { return bands_[code]; }

 private:
  /// The Cabrillo log's writer reads the first columns of a mode.
  static bool names_mode(std::string_view mode) {
    std::array<char, all_columns::mode.width> column{' ', ' ', ' '};
    std::ranges::copy(mode.substr(0, column.size()), column.begin());
    return mode_of_column({column.data(), column.size()}).has_value();
  }

  std::array<bool, 256> modes_{}, bands_{};
};

void count_unnamed(const ZloWalk& walk, const CabrilloNames& names, std::string_view all_line,
                   ZloWritten& written) {
  const std::size_t number = walk.log().number();
  if (!names.mode(walk.qso().mode_code)) written.unnamed_mode.add(number);
  if (names.band(walk.qso().band_code)) return;
  written.unnamed_band.add(number);
  if (!memo_frequency(all_line)) written.unnamed_frequency.add(number);
}

void put_titles(const ZloWriting& to) {
  to.all.put(zlo_all_title());
  if (!to.jarl) return;
  to.jarl->put(jarl_sheet_title);
  to.jarl->put(jarl_sheet_columns());
}

}  // namespace

ZloWritten write_zlo_files(ZloReader& log, const ZloWriting& to) {
  ZloWritten written;
  const CabrilloNames names{log.layout()};
  ZloWalk walk{log};
  ZloLines lines{to.transmitter};
  put_titles(to);
  while (walk.next()) {
    lines.take(walk);
    if (to.jarl) to.jarl->put(lines.jarl());
    to.all.put(lines.all());
    count_unnamed(walk, names, lines.all(), written);
  }
  written.count = walk.count();
  return written;
}

}  // namespace varnisto
