#include "app/action.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>

#include "core/lists.h"

namespace varnisto {
namespace {

struct Advice {
  RunTimeError::Number number;
  std::string_view text;
};
constexpr Advice advice[] = {
    {RunTimeError::bad_argument, "この値または行を修正して、もう一度実行して下さい。"},
    {RunTimeError::overflow, "ログの値が大き過ぎます。ログの内容を確認して下さい。"},
    {RunTimeError::out_of_memory, "他のプログラムを終了して、もう一度実行して下さい。"},
    {RunTimeError::type_mismatch, "この行を修正して、もう一度実行して下さい。"},
    {RunTimeError::file_not_found, "ファイルの名前と場所を確認して下さい。"},
    {RunTimeError::disk_full, "ディスクの空きを増やして、もう一度実行して下さい。"},
    {RunTimeError::past_end, "ファイルの内容を確認して下さい。"},
    {RunTimeError::permission_denied, "ファイルとフォルダが読み取り専用でないか確認して下さい。"},
    {RunTimeError::path_access_error, "ファイルの名前と種類を確認して下さい。"},
    {RunTimeError::path_not_found, "フォルダがあるか確認して下さい。"},
};
constexpr std::string_view other_advice = "もう一度実行して下さい。";

/// What the user can do about an error.
std::string_view advice_for(RunTimeError::Number number) {
  const auto* hit = std::ranges::find(advice, number, &Advice::number);
  return hit == std::end(advice) ? other_advice : hit->text;
}

/// The action begins; what it and the actions inside it write counts when the outermost one succeeds.
class Running {
 public:
  explicit Running(App& app) : app_(app), mark_(app.outputs.mark()) { ++app_.state.program.running_actions; }
  ~Running() {
    app_.outputs.back_to(mark_);
    --app_.state.program.running_actions;
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

  void succeeded() {
    if (app_.state.program.running_actions == 1) commit_outputs(app_);
    mark_ = app_.outputs.mark();
  }

 private:
  App& app_;
  std::size_t mark_;
};

/// The window stays: the log is marked as not done. Whether it can be started is left to the action.
void give_up(App& app, const RunTimeError& error) {
  app.state.display.progress = Progress::given_up;
  message_box(app, {lines({describe(error), "", advice_for(error.number)}), "", Icon::critical});
}

ActionResult fail(App& app, const RunTimeError& error) {
  const bool trapped = app.trace.armed();
  const bool ends = trapped || !app.state.program.window_open;
  app.trace.line("エラー発生 ：　" + std::to_string(error.number));
  app.desk.hourglass(false);
  if (ends)
    message_box(app, {trapped ? "エラー発生、終了します" : describe(error), "", Icon::critical});
  else
    give_up(app, error);
  return {ActionResult::failed, error.number, describe(error), ends};
}

ActionResult run_trapped(App& app, const std::function<void()>& action) {
  try {
    Running running{app};
    action();
    running.succeeded();
    return {};
  } catch (const NotAvailable& missing) {
    const std::string text = std::string{"not available yet: "} + missing.what();
    app.desk.hourglass(false);
    message_box(app, {text, "", Icon::critical});
    return {ActionResult::not_available, 0, text};
  } catch (const Refusal& refusal) {
    app.state.log.input.opened = false;
    app.desk.hourglass(false);
    app.main.kaishi.enabled = false;
    show_text(app, refusal.what(), Color::red);
    return {ActionResult::refused, 0, refusal.what()};
  } catch (const ProgramEnd& end) {
    app.desk.hourglass(false);
    return {ActionResult::ended, 0, end.what(), true};
  } catch (const ListFileError& error) {
    ActionResult result = fail(app, error);
    result.kind = ActionResult::list_file;
    result.number = 0;
    return result;
  } catch (const RunTimeError& error) {
    return fail(app, error);
  } catch (const std::bad_alloc&) {
    return fail(app, {RunTimeError::out_of_memory, app.state.log.input.in_name});
  } catch (const std::exception& error) {
    return fail(app, {RunTimeError::device_io_error, error.what()});
  }
}

}  // namespace

ActionResult run_action(App& app, const std::function<void()>& action) {
  ActionResult result = run_trapped(app, action);
  if (app.state.program.running_actions == 0) show_notices(app);
  return result;
}

}  // namespace varnisto
