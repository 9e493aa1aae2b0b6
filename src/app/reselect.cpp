#include "app/reselect.h"

namespace varnisto {

void cmdReSelect_Click(App& app) {
  app.trace.line("Private Sub cmdReSelect_Click()");
  app.main.lblShori.text.clear();
  ContestState& contest = app.state.contest;
  contest.select_caller = "za2c_zsm";
  app.desk.show(FormName::select_cont);
  if (contest.contest_line.empty()) contest.contest_line = contest.contest_name;
  if (app.state.category.dialog_shown && app.state.input.in_err_flag == 0) app.main.kaishi.enabled = true;
}

void cmdReSet_Click(App& app) {
  app.trace.line("Private Sub cmdReSet_Click()");
  app.desk.set_topmost(FormName::frmOVERLAY, true);
  app.desk.show(FormName::frmOVERLAY);
}

}  // namespace varnisto
