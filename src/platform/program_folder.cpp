#include "platform/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/files.h"
#include "base/outputs.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// An absolute folder name with its separator at the end.
std::string as_folder(const fs::path& path) {
  return absolute_path((path / "").string());
}

std::string executable_folder() {
  std::error_code failure;
  const fs::path program = fs::read_symlink("/proc/self/exe", failure);
  return failure ? "" : as_folder(program.parent_path());
}

std::string user_folder() {
  const std::string config = environment("XDG_CONFIG_HOME");
  if (!config.empty()) return as_folder(fs::path{config} / "varnisto");
  const std::string home = environment("HOME");
  if (home.empty()) throw RunTimeError(RunTimeError::path_not_found, "HOME, XDG_CONFIG_HOME, VARNISTO_DIR");
  return as_folder(fs::path{home} / ".config" / "varnisto");
}

/// Copies the shipped list files that the folder lacks, all or none; one that is there is never replaced.
void fill(const std::string& folder) {
  std::error_code failure;
  fs::create_directories(folder, failure);
  if (failure) throw_file_error(failure.value(), folder);
  const std::string shipped = shipped_folder();
  if (shipped.empty() || file_exists(folder + "Varnisto.ini")) return;
  Outputs lists;
  for (const auto& entry : fs::directory_iterator{shipped, failure}) {
    const std::string name = entry.path().filename().string();
    if (entry.is_regular_file(failure) && !file_exists(folder + name))
      copy_file(entry.path().string(), lists.create(folder + name));
  }
  lists.commit();
}

}  // namespace

std::string shipped_folder() {
  for (const std::string& folder :
       {as_folder(executable_folder() + "../share/varnisto"), as_folder(VARNISTO_SHARE_DIR)})
    if (file_exists(folder + "contest_name.cfg")) return folder;
  return "";
}

std::string find_program_folder(const std::string& option) {
  if (!option.empty()) return as_folder(option);
  if (const std::string chosen = environment("VARNISTO_DIR"); !chosen.empty()) return as_folder(chosen);
  std::string portable = executable_folder();
  if (!portable.empty() && file_exists(portable + "contest_name.cfg")) return portable;
  std::string folder = user_folder();
  fill(folder);
  return folder;
}

}  // namespace varnisto
