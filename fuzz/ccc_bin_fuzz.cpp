// A CCC binary log of any bytes, read as the contest that the first byte names, and the text log that is made
// of it.

#include "base/run_time_error.h"
#include "ccc/bin_to_text.h"
#include "ccc/convert.h"
#include "support.h"

using namespace varnisto;

namespace {

void convert(const std::string& text_log, const CccContest& contest, std::size_t records) try {
  TextReader log = TextReader::from_bytes(text_log);
  fuzz::LineList work;
  const CccResult result = convert_ccc(log, contest, {}, &work);
  fuzz::require(result.qsos == records, "every record is a QSO");
} catch (const RunTimeError& error) {
  fuzz::require(error.number == RunTimeError::overflow, "only counters overflow");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const CccContest& contest = ccc_contests()[data[0] % ccc_contests().size()];
  const std::string_view bytes = fuzz::bytes_of(data + 1, size - 1);
  const std::size_t record_size = ccc_record_size(*contest.layout, bytes.size());
  RecordReader log = RecordReader::from_bytes(bytes);
  fuzz::LineList text;
  const CccBinCounts counts = put_ccc_text(log, record_size, contest, std::nullopt, "3.09", text);
  fuzz::require(text.lines.size() == counts.records + 1, "one line a record");

  const std::size_t points = contest.columns.rcvd_rst.first == 35 ? 56 : 68;
  for (std::size_t i = 1; i < text.lines.size(); ++i) {
    const std::string& line = text.lines[i];
    fuzz::require(!holds_control(line), "no control character comes through");
    fuzz::require(char_count(line) >= points && char_count(line) <= points + 2, "every column is there");
    fuzz::require(numeric_value(mid(line, points)) <= 255, "the points stand behind them");
  }
  std::string file;
  for (const std::string& line : text.lines) file += to_cp932(line) + "\r\n";
  fuzz::require(fuzz::lines_of(file) == text.lines, "the file says the same");
  convert(file, contest, counts.records);
  return 0;
}
