#include "app/debug_log.h"

#include <array>
#include <ctime>

#include "base/files.h"
#include "base/text_reader.h"
#include "core/settings.h"

namespace varnisto {
namespace {

std::string log_name(const App& app) {
  const std::tm now = app.platform.clock.now();
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d_%H%M%S", &now);
  const std::string base = app.state.program.app_dir + text.data();
  std::string name = base + ".txt";
  for (int i = 2; file_exists(name); ++i) name = base + "_" + std::to_string(i) + ".txt";  // a log of its own
  return name;
}

void set_captions(App& app, const char* caption) {
  app.main.mnuDebug.caption = app.main.mnuDebug_mode.caption = caption;
}

}  // namespace

void open_debug_log(App& app) {
  app.trace.open(log_name(app));
  if (app.platform.profile.exists(ini_path(app))) {
    TextReader ini{ini_path(app)};
    for (std::string_view line; ini.next(line);) app.trace.line(line);
  }
  app.trace.line("-----------------------");
}

void close_debug_log(App& app) {
  app.trace.line("正常終了");
  app.trace.close();
}

void mnuDebug_mode_Click(App& app) {
  bool& checked = app.main.mnuDebug_mode.checked;
  checked = !checked;
  if (!checked) {
    set_captions(app, "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ OFF");
    app.trace.debug_flag = app.trace.debug_log_open = 0;
    return;
  }
  set_captions(app, "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ ON");
  app.trace.debug_flag = 1;
  open_debug_log(app);
  app.trace.line(app.state.input.in_name);
}

}  // namespace varnisto
