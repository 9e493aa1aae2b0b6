// A log converted by the command line, twice: the same files and the same report must come. The first line of
// the input are switches, behind it stands the log, and behind a line "%%" the logger's summary.

#include <algorithm>
#include <cstdlib>
#include <map>
#include <sstream>

#include "base/columns.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "cabrillo/jst_to_utc.h"
#include "cli/run_cli.h"
#include "support.h"
#include "support/test_app.h"

using namespace varnisto;

namespace {

/// Temporary folders lie in memory where the system has a place for that: a disk would set the pace.
const bool folders_in_memory = is_folder("/dev/shm") && ::setenv("TMPDIR", "/dev/shm", 0) == 0;

/// The first line of an input, taken off it: letters that switch options on.
class Switches {
 public:
  explicit Switches(std::string_view& input) : letters_(input.substr(0, input.find('\n'))) {
    input.remove_prefix(std::min(letters_.size() + 1, input.size()));
  }
  bool on(char letter) const { return letters_.find(letter) != std::string_view::npos; }

 private:
  std::string_view letters_;
};

using Files = std::map<std::string, std::string>;

/// A contest of each kind that the program knows and one that it does not: its place is its switch, A first.
constexpr const char* contests[] = {"ARRL International DX Contest,ARRL-DX",
                                    "ARRL 10m Contest,ARRL-10",
                                    "CQ WPX Contest,CQ-WPX",
                                    "CQWW DX Contest,CQ-WW",
                                    "IARU HF Championship,IARU-HF",
                                    "JIDX Contest,JIDX",
                                    "WAEDC Contest,WAEDC",
                                    "IOTA Contest,RSGB-IOTA",
                                    "All Asian DX Contest,AA-DX",
                                    "KCJ Contest,KCJ"};

struct SwitchOption {
  char letter;
  const char* option;
};
constexpr SwitchOption switch_options[] = {{'r', "--rtty"},
                                           {'m', "--memo-freq"},
                                           {'8', "--as-1.8"},
                                           {'u', "--utc"},
                                           {'e', "--eqsl"},
                                           {'s', "--slash"},
                                           {'q', "--qtc"},
                                           {'R', "--reselect"},
                                           {'x', "--set=select_cont_yusen=1"},
                                           {'h', "--power=high"},
                                           {'l', "--power=low"},
                                           {'p', "--power=qrp"},
                                           {'0', "--operator=single-op"},
                                           {'1', "--operator=single-op-assisted"},
                                           {'2', "--operator=school-club"},
                                           {'3', "--operator=multi-one"},
                                           {'4', "--operator=multi-two"},
                                           {'5', "--operator=multi-multi"},
                                           {'6', "--operator=checklog"},
                                           {'o', "--overlay=ROOKIE"},
                                           {'/', "--set=CALLSIGN=QX1ABC/1"}};

/// The program's folder, once for all runs, and a folder for logs whose name suggests no contest.
struct Program : test::TestApp {
  Program() {
    ::setenv("SOURCE_DATE_EPOCH", "1764473696", 1);  // the clock stands still
    std::string titles;
    for (const char* contest : contests) titles.append(contest).append(",\r\n");
    folder.write("contest_name.cfg", titles);
    std::filesystem::create_directory(logs);
  }

  Files files() const {
    Files files;
    for (const auto& entry : std::filesystem::directory_iterator{logs})
      files[entry.path().filename().string()] = read_file(entry.path().string());
    return files;
  }
  void put(const Files& files) const {
    for (const auto& entry : std::filesystem::directory_iterator{logs}) std::filesystem::remove(entry.path());
    for (const auto& [name, bytes] : files) work.write("logs/" + name, bytes);
  }

