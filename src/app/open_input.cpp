#include "app/open_input.h"

#include <algorithm>
#include <iterator>

#include "app/debug_log.h"
#include "app/later_steps.h"
#include "app/start_up.h"
#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/summary.h"
#include "cabrillo/writer.h"
#include "core/paths.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// What is known of an input kind by its extension.
struct Kind {
  std::string_view ext_upper, in_kind;
  std::string_view zsm_suffix;              ///< of the generated summary
  std::string InputState::*generated_name;  ///< where that name is kept
  bool looks_for_summary;                   ///< the logger may have written one beside the log
};
constexpr Kind kinds[] = {{"ALL", "zlog_all", "_za2c.zsm", &InputState::za2c_name, true},
                          {"ZLO", "zlog_zlo", "_zz2c.zsm", &InputState::zz2c_name, true},
                          {"TXT", "ccc_txt", "_ct2c.zsm", &InputState::ct2c_name, false},
                          {"BIN", "ccc_bin", "_cb2c.zsm", &InputState::cb2c_name, false}};

constexpr std::string_view zlog_export_text =
    "Zlogw の txt 形式には未対応です\r\nZlogw の all 形式のﾌｧｲﾙにて実行して下さい。";
constexpr std::string_view no_ccc_text =
    "CCC の txt 形式ではありません。\r\n正しい CCC の txt 形式のﾌｧｲﾙにて実行して下さい。";
constexpr std::string_view unknown_kind_text =
    "対応していない形式のファイルです。\r\n*.all , *.zlo , *.txt , *.bin のファイルを指定して下さい。";

void clear_display(App& app) {
  clear_text(app);
  for (Label* label : {&app.main.lblGet_zsm1, &app.main.lblGet_zsm2, &app.main.lblGet_zsm3,
                       &app.main.lblGet_zsm4, &app.main.lblPower})
    label->text.clear();
}

/// What a new input must not inherit from the previous one.
void forget_previous(App& app) {
  ContestState& contest = app.state.contest;
  CategoryState& category = app.state.category;
  contest.contest.clear();
  contest.cont_id.clear();
  contest.contest_line.clear();
  contest.contest_name.clear();
  contest.select_from.clear();
  for (std::string* text :
       {&category.cat_summary, &category.zsm_category, &category.qso_band, &category.cat_text,
        &category.dialog_category, &category.dialog_mode, &category.zsm_mode, &category.overlay_cat,
        &category.jidx_category, &category.max_power_text, &category.mode_word})
    text->clear();
  category.cat_mode = "MIXED";
  category.mode_sel = category.band_sel = category.mode_sel_cat = category.lowband_flag = 0;
  category.band_sel_known = category.dialog_shown = category.transmitter_chosen = false;
  app.state.tally = TallyState{};
  app.state.qso = QsoRec{};
  InputState& input = app.state.input;
  for (std::string* text :
       {&input.in_type, &input.in_kind, &input.zsm_kind, &input.zsm_use_name, &input.zsm_send_name})
    text->clear();
  app.state.display = DisplayState{};
  app.state.notes = Notes{};
  input.out_name.clear();
  input.outputs.clear();
  app.main.lblCategory.text.clear();
  app.main.Label2.text.clear();
  app.main.lblYusen.text.clear();
}

void derive_names(App& app) {
  InputState& input = app.state.input;
  split_path(app, input.in_name);
  input.in_name2 = input.in_name;
  app.state.program.ini_name = ini_path(app);
  input.zsm_name = input.in_stem + "zsm";
  input.z2a_name = with_suffix(input.in_name, input.in_ext, "_z2a.all");
  input.cb2t_name = with_suffix(input.in_name, input.in_ext, "_cb2t.txt");
  input.jarl_name = with_suffix(input.in_name, input.in_ext, "_jarl.txt");
  input.in_ext_upper = to_upper(input.in_ext);
}

void derive_output_names(App& app) {
  InputState& input = app.state.input;
  const std::string base = input.in_dir + call_for_names(app);
  input.cbr_name = input.cbr_name2 = base + ".cbr";
  input.adi_name = base + ".adi";
  input.log_name = base + ".log";
  input.qlg_name = base + ".qlg";
}

/// The input cannot be used: says why and keeps the start button off.
void refuse(App& app, std::string_view why) {
  show_text(app, std::string{why}, Color::red);
  app.state.input.in_err_flag = 1;
  app.main.kaishi.enabled = app.main.cmdReSelect.enabled = app.main.cmdRe_write_zlog_zsm.enabled = false;
}

/// A text file that is no CCC log is refused; true when it was.
bool refuse_foreign_text(App& app) {
  std::string_view first;
  TextReader reader{app.state.input.in_name};
  reader.next(first);
  first = left(first, 4);
  if (first == "CCC ") return false;
  const bool zlog_export = first == "mon ";
  if (zlog_export) app.state.input.in_type = "mon";
  refuse(app, zlog_export ? zlog_export_text : no_ccc_text);
  return true;
}

