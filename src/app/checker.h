#pragma once
// Looks for blank header values and blank QSO columns in a Cabrillo file.

#include <cstdint>
#include <string>
#include <vector>

#include "base/line_sink.h"
#include "base/text_reader.h"
#include "core/app.h"

namespace varnisto {

/// What the checker found.
struct CheckResult {
  std::int32_t errors = 0;            ///< findings: header tags and QSO lines
  std::int32_t qsos = 0;              ///< lines that hold "QSO:"
  std::vector<std::string> findings;  ///< every message, trimmed
};

/// Checks a Cabrillo file and writes the report: the two names, then the findings among one empty line for
/// each line of the file.
CheckResult check_cabrillo(TextReader& log, const std::string& in_name, const std::string& out_name,
                           LineSink& report);

/// Checks `out_name` into check_Cabrillo.txt in the program folder. A report with findings is shown in the
/// viewer; one without is deleted. Throws RunTimeError when a file cannot be read or written.
CheckResult check_Cabrillo_sub(App& app);

}  // namespace varnisto
