// A CCC text log of any bytes, converted as the contest that the first byte names; its other bits set the
// options.

#include "base/fields.h"
#include "base/run_time_error.h"
#include "ccc/convert.h"
#include "ccc/power.h"
#include "support.h"

using namespace varnisto;

namespace {

void check_record(std::string_view line) {
  std::vector<std::string> fields(1);
  while (take_field(line, fields.back())) fields.emplace_back();
  fuzz::require(fields.size() == 10, "a record has ten fields");
  fuzz::require(fields[0].size() >= 1 && char_count(fields[0]) <= 2, "the month");
  fuzz::require(char_count(fields[2]) <= 4 && char_count(fields[3]) <= 13, "time and call fit their columns");
  fuzz::require(fields[4].size() == 5, "the frequency field has 5 characters");
  fuzz::require(char_count(fields[8]) <= 6, "the exchange fits its columns");
  fuzz::require(fields[9] == "CW" || fields[9] == "PH" || fields[9] == "RY", "every QSO has a mode");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const CccContest& contest = ccc_contests()[(data[0] & 7U) % ccc_contests().size()];
  const CccOptions options{(data[0] & 8U) != 0, (data[0] & 16U) != 0, "13"};
  const std::string_view bytes = fuzz::bytes_of(data + 1, size - 1);
  TextReader log = TextReader::from_bytes(bytes);
  fuzz::LineList work;
  try {
    const CccResult result = convert_ccc(log, contest, options, &work);
    fuzz::require(result.qsos == work.lines.size(), "every QSO is counted");
    fuzz::require(result.tally.qsos <= static_cast<std::int32_t>(result.qsos), "no QSO counts twice");
  } catch (const RunTimeError& error) {
    fuzz::require(error.number == RunTimeError::overflow, "only counters overflow");
  }
  for (const std::string& line : work.lines) check_record(line);
  TextReader again = TextReader::from_bytes(bytes);
  fuzz::require(char_count(highest_ccc_power(again)) <= 4, "a power fits its columns");
  return 0;
}
