#include "zlo/zlo_files.h"

#include <algorithm>
#include <array>

#include "cabrillo/all_line.h"
#include "zlo/zlo_lines.h"

namespace varnisto {
namespace {

/// True when the Cabrillo log has a name for this mode: it reads the first columns of it.
bool names_mode(std::string_view mode) {
  std::array<char, all_columns::mode.width> column{' ', ' ', ' '};
  std::ranges::copy(mode.substr(0, column.size()), column.begin());
  return mode_code({column.data(), column.size()}).has_value();
}

void count_kept(const ZloWalk& walk, const ZloWriting& to, std::string_view all_line, ZloWritten& written) {
  const std::size_t number = walk.log().number();
  if (!to.rtty && !(walk.mode_known() && names_mode(walk.mode()))) written.mode_kept.add(number);
  if (walk.band_known() && band_index(walk.band())) return;
  if (!to.memo_frequency || !memo_frequency(all_line)) written.band_kept.add(number);
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
  ZloWalk walk{log};
  ZloTextMaker texts;
  std::string line;
  put_titles(to);
  while (walk.next()) {
    const ZloTexts& qso = texts.texts_of(walk);
    if (to.jarl) {
      set_jarl_line(line, qso);
      to.jarl->put(line);
    }
    set_all_line(line, qso, to.transmitter);
    to.all.put(line);
    count_kept(walk, to, line, written);
  }
  written.count = walk.count();
  return written;
}

}  // namespace varnisto
