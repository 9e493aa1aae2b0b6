// A Cabrillo file of any bytes through the checker.

#include "app/checker.h"
#include "support.h"

using namespace varnisto;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes{fuzz::bytes_of(data, size)};
  TextReader log = TextReader::from_bytes(bytes);
  fuzz::LineList report;
  const CheckResult result = check_cabrillo(log, "in", "out", report);

  std::int32_t qsos = 0;
  const auto lines = fuzz::lines_of(bytes);
  for (const std::string& line : lines) qsos += contains(line, "QSO:") ? 1 : 0;
  fuzz::require(result.qsos == qsos, "every line with QSO: is counted");
  fuzz::require((result.errors == 0) == result.findings.empty(), "an error has a finding");
  fuzz::require(static_cast<std::size_t>(result.errors) <= result.findings.size(),
                "each error has its finding");
  fuzz::require(report.lines.size() >= 3 + lines.size(), "the report has a line for every line of the file");
  if (result.errors == 0)
    fuzz::require(report.lines.size() == 3 + lines.size(), "without findings those lines are all");
  return 0;
}
