#include <algorithm>
#include <ostream>

#include "app/start_up.h"
#include "base/files.h"
#include "cli/convert.h"
#include "cli/report.h"
#include "cli/session.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// The settings as they stand in the file, the version included.
std::vector<SettingOverride> settings_in_file(const Settings& settings) {
  std::vector<SettingOverride> values;
  for (const SettingKey& key : setting_keys())
    values.emplace_back(key.key, key.key == "version" ? settings.ini_version : setting_value(settings, key));
  return values;
}

/// Reads the settings file, else the legacy file; one that an older program wrote is settled.
void read_either(App& app) {
  const bool has_ini = app.platform.profile.exists(ini_path(app));
  if (has_ini)
    read_settings(app);
  else if (file_exists(legacy_path(app)))
    read_Varnisto_cfg(app);
}

/// Reads, changes and writes the settings while no other process can.
void change(App& app, const std::vector<SettingOverride>& values) {
  const ProfileHold hold{app.platform.profile, ini_path(app)};
  read_either(app);
  settle_old_settings(app.state.settings, app.platform.profile.exists(ini_path(app)));
  for (const auto& [key, value] : values) set_setting(app.state.settings, key, value);
  write_settings(app);
}

/// What makes a folder no program folder: neither settings nor a list file. Empty for one that has some.
std::string why_no_program_folder(const App& app) {
  std::string names = "Varnisto.ini, Varnisto.cfg";
  bool any = app.platform.profile.exists(ini_path(app)) || file_exists(legacy_path(app));
  for (const std::string_view name : required_files()) {
    any = any || file_exists(app.state.program.app_dir + std::string{name});
    names.append(", ").append(name);
  }
  return any ? "" : app.state.program.app_dir + " is no program folder: it holds none of " + names;
}

}  // namespace

int run_settings(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err) {
  Session session{options, program_folder, err, SettingsFile::writable};
  App& app = session.app;
  if (const std::string why = why_no_program_folder(app); !why.empty()) {
    err << why << "\n";
    return exit_list_file;
  }
  const ActionResult result = run_action(app, [&] {
    if (!options.overrides.empty()) return change(app, options.overrides);
    read_either(app);
    if (!options.quiet) put_settings(settings_in_file(app.state.settings), options.json, out);
  });
  return status_of(result);
}

}  // namespace varnisto
