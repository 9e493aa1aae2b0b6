#include "ui/editor.h"

#include "app/start_up.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "core/settings.h"
#include "ui/main_menus.h"

namespace varnisto {
namespace {

void enable_editor_menus(App& app, bool enabled) {
  MainForm& main = app.main;
  for (MenuItem* item : {&main.mnu_mc, &main.mnu_edit, &main.mnu_contest_name, &main.mnu_email_add})
    item->enabled = enabled;
}

/// Takes back what block_opening() blocked for want of an editor; incomplete settings block on.
void unblock_opening(App& app) {
  if (app.main.mnuOpen_file.enabled || app.state.program.ini_missing_flag) return;
  app.main.mnuOpen_file.enabled = true;
  clear_text(app);
}

/// What another program has changed in the settings file meanwhile is taken over.
void refresh_settings(App& app) {
  if (!settings_current(app)) return;
  try {
    write_settings(app);
    read_settings(app);
  } catch (const RunTimeError& error) {
    add_notice(app, describe(error));
  }
}

/// Without an editor no log is opened until the settings name one.
void block_opening(App& app) {
  if (!app.state.settings.dir_pad.empty()) return;
  show_text(app,
            lines({" WORDPAD.EXE のフォルダが未確定です。", " WORDPAD.EXE のフォルダを確認してから",
                   " [ 環境 ] にて WORDPAD.EXE のフォルダを指定し", " Varnisto.ini を作成して下さい。"}),
            Color::red);
  app.main.mnuOpen_file.enabled = false;
  app.main.lblIn.text = "「 環境 」より新 ｉｎｉ を作成して下さい";
  app.main.lblIn.color = Color::red;
}

}  // namespace

void Check1_Click(App& app) {
  app.trace.line("Private Sub Check1_Click()");
  const bool ticked = app.main.Check1.checked;
  app.state.settings.pad_use_flag = ticked;
  if (!ticked) {
    enable_editor_menus(app, false);
    unblock_opening(app);
  } else {
    if (has_folder(app.state.log.input.in_name)) enable_editor_menus(app, true);
    if (is_blank(app.state.settings.dir_pad)) block_opening(app);
  }
  show_input(app);
}

void edit_file(App& app, const std::string& file) {
  const std::string editor = app.state.settings.dir_pad;
  if (!is_plain_file(editor))
    return message_box(app, {"[ c作成 ] にてエディターの設定をして下さい", "", Icon::none});
  refresh_settings(app);
  const std::string program = find_file(editor).value_or(editor);
  start_outside(app, [&] { app.platform.launcher.editor(program, file); });
  app.state.display.progress = Progress::edited;
}

}  // namespace varnisto
