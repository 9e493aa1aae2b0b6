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

/// Reads the settings file, else the legacy file, as start-up does.
void read_either(Session& session) {
  App& app = session.app;
  const bool has_ini = session.file_profile.exists(ini_path(app));
  if (has_ini)
    read_settings(app);
  else if (file_exists(legacy_path(app)))
    read_Varnisto_cfg(app, app.state.settings);
  settle_old_settings(app.state.settings, has_ini);
}

/// The settings as they would be written.
std::vector<SettingOverride> printed(const Settings& settings) {
  std::vector<SettingOverride> values;
  for (const ProfileEntry& entry : settings_entries(settings)) values.emplace_back(entry.key, entry.value);
  return values;
}

/// Reads, changes and writes the settings while no other process can.
void change(Session& session, const std::vector<SettingOverride>& values) {
  App& app = session.app;
  const ProfileHold hold{session.file_profile, ini_path(app)};
  session.lay_over(values);  // what is to be replaced need not be readable
  read_either(session);
  for (const auto& [key, value] : values) set_setting(app.state.settings, key, value);
  session.file_profile.set(ini_path(app), settings_entries(app.state.settings));
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
  Session session{options, program_folder, err};
  App& app = session.app;
  if (const std::string why = why_no_program_folder(app); !why.empty()) {
    err << why << "\n";
    return exit_list_file;
  }
  const ActionResult result = run_action(app, [&] {
    if (!options.overrides.empty()) return change(session, options.overrides);
    read_either(session);
    if (!options.quiet) put_settings(printed(app.state.settings), options.json, out);
  });
  return status_of(result);
}

}  // namespace varnisto