/// Which summary the conversion reads: the logger's when it is there, else the one the program will write.
void choose_summary(App& app, const Kind& kind) {
  InputState& input = app.state.input;
  const bool found = kind.looks_for_summary && file_exists(input.zsm_name);
  input.zsm_kind = std::string{kind.in_kind} + (found ? "_zsm1" : "_zsm0");
  input.zsm_use_name = found ? input.zsm_name : replace_in_name(input.zsm_name, ".zsm", kind.zsm_suffix);
  input.zsm_send_name = input.zsm_use_name;
  if (!found) input.*kind.generated_name = input.zsm_use_name;
}

void prepare(App& app, std::string_view in_kind) {
  InputState& input = app.state.input;
  if (in_kind == "zlog_all") {
    app.main.mnuDisp2_in.enabled = true;
    input.z2a_name_all = input.z2a_name;
    if (const std::string_view why = why_no_all_log(input.in_name); !why.empty()) return refuse(app, why);
    shori_zlog_all(app);
  } else if (in_kind == "zlog_zlo") {
    input.z2a_name_zlo = input.z2a_name;
    mnuMake_z2a_Click(app);
    shori_zlog_zlo(app);
  } else if (in_kind == "ccc_txt") {
    app.main.mnuDisp2_in.enabled = true;
    input.cb2t_name = input.in_name;
    shori_ccc_txt(app);
  } else {
    shori_ccc_bin(app);
  }
}

void open_input(App& app) {
  InputState& input = app.state.input;
  MainForm& main = app.main;
  clear_display(app);
  input.in_err_flag = 0;
  app.state.category.overlay_cat.clear();
  Disp_in_name(app);
  input.in_name_save = input.in_name;
  app.outputs.protect({input.in_name, input.in_stem + "zsm"});
  main.kaishi.enabled = main.cmdReSet.enabled = main.cmdReSelect.enabled = has_folder(input.in_name);
  derive_names(app);
  derive_output_names(app);
  if (input.in_ext_upper == "TXT" && refuse_foreign_text(app)) return;

  const auto* kind = std::ranges::find(kinds, input.in_ext_upper, &Kind::ext_upper);
  if (kind == std::end(kinds)) {
    refuse(app, unknown_kind_text);
  } else {
    input.in_kind = kind->in_kind;
    choose_summary(app, *kind);
    prepare(app, kind->in_kind);
  }
  if (input.in_err_flag == 1) main.kaishi.enabled = false;
  main.mnu_mc.enabled = main.Check1.checked && has_folder(input.in_name) && file_exists(input.cbr_name2);
  enable_outputs(app);
  zsm_disp_chk(app);
}

}  // namespace

void FileOpen2(App& app) {
  app.trace.line("Public Sub FileOpen2()");
  try {
    open_input(app);
  } catch (...) {  // half an opened log must not be converted
    app.state.input.in_err_flag = 1;
    app.main.kaishi.enabled = false;
    throw;
  }
}

void open_chosen_file(App& app, const std::string& path) {
  InputState& input = app.state.input;
  input.in_name = path;
  split_path(app, path);
  input.jarl_name = with_suffix(path, input.in_ext, "_jarl.txt");
  if (has_folder(path)) {
    forget_previous(app);
    clear_text(app);
    FileOpen2(app);
  }
  if (app.trace.armed()) close_debug_log(app);
}

std::optional<std::string> ask_for_file(App& app, const std::string& title, const std::string& filter) {
  clear_text(app);
  app.main.lblShori.text.clear();
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
  InputState& input = app.state.input;
  input.in_name = input.in_name_save = path;
  app.main.lblIn.text = path;
  app.main.lblIn.color = Color::black;
  const std::string_view name = file_part(path);
  input.out_name = std::string{folder_part(path)}.append(name.substr(0, name.find('.'))).append("_c2z.txt");
  app.outputs.protect({path});
  input.in_type = "cbr";
  app.state.notes = Notes{};
  input.in_err_flag = 0;
  MainForm& main = app.main;
  for (Label* label :
       {&main.lblGet_zsm1, &main.lblGet_zsm2, &main.lblGet_zsm3, &main.lblGet_zsm4, &main.lblPower})
    label->text.clear();
  main.cmdReSelect.enabled = main.cmdReSet.enabled = main.cmdRe_write_zlog_zsm.enabled = false;
  main.kaishi.enabled = true;
  show_text(app, lines({" ｚＬｏｇのｔｘｔ ", " " + input.out_name, " を作成します"}), Color::green);
  if (app.trace.armed() && has_folder(path)) close_debug_log(app);
}

}  // namespace varnisto
