// Any lines read as those of a Cabrillo log, on their way back to the logger's text and to an ADIF file.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/cp932.h"
#include "base/text.h"
#include "cabrillo/adif.h"
#include "cabrillo/to_zlog.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnisto;
  static CodePage code_page;  // opened once: that is the dear part
  std::string file;
  code_page.decode({reinterpret_cast<const char*>(data), size}, file);
  std::string_view rest{file};
  static AdifRecords records{{common_adif_layout, "TNX", true}};  // keeps its converter open, too
  std::string text, record;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (!line.starts_with("QSO:")) continue;
    text.clear();
    append_zlog_text_line(line, text);
    // Date, exchanges, multiplier, band, points: the widths that no line can make smaller or larger.
    if (const std::size_t width = char_count(text); width < 41 || width > 80) std::abort();
    record.clear();
    records.make(TextLine{line}, record);
    if (!record.starts_with("<call:") || !record.ends_with("<EOR>")) std::abort();
  }
  return 0;
}
