#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <ostream>

#include "base/cp932.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/settings.h"
#include "core/version.h"

namespace varnisto {
namespace {

/// A check box of the main window: option name, settings key, what it does.
struct FlagOption {
  const char* name;
  const char* key;
  const char* help;
};
constexpr FlagOption flag_options[] = {
    {"rtty", "mode_2_rtty_flag", "mode and contest name become RTTY"},
    {"eqsl", "for_eQSL_flag", "write an ADIF file for eQSL"},
    {"memo-freq", "get_freq_flag", "take the frequency from the memo"},
    {"as-1.8", "freq19_to_18_flag", "write 1.9 MHz as 1800 kHz"},
    {"utc", "jst_to_utc_flag", "convert JST to UTC"},
    {"slash", "tenki_flag", "transcribe call signs with / for eQSL"},
    {"qtc", "add_qtc_flag", "add QTC columns to WAEDC lines"},
    {"subject-cbr", "e_mail_subject_flag", "mail subject like the Cabrillo file"},
};

/// An option whose value is the name of a choice in a dialog.
struct ChoiceOption {
  const char* name;
  std::optional<int> DialogAnswers::*answer;
  std::vector<std::string> choices;  ///< in the order of the dialog's options
  const char* help;
};
const std::vector<ChoiceOption>& choice_options() {
  static const std::vector<ChoiceOption> table = {
      {"power", &DialogAnswers::power, {"high", "low", "qrp"}, "power category"},
      {"operator",
       &DialogAnswers::op,
       {"single-op", "single-op-assisted", "school-club", "multi-one", "multi-two", "multi-multi",
        "checklog"},
       "operator category"},
      {"mode", &DialogAnswers::mode, {"mixed", "ssb", "cw", "rtty"}, "mode category"},
      {"band", &DialogAnswers::band, {"all", "1.9", "3.5", "7", "14", "21", "28"}, "band category"},
      {"transmitter",
       &DialogAnswers::transmitter,
       {"one", "two", "limited", "unlimited", "swl"},
       "transmitter category"},
      {"station",
       &DialogAnswers::station,
       {"fixed", "mobile", "driver-mobile", "portable", "expedition", "hq", "school"},
       "station category"},
      {"iota-class", &DialogAnswers::iota_class, {"24-hours", "12-hours", "6-hours"}, "IOTA class"},
  };
  return table;
}

/// Commands that are not built yet.
constexpr const char* later_commands[] = {"send", "lint", "ask", "chart"};
/// Options that belong to logs the program cannot read yet.
constexpr const char* later_options[] = {"--ccc-contest", "--year", "--number", "--score", "--fixed-power"};

/// What the argument parser fills before it is turned into CliOptions.
struct Raw {
  std::vector<std::string> sets;
  std::vector<std::optional<bool>> flags = std::vector<std::optional<bool>>(std::size(flag_options));
  std::vector<std::string> choices = std::vector<std::string>(choice_options().size());
  std::optional<bool> prefer;
  bool no_overlay = false;
  std::vector<std::string> later = std::vector<std::string>(std::size(later_options));
};

bool is_setting_key(std::string_view name) {
  for (const SettingKey& key : setting_keys())
    if (equal_ignoring_case(key.key, name) && key.key != "version") return true;
  return false;
}

/// Takes KEY=VALUE apart. Throws when the key is no setting or the value is longer than a settings file gives
/// back.
SettingOverride parse_override(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string key = text.substr(0, equals);
  if (equals == std::string::npos) throw CLI::ValidationError("KEY=VALUE expected, not \"" + text + "\"");
  if (!is_setting_key(key)) {
    std::string known;
    for (const SettingKey& setting : setting_keys())
      if (setting.key != "version") known += " " + std::string{setting.key};
    throw CLI::ValidationError("unknown setting \"" + key + "\"; settings are:" + known);
  }
  const std::string value = text.substr(equals + 1);
  if (char_count(value) > longest_setting)
    throw CLI::ValidationError("the value of " + key + " has more than " + std::to_string(longest_setting) +
                               " characters");
  if (std::ranges::any_of(value, is_control))
    throw CLI::ValidationError("the value of " + key + " holds a control character");
  try {
    to_cp932(value);
    Settings scratch;
    set_setting(scratch, key, value);
  } catch (const RunTimeError& error) {
    throw CLI::ValidationError(key + ": " + describe(error));
  }
  return {key, value};
}

/// A pair --name / --no-name. Without either `value` stays empty.
void add_switch(CLI::App& command, const std::string& name, std::optional<bool>& value, const char* help) {
  command.add_flag_function(
      "--" + name + ",!--no-" + name, [&value](std::int64_t count) { value = count > 0; }, help);
}

void add_dialog_options(CLI::App& command, Raw& raw, CliOptions& options) {
  command.add_option("--contest", options.answers.contest, "contest, as listed in contest_name.cfg");
  const auto& choices = choice_options();
  for (std::size_t i = 0; i < choices.size(); ++i)
    command.add_option("--" + std::string{choices[i].name}, raw.choices[i], choices[i].help)
        ->check(CLI::IsMember(choices[i].choices));
  add_switch(command, "prefer", raw.prefer, "the choices win over the logger's summary");
  command.add_flag("--reselect", options.answers.reselect, "choose contest and category anew");
  auto* overlay = command.add_option("--overlay", options.answers.overlay, "overlay category, as listed");
  command.add_flag("--no-overlay", raw.no_overlay, "claim no overlay category")->excludes(overlay);
  command.add_flag_callback(
      "--lint", [] { throw CLI::ValidationError("not available yet: --lint"); }, "not available yet");
  for (std::size_t i = 0; i < std::size(later_options); ++i)
    command.add_option(later_options[i], raw.later[i], "for CCC logs: not available yet");
}

void add_run_options(CLI::App& command, Raw& raw, CliOptions& options) {
  command.add_option("--set", raw.sets, "KEY=VALUE: a setting for this run only")
      ->take_all()
      ->allow_extra_args(false);
  for (std::size_t i = 0; i < std::size(flag_options); ++i)
    add_switch(command, flag_options[i].name, raw.flags[i], flag_options[i].help);
  add_dialog_options(command, raw, options);
}

CLI::App* add_command(CLI::App& program, const char* name, const char* help, Command value,
                      CliOptions& options, const char* argument, bool needed) {
  CLI::App* command = program.add_subcommand(name, help);
  auto* files = command->add_option(argument, options.arguments);
  if (needed) files->required();
  command->add_flag("--json", options.json, "one JSON object for each log");
  command->add_flag("--quiet", options.quiet, "only errors");
  command->callback([&options, value] { options.command = value; });
  return command;
}

/// Turns the parsed texts into overrides and answers. Throws CLI::ParseError.
void finish(const Raw& raw, CliOptions& options) {
  for (std::size_t i = 0; i < std::size(flag_options); ++i)
    if (raw.flags[i]) options.overrides.emplace_back(flag_options[i].key, *raw.flags[i] ? "1" : "0");
  for (const std::string& text : raw.sets) options.overrides.push_back(parse_override(text));
  const auto& choices = choice_options();
  for (std::size_t i = 0; i < choices.size(); ++i) {
    const auto& names = choices[i].choices;
    const auto hit = std::ranges::find(names, raw.choices[i]);
    if (hit != names.end()) options.answers.*choices[i].answer = static_cast<int>(hit - names.begin());
  }
  options.answers.prefer = raw.prefer;
  for (std::size_t i = 0; i < std::size(later_options); ++i)
    if (!raw.later[i].empty())
      throw CLI::ValidationError("not available yet: " + std::string{later_options[i]});
  if (options.command == Command::settings)
    for (const std::string& text : options.arguments) options.overrides.push_back(parse_override(text));
}

/// Help without the notes that the parser makes for itself.
class PlainFormatter final : public CLI::Formatter {
 public:
  std::string make_option_name(const CLI::Option* option, bool is_positional) const override {
    return remove_all(CLI::Formatter::make_option_name(option, is_positional), "{false}");
  }
};

/// Version of the program; nothing else may be asked for.
ExitStatus put_version(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  if (arguments.size() == 1) {
    out << "varnisto-cli " << program_version << "\n";
    return exit_ok;
  }
  err << "--version stands alone\n";
  return exit_usage;
}

}  // namespace

std::optional<CliOptions> parse_options(const std::vector<std::string>& arguments, std::ostream& out,
                                        std::ostream& err, int& status) {
  status = exit_ok;
  if (std::ranges::find(arguments, "--version") != arguments.end()) {
    status = put_version(arguments, out, err);
    return std::nullopt;
  }
  CliOptions options;
  Raw raw;
  CLI::App program{"Turns contest logs of zLog into Cabrillo 3.0", "varnisto-cli"};
  program.add_flag("--version")->description("the program's version");
  program.formatter(std::make_shared<PlainFormatter>());
  program.add_option("--app-dir", options.app_dir, "program folder: settings and list files");
  program.add_flag("--debug", options.debug, "write a debug log in the program folder");
  program.require_subcommand(1);
  add_run_options(
      *add_command(program, "convert", "log to Cabrillo, checked", Command::convert, options, "LOG", true),
      raw, options);
  add_command(program, "to-zlog", "Cabrillo to zLog text", Command::to_zlog, options, "CABRILLO", true);
  add_command(program, "check", "check Cabrillo files", Command::check, options, "CABRILLO", true);
  add_command(program, "settings", "show or set settings", Command::settings, options, "KEY=VALUE", false);
  for (const char* const name : later_commands)
    program.add_subcommand(name, "not available yet")->prefix_command()->callback([name] {
      throw CLI::ValidationError(std::string{"not available yet: "} + name);
    });
  try {
    program.parse(std::vector<std::string>{arguments.rbegin(), arguments.rend()});
    finish(raw, options);
    return options;
  } catch (const CLI::ParseError& error) {
    status = program.exit(error, out, err) == 0 ? exit_ok : exit_usage;
    return std::nullopt;
  }
}

}  // namespace varnisto
