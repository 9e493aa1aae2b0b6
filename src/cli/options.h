#pragma once
// What the command line asks for.

#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace varnisto {

/// A setting for this run: key as in Varnisto.ini, and its value.
using SettingOverride = std::pair<std::string, std::string>;

/// Answers to what the dialogs ask; an option that was not given leaves what the dialog presets.
struct DialogAnswers {
  std::optional<int> power;        ///< index of the power option: high, low, qrp
  std::optional<int> op;           ///< index of the operator option: single-op .. checklog
  std::string contest;             ///< entry of the contest list
  std::optional<int> mode;         ///< mixed, ssb, cw, rtty
  std::optional<int> band;         ///< all, 1.9 .. 28
  std::optional<int> transmitter;  ///< one, two, limited, unlimited, swl
  std::optional<int> station;      ///< fixed .. school
  std::optional<int> iota_class;   ///< 24-hours, 12-hours, 6-hours
  std::optional<bool> prefer;      ///< the dialog wins over the logger's summary
  std::string overlay;             ///< entry of the overlay list; empty: none
  bool reselect = false;           ///< show the selection dialog even when the summary tells everything
};

enum class Command { none, convert, to_zlog, check, settings };

struct CliOptions {
  Command command = Command::none;
  std::string app_dir;
  bool debug = false;
  bool json = false;
  bool quiet = false;
  std::vector<std::string> arguments;      ///< logs, Cabrillo files, or KEY=VALUE
  std::vector<SettingOverride> overrides;  ///< --set and the check-box options
  DialogAnswers answers;
};

/// Exit statuses of the program.
enum ExitStatus { exit_ok = 0, exit_failed = 1, exit_usage = 2, exit_settings = 3, exit_list_file = 4 };

/// Reads the arguments (without the program's name). Help and version go to `out`, a wrong usage to `err`;
/// both give the exit status instead of options.
std::optional<CliOptions> parse_options(const std::vector<std::string>& arguments, std::ostream& out,
                                        std::ostream& err, int& status);

}  // namespace varnisto