  const std::string logs = work.path() + "logs/";
};

std::vector<std::string> arguments_of(const Program& program, const Switches& switches) {
  std::vector<std::string> arguments = {"--app-dir", program.folder.path(), "convert", "--json"};
  for (char letter = 'A'; const std::string contest : contests) {
    if (switches.on(letter++)) arguments.push_back("--contest=" + contest.substr(0, contest.find(',')));
  }
  for (const SwitchOption& row : switch_options)
    if (switches.on(row.letter)) arguments.emplace_back(row.option);
  arguments.push_back(program.logs + (switches.on('a') ? "x.all" : "x.ALL"));
  return arguments;
}

/// How a run ended and what it left.
struct Outcome {
  int status;
  std::string report, said;
  Files files;
  bool operator==(const Outcome&) const = default;
};

Outcome run(const Program& program, const Files& inputs, const std::vector<std::string>& arguments) {
  program.put(inputs);
  std::ostringstream report, said;
  const int status = run_cli(arguments, report, said);
  return {status, report.str(), said.str(), program.files()};
}

bool is_text(std::string_view bytes) {
  return std::ranges::none_of(bytes,
                              [](char c) { return is_control(c) && c != '\t' && c != '\r' && c != '\n'; });
}

/// Date and time of every line that has them where they belong. Other lines go by what stands there instead.
std::vector<std::string> minutes_of(const std::vector<std::string>& lines) {
  std::vector<std::string> minutes;
  for (const std::string& line : lines) {
    const std::string_view date = TextLine{line}.cut({15, 10}), time = TextLine{line}.cut({26, 4});
    if (read_minute(date, time)) minutes.push_back(std::string{date}.append(time));
  }
  return minutes;
}

void check_log(const Outcome& outcome, const std::string& name, const std::string& bytes) {
  const auto copy = outcome.files.find(name.substr(0, name.size() - 3) + "log");
  fuzz::require(copy != outcome.files.end() && copy->second == bytes, "a log has its equal copy");
  const auto lines = fuzz::lines_of(bytes);
  fuzz::require(lines.back() == "END-OF-LOG:", "a log ends with its last line");
  const auto qsos = std::ranges::count_if(lines, [](const auto& line) { return line.starts_with("QSO:"); });
  fuzz::require(qsos > 0 && contains(outcome.report, "\"qsos\":" + std::to_string(qsos) + ","),
                "every QSO is counted");
  if (contains(bytes, "\nCONTEST: WAEDC"))
    fuzz::require(std::ranges::is_sorted(minutes_of(lines)), "merged lines are in order");
}

void check_outputs(const Outcome& outcome, const Files& inputs) {
  int logs = 0;
  for (const auto& [name, bytes] : outcome.files) {
    if (inputs.contains(name)) continue;
    fuzz::require(!name.ends_with(".varnisto"), "no temporary stays");
    fuzz::require(is_text(bytes), "an output holds no control characters");
    if (!name.ends_with(".cbr")) continue;
    check_log(outcome, name, bytes);
    ++logs;
  }
  fuzz::require(logs == 1, "a run writes one log");
}

void check_failure(const Outcome& outcome, const Files& inputs) {
  fuzz::require(outcome.files == inputs, "a run that fails leaves nothing");
  fuzz::require(outcome.status <= 2, "settings and list files are well");
  const auto is_number = [&](int number) {
    return contains(outcome.report, "\"error\":{\"number\":" + std::to_string(number) + ",");
  };
  fuzz::require(std::ranges::any_of(std::array<int, 6>{0, RunTimeError::overflow, RunTimeError::bad_subscript,
                                                       RunTimeError::type_mismatch,
                                                       RunTimeError::bad_file_name, RunTimeError::past_end},
                                    is_number),
                "an error of log or summary");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Program program;
  std::string_view rest = fuzz::bytes_of(data, size);
  const Switches switches{rest};
  const auto arguments = arguments_of(program, switches);
  constexpr std::string_view separator = "\n%%\n";
  const std::size_t end = rest.find(separator);
  Files inputs{{switches.on('a') ? "x.all" : "x.ALL", std::string{rest.substr(0, end)}}};
  if (end != std::string_view::npos) inputs["x.zsm"] = rest.substr(end + separator.size());

  const Outcome outcome = run(program, inputs, arguments);
  fuzz::require(run(program, inputs, arguments) == outcome, "a second run does the same");
  outcome.status == 0 ? check_outputs(outcome, inputs) : check_failure(outcome, inputs);
  return 0;
}
