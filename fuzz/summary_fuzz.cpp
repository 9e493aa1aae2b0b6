// A logger's summary of any bytes, read twice: when the log is opened and when it is written.

#include "base/run_time_error.h"
#include "cabrillo/contest.h"
#include "cabrillo/header.h"
#include "cabrillo/summary.h"
#include "support.h"
#include "support/null_app.h"

using namespace varnisto;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::NullApp null;
  App& app = null.app;
  app.state = State{};
  try {
    read_summary(app, TextReader::from_bytes(std::string{fuzz::bytes_of(data, size)}));
    if (title_code(app.state.log.contest.contest_name)) sep_space_cbr(app);
  } catch (const RunTimeError& error) {
    const bool expected = error.number == RunTimeError::past_end ||
                          error.number == RunTimeError::type_mismatch ||
                          error.number == RunTimeError::overflow;
    fuzz::require(expected, "a summary fails with 62, 13 or 6");
    return 0;
  } catch (const ProgramEnd&) {
    fuzz::require(category_line_words(app.state.log.category.cat_text).size() < 4,
                  "only a short category is refused");
    return 0;
  }
  fuzz::require(app.state.entry.power == Power::low, "the power is the window's");
  fuzz::require(!app.state.log.category.cat_band.empty(), "the band is set");
  fuzz::LineList header;
  put_cbr_header(app, header);
  for (const std::string& line : header.lines)
    fuzz::require(line.find('\n') == std::string::npos, "a header value is one line");
  return 0;
}
