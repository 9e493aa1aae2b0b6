#include "app/reselect.h"

#include "base/files.h"
#include "cabrillo/summary.h"
#include "core/contests.h"

namespace varnisto {

void cmdReSelect_Click(App& app) {
  app.trace.line("Private Sub cmdReSelect_Click()");
  app.state.display.progress = Progress::none;
  ContestState& contest = app.state.log.contest;
  show_select_cont(app);
  if (contest.contest_line.empty()) contest.contest_line = contest.contest_name;
}

void cmdReSet_Click(App& app) {
  app.trace.line("Private Sub cmdReSet_Click()");
  if (family_of(app.state.log.contest.cont_id) != ContestFamily::cq_wpx)
    return message_box(app, {"CATEGORY-OVERLAY は CQ WPX コンテストだけです。", "", Icon::exclamation});
  if (!file_exists(app.state.program.app_dir + "OVERLAY.txt"))
    return message_box(app, {"OVERLAY.txt がありません。", "", Icon::exclamation});
  app.desk.set_topmost(FormName::frmOVERLAY, true);
  app.desk.show(FormName::frmOVERLAY);
}

}  // namespace varnisto
