#include "ui/frm_disp2.h"

namespace varnisto {

frmDisp2::frmDisp2(App& the_app) : AppForm(the_app) {
  caption = "*．Log の表示";
  mnuBack.caption = "戻る";
  on_click("mnuBack", [this](int) { mnuBack_Click(); });
}

std::vector<NamedControl> frmDisp2::controls() {
  return {{"mnuBack", &mnuBack}};
}

void frmDisp2::Form_Load() {
  app.trace.line("Private Sub Form_Load()_frmDisp2");
  caption = app.state.display.disp_name;
  selected_.reset();
  lines_ = TextLines::read(app.outputs.current(app.state.display.disp_name));
}

void frmDisp2::mnuBack_Click() {
  app.trace.line("Private Sub mnuBack_Click()");
  closed = true;
}

bool frmDisp2::find_text(std::string_view text, Direction direction) {
  const std::size_t count = lines_.size();
  std::size_t from = 0;
  if (direction == Direction::down)
    from = selected_ ? *selected_ + 1 : 0;
  else
    from = selected_.value_or(0) + count - 1;
  const auto hit = count == 0 ? std::nullopt : find_line(lines_, text, from, direction);
  if (hit) selected_ = hit;
  return hit.has_value();
}

}  // namespace varnisto
