#include "app/reselect.h"

#include "base/files.h"
#include "cabrillo/contest.h"
#include "cabrillo/summary.h"

namespace varnisto {

void cmdReSelect_Click(App& app) {
  app.trace.line("Private Sub cmdReSelect_Click()");
  app.main.lblShori.text.clear();
  ContestState& contest = app.state.contest;
  contest.select_caller = "za2c_zsm";
  const bool chosen = show_select_cont(app);
  if (contest.contest_line.empty()) contest.contest_line = contest.contest_name;
  if (chosen && app.state.input.in_err_flag == 0) app.main.kaishi.enabled = true;
}

void cmdReSet_Click(App& app) {
  app.trace.line("Private Sub cmdReSet_Click()");
  if (!is_cq_wpx(app.state.contest.cont_id))
    return message_box(app, {"CATEGORY-OVERLAY は CQ WPX コンテストだけです。", "", Icon::exclamation});
  if (!file_exists(app.state.program.app_dir + "OVERLAY.txt"))
    return message_box(app, {"OVERLAY.txt がありません。", "", Icon::exclamation});
  app.desk.set_topmost(FormName::frmOVERLAY, true);
  app.desk.show(FormName::frmOVERLAY);
}

}  // namespace varnisto
