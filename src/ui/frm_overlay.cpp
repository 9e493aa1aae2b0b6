#include "ui/frm_overlay.h"

#include "base/text.h"
#include "cabrillo/contest.h"
#include "core/lists.h"

namespace varnisto {
namespace {

constexpr int no_overlay = 0, claim_overlay = 1;

/// The mode that decides which offers are listed: the selection dialog's, else that of summary or log.
const std::string& mode_of_entry(const App& app) {
  const CategoryState& category = app.state.category;
  if (category.overlay_caller == "select_cont") return category.dialog_mode;
  return contains(app.state.input.in_kind, "ccc") ? app.state.qso.mode2 : category.zsm_mode;
}

}  // namespace

std::string overlay_key_of(std::string_view cont_id, std::string_view mode) {
  std::string key = is_cq_wpx(cont_id) ? "CQ-WPX" : "";
  const std::string upper = to_upper(mode);
  if (upper == "CW") key += "-CW";
  if (upper == "PH" || upper == "SSB") key += "-SSB";
  return key;
}

FrmOverlay::FrmOverlay(App& app) : app_(app) {
  Option1 = option_group(" CATEGORY-OVERLAY ", {"使用しない。", "使用する。"});
  cmdOK.caption = "Ｏ Ｋ";
  cmdBack.caption = "戻る";
  on_click("Option1", [this](int) { Option1_Click(); });
  on_click("List1", [this](int) { List1_Click(); });
  on_click("cmdOK", [this](int) { cmdOK_Click(); });
  on_click("cmdBack", [this](int) { cmdBack_Click(); });
  Form_Load();
}

std::vector<NamedControl> FrmOverlay::controls() {
  return {{"Option1", &Option1},
          {"List1", &List1},
          {"Label1", &Label1},
          {"cmdOK", &cmdOK},
          {"cmdBack", &cmdBack}};
}

void FrmOverlay::Form_Load() {
  app_.trace.line("Private Sub Form_Load()_frmOVERLAY");
  CategoryState& category = app_.state.category;
  category.overlay_cat.clear();
  app_.main.Label2.text.clear();
  category.overlay_back = false;
  const std::string& mode = mode_of_entry(app_);
  caption = app_.state.contest.cont_id + "    " + mode;
  category.overlay_key = overlay_key_of(app_.state.contest.cont_id, mode);
  read_offers();
  Option1.selected = no_overlay;
  Op1_Chk();
}

void FrmOverlay::read_offers() {
  FieldReader reader{TextReader{app_.state.program.app_dir + "OVERLAY.txt"}};
  List1.items.clear();
  std::optional<std::string> key = next_of_record(reader);
  for (; key; key = reader.next()) {
    std::string offer = next_of_record(reader);
    if (*key == app_.state.category.overlay_key) List1.items.push_back(std::move(offer));
  }
}

void FrmOverlay::Op1_Chk() {
  Option1.color_selected();
  List1.visible = Option1.selected == claim_overlay;
}

void FrmOverlay::Option1_Click() {
  app_.trace.line("Private Sub Option1_Click()_frmOVERLAY");
  Op1_Chk();
  cmdOK.enabled = Option1.selected == no_overlay || List1.selected >= 0;
}

void FrmOverlay::List1_Click() {
  app_.trace.line("Private Sub List1_Click()_frmOVERLAY");
  if (List1.selected < 0) return;
  Label1.text = "CATEGORY-OVERLAY : " + List1.items.at(static_cast<std::size_t>(List1.selected));
  cmdOK.enabled = true;
}

void FrmOverlay::cmdOK_Click() {
  app_.trace.line("Private Sub cmdOK_Click()_frmOVERLAY");
  if (Option1.selected == claim_overlay && List1.selected < 0) return;
  std::string& overlay = app_.state.category.overlay_cat;
  overlay.clear();
  if (Option1.selected == claim_overlay) {
    overlay = trim(List1.items.at(static_cast<std::size_t>(List1.selected)));
    if (!overlay.empty()) {
      app_.main.Label2.text = "CATEGORY-OVERLAY : " + overlay;
      app_.main.cmdReSet.enabled = true;
    }
  } else {
    app_.main.Label2.text.clear();
  }
  closed = true;
}

void FrmOverlay::cmdBack_Click() {
  app_.trace.line("Private Sub cmdBack_Click()_frmOVERLAY");
  app_.state.category.overlay_back = true;
  closed = true;
}

}  // namespace varnisto
