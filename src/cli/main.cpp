// How one zLog text log becomes a Cabrillo file:
//   cli/options.cpp           arguments                                        -> CliOptions
//   cli/convert.cpp           one log after the other, each with a fresh state
//   app/open_input.cpp        kind of log and every output name                -> App
//   cabrillo/summary.cpp      the logger's summary: contest, category, score   -> App
//   app/driver.cpp            the run: writer, steps that options ask for, second copy, check
//   cabrillo/writer.cpp       header (header.cpp), then for each line of the log
//   cabrillo/all_line.cpp       one fixed-column line                          -> QsoRec
//   cabrillo/qso_line.cpp       the contest's "QSO: " line                     -> .cbr, .log
//   app/checker.cpp           blank values and columns                         -> findings
//   cli/report.cpp            what was done                                    -> standard output
#include <iostream>

#include "base/interruption.h"
#include "base/os.h"
#include "cli/console.h"
#include "cli/run_cli.h"

namespace {

/// A stream whose control characters do no harm.
struct Console {
  Console(std::ostream& below, int descriptor)
      : buffer(*below.rdbuf(),
               varnisto::os::is_terminal(descriptor) ? varnisto::Controls::caret : varnisto::Controls::blank),
        stream(&buffer) {}

  varnisto::ConsoleBuffer buffer;
  std::ostream stream;
};

}  // namespace

int main(int argc, char* argv[]) {
  constexpr int standard_output = 1, standard_error = 2;
  varnisto::install_signal_handlers();
  Console out{std::cout, standard_output}, err{std::cerr, standard_error};
  return varnisto::run_cli(varnisto::os::arguments(argc, argv), out.stream, err.stream);
}
