#include "ui/main_menus.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "base/fields.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "core/settings.h"
#include "platform/program_folder.h"

namespace varnisto {
namespace {

constexpr OpenMenu opens[] = {
    {"mnuOpen_all", InputKind::zlog_all, "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ａｌｌ ) ファイルを  開く ....",
     "ﾃｷｽﾄﾌｧｲﾙ ( *.all )|*.all|"},
    {"mnuOpen_zlo", InputKind::zlog_zlo, "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ｚｌｏ ) ファイルを  開く ....",
     "ﾃｷｽﾄﾌｧｲﾙ ( *.zlo )|*.zlo;*.zlox|"},
    {"mnuOpen_txt", InputKind::ccc_txt, "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ｔｘｔ ) ファイルを  開く ....",
     "ﾃｷｽﾄﾌｧｲﾙ ( *.txt )|*.txt|"},
    {"mnuOpen_bin", InputKind::ccc_bin, "　の ﾊﾞｲﾅﾘｰﾌｧｲﾙ ( ＊．ｂｉｎ ) ファイルを  開く ....",
     "ﾃｷｽﾄﾌｧｲﾙ ( *.bin )|*.bin|"},
    {"mnuOpen_cbr", InputKind::cabrillo, "　の ﾃｷｽﾄﾌｧｲﾙ ( ＊．ｃｂｒ ) ファイルを  開く ....",
     "ﾃｷｽﾄﾌｧｲﾙ ( *.cbr )|*.cbr|"}};

/// The input, when it is text.
std::string text_input(const InputState& input) {
  const bool text = input.in_kind == InputKind::zlog_all || input.in_kind == InputKind::ccc_txt;
  return text ? input.in_name : "";
}

/// The output with this extension: the file that was written or its copy; before a run the file of an earlier
/// one.
std::string output_ending(const InputState& input, std::string_view ext) {
  for (const std::string* name : {&input.out_name, &input.log_name, &input.cbr_name})
    if (name->ends_with(ext)) return *name;
  return input.cbr_name.empty() ? "" : replace_in_name(input.cbr_name, ".cbr", ext);
}

template <std::string InputState::*name>
std::string named(const InputState& input) {
  return input.*name;
}

template <InputKind kind>
std::string generated(const InputState& input) {
  return generated_summary(input, kind);
}

using I = InputState;
using M = MainForm;
constexpr ViewerMenu viewers[] = {
    {"mnuDisp2_in", &M::mnuDisp2_in, text_input},
    {"mnuDisp2_out1", &M::mnuDisp2_out1, [](const I& input) { return output_ending(input, ".cbr"); }},
    {"mnuDisp2_out3", &M::mnuDisp2_out3, [](const I& input) { return output_ending(input, ".log"); }},
    {"mnuDisp2_out2", &M::mnuDisp2_out2, named<&I::adi_name>},
    {"mnuDisp2_Qtc", &M::mnuDisp2_Qtc, named<&I::qlg_name>},
    {"all_Disp_z2a", &M::all_Disp_z2a, named<&I::z2a_name>},
    {"txt_Disp_c2t", &M::txt_Disp_c2t, named<&I::cb2t_name>},
    {"zsm_Disp_zsm", &M::zsm_Disp_zsm, named<&I::zsm_use_name>},
    {"zsm_Disp_za2c", &M::zsm_Disp_za2c, generated<InputKind::zlog_all>},
    {"zsm_Disp_zz2c", &M::zsm_Disp_zz2c, generated<InputKind::zlog_zlo>},
    {"zsm_Disp_ct2c", &M::zsm_Disp_ct2c, generated<InputKind::ccc_txt>},
    {"zsm_Disp_cb2c", &M::zsm_Disp_cb2c, generated<InputKind::ccc_bin>}};

constexpr WebLink links[] = {
    {"mnuVESTRA", &M::mnuVESTRA},     {"mnuARRL", &M::mnuARRL}, {"mnuCQWW", &M::mnuCQWW},
    {"mnuWAEDC", &M::mnuWAEDC},       {"mnuAA", &M::mnuAA},     {"mnuJIDX", &M::mnuJIDX},
    {"mnuCabrillo", &M::mnuCabrillo}, {"mnuzLog", &M::mnuzLog}, {"mnuHamlog", &M::mnuHamlog},
    {"mnuKOVRIN", &M::mnuKOVRIN}};

/// A file of the program folder or, when it is not there, the one that ships; "" when neither is there.
std::string shipped_file(const App& app, const std::string& name) {
  for (const std::string& folder : {app.state.program.app_dir, shipped_folder()})
    if (!folder.empty() && file_exists(folder + name)) return folder + name;
  return "";
}

void tell(App& app, const std::string& text) {
  message_box(app, {text, "", Icon::exclamation});
}

}  // namespace

void start_outside(App& app, const std::function<void()>& start) {
  try {
    start();
  } catch (const RunTimeError& error) {
    tell(app, describe(error));
  }
}

std::span<const OpenMenu> open_menus() {
  return opens;
}

const OpenMenu* open_menu_for(std::string_view ext) {
  const auto kind = kind_of(to_upper(ext));
  const auto* hit = std::ranges::find_if(opens, [&](const OpenMenu& menu) { return menu.kind == kind; });
  return hit == std::end(opens) ? nullptr : hit;
}

std::span<const ViewerMenu> viewer_menus() {
  return viewers;
}

void show_in_viewer(App& app, const ViewerMenu& menu) {
  app.trace.line("Private Sub " + std::string{menu.name} + "_Click()");
  write_current_settings(app);
  app.state.display.disp_name = menu.file(app.state.log.input);
  if (!app.state.display.disp_name.empty()) app.desk.show(FormName::frmDisp2);
}

std::span<const WebLink> web_links() {
  return links;
}

std::string web_address(TextReader list, std::string_view menu) {
  for (std::string_view line; list.next(line);) {
    if (line.starts_with(';')) continue;
    std::string name;
    if (take_field(line, name) && name == menu) {
      std::string address;
      take_field(line, address);
      return address;
    }
  }
  return "";
}

void open_web_link(App& app, std::string_view menu) {
  app.trace.line("Private Sub " + std::string{menu} + "_Click()");
  const std::string list = shipped_file(app, "web_menu.cfg");
  if (list.empty()) return tell(app, "[  web_menu ．cfg   ]  がありません。");
  const std::string address = web_address(TextReader{list}, menu);
  if (address.empty()) return tell(app, list + " に " + std::string{menu} + " のアドレスがありません。");
  open_address(app, address);
}

void open_address(App& app, const std::string& address) {
  start_outside(app, [&] { app.platform.launcher.browser(address); });
}

void mnuDispHelp_Click(App& app) {
  app.trace.line("Private Sub mnuDispHelp_Click()");
  const std::string page = shipped_file(app, "help/index.html");
  if (page.empty()) return tell(app, "ヘルプ ( help/index.html ) がありません。");
  start_outside(app, [&] { app.platform.launcher.help(page); });
}

}  // namespace varnisto
