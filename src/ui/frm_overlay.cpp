#include "ui/frm_overlay.h"

#include "base/text.h"
#include "core/contests.h"
#include "core/lists.h"

namespace varnisto {
namespace {

constexpr int no_overlay = 0, claim_overlay = 1;

/// The mode that decides which offers are listed: the selection dialog's, else the summary's.
std::optional<Mode> mode_of_offers(const State& state) {
  return state.log.category.overlay_caller == OverlayCaller::select_cont ? std::optional{state.entry.mode}
                                                                         : state.log.category.zsm_mode;
}

/// That mode in the window's title.
std::string_view mode_in_title(const State& state) {
  const auto mode = mode_of_offers(state);
  if (!mode) return "";
  return state.log.category.overlay_caller == OverlayCaller::select_cont ? names_of(*mode).dialog
                                                                         : names_of(*mode).cat_mode;
}

}  // namespace

std::string overlay_key_of(std::string_view cont_id, std::optional<Mode> mode) {
  std::string key = family_of(cont_id) == ContestFamily::cq_wpx ? "CQ-WPX" : "";
  if (mode == Mode::cw) key += "-CW";
  if (mode == Mode::ssb) key += "-SSB";
  return key;
}

frmOVERLAY::frmOVERLAY(App& the_app) : AppForm(the_app) {
  Option1 = option_group(" CATEGORY-OVERLAY ", {"使用しない。", "使用する。"});
  cmdOK.caption = "Ｏ Ｋ";
  cmdBack.caption = "戻る";
  on_click("Option1", [this](int) { Option1_Click(); });
  on_click("List1", [this](int) { List1_Click(); });
  on_click("cmdOK", [this](int) { cmdOK_Click(); });
  on_click("cmdBack", [this](int) { cmdBack_Click(); });
}

std::vector<NamedControl> frmOVERLAY::controls() {
  return {{"Option1", &Option1},
          {"List1", &List1},
          {"Label1", &Label1},
          {"cmdOK", &cmdOK},
          {"cmdBack", &cmdBack}};
}

void frmOVERLAY::Form_Load() {
  app.trace.line("Private Sub Form_Load()_frmOVERLAY");
  app.state.log.category.overlay_back = false;
  const std::string& contest = app.state.log.contest.cont_id;
  caption = contest + "    " + std::string{mode_in_title(app.state)};
  read_offers(overlay_key_of(contest, mode_of_offers(app.state)));
  Option1.selected = no_overlay;
  Op1_Chk();
}

void frmOVERLAY::read_offers(std::string_view wanted) {
  FieldReader reader{TextReader{app.state.program.app_dir + "OVERLAY.txt"}};
  List1.items.clear();
  std::optional<std::string> key = next_of_record(reader);
  for (; key; key = reader.next()) {
    std::string offer = next_of_record(reader);
    if (*key == wanted) List1.items.push_back(std::move(offer));
  }
}

void frmOVERLAY::Op1_Chk() {
  Option1.color_selected();
  List1.visible = Option1.selected == claim_overlay;
}

void frmOVERLAY::Option1_Click() {
  app.trace.line("Private Sub Option1_Click()_frmOVERLAY");
  Op1_Chk();
  cmdOK.enabled = Option1.selected == no_overlay || List1.selected >= 0;
}

void frmOVERLAY::List1_Click() {
  app.trace.line("Private Sub List1_Click()_frmOVERLAY");
  if (List1.selected < 0) return;
  Label1.text = "CATEGORY-OVERLAY : " + List1.items.at(static_cast<std::size_t>(List1.selected));
  cmdOK.enabled = true;
}

void frmOVERLAY::cmdOK_Click() {
  app.trace.line("Private Sub cmdOK_Click()_frmOVERLAY");
  if (Option1.selected == claim_overlay && List1.selected < 0) return;
  std::string& overlay = app.state.entry.overlay_cat;
  overlay.clear();
  if (Option1.selected == claim_overlay)
    overlay = trim(List1.items.at(static_cast<std::size_t>(List1.selected)));
  if (!overlay.empty()) app.main.cmdReSet.enabled = true;
  closed = true;
}

void frmOVERLAY::cmdBack_Click() {
  app.trace.line("Private Sub cmdBack_Click()_frmOVERLAY");
  app.state.entry.overlay_cat.clear();
  app.state.log.category.overlay_back = true;
  closed = true;
}

}  // namespace varnisto
