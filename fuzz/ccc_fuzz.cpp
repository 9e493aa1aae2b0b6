// A CCC log of any bytes, converted as the contest that the first byte names: as a text log, and as a binary
// log behind the text log that is made of it. The byte's other bits set the options.

#include "base/fields.h"
#include "base/run_time_error.h"
#include "ccc/bin_to_text.h"
#include "ccc/convert.h"
#include "ccc/power.h"
#include "support.h"

using namespace varnisto;

namespace {

void check_record(std::string_view line) {
  std::vector<std::string> fields(1);
  while (take_field(line, fields.back())) fields.emplace_back();
  fuzz::require(fields.size() == 10, "a record has ten fields");
  fuzz::require(!fields[0].empty() && char_count(fields[0]) <= 2, "the month");
  fuzz::require(char_count(fields[2]) <= 4 && char_count(fields[3]) <= 13, "time and call fit their columns");
  fuzz::require(fields[4].size() == 5, "the frequency field has 5 characters");
  fuzz::require(char_count(fields[8]) <= 6, "the exchange fits its columns");
  fuzz::require(fields[9] == "CW" || fields[9] == "PH" || fields[9] == "RY", "every QSO has a mode");
}

/// The QSOs of a text log; nothing when a counter overflows.
std::optional<std::size_t> convert(std::string_view text_log, const CccContest& contest,
                                   const CccOptions& options) try {
  TextReader log = TextReader::from_bytes(text_log), again = TextReader::from_bytes(text_log);
  fuzz::require(char_count(highest_ccc_power(again)) <= 4, "a power fits its columns");
  fuzz::LineList work;
  const CccResult result = convert_ccc(log, contest, options, &work);
  for (const std::string& line : work.lines) check_record(line);
  fuzz::require(result.qsos == work.lines.size(), "every QSO is counted");
  fuzz::require(result.tally.qsos <= static_cast<std::int32_t>(result.qsos), "no QSO counts twice");
  return result.qsos;
} catch (const RunTimeError& error) {
  fuzz::require(error.number == RunTimeError::overflow, "only counters overflow");
  return std::nullopt;
}

void check_binary(std::string_view bytes, const CccContest& contest, const CccOptions& options) {
  const std::size_t record_size = ccc_record_size(*contest.layout, bytes.size());
  RecordReader log = RecordReader::from_bytes(bytes);
  fuzz::LineList text;
  const CccBinCounts counts = put_ccc_text(log, record_size, contest, std::nullopt, "3.09", text);
  fuzz::require(text.lines.size() == counts.records + 1, "one line a record");
  const std::size_t points = contest.columns.rcvd_rst.first == 35 ? 56 : 68;
  std::string file;
  for (const std::string& line : text.lines) {
    file += to_cp932(line) + "\r\n";
    if (&line == &text.lines.front()) continue;
    fuzz::require(!holds_control(line), "no control character comes through");
    fuzz::require(char_count(line) >= points && char_count(line) <= points + 2, "every column is there");
    fuzz::require(numeric_value(mid(line, points)) <= 255, "the points stand behind them");
  }
  fuzz::require(fuzz::lines_of(file) == text.lines, "the file says the same");
  fuzz::require(convert(file, contest, options).value_or(counts.records) == counts.records,
                "every record is a QSO");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const CccContest& contest = ccc_contests()[(data[0] & 7U) % ccc_contests().size()];
  const CccOptions options{(data[0] & 8U) != 0, (data[0] & 16U) != 0, "13"};
  const std::string_view bytes = fuzz::bytes_of(data + 1, size - 1);
  convert(bytes, contest, options);
  check_binary(bytes, contest, options);
  return 0;
}
