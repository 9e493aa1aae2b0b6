// Any line of a log searched for QTC memos; each becomes a line of fixed columns.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/cp932.h"
#include "base/fields.h"
#include "base/text.h"
#include "cabrillo/qtc_memo.h"
#include "cabrillo/qtc_merge.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnisto;
  static CodePage code_page;  // opened once: that is the dear part
  std::string line;
  code_page.decode({reinterpret_cast<const char*>(data), size}, line);
  Occurrences incomplete;
  std::string text, record, field;
  for_each_qtc(line, 2, incomplete, [&](const QtcMemo& memo) {
    const QtcTime passed = qtc_time(memo, true);
    put_qtc_line({" 7000", "CW", passed.date, passed.time, memo.receiver, memo.group, memo.number, "QX1ABC",
                  "0645", memo.band, memo.group},
                 text);
    if (char_count(text) != 92) std::abort();
    record.clear();
    set_quoted_fields(record, {memo.group, memo.receiver});
    std::string_view rest = record;
    if (!take_field(rest, field) || field != memo.group) std::abort();
    if (take_field(rest, field) || field != memo.receiver) std::abort();
  });
  return 0;
}
