#include "base/outputs.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

/// The locks of these files' folders, each once. Everybody takes them in the order of their identity, so that
/// no two runs wait for each other.
std::vector<FolderLock> lock_folders_of(const std::vector<std::string>& files) {
  std::vector<std::pair<os::FileId, std::string>> folders;
  for (const std::string& file : files) {
    const std::string folder{folder_part(file)};
    if (const auto facts = os::facts_of(folder.empty() ? "." : folder))
      folders.emplace_back(facts->id, folder);
  }
  std::ranges::sort(folders);
  const auto is_same = [](const auto& a, const auto& b) { return a.first == b.first; };
  folders.erase(std::unique(folders.begin(), folders.end(), is_same), folders.end());
  std::vector<FolderLock> locks;
  locks.reserve(folders.size());
  for (const auto& [id, folder] : folders) locks.emplace_back(folder);
  return locks;
}

/// The error of a set of which these files are new already.
RunTimeError half_way(const RunTimeError& error, const std::vector<std::string>& renamed) {
  std::string text = error.what();
  if (!renamed.empty()) text += " （ 次のファイルは新しくなっています ：";
  for (const std::string& path : renamed) text.append(" ").append(path);
  if (!renamed.empty()) text += " ）";
  return {error.number, text};
}

}  // namespace

const Outputs::Pending* Outputs::newest(const std::string& path) const {
  const auto hit = std::ranges::find(pending_.rbegin(), pending_.rend(), path, &Pending::path);
  return hit == pending_.rend() ? nullptr : &*hit;
}

void Outputs::protect(std::vector<std::string> inputs) {
  inputs_ = std::move(inputs);
  for (std::string& input : inputs_) input = find_file(input).value_or(input);  // as it is read
}

void Outputs::refuse_input(const std::string& path, const std::string& target,
                           std::string_view rewritten) const {
  const auto is_target = [&](const std::string& input) {
    return input != rewritten && os::same_file(input, target);
  };
  const auto input = std::ranges::find_if(inputs_, is_target);
  if (input != inputs_.end())
    throw RunTimeError(RunTimeError::path_access_error,
                       path + " は入力ファイル " + *input + " と同じファイルです");
}

void Outputs::refuse_second_name(const std::string& path, const std::string& target) const {
  for (const Pending& other : pending_)
    if (other.file && other.path != path && other.file->target() == target)
      throw RunTimeError(RunTimeError::path_access_error, path + " は " + other.path + " と同じファイルです");
}

std::unique_ptr<Temporary> Outputs::make_temporary(const std::string& target) {
  const std::string folder{folder_part(target)};
  const FolderLock lock{folder};
  if (std::ranges::find(cleared_, folder) == cleared_.end()) {
    clear_abandoned(lock);
    cleared_.push_back(folder);
  }
  return std::make_unique<Temporary>(target, lock);
}

FileHandle Outputs::create(const std::string& path, Need need, std::string_view rewritten) {
  const std::string target = replaced_file(path);
  refuse_input(path, target, rewritten);
  refuse_second_name(path, target);
  std::unique_ptr<Temporary> file = make_temporary(target);
  Pending& fresh = pending_.emplace_back();
  fresh.path = path;
  fresh.need = need;
  fresh.file = std::move(file);
  return fresh.file->take_file();
}

void Outputs::give_up(const std::string& path) {
  pending_.push_back({path, nullptr, Need::dispensable});
}

void Outputs::remove(const std::string& path) {
  pending_.push_back({path, nullptr, Need::dispensable, true});
}

const std::string& Outputs::current(const std::string& path) const {
  const Pending* const pending = newest(path);
  return pending && pending->file ? pending->file->path() : path;
}

bool Outputs::exists(const std::string& path) const {
  const Pending* const pending = newest(path);
  if (pending && pending->file) return true;
  return !(pending && pending->goes) && file_exists(path);
}

void Outputs::back_to(std::size_t mark) {
  pending_.erase(pending_.begin() + static_cast<std::ptrdiff_t>(std::min(mark, pending_.size())),
                 pending_.end());
}

/// What is to happen to each name, where its first version stood; dispensable ones behind the others.
std::vector<Outputs::Pending> Outputs::newest_of_each(std::vector<Pending> pending) {
  std::vector<Pending> set;
  for (Pending& version : pending) {
    const auto earlier = std::ranges::find(set, version.path, &Pending::path);
    if (earlier == set.end())
      set.push_back(std::move(version));
    else
      *earlier = std::move(version);
  }
  std::erase_if(set, [](const Pending& last) { return !last.file && !last.goes; });
  std::ranges::stable_sort(set, {}, &Pending::need);
  return set;
}

std::vector<std::string> Outputs::commit() {
  cleared_.clear();
  if (pending_.empty()) return {};
  std::vector<Pending> set = newest_of_each(std::exchange(pending_, {}));
  std::vector<std::string> names;
  names.reserve(set.size());
  for (const Pending& output : set) names.push_back(output.file ? output.file->target() : output.path);
  const std::vector<FolderLock> locks = lock_folders_of(names);
  for (const Pending& output : set)
    if (output.file) output.file->close();

  const SignalsWait until_the_set_is_whole;
  std::vector<std::string> renamed, failures;
  for (const Pending& output : set) {
    try {
      output.file ? output.file->rename() : os::must_delete_file(output.path);
      if (output.file) renamed.push_back(output.path);
    } catch (const RunTimeError& error) {
      if (output.need == Need::required) throw half_way(error, renamed);
      failures.push_back(describe(error));
    }
  }
  return failures;
}

}  // namespace varnisto
