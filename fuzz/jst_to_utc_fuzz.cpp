// Any line on its way from Japan Standard Time to UTC: only date and time may change, and by nine hours.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/columns.h"
#include "base/cp932.h"
#include "base/text.h"
#include "cabrillo/jst_to_utc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnisto;
  static CodePage code_page;  // opened once: that is the dear part
  std::string before;
  code_page.decode({reinterpret_cast<const char*>(data), size}, before);
  std::string after = before;
  const bool moved = J2U(after, is_ascii(after));
  const TextLine old_line{before}, new_line{after};
  const auto japan = read_minute(old_line.cut({15, 10}), old_line.cut({26, 4}));
  if (!moved) {
    if (after != before) std::abort();
    return 0;
  }
  const auto utc = read_minute(new_line.cut({15, 10}), new_line.cut({26, 4}));
  if (!japan || !utc || *japan - *utc != std::chrono::hours{9}) std::abort();
  if (new_line.cut({1, 14}) != old_line.cut({1, 14}) || new_line.from(31) != old_line.from(31)) std::abort();
  return 0;
}
