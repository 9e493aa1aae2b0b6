// A log opened and converted as the command line does it, twice: the same files must come or the same error.
// The first line of the input are switches, behind it stands the log, and behind a line "%%" the logger's
// summary.

#include <map>
#include <sstream>

#include "app/action.h"
#include "app/driver.h"
#include "app/open_input.h"
#include "app/reselect.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "cli/cli_desk.h"
#include "core/entry.h"
#include "core/settings.h"
#include "folder.h"
#include "support/null_app.h"
#include "support/test_app.h"

using namespace varnisto;

namespace {

/// A contest of each kind that the program knows and one that it does not, each with its switch.
struct Contest {
  char letter;
  const char *title, *code;
};
constexpr Contest contests[] = {
    {'A', "ARRL International DX Contest", "ARRL-DX"},
    {'B', "ARRL 10m Contest", "ARRL-10"},
    {'C', "CQ WPX Contest", "CQ-WPX"},
    {'D', "CQWW DX Contest", "CQ-WW"},
    {'E', "IARU HF Championship", "IARU-HF"},
    {'F', "JIDX Contest", "JIDX"},
    {'G', "WAEDC Contest", "WAEDC"},
    {'H', "IOTA Contest", "RSGB-IOTA"},
    {'I', "All Asian DX Contest", "AA-DX"},
    {'J', "KCJ Contest", "KCJ"},
};

struct FlagSwitch {
  char letter;
  const char* key;
};
constexpr FlagSwitch flag_switches[] = {
    {'r', "mode_2_rtty_flag"}, {'m', "get_freq_flag"}, {'8', "freq19_to_18_flag"}, {'u', "jst_to_utc_flag"},
    {'e', "for_eQSL_flag"},    {'s', "tenki_flag"},    {'q', "add_qtc_flag"},      {'x', "select_cont_yusen"},
};

using Files = std::map<std::string, std::string>;

/// The program as it has started, once for all runs, and a folder for logs whose name suggests no contest.
struct Program : test::TestApp {
  Program() {
    std::string titles;
    for (const Contest& contest : contests)
      titles.append(contest.title).append(",").append(contest.code).append(",\r\n");
    folder.write("contest_name.cfg", titles);
    std::filesystem::create_directory(logs);
    start();
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

CliOptions options_of(const fuzz::Switches& switches) {
  CliOptions options;
  DialogAnswers& answers = options.answers;
  for (const Contest& contest : contests)
    if (switches.on(contest.letter)) answers.contest = contest.title;
  for (const FlagSwitch& row : flag_switches)
    options.overrides.emplace_back(row.key, switches.on(row.letter) ? "1" : "0");
  options.overrides.emplace_back("CALLSIGN", switches.on('/') ? "QX1ABC/1" : "QX1ABC");
  answers.power = switches.choice("hlp");
  answers.op = switches.choice("0123456");
  answers.overlay = switches.on('o') ? "ROOKIE" : "";
  answers.reselect = switches.on('R');
  return options;
}

/// How a run ended and what it left.
struct Outcome {
  ActionResult::Kind kind;
  int number, qsos;
  std::string text, said;
  Files files;
  bool operator==(const Outcome&) const = default;
};

/// One run of the program; its settings stay in memory.
class Run {
 public:
  Run(const Program& program, const CliOptions& options) : program_(program), options_(options) {
    desk_.use(app_);
    app_.state = program.app.state;
    app_.main = program.app.main;
    for (const auto& [key, value] : options.overrides) set_setting(app_.state.settings, key, value);
    restore_options(app_);
  }

  Outcome outcome(const std::string& log) {
    const ActionResult result = run_action(app_, [&] { convert(log); });
    return {result.kind, result.number, app_.state.log.input.qsos_written,
            result.text, said_.str(),   program_.files()};
  }

 private:
  void convert(const std::string& log) {
    const DialogAnswers& answers = options_.answers;
    const bool& dialog_shown = app_.state.entry.dialog_shown;
    open_chosen_file(app_, program_.logs + log);
    if (answers.reselect && !dialog_shown) cmdReSelect_Click(app_);
    if (answers.op && !dialog_shown) choose_operator(app_, choice_at<Operator>(*answers.op));
    if (answers.power && !dialog_shown) choose_power(app_, choice_at<Power>(*answers.power));
    kaishi_Click(app_);
  }

  const Program& program_;
  const CliOptions& options_;
  std::ostringstream said_;
  test::NullProfile profile_;
  test::StoppedClock clock_;
  FileTextSort sort_;
  test::NullLauncher launcher_;
  CliDesk desk_{options_, said_};
  Platform platform_{profile_, clock_, sort_, launcher_};
  App app_{platform_, desk_};
};

bool is_text(std::string_view bytes) {
  return std::ranges::none_of(bytes,
                              [](char c) { return is_control(c) && c != '\t' && c != '\r' && c != '\n'; });
}

int count_qsos(std::string_view log) {
  int count = 0;
  for (std::size_t at = 0; (at = log.find("\nQSO:", at)) != std::string_view::npos; ++at) ++count;
  return count;
}

void check_log(const Outcome& outcome, const std::string& name, const std::string& bytes) {
  const auto copy = outcome.files.find(name.substr(0, name.size() - 3) + "log");
  fuzz::require(copy != outcome.files.end() && copy->second == bytes, "a log has its equal copy");
  fuzz::require(bytes.ends_with("\r\nEND-OF-LOG:\r\n"), "a log ends with its last line");
  fuzz::require(count_qsos(bytes) == outcome.qsos && outcome.qsos > 0, "every QSO is counted");
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
  fuzz::require(outcome.kind != ActionResult::list_file, "the list files are well");
  constexpr int numbers[] = {0,
                             RunTimeError::overflow,
                             RunTimeError::bad_subscript,
                             RunTimeError::type_mismatch,
                             RunTimeError::bad_file_name,
                             RunTimeError::past_end};
  fuzz::require(std::ranges::find(numbers, outcome.number) != std::end(numbers),
                "an error of log or summary");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Program program;
  std::string_view rest = fuzz::bytes_of(data, size);
  const fuzz::Switches switches{rest};
  const CliOptions options = options_of(switches);
  const std::string log = switches.on('a') ? "x.all" : "x.ALL";
  constexpr std::string_view separator = "\n%%\n";
  const std::size_t end = rest.find(separator);
  Files inputs{{log, std::string{rest.substr(0, end)}}};
  if (end != std::string_view::npos) inputs["x.zsm"] = rest.substr(end + separator.size());

  const auto run = [&] {
    program.put(inputs);
    return Run{program, options}.outcome(log);
  };
  const Outcome outcome = run();
  fuzz::require(run() == outcome, "a second run does the same");
  outcome.kind == ActionResult::done ? check_outputs(outcome, inputs) : check_failure(outcome, inputs);
  return 0;
}
