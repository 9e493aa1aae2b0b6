#include "app/action.h"

#include "core/lists.h"

namespace varnisto {
namespace {

/// The state in which the window takes the next action.
void release_window(App& app, bool can_start) {
  app.desk.hourglass(false);
  app.main.kaishi.enabled = can_start;
}

ActionResult fail(App& app, const RunTimeError& error, ActionResult::Kind kind) {
  const bool trapped = app.trace.armed();
  app.trace.line("エラー発生 ：　" + std::to_string(error.number));
  app.desk.hourglass(false);
  message_box(app, {trapped ? "エラー発生、終了します" : describe(error), "", Icon::critical});
  return {kind, error.number, describe(error)};
}

}  // namespace

ActionResult run_action(App& app, const std::function<void()>& action) {
  const bool could_start = app.main.kaishi.enabled;
  const std::string input = app.state.input.in_name;
  try {
    action();
    return {};
  } catch (const NotAvailable& missing) {
    const std::string text = std::string{"not available yet: "} + missing.what();
    release_window(app, could_start && app.state.input.in_name == input);
    message_box(app, {text, "", Icon::critical});
    return {ActionResult::not_available, 0, text};
  } catch (const Refusal& refusal) {
    app.state.input.in_err_flag = 1;
    release_window(app, false);
    show_text(app, refusal.what(), Color::red);
    return {ActionResult::refused, 0, refusal.what()};
  } catch (const ProgramEnd& end) {
    app.desk.hourglass(false);
    return {ActionResult::ended, 0, end.what()};
  } catch (const ListFileError& error) {
    return fail(app, error, ActionResult::list_file);
  } catch (const RunTimeError& error) {
    return fail(app, error, ActionResult::failed);
  }
}

}  // namespace varnisto
