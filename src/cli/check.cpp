#include <algorithm>
#include <new>
#include <ostream>
#include <utility>

#include "app/checker.h"
#include "base/os.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "cli/convert.h"
#include "cli/report.h"

namespace varnisto {
namespace {

/// The checker's report as it comes: nothing before the first finding, then what stands in front of it.
class ReportStream final : public LineSink {
 public:
  explicit ReportStream(std::ostream& out) : out_(out) {}

  void put(std::string_view line) override {
    if (is_blank(line)) {
      ++blank_lines_;
    } else if (names_ < names_in_front) {
      ++names_;
      names_text_.append(line).append("\n");
    } else {
      found_ = true;
      out_ << std::exchange(names_text_, "");
      put_blank_lines();
      out_ << line << "\n";
    }
  }
  void end() {
    if (found_) put_blank_lines();
  }

 private:
  static constexpr int names_in_front = 2;  // of input and output

  void put_blank_lines() {
    for (; blank_lines_ > 0; --blank_lines_) out_ << "\n";
  }

  std::ostream& out_;
  std::string names_text_;
  int names_ = 0;
  bool found_ = false;
  std::int64_t blank_lines_ = 0;
};

class NoReport final : public LineSink {
 public:
  void put(std::string_view) override {}
};

bool holds_qso_line(const std::string& path) {
  TextReader log{path};
  for (std::string_view line; log.next(line);)
    if (contains(line, "QSO:")) return true;
  return false;
}

void check_into(CheckReport& report, LineSink& lines) {
  TextReader log{report.path};
  report.found = check_cabrillo(log, report.path, report.path, lines);
  note_after_end(report.notes, log);
}

/// Checks the file; without `as_json` what is found goes to `out` at once.
ActionResult check_now(CheckReport& report, bool as_json, std::ostream& out) {
  try {
    if (!holds_qso_line(report.path)) return {ActionResult::refused, 0, std::string{no_qso_text}};
    if (as_json) {
      NoReport lines;
      check_into(report, lines);
    } else {
      ReportStream lines{out};
      check_into(report, lines);
      lines.end();
    }
    return {};
  } catch (const RunTimeError& error) {
    return {ActionResult::failed, error.number, describe(error)};
  } catch (const std::bad_alloc&) {
    return {ActionResult::failed, RunTimeError::out_of_memory,
            describe(RunTimeError(RunTimeError::out_of_memory, report.path))};
  }
}

void put_outcome(const CliOptions& options, const CheckReport& report, std::ostream& out, std::ostream& err) {
  const bool done = report.result.kind == ActionResult::done;
  if (!done) err << report.path << ": " << report.result.text << "\n";
  if (options.json) return put_json_check(report, out);
  if (options.quiet) return;
  if (done && report.found.errors == 0) out << report.path << ": OK (" << report.found.qsos << " QSO)\n";
  for (const Note& note : report.notes.all()) err << report.path << ": " << note_text(note) << "\n";
}

}  // namespace

int check_files(const CliOptions& options, std::ostream& out, std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments) {
    CheckReport report{os::absolute_path(path), {}, {}, {}};
    report.result = check_now(report, options.json, out);
    put_outcome(options, report, out, err);
    worst = std::max(worst, report.result.kind == ActionResult::done ? int{exit_ok} : int{exit_failed});
  }
  return worst;
}

}  // namespace varnisto
