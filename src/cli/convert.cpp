#include "cli/convert.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

#include "app/checker.h"
#include "app/driver.h"
#include "app/open_input.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "cli/report.h"
#include "cli/session.h"
#include "core/main_options.h"
#include "core/settings.h"

namespace varnisto {
namespace {

std::string absolute_path(const std::string& path) {
  return std::filesystem::absolute(path).lexically_normal().string();
}

/// Operator and power of the command line act like clicks on the main window.
void click_options(App& app, const DialogAnswers& answers) {
  if (answers.op) Option3_Click(app, *answers.op);
  if (answers.power) Option1_Click(app, *answers.power);
}

/// Opens the log and, unless the input was refused, converts it.
void open_and_convert(App& app, const DialogAnswers& answers, const std::string& path) {
  open_chosen_file(app, path);
  if (app.state.input.in_err_flag == 1) return;
  if (app.state.input.in_kind.empty()) throw Refusal(path + ": *.all, *.zlo, *.txt, *.bin");
  if (!app.state.category.dialog_shown) click_options(app, answers);
  kaishi_Click(app);
}

int status_of(const ActionResult& result) {
  switch (result.kind) {
    case ActionResult::done:
      return exit_ok;
    case ActionResult::not_available:
      return exit_usage;
    case ActionResult::list_file:
      return exit_list_file;
    default:
      return exit_failed;
  }
}

void put_result(const CliOptions& options, const Session& session, const ActionResult& result,
                std::ostream& out) {
  if (options.json)
    put_json_report(session.app, result, session.desk.messages(), out);
  else if (!options.quiet)
    put_report(session.app, result, out);
}

/// One log from file to report; false when no further log needs trying.
bool convert_log(const CliOptions& options, const std::string& program_folder, const std::string& path,
                 std::ostream& out, std::ostream& err, int& status) {
  Session session{options, program_folder, err};
  App& app = session.app;
  if (!session.start(status)) return false;
  app.state.input.in_name = absolute_path(path);
  ActionResult result =
      run_action(app, [&] { open_and_convert(app, options.answers, app.state.input.in_name); });
  if (result.kind == ActionResult::done && app.state.input.in_err_flag == 1)
    result = {ActionResult::refused, 0, app.main.Text1.text};
  put_result(options, session, result, out);
  status = status_of(result);
  return true;
}

/// The checker's report on the terminal: UTF-8, plain line ends.
class StreamSink final : public LineSink {
 public:
  void put(std::string_view line) override { text.append(line).append("\n"); }
  std::string text;
};

void check_file(const CliOptions& options, const std::string& path, std::ostream& out) {
  TextReader log{path};
  StreamSink report;
  const CheckResult result = check_cabrillo(log, path, path, report);
  if (result.errors > 0)
    out << report.text;
  else if (!options.quiet)
    out << path << ": OK (" << result.qsos << " QSO)\n";
}

}  // namespace

int convert_logs(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments) {
    int status = exit_ok;
    const bool go_on = convert_log(options, program_folder, path, out, err, status);
    out.flush();
    worst = std::max(worst, status);
    if (!go_on) break;
  }
  return worst;
}

int check_files(const CliOptions& options, std::ostream& out, std::ostream& err) {
  int status = exit_ok;
  for (const std::string& path : options.arguments) {
    try {
      check_file(options, path, out);
    } catch (const RunTimeError& error) {
      err << describe(error) << "\n";
      status = exit_failed;
    }
  }
  return status;
}

int to_zlog_files(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                  std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments) {
    Session session{options, program_folder, err};
    const ActionResult result = run_action(session.app, [&] {
      open_chosen_cbr(session.app, absolute_path(path));
      kaishi_Click(session.app);
    });
    put_result(options, session, result, out);
    worst = std::max(worst, status_of(result));
  }
  return worst;
}

int run_settings(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err) {
  Session session{options, program_folder, err, SettingsFile::writable};
  App& app = session.app;
  Settings& settings = app.state.settings;
  const ActionResult result = run_action(app, [&] {
    if (app.platform.profile.exists(ini_path(app)))
      read_settings(app);
    else if (file_exists(legacy_path(app)))
      read_Varnisto_cfg(app);
    for (const auto& [key, value] : options.overrides) set_setting(settings, key, value);
    if (!options.overrides.empty()) return write_settings(app);
    for (const SettingKey& key : setting_keys())
      out << key.key << "=" << setting_value(settings, key) << "\n";
  });
  return status_of(result);
}

}  // namespace varnisto
