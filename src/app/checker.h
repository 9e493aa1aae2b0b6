#pragma once
// Looks for blank header values and blank QSO columns in a Cabrillo file.

#include <cstdint>
#include <string>
#include <vector>

#include "base/line_sink.h"
#include "base/text_reader.h"
#include "core/app.h"

namespace varnisto {

/// Most messages that are kept.
inline constexpr std::size_t most_findings = 1000;

/// What the checker found.
struct CheckResult {
  std::int32_t errors = 0;            ///< findings: header tags and QSO lines
  std::int32_t qsos = 0;              ///< lines that hold "QSO:"
  std::int64_t finding_count = 0;     ///< messages
  std::vector<std::string> findings;  ///< the first of them, trimmed
  bool report_kept = false;           ///< the report of these findings is in its file
};

/// Checks a Cabrillo file and writes the report: the two names, then the findings among one empty line for
/// each line of the file.
CheckResult check_cabrillo(TextReader& log, const std::string& in_name, const std::string& out_name,
                           LineSink& report);

/// Checks `out_name` into check_Cabrillo.txt in the program folder; a report without findings is deleted.
/// That it cannot be written is a notice. Throws RunTimeError when the log cannot be read.
CheckResult check_Cabrillo_sub(App& app);
/// Shows the report of these findings in the viewer; one that could not be written is not shown, nor an
/// earlier one in its place.
void show_check_report(App& app, const CheckResult& check);

}  // namespace varnisto
