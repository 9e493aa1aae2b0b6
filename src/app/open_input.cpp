#include "app/open_input.h"

#include "app/debug_log.h"
#include "app/later_steps.h"
#include "app/start_up.h"
#include "app/zlo_log.h"
#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/summary.h"
#include "cabrillo/writer.h"
#include "core/entry.h"
#include "core/paths.h"
#include "core/settings.h"
#include "zlo/zlo_head.h"

namespace varnisto {
namespace {

constexpr std::string_view zlog_export_text =
    "Zlogw の txt 形式には未対応です\r\nZlogw の all 形式のﾌｧｲﾙにて実行して下さい。";
constexpr std::string_view no_ccc_text =
    "CCC の txt 形式ではありません。\r\n正しい CCC の txt 形式のﾌｧｲﾙにて実行して下さい。";
constexpr std::string_view unknown_kind_text =
    "対応していない形式のファイルです。\r\n*.all , *.zlo , *.txt , *.bin のファイルを指定して下さい。";

/// Nothing of the previous log stays but the entrant's power and operator.
void begin_log(App& app, const std::string& path) {
  app.state.log = {};
  app.state.entry = entry_of_next_log(app.state.entry);
  app.state.log.input.in_name = path;
  clear_text(app);
}

void derive_names(App& app) {
  InputState& input = app.state.log.input;
  split_path(app, input.in_name);
  app.state.program.ini_name = ini_path(app);
  input.zsm_name = input.in_stem + "zsm";
  input.z2a_name = with_suffix(input.in_name, input.in_ext, "_z2a.all");
  input.cb2t_name = with_suffix(input.in_name, input.in_ext, "_cb2t.txt");
  input.jarl_name = with_suffix(input.in_name, input.in_ext, "_jarl.txt");
}

void derive_output_names(App& app) {
  InputState& input = app.state.log.input;
  const std::string base = input.in_dir + call_for_names(app);
  input.cbr_name = base + ".cbr";
  input.adi_name = base + ".adi";
  input.log_name = base + ".log";
  input.qlg_name = base + ".qlg";
}

/// Throws Refusal for a text file that is no CCC log.
void refuse_foreign_text(const std::string& path) {
  std::string_view first;
  TextReader reader{path};
  reader.next(first);
  first = left(first, 4);
  if (first != "CCC ") throw Refusal(std::string{first == "mon " ? zlog_export_text : no_ccc_text});
}

/// Which summary the conversion reads: the logger's when it is there, else the one the program will write.
void choose_summary(InputState& input) {
  input.has_zsm = names_of(input.in_kind).looks_for_summary && file_exists(input.zsm_name);
  input.zsm_use_name = input.has_zsm ? input.zsm_name : generated_summary(input, input.in_kind);
}

void prepare(App& app) {
  InputState& input = app.state.log.input;
  switch (input.in_kind) {
    case InputKind::zlog_all:
      if (const std::string_view why = why_no_all_log(input.in_name); !why.empty())
        throw Refusal(std::string{why});
      return shori_zlog_all(app);
    case InputKind::zlog_zlo:
      if (const std::string_view why = why_no_zlo_log(input.in_name); !why.empty())
        throw Refusal(std::string{why});
      if (input.has_zsm) mnuMake_z2a_Click(app);  // without a summary the whole text log follows at once
      return shori_zlog_zlo(app);
    case InputKind::ccc_txt:
      input.cb2t_name = input.in_name;
      return shori_ccc_txt(app);
    case InputKind::ccc_bin:
      return shori_ccc_bin(app);
    case InputKind::none:
    case InputKind::cabrillo:
      throw Refusal(std::string{unknown_kind_text});
  }
}

void open_input(App& app) {
  InputState& input = app.state.log.input;
  MainForm& main = app.main;
  Disp_in_name(app);
  input.in_name_save = input.in_name;
  app.outputs.protect({input.in_name, input.in_stem + "zsm"});
  main.kaishi.enabled = main.cmdReSet.enabled = main.cmdReSelect.enabled = has_folder(input.in_name);
  derive_names(app);
  derive_output_names(app);
  main.mnu_mc.enabled =
      app.state.settings.pad_use_flag && has_folder(input.in_name) && file_exists(input.cbr_name);
  const auto kind = log_kind_of(to_upper(input.in_ext));
  if (kind == InputKind::ccc_txt) refuse_foreign_text(input.in_name);
  if (!kind) throw Refusal(std::string{unknown_kind_text});
  input.in_kind = *kind;
  choose_summary(input);
  prepare(app);
  input.opened = true;
  if (needs_selection(app)) main.kaishi.enabled = false;  // else as a selection dialog has left it
}

/// A debug log ends where its log is refused.
void open_or_refuse(App& app) {
  try {
    FileOpen2(app);
  } catch (const Refusal&) {
    if (app.trace.armed()) close_debug_log(app);
    throw;
  }
}

/// Half an opened log must not be converted.
void block(App& app) {
  MainForm& main = app.main;
  main.kaishi.enabled = main.cmdReSelect.enabled = main.cmdRe_write_zlog_zsm.enabled = false;
}

}  // namespace

void FileOpen2(App& app) {
  app.trace.line("Public Sub FileOpen2()");
  try {
    open_input(app);
  } catch (...) {
    block(app);
    throw;
  }
}

void open_chosen_file(App& app, const std::string& path) {
  if (has_folder(path)) {
    begin_log(app, path);
    open_or_refuse(app);
  }
  if (app.trace.armed()) close_debug_log(app);
}

std::optional<std::string> ask_for_file(App& app, const std::string& title, const std::string& filter) {
  clear_text(app);
  app.state.display.progress = Progress::none;
  const std::string& folder = app.state.settings.set_in_dir;
  return app.desk.open_file_dialog({"　" + folder + title, filter, folder});
}

bool set_in_dir_Open_file(App& app, const std::string& title, const std::string& filter) {
  app.trace.line("Public Sub set_in_dir_Open_file()");
  const auto path = ask_for_file(app, title, filter);
  if (path) open_chosen_file(app, *path);
  return path.has_value();
}

void open_chosen_cbr(App& app, const std::string& path) {
  begin_log(app, path);
  InputState& input = app.state.log.input;
  input.in_name_save = path;
  input.in_kind = InputKind::cabrillo;
  app.main.lblIn.text = path;
  app.main.lblIn.color = Color::black;
  const std::string_view name = file_part(path);
  input.out_name = std::string{folder_part(path)}.append(name.substr(0, name.find('.'))).append("_c2z.txt");
  app.outputs.protect({path});
  input.opened = true;
  MainForm& main = app.main;
  main.cmdReSelect.enabled = main.cmdReSet.enabled = main.cmdRe_write_zlog_zsm.enabled = false;
  main.kaishi.enabled = true;
  show_text(app, lines({" ｚＬｏｇのｔｘｔ ", " " + input.out_name, " を作成します"}), Color::green);
  if (app.trace.armed() && has_folder(path)) close_debug_log(app);
}

}  // namespace varnisto
