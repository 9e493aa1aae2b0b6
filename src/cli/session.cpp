#include "cli/session.h"

#include <ostream>

#include "app/debug_log.h"
#include "app/start_up.h"
#include "base/files.h"
#include "base/text.h"
#include "core/paths.h"
#include "core/settings.h"
#include "core/version.h"

namespace varnisto {

Session::Session(const CliOptions& options, const std::string& program_folder, std::ostream& err)
    : desk(options, err),
      platform{profile, clock, sort, launcher},
      options_(options),
      program_folder_(program_folder),
      found_version_(program_version),
      err_(err) {
  desk.use(app);
  app.state.program.app_dir = program_folder;
}

void Session::lay_settings_over() {
  const std::string path = ini_path(app);
  if (file_profile.exists(path)) {
    found_version_ = file_profile.get(path, ini_section, "version");
  } else {
    if (file_exists(legacy_path(app))) {
      read_Varnisto_cfg(app, app.state.settings);
      found_version_ = app.state.settings.ini_version;
    }
    write_settings(app);  // into the overlay
  }
  lay_over(options_.overrides);
}

void Session::lay_over(const std::vector<SettingOverride>& values) {
  for (const auto& [key, value] : values) {
    const bool is_counter = equal_ignoring_case(key, "exe_rec");
    const ProfileEntry entry{std::string{is_counter ? ini_main_section : ini_section}, key, value};
    profile.set(ini_path(app), {&entry, 1});
  }
}

StartResult Session::refuse_settings(const std::string& text) {
  err_ << text << "\n";
  return {exit_settings, {ActionResult::refused, 0, text}};
}

StartResult Session::check_settings() {
  const std::string version = found_version_.substr(0, found_version_.find('t'));
  if (version != program_version)
    return refuse_settings(
        program_folder_ + "Varnisto.ini: version \"" + version + "\", expected \"" +
        std::string{program_version} +
        "\"; \"varnisto-cli settings KEY=VALUE\" or the settings window brings it up to date");
  const auto missing = missing_settings(app.state.settings, false);
  if (missing.empty()) return {};
  std::string text = program_folder_ + "Varnisto.ini: settings incomplete, missing:";
  for (const std::string& key : missing) text += " " + key;
  return refuse_settings(text);
}

StartResult Session::start() {
  const ActionResult started = run_action(app, [this] {
    lay_settings_over();
    Main(app, program_folder_);
    if (options_.debug) mnuDebug_mode_Click(app);
  });
  if (started.kind == ActionResult::ended) return {exit_list_file, started};
  if (started.kind != ActionResult::done) return {exit_failed, started};
  if (StartResult checked = check_settings(); checked.status != exit_ok) return checked;
  const ActionResult loaded = run_action(app, [this] { Form_Load(app); });
  if (loaded.kind == ActionResult::list_file) return {exit_list_file, loaded};
  if (loaded.kind != ActionResult::done) return {exit_failed, loaded};
  if (app.state.program.ini_missing_flag)
    return {exit_settings, {ActionResult::refused, 0, app.state.display.text}};
  return {};
}

}  // namespace varnisto
