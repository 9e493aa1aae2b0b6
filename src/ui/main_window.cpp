#include "ui/main_window.h"

#include <algorithm>

#include "app/debug_log.h"
#include "app/driver.h"
#include "app/open_input.h"
#include "app/reselect.h"
#include "app/start_up.h"
#include "base/files.h"
#include "base/os.h"
#include "base/text.h"
#include "core/entry.h"
#include "core/paths.h"
#include "ui/category_rewrite.h"
#include "ui/editor.h"
#include "ui/main_menus.h"
#include "ui/main_view.h"
#include "ui/option_boxes.h"
#include "ui/recent_files.h"

namespace varnisto {
namespace {

constexpr std::string_view recent_names[] = {"mnuRecent1", "mnuRecent2", "mnuRecent3", "mnuRecent4",
                                             "mnuRecent5", "mnuRecent6", "mnuRecent7", "mnuRecent8"};

const ViewerMenu& viewer_named(std::string_view name) {
  return *std::ranges::find(viewer_menus(), name, &ViewerMenu::name);
}

/// The Cabrillo file that the editor opens: the last output, before a run that of an earlier one.
std::string output_to_edit(const InputState& input) {
  return input.out_name.empty() ? input.cbr_name : input.out_name;
}

}  // namespace

MainWindow::MainWindow(App& the_app) : AppForm(the_app) {
  bind_events();
}

void MainWindow::bind_events() {
  for (const OpenMenu& menu : open_menus()) on_click(menu.name, [this, &menu](int) { open_log(menu.name); });
  for (std::size_t i = 0; i < std::size(recent_names); ++i)
    on_click(recent_names[i], [this, i](int) { mnuRecent_Click(static_cast<int>(i)); });
  for (const ViewerMenu& menu : viewer_menus())
    on_click(menu.name, [this, &menu](int) { viewer_Click(menu.name); });
  for (const WebLink& link : web_links())
    on_click(link.name, [this, &link](int) { web_link_Click(link.name); });
  for (int number = 2; number <= 9; ++number)
    on_click("Check" + std::to_string(number), [this, number](int) { Check_Click(number); });

  on_click("kaishi", [this](int) { kaishi_Click(); });
  on_click("owari", [this](int) { owari_Click(); });
  on_click("cmdReSet", [this](int) { cmdReSet_Click(); });
  on_click("cmdReSelect", [this](int) { cmdReSelect_Click(); });
  on_click("cmdRe_write_zlog_zsm", [this](int) { cmdRe_write_zlog_zsm_Click(); });
  on_click("cmdMail_Send", [this](int) { cmdMail_Send_Click(); });
  on_click("cmdMail_Send_test", [this](int) { cmdMail_Send_test_Click(); });
  on_click("Option1", [this](int index) { Option1_Click(index); });
  on_click("Option3", [this](int index) { Option3_Click(index); });
  on_click("Check1", [this](int) { Check1_Click(); });
  on_click("mnu_mc", [this](int) { mnu_mc_Click(); });
  on_click("mnu_email_add", [this](int) { mnu_email_add_Click(); });
  on_click("mnu_contest_name", [this](int) { mnu_contest_name_Click(); });
  on_click("mnuMake", [this](int) { mnuMake_Click(); });
  on_click("mnuDebug_mode", [this](int) { mnuDebug_mode_Click(); });
  on_click("mnuWeb_URL", [this](int) { mnuWeb_URL_Click(); });
  on_click("mnuDispHelp", [this](int) { mnuDispHelp_Click(); });
  on_click("mnuVer", [this](int) { mnuVer_Click(); });
}

std::vector<NamedControl> MainWindow::controls() {
  MainForm& m = app.main;
  std::vector<NamedControl> all = {{"Text1", &m.Text1},
                                   {"lblIn", &m.lblIn},
                                   {"lblIn_", &m.lblIn_},
                                   {"lblShori", &m.lblShori},
                                   {"lblPower", &m.lblPower},
                                   {"lblPad_use", &m.lblPad_use},
                                   {"lblGet_zsm1", &m.lblGet_zsm1},
                                   {"lblGet_zsm2", &m.lblGet_zsm2},
                                   {"lblGet_zsm3", &m.lblGet_zsm3},
                                   {"lblGet_zsm4", &m.lblGet_zsm4},
                                   {"Label2", &m.Label2},
                                   {"lblCategory", &m.lblCategory},
                                   {"lblYusen", &m.lblYusen},
                                   {"kaishi", &m.kaishi},
                                   {"owari", &m.owari},
                                   {"cmdReSet", &m.cmdReSet},
                                   {"cmdReSelect", &m.cmdReSelect},
                                   {"cmdRe_write_zlog_zsm", &m.cmdRe_write_zlog_zsm},
                                   {"cmdMail_Send", &m.cmdMail_Send},
                                   {"cmdMail_Send_test", &m.cmdMail_Send_test},
                                   {"Option1", &m.Option1},
                                   {"Option3", &m.Option3},
                                   {"Check1", &m.Check1},
                                   {"Check2", &m.Check2},
                                   {"Check3", &m.Check3},
                                   {"Check4", &m.Check4},
                                   {"Check5", &m.Check5},
                                   {"Check6", &m.Check6},
                                   {"Check7", &m.Check7},
                                   {"Check8", &m.Check8},
                                   {"Check9", &m.Check9},
                                   {"mnuOpen_file", &m.mnuOpen_file},
                                   {"mnuOpen_all", &m.mnuOpen_all},
                                   {"mnuOpen_zlo", &m.mnuOpen_zlo},
                                   {"mnuOpen_txt", &m.mnuOpen_txt},
                                   {"mnuOpen_bin", &m.mnuOpen_bin},
                                   {"mnuOpen_cbr", &m.mnuOpen_cbr},
                                   {"mnuRecent", &m.mnuRecent},
                                   {"mnuCFG", &m.mnuCFG},
                                   {"mnuMake", &m.mnuMake},
                                   {"mnuDisp", &m.mnuDisp},
                                   {"mnuDisp2_", &m.mnuDisp2_},
                                   {"mnuZsm", &m.mnuZsm},
                                   {"mnu_edit", &m.mnu_edit},
                                   {"mnu_mc", &m.mnu_mc},
                                   {"mnu_contest_name", &m.mnu_contest_name},
                                   {"mnu_email_add", &m.mnu_email_add},
                                   {"mnuWeb", &m.mnuWeb},
                                   {"mnuWeb_URL", &m.mnuWeb_URL},
                                   {"mnuHelp", &m.mnuHelp},
                                   {"mnuVer", &m.mnuVer},
                                   {"mnuDispHelp", &m.mnuDispHelp},
                                   {"mnuDebug", &m.mnuDebug},
                                   {"mnuDebug_mode", &m.mnuDebug_mode}};
  for (std::size_t i = 0; i < std::size(recent_names); ++i)
    all.push_back({recent_names[i], &m.mnuRecent_in[i]});
  for (const ViewerMenu& menu : viewer_menus()) all.push_back({menu.name, &(m.*menu.item)});
  for (const WebLink& link : web_links()) all.push_back({link.name, &(m.*link.item)});
  return all;
}

void MainWindow::refresh() {
  show_state(app);
}

void MainWindow::show_recent_files() {
  const std::vector<std::string> files = recent_files(app);
  app.main.mnuRecent.enabled = app.main.mnuOpen_file.enabled && !files.empty();
  for (std::size_t i = 0; i < app.main.mnuRecent_in.size(); ++i) {
    MenuItem& item = app.main.mnuRecent_in[i];
    item.visible = i < files.size();
    item.caption = item.visible ? files[i] : "";
  }
}

void MainWindow::Form_Load() {
  varnisto::Form_Load(app);
  app.state.program.window_open = true;
  show_state(app);
  caption = app.main.caption;
  show_recent_files();
}

// ---- opening ----

void MainWindow::open_log(std::string_view name) {
  const OpenMenu& menu = *std::ranges::find(open_menus(), name, &OpenMenu::name);
  app.trace.line("Private Sub " + std::string{name} + "_Click()");
  const std::string title{menu.title}, filter{menu.filter};
  if (menu.kind != InputKind::cabrillo) {
    if (set_in_dir_Open_file(app, title, filter)) remember_opened();
  } else if (const auto path = ask_for_file(app, title, filter)) {
    open_chosen_cbr(app, *path);
    remember_opened();
  }
}

void MainWindow::open_path(const std::string& path) {
  const auto refuse = [&](std::initializer_list<std::string_view> text) {
    message_box(app, {varnisto::lines(text), "", Icon::exclamation});
  };
  if (!app.main.mnuOpen_file.enabled)
    return refuse(
        {"Varnisto.ini がまだ作成されていません", "ﾒﾆｭｰの[ 環境 ]よりVarnisto.ini を作成して下さい"});
  const auto file = find_file(os::absolute_path(path));
  if (!file || !is_plain_file(*file)) return refuse({path, "がありません。"});
  const OpenMenu* menu = open_menu_for(pieces_of(*file).ext);
  if (!menu)
    return refuse(
        {path, "は開けません。", "＊．all ＊．zlo ＊．txt ＊．bin ＊．cbr のﾌｧｲﾙを指定して下さい。"});
  clear_text(app);
  app.state.display.progress = Progress::none;
  if (menu->kind == InputKind::cabrillo)
    open_chosen_cbr(app, *file);
  else
    open_chosen_file(app, *file);
  remember_opened();
}

void MainWindow::remember_opened() {
  if (!app.state.log.input.opened) return;
  remember_file(app, app.state.log.input.in_name);
  show_recent_files();
}

void MainWindow::mnuOpen_all_Click() {
  open_log("mnuOpen_all");
}
void MainWindow::mnuOpen_zlo_Click() {
  open_log("mnuOpen_zlo");
}
void MainWindow::mnuOpen_txt_Click() {
  open_log("mnuOpen_txt");
}
void MainWindow::mnuOpen_bin_Click() {
  open_log("mnuOpen_bin");
}
void MainWindow::mnuOpen_cbr_Click() {
  open_log("mnuOpen_cbr");
}

void MainWindow::open_dropped_file(const std::string& path) {
  open_path(path);
}

void MainWindow::mnuRecent_Click(int index) {
  const std::string path = app.main.mnuRecent_in.at(static_cast<std::size_t>(index)).caption;
  if (!path.empty()) open_path(path);
  show_recent_files();
}

// ---- buttons ----

void MainWindow::kaishi_Click() {
  varnisto::kaishi_Click(app);
}

void MainWindow::owari_Click() {
  if (closed) return;
  varnisto::owari_Click(app);
  closed = true;
}

void MainWindow::cmdReSet_Click() {
  varnisto::cmdReSet_Click(app);
}
void MainWindow::cmdReSelect_Click() {
  varnisto::cmdReSelect_Click(app);
}
void MainWindow::cmdRe_write_zlog_zsm_Click() {
  varnisto::cmdRe_write_zlog_zsm_Click(app);
}

void MainWindow::cmdMail_Send_Click() {
  throw NotAvailable("send");
}
void MainWindow::cmdMail_Send_test_Click() {
  throw NotAvailable("send");
}

// ---- options and check boxes ----

void MainWindow::Option1_Click(int index) {
  choose_power(app, choice_at<Power>(index));
}
void MainWindow::Option3_Click(int index) {
  choose_operator(app, choice_at<Operator>(index));
}
void MainWindow::Check1_Click() {
  varnisto::Check1_Click(app);
}

void MainWindow::Check_Click(int number) {
  app.trace.line("Private Sub Check" + std::to_string(number) + "_Click()");
  const OptionBox& row = option_boxes()[static_cast<std::size_t>(number) - 1];
  app.state.settings.*row.flag = (app.main.*row.box).checked;
  app.state.display.progress = Progress::none;
}

// ---- menus ----

void MainWindow::mnu_mc_Click() {
  app.trace.line("Private Sub mnu_mc_Click()");
  edit_file(app, output_to_edit(app.state.log.input));
}
void MainWindow::mnu_email_add_Click() {
  app.trace.line("Private Sub mnu_email_add_Click()");
  edit_file(app, app.state.program.app_dir + "e_mail_add.cfg");
}
void MainWindow::mnu_contest_name_Click() {
  app.trace.line("Private Sub mnu_contest_name_Click()");
  edit_file(app, app.state.program.app_dir + "contest_name.cfg");
}

void MainWindow::viewer_Click(std::string_view menu) {
  show_in_viewer(app, viewer_named(menu));
}

void MainWindow::mnuMake_Click() {
  app.trace.line("Private Sub mnuMake_Click()");
  app.state.display.progress = Progress::none;
  app.main.mnuDisp.enabled = app.platform.profile.exists(app.state.program.ini_name);
  // What the selection dialog chose for the open log beyond the main window's options stays.
  const EntryChoice entry = app.state.entry;
  app.desk.show(FormName::Make_cfg);
  Form_Load();
  if (entry.dialog_shown) app.state.entry = entry;
}

void MainWindow::mnuDebug_mode_Click() {
  varnisto::mnuDebug_mode_Click(app);
}

void MainWindow::web_link_Click(std::string_view menu) {
  open_web_link(app, menu);
}
void MainWindow::mnuWeb_URL_Click() {
  app.trace.line("Private Sub mnuWeb_URL_Click()");
  app.desk.show(FormName::frmWeb_URL);
}
void MainWindow::mnuDispHelp_Click() {
  varnisto::mnuDispHelp_Click(app);
}
void MainWindow::mnuVer_Click() {
  app.trace.line("Private Sub mnuVer_Click()");
  app.desk.show(FormName::frmVer);
}

// ---- the window's place ----

std::string MainWindow::geometry() const {
  return window_geometry(app);
}
void MainWindow::keep_geometry(const std::string& text) {
  keep_window_geometry(app, text);
}

}  // namespace varnisto
