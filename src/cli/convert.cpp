#include "cli/convert.h"

#include <algorithm>
#include <ostream>

#include "app/driver.h"
#include "app/open_input.h"
#include "app/reselect.h"
#include "base/os.h"
#include "cli/dialog_answers.h"
#include "cli/report.h"
#include "cli/session.h"
#include "core/entry.h"

namespace varnisto {
namespace {

/// Operator and power of the command line act like clicks on the main window.
void click_options(App& app, const DialogAnswers& answers) {
  if (answers.op) choose_operator(app, choice_at<Operator>(*answers.op));
  if (answers.power) choose_power(app, choice_at<Power>(*answers.power));
}

/// Options that answer a dialog that was not shown for this log.
void notice_unasked(Session& session, const DialogAnswers& answers) {
  std::vector<std::string> unasked;
  if (!session.app.state.entry.dialog_shown) unasked = dialog_options_given(answers);
  if (!session.desk.overlay_asked() && !answers.overlay.empty()) unasked.emplace_back("--overlay");
  for (const std::string& option : unasked)
    session.desk.notice(option + ": not asked for this log; see --reselect");
}

/// Opens the log and, unless the input was refused, converts it.
void open_and_convert(Session& session, const DialogAnswers& answers, const std::string& path) {
  App& app = session.app;
  open_chosen_file(app, os::absolute_path(path));
  if (answers.reselect && !app.state.entry.dialog_shown) cmdReSelect_Click(app);
  if (!app.state.entry.dialog_shown) click_options(app, answers);
  notice_unasked(session, answers);
  kaishi_Click(app);
}

}  // namespace

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

namespace {

void put_result(const CliOptions& options, const Session& session, const ActionResult& result,
                std::ostream& out) {
  if (options.json)
    put_json_report(session.app, result, session.desk.messages(), out);
  else if (!options.quiet)
    put_report(session.app, result, out);
}

/// One log from file to report; returns the exit status it asks for. Whatever happens is this log's error.
int convert_log(const CliOptions& options, const std::string& program_folder, const std::string& path,
                std::ostream& out, std::ostream& err) {
  Session session{options, program_folder, err};
  App& app = session.app;
  auto [status, result] = session.start();
  app.state.log.input.in_name = os::absolute_path(path);
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
    status = wrong_answer ? exit_usage : status_of(result);
  }
  put_result(options, session, result, out);
  return status;
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

int to_zlog_files(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                  std::ostream& err) {
  int worst = exit_ok;
  for (const std::string& path : options.arguments) {
    Session session{options, program_folder, err};
    const ActionResult result = run_action(session.app, [&] {
      open_chosen_cbr(session.app, os::absolute_path(path));
      kaishi_Click(session.app);
    });
    put_result(options, session, result, out);
    worst = std::max(worst, status_of(result));
  }
  return worst;
}

}  // namespace varnisto
