#include "app/debug_log.h"

#include <array>
#include <ctime>

#include "base/run_time_error.h"
#include "base/text_reader.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// Opens a log of its own: the name carries a number when two begin within a second.
void open_named_log(App& app) {
  const std::tm now = app.platform.clock.now();
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d_%H%M%S", &now);
  const std::string base = app.state.program.app_dir + text.data();
  for (int i = 1;; ++i) {
    try {
      return app.trace.open(base + (i == 1 ? "" : "_" + std::to_string(i)) + ".txt");
    } catch (const RunTimeError& error) {
      if (error.number != RunTimeError::file_already_exists) throw;
    }
  }
}

void copy_settings(App& app) {
  if (app.platform.profile.exists(ini_path(app))) {
    TextReader ini{ini_path(app)};
    for (std::string_view line; ini.next(line);) app.trace.line(line);
  }
  app.trace.line("-----------------------");
}

}  // namespace

void open_debug_log(App& app) {
  try {
    open_named_log(app);
    copy_settings(app);
  } catch (const RunTimeError& error) {
    add_notice(app, describe(error));
  }
}

void close_debug_log(App& app) {
  app.trace.line("正常終了");
  app.trace.close();
}

void mnuDebug_mode_Click(App& app) {
  bool& checked = app.main.mnuDebug_mode.checked;
  checked = !checked;
  if (!checked) {
    app.trace.debug_flag = app.trace.debug_log_open = 0;
    return;
  }
  app.trace.debug_flag = 1;
  open_debug_log(app);
  app.trace.line(app.state.log.input.in_name);
}

}  // namespace varnisto
