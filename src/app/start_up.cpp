#include "app/start_up.h"

#include <array>

#include "base/checked_int.h"
#include "base/files.h"
#include "base/text.h"
#include "cabrillo/contest.h"
#include "cabrillo/summary.h"
#include "core/entry.h"
#include "core/lists.h"
#include "core/paths.h"
#include "core/settings.h"
#include "core/version.h"

namespace varnisto {
namespace {

struct RequiredFile {
  std::string_view name;
  std::string_view shown;  ///< the name as the message shows it
};
constexpr RequiredFile required[] = {{"contest_name.cfg", "contest_name ．cfg"},
                                     {"e_mail_add.cfg", "e_mail_add ．cfg"},
                                     {"JA_iota.txt", "JA_iota ．txt"},
                                     {"web_url.txt", "web_url ．txt"},
                                     {"category-assisted.txt", "category-assisted ．txt"}};

void check_required_files(App& app) {
  for (const RequiredFile& file : required) {
    if (file_exists(app.state.program.app_dir + std::string{file.name})) continue;
    const std::string missing = "[  " + std::string{file.shown} + "   ]  がありません。";
    message_box(app, {lines({missing, "", app.state.program.app_dir + "　に ｃｏｐｙ して下さい。", "", ""}),
                      "　　エラー　：　必要ファイルがありません。", Icon::critical});
    throw ProgramEnd(missing);
  }
}

/// The version without the "t" of a test edition and what follows it.
void cut_test_version(Settings& settings) {
  settings.ini_version = settings.ini_version.substr(0, settings.ini_version.find('t'));
}

void set_default_island(Settings& settings) {
  if (is_blank(settings.op_iota_island)) settings.op_iota_island = "Honshu Island";
}

void find_settings(App& app) {
  ProgramState& program = app.state.program;
  program.ini_found = app.platform.profile.exists(program.ini_name);
  program.cfg_loaded = program.ini_found;
  if (program.ini_found) {
    read_settings(app);
    settle_old_settings(app.state.settings, true);
  } else if (file_exists(legacy_path(app))) {
    read_Varnisto_cfg(app, app.state.settings);
    program.cfg_loaded = true;
  }
}

void show_prompt(App& app, const std::string& text, Color color) {
  app.main.lblIn.text = text;
  app.main.lblIn.color = color;
}

/// The settings do not allow a conversion: only the settings dialog helps.
void block_until_settings(App& app, const std::string& prompt, std::string_view way) {
  show_prompt(app, prompt, Color::red);
  app.main.mnuOpen_file.enabled = false;
  app.main.mnu_edit.enabled = false;
  app.state.program.ini_missing_flag = true;
  show_text(app, lines({"Varnisto.ini がまだ作成されていません", way}), Color::red);
}

/// The editor's box is ticked when there is an editor, whatever the file says.
void load_editor_state(App& app) {
  Settings& settings = app.state.settings;
  MainForm& main = app.main;
  settings.pad_use_flag = !is_blank(settings.dir_pad);
  if (settings.pad_use_flag)
    main.mnu_edit.enabled = main.mnu_contest_name.enabled = main.mnu_email_add.enabled = true;
  main.mnuDisp.enabled = app.platform.profile.exists(ini_path(app));
  if (settings.pad_use_flag || !app.platform.profile.exists(ini_path(app))) return;
  write_settings(app);
  read_settings(app);
}

void check_settings(App& app) {
  constexpr std::string_view ini_way = "ﾒﾆｭｰの[  ｉｎｉ ]よりVarnisto.iniを作成して下さい";
  constexpr std::string_view cfg_way = "ﾒﾆｭｰの[ 環境 ]よりVarnisto.ini を作成して下さい";
  Settings& settings = app.state.settings;
  const bool editor_ticked = settings.pad_use_flag;
  if (app.platform.profile.exists(ini_path(app))) {
    read_settings(app);
    settle_old_settings(settings, true);
    if (settings.ini_version != program_version || !missing_settings(settings, editor_ticked).empty())
      block_until_settings(app, "旧 ini の為、環境 」より新 ini を作成必要", ini_way);
  } else if (file_exists(legacy_path(app))) {
    read_Varnisto_cfg(app, settings);
    if (settings.ini_version != program_version)
      block_until_settings(app, "旧 ini の為、「環境 」より新 ini を作成して下さい", cfg_way);
  } else {
    block_until_settings(app, "「 環境 」より新 ｉｎｉ を作成して下さい", cfg_way);
  }
  settings.pad_use_flag = editor_ticked;
  restore_options(app);
}

bool there(const App& app, const std::string& path) {
  return has_folder(path) && app.outputs.exists(path);
}

/// A window that loads again takes back what an earlier load blocked.
void unblock(App& app) {
  app.main.mnuOpen_file.enabled = true;
  app.state.program.ini_missing_flag = false;
}

void count_run(App& app) {
  std::string& exe_rec = app.state.settings.exe_rec;
  const std::int16_t runs = to_i16(round_half_even(numeric_value(exe_rec)) + 1, "exe_rec");
  if (runs % 10 == 0) message_box(app, {"たまには使用した感想などのレポート下さいね！", "", Icon::none});
  exe_rec = signed_decimal(runs);
}

}  // namespace

void Disp_in_name(App& app) {
  app.trace.line("Public Sub Disp_in_name()");
  InputState& input = app.state.log.input;
  split_path(app, input.in_name);
  input.out_dir = input.in_dir;
  show_prompt(app, shorten_path(input.in_name, 44), Color::black);
}

void show_input(App& app) {
  const InputState& input = app.state.log.input;
  if (!app.state.program.ini_found)
    show_prompt(app, "「 環境 」より新 ｉｎｉ を作成して下さい", Color::red);
  else if (input.in_name.empty())
    show_prompt(app, "ﾒﾆｭｰより入力ﾌｧｲﾙを指定して下さい", Color::black);
  else
    Disp_in_name(app);
}

void settle_old_settings(Settings& settings, bool from_ini) {
  cut_test_version(settings);
  set_default_island(settings);
  if (!from_ini) return;
  const double version = numeric_value(settings.ini_version);
  constexpr double with_reference = 0.93;  // earlier versions wrote only the island's name
  if (version < with_reference) settings.iota_name_only = true;
}

std::vector<std::string_view> required_files() {
  std::vector<std::string_view> names;
  for (const RequiredFile& file : required) names.push_back(file.name);
  return names;
}

void Main(App& app, const std::string& program_folder) {
  ProgramState& program = app.state.program;
  program.app_dir = program_folder;
  if (!program.app_dir.ends_with(path_separator)) program.app_dir += path_separator;
  program.ini_name = ini_path(app);
  program.this_year = std::to_string(app.platform.clock.now().tm_year + 1900);
  find_settings(app);
  check_required_files(app);
  set_default_island(app.state.settings);
}

void Form_Load(App& app) {
  app.trace.line("Public Sub Form_Load()_Varnisto");
  InputState& input = app.state.log.input;
  MainForm& main = app.main;
  clear_text(app);
  app.state.display.progress = Progress::none;
  app.state.program.created_by = std::string{program_signature} + std::string{program_version};
  main.cmdReSet.enabled = !is_blank(app.state.entry.overlay_cat);
  if (!input.in_name_save.empty()) input.in_name = input.in_name_save;
  const bool is_cbr = input.in_kind == InputKind::cabrillo;
  main.cmdReSelect.enabled = has_folder(input.in_name) && !is_cbr;
  unblock(app);
  show_input(app);
  load_editor_state(app);
  check_settings(app);
  main.kaishi.enabled = !app.state.program.ini_missing_flag && input.opened && there(app, input.in_name) &&
                        !needs_selection(app);
  app.state.log.labels.zsm_disp1 = shorten_path(app.state.log.labels.zsm_disp1, 40);
  read_contest_name(app);
  read_email_add(app);
  read_category_assisted(app);
}

void owari_Click(App& app) {
  app.trace.line("Private Sub owari_Click()");
  app.tmp_dir.remove();
  write_current_settings(app);
  count_run(app);
  if (app.state.program.cfg_loaded && app.platform.profile.exists(ini_path(app))) write_settings_or_tell(app);
  app.trace.close();
}

}  // namespace varnisto
