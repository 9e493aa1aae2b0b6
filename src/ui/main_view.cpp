#include "ui/main_view.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "core/paths.h"
#include "ui/main_menus.h"
#include "ui/option_boxes.h"

namespace varnisto {
namespace {

void put(Label& label, std::string_view text, Color color) {
  label.text = text;
  label.color = color;
}

void show_progress(App& app) {
  Label& label = app.main.lblShori;
  switch (app.state.display.progress) {
    case Progress::none:
      return put(label, "", Color::black);
    case Progress::done:
      return put(label, "処理終了", Color::blue);
    case Progress::given_up:
      return put(label, "処理中止", Color::red);
    case Progress::edited:
      return put(label, "編集終了", Color::blue);
  }
}

/// Whether the editor can be used.
void show_editor_state(App& app) {
  const Settings& settings = app.state.settings;
  Label& label = app.main.lblPad_use;
  if (!settings.pad_use_flag)
    put(label, "しない", Color::green);
  else if (is_blank(settings.dir_pad))
    put(label, "要設定", Color::red);
  else
    put(label, "可能", Color::blue);
}

void show_labels(App& app) {
  const LabelState& labels = app.state.log.labels;
  MainForm& main = app.main;
  put(main.lblGet_zsm1, labels.zsm_disp1, Color::blue);
  put(main.lblGet_zsm2, labels.zsm_disp2, Color::blue);
  put(main.lblGet_zsm3, labels.zsm_disp3, Color::blue);
  put(main.lblGet_zsm4, labels.zsm_disp4, Color::blue);
  main.lblPower.text = labels.power;
  main.lblCategory.text = labels.category;
  main.lblYusen.text = labels.dialog_wins ? "設定優先" : "";
  const std::string& overlay = app.state.entry.overlay_cat;
  main.Label2.text = overlay.empty() ? "" : "CATEGORY-OVERLAY : " + overlay;
}

void show_choices(App& app) {
  MainForm& main = app.main;
  main.Option1.select(option_of(app.state.entry.power));
  main.Option3.select(option_of(app.state.entry.op));
  for (const OptionBox& row : option_boxes()) (main.*row.box).checked = app.state.settings.*row.flag;
}

bool is_there(const App& app, const std::string& path) {
  return has_folder(path) && app.outputs.exists(path);
}

/// Every viewer's entry is enabled when its file is there.
void show_files(App& app) {
  const InputState& input = app.state.log.input;
  MainForm& main = app.main;
  for (const ViewerMenu& menu : viewer_menus()) (main.*menu.item).enabled = is_there(app, menu.file(input));
  main.zsm_Disp_zsm.enabled = is_there(app, input.zsm_name);  // the logger's own, whatever is shown
  main.mnuZsm.enabled = is_there(app, input.zsm_use_name) || is_there(app, input.zsm_name);
  main.cmdMail_Send.enabled = main.cmdMail_Send_test.enabled =
      is_there(app, input.cbr_name) || is_there(app, input.log_name);
  main.cmdRe_write_zlog_zsm.enabled =
      input.opened && !app.state.program.ini_missing_flag && is_there(app, input.zsm_use_name);
  main.mnu_mc.caption = input.out_name.empty() ? "＊．ｃｂｒ ， ＊．log" : file_part(input.out_name);
}

}  // namespace

void show_state(App& app) {
  MainForm& main = app.main;
  main.caption = app.state.program.created_by;
  main.Text1.text = app.state.display.text;
  main.Text1.color = app.state.display.text_color;
  main.mnuDebug.caption = main.mnuDebug_mode.caption =
      app.trace.debug_flag ? "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ ON" : "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ OFF";
  show_progress(app);
  show_editor_state(app);
  show_labels(app);
  show_choices(app);
  show_files(app);
}

}  // namespace varnisto
