// A text log of any bytes: reading its lines, and their QSO lines. The first byte sets the options, the
// second chooses the contest.

#include <array>

#include "cabrillo/all_line.h"
#include "cabrillo/qso_line.h"
#include "support.h"

using namespace varnisto;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const unsigned bits = data[0];
  const AllOptions options{(bits & 1U) != 0, (bits & 2U) != 0, (bits & 4U) != 0,
                           (bits & 8U) != 0 ? "10" : ""};
  const QsoLineContext context{"QX1ABC        ", (bits & 16U) != 0, (bits & 32U) != 0, (bits & 64U) != 0};
  constexpr std::array<std::string_view, 5> codes = {"ARRL-10", "ARRL-DX", "WAEDC", "CQ-WW", "CQ-WPX"};
  QsoFormatter* const format = formatter_for(codes[data[1] % codes.size()]);
  QsoRec rec;
  std::string out;
  for (const std::string& line : fuzz::lines_of(fuzz::bytes_of(data + 2, size - 2))) {
    parse_all_line(TextLine{line}, options, rec);
    fuzz::require(char_count(rec.freq5) == 5, "the frequency field has 5 characters");
    fuzz::require(char_count(rec.mode2) == 2, "the mode field has 2 characters");
    fuzz::require(char_count(rec.his_call14) == 14, "the call field has 14 characters");
    fuzz::require(char_count(rec.sent_exch) <= 8 && char_count(rec.rcvd_exch) <= 8,
                  "exchanges fit their columns");
    if (!format(context, line, rec, out)) continue;
    // A complete date and time leaves every column in its place.
    if (char_count(rec.qso_date) != 10 || char_count(rec.qso_hhmm) != 4) continue;
    fuzz::require(mid(out, 31, 14) == context.mycall14, "the own call stands in columns 31 to 44");
    fuzz::require(char_count(out) >= 79, "no column is missing");
  }
  return 0;
}
