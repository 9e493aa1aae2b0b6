#include "ui/recent_files.h"

#include "base/cp932.h"
#include "base/files.h"
#include "core/settings.h"

namespace varnisto {
namespace {

constexpr std::string_view window_section = "Window", key_geometry = "geometry";

std::string key_of(std::size_t index) {
  return "recent" + std::to_string(index + 1);
}

/// True when a value comes back from the settings file as it was written.
bool can_be_kept(const std::string& value) {
  return profile_value(value) == value && value.find_first_of("\r\n") == std::string::npos &&
         from_cp932(to_cp932(value, Unmappable::question_mark)) == value;
}

}  // namespace

std::vector<std::string> recent_files(const App& app) {
  std::vector<std::string> files;
  for (std::size_t i = 0; i < most_recent_files; ++i) {
    std::string path = app.platform.profile.get(ini_path(app), window_section, key_of(i));
    if (!path.empty() && file_exists(path)) files.push_back(std::move(path));
  }
  return files;
}

void remember_file(const App& app, const std::string& path) {
  if (!app.platform.profile.exists(ini_path(app)) || !can_be_kept(path)) return;
  std::vector<std::string> files = recent_files(app);
  std::erase(files, path);
  files.insert(files.begin(), path);
  files.resize(most_recent_files);
  std::vector<ProfileEntry> entries;
  for (std::size_t i = 0; i < files.size(); ++i)
    entries.push_back({std::string{window_section}, key_of(i), files[i]});
  app.platform.profile.set(ini_path(app), entries);
}

std::string window_geometry(const App& app) {
  return app.platform.profile.get(ini_path(app), window_section, key_geometry);
}

void keep_window_geometry(const App& app, const std::string& text) {
  if (!app.platform.profile.exists(ini_path(app)) || !can_be_kept(text)) return;
  const ProfileEntry entry{std::string{window_section}, std::string{key_geometry}, text};
  app.platform.profile.set(ini_path(app), {&entry, 1});
}

}  // namespace varnisto
