#include "platform/program_folder.h"

#include <string_view>

#include "base/files.h"
#include "base/os.h"
#include "base/outputs.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

/// An absolute folder name with its separator at the end.
std::string as_folder(const std::string& path) {
  return os::absolute_path(path.ends_with(path_separator) ? path : path + path_separator);
}

std::string user_folder() {
  const std::string parent = os::user_folder();
  if (parent.empty())
    throw RunTimeError(RunTimeError::path_not_found,
                       std::string{os::user_folder_variables()} + ", VARNISTO_DIR");
  return as_folder(parent + "varnisto");
}

/// Copies the shipped list files that the folder lacks, all or none; one that is there is never replaced.
void fill(const std::string& folder) {
  os::make_folders(folder);
  const std::string shipped = shipped_folder();
  if (shipped.empty() || file_exists(folder + "Varnisto.ini")) return;
  Outputs lists;
  os::for_each_name(shipped, [&](std::string_view name) {
    const std::string from = shipped + std::string{name}, to = folder + std::string{name};
    if (is_plain_file(from) && !file_exists(to)) copy_file(from, lists.create(to));
  });
  lists.commit();
}

}  // namespace

std::string shipped_folder() {
  for (const std::string& folder :
       {as_folder(os::executable_folder() + "../share/varnisto"), as_folder(VARNISTO_SHARE_DIR)})
    if (file_exists(folder + "contest_name.cfg")) return folder;
  return "";
}

std::string find_program_folder(const std::string& option) {
  if (!option.empty()) return as_folder(option);
  if (const std::string chosen = os::environment("VARNISTO_DIR"); !chosen.empty()) return as_folder(chosen);
  std::string portable = os::executable_folder();
  if (!portable.empty() && file_exists(portable + "contest_name.cfg")) return portable;
  std::string folder = user_folder();
  fill(folder);
  return folder;
}

}  // namespace varnisto
