#include "base/scratch_folder.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/os.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

constexpr std::string_view name_start = "varnisto-";

/// The process that a folder of this name belongs to; 0 when it is no scratch folder's name.
int owner_of(std::string_view name) {
  if (!name.starts_with(name_start)) return 0;
  name.remove_prefix(name_start.size());
  int process = 0;
  const auto end = std::from_chars(name.data(), name.data() + name.size(), process);
  return end.ptr != name.data() + name.size() && *end.ptr == '-' ? process : 0;
}

}  // namespace

const std::string& ScratchFolder::path() {
  if (folder_) return path_;
  const std::string parent = os::temporary_folder();
  const auto facts = os::facts_of(parent);
  if (!facts || facts->kind != os::FileFacts::Kind::folder)
    throw RunTimeError(RunTimeError::path_not_found, parent);
  const SignalsWait listed_once_made;
  const std::string start = parent + std::string{name_start} + std::to_string(os::process_id()) + "-";
  folder_ = std::make_unique<DoomedFile>(os::make_private_folder(start));
  path_ = folder_->path() + path_separator;
  return path_;
}

void ScratchFolder::remove() {
  if (!folder_) return;
  os::delete_folder(folder_->path());
  folder_.reset();
}

void clear_abandoned_scratch_folders() {
  const std::string parent = os::temporary_folder();
  std::vector<std::string> abandoned;
  os::for_each_name(parent, [&](std::string_view name) {
    const int owner = owner_of(name);
    if (owner > 0 && !os::process_runs(owner)) abandoned.push_back(parent + std::string{name});
  });
  for (const std::string& folder : abandoned)
    if (os::is_own_folder(folder)) os::delete_folder(folder);
}

}  // namespace varnisto
