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

Session::Session(const CliOptions& options, const std::string& program_folder, std::ostream& err,
                 SettingsFile access)
    : desk(options, err),
      platform{access == SettingsFile::writable ? static_cast<Profile&>(file_profile) : profile, clock, sort,
               launcher},
      options_(options),
      program_folder_(program_folder),
      err_(err) {
  app.state.program.app_dir = program_folder;
  if (access == SettingsFile::writable) return;
  for (const auto& [key, value] : options.overrides) {
    const bool is_counter = equal_ignoring_case(key, "exe_rec");
    const ProfileEntry entry{std::string{is_counter ? ini_main_section : ini_section}, key, value};
    profile.set(ini_path(app), {&entry, 1});
  }
}

Session::~Session() {
  remove_scratch_folder(app);
}

bool Session::settings_allow_run(std::ostream& err) {
  const Settings& settings = app.state.settings;
  const bool found = app.state.program.cfg_loaded == 1;
  if (!settings.ini_version.empty() && settings.ini_version != program_version) {
    err << program_folder_ << "Varnisto.ini: version " << settings.ini_version << ", expected "
        << program_version
        << "; \"varnisto-cli settings KEY=VALUE\" or the settings window brings it up to date\n";
    return false;
  }
  const auto missing = missing_settings(app);
  if (found && missing.empty()) return true;
  err << program_folder_ << "Varnisto.ini: settings incomplete, missing:";
  for (const std::string& key : missing) err << " " << key;
  err << "\n";
  return false;
}

bool Session::start(int& status) {
  const ActionResult started = run_action(app, [this] {
    Main(app, program_folder_);
    if (options_.debug) mnuDebug_mode_Click(app);
  });
  status = started.kind == ActionResult::ended ? exit_list_file : exit_failed;
  if (started.kind != ActionResult::done) return false;
  status = exit_settings;
  if (!settings_allow_run(err_)) return false;
  const ActionResult loaded = run_action(app, [this] { Form_Load(app); });
  status = loaded.kind == ActionResult::list_file ? exit_list_file
           : loaded.kind != ActionResult::done    ? exit_failed
           : app.state.input.in_err_flag == 1     ? exit_settings
                                                  : exit_ok;
  return status == exit_ok;
}

}  // namespace varnisto
