#include "cli/convert.h"

#include <algorithm>
#include <ostream>

#include "app/checker.h"
#include "app/driver.h"
#include "app/open_input.h"
#include "app/reselect.h"
#include "app/start_up.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "cli/dialog_answers.h"
#include "cli/report.h"
#include "cli/session.h"
#include "core/main_options.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// Operator and power of the command line act like clicks on the main window.
void click_options(App& app, const DialogAnswers& answers) {
  if (answers.op) Option3_Click(app, *answers.op);
  if (answers.power) Option1_Click(app, *answers.power);
}

/// Options that answer a dialog that was not shown for this log.
void notice_unasked(Session& session, const DialogAnswers& answers) {
  std::vector<std::string> unasked;
  if (!session.app.state.category.dialog_shown) unasked = dialog_options_given(answers);
  if (!session.desk.overlay_asked() && !answers.overlay.empty()) unasked.emplace_back("--overlay");
  for (const std::string& option : unasked)
    session.desk.notice(option + ": not asked for this log; see --reselect");
}

/// Opens the log and, unless the input was refused, converts it.
void open_and_convert(Session& session, const DialogAnswers& answers, const std::string& path) {
  App& app = session.app;
  open_chosen_file(app, absolute_path(path));
  if (app.state.input.in_err_flag == 1) return;
  if (answers.reselect && !app.state.category.dialog_shown) cmdReSelect_Click(app);
  if (!app.state.category.dialog_shown) click_options(app, answers);
  notice_unasked(session, answers);
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

/// One log from file to report; returns the exit status it asks for.
int convert_log(const CliOptions& options, const std::string& program_folder, const std::string& path,
                std::ostream& out, std::ostream& err) {
  Session session{options, program_folder, err};
  App& app = session.app;
  auto [status, result] = session.start();
  app.state.input.in_name = path;
  if (status == exit_ok) {
    bool wrong_answer = false;
    result = run_action(app, [&] {
      try {
        open_and_convert(session, options.answers, path);
      } catch (const WrongAnswer&) {
        wrong_answer = true;
        throw;
      }
    });
    if (result.kind == ActionResult::done && app.state.input.in_err_flag == 1)
      result = {ActionResult::refused, 0, app.main.Text1.text};
    status = wrong_answer ? exit_usage : status_of(result);
  }
  put_result(options, session, result, out);
  return status;
}

/// The checker's report on the terminal: UTF-8, plain line ends.
class StreamSink final : public LineSink {
 public:
  void put(std::string_view line) override { text.append(line).append("\n"); }
  std::string text;
};

int check_file(const CliOptions& options, const std::string& path, std::ostream& out, std::ostream& err) {
  StreamSink report;
  CheckResult result;
  std::string error;
  try {
    TextReader log{path};
    result = check_cabrillo(log, path, path, report);
  } catch (const RunTimeError& failure) {
    error = describe(failure);
    err << error << "\n";
  }
  if (options.json)
    put_json_check(path, result, error, out);
  else if (result.errors > 0)
    out << report.text;
  else if (error.empty() && !options.quiet)
    out << path << ": OK (" << result.qsos << " QSO)\n";
  return error.empty() ? exit_ok : exit_failed;
}

/// The settings as they stand in the file, the version included.
std::vector<SettingOverride> settings_in_file(const Settings& settings) {
  std::vector<SettingOverride> values;
  for (const SettingKey& key : setting_keys())
    values.emplace_back(key.key, key.key == "version" ? settings.ini_version : setting_value(settings, key));
  return values;
}

}  // namespace

int convert_logs(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments) {
    worst = std::max(worst, convert_log(options, program_folder, path, out, err));
    out.flush();
  }
  return worst;
}

int check_files(const CliOptions& options, std::ostream& out, std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments)
    worst = std::max(worst, check_file(options, path, out, err));
  return worst;
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
    if (options.overrides.empty()) return put_settings(settings_in_file(settings), options.json, out);
    settle_old_settings(settings);
    for (const auto& [key, value] : options.overrides) set_setting(settings, key, value);
    write_settings(app);
  });
  return status_of(result);
}

}  // namespace varnisto
