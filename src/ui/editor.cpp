#include "ui/editor.h"

#include "app/start_up.h"
#include "base/files.h"
#include "base/text.h"
#include "core/main_options.h"
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

/// Takes back what check_cfg() blocked for want of an editor; incomplete settings block on.
void unblock_opening(App& app) {
  if (app.main.mnuOpen_file.enabled || app.state.program.ini_missing_flag == 1) return;
  app.main.mnuOpen_file.enabled = true;
  clear_text(app);
}

}  // namespace

void show_editor_state(App& app) {
  Label& label = app.main.lblPad_use;
  if (!app.main.Check1.checked) {
    label.text = "しない";
    label.color = Color::green;
  } else if (is_blank(app.state.settings.dir_pad)) {
    label.text = "要設定";
    label.color = Color::red;
  } else {
    label.text = "可能";
    label.color = Color::blue;
  }
}

void Check1_Click(App& app) {
  app.trace.line("Private Sub Check1_Click()");
  store_check_box(app, 1);
  show_editor_state(app);
  const bool ticked = app.main.Check1.checked;
  app.state.program.editor_on = ticked ? 1 : 0;
  if (!ticked) {
    enable_editor_menus(app, false);
    unblock_opening(app);
  } else {
    if (has_folder(app.state.input.in_name)) enable_editor_menus(app, true);
    if (is_blank(app.state.settings.dir_pad)) check_cfg(app);
  }
  show_input(app);
}

void edit_file(App& app, const std::string& file) {
  const std::string& editor = app.state.settings.dir_pad;
  if (!is_plain_file(editor))
    return message_box(app, {"[ c作成 ] にてエディターの設定をして下さい", "", Icon::none});
  // The options come back as they are stored; what a dialog chose for the open log beyond them stays.
  const CategoryState category = app.state.category;
  restore_options(app);
  app.state.category = category;
  write_current_settings(app);
  read_settings(app);
  const std::string program = find_file(editor).value_or(editor);
  start_outside(app, [&] { app.platform.launcher.editor(program, file); });
  save_options(app);
  read_settings(app);
  app.main.lblShori.text = "編集終了";
  app.main.lblShori.color = Color::blue;
}

}  // namespace varnisto
