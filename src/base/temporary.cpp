#include "base/temporary.h"

#include <array>
#include <charconv>
#include <chrono>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::string_view suffix = ".varnisto";
constexpr std::size_t longest_output = 100;  // bytes: a file system takes no names much longer than 255
constexpr int most_attempts = 100;
constexpr unsigned write_bits = 0222;

bool is_alphanumeric(std::string_view text) {
  const auto fits = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  };
  for (const char c : text)
    if (!fits(c)) return false;
  return !text.empty();
}

/// True for ".<output>.<process>-<letters and digits>.varnisto".
bool is_temporary(std::string_view name) {
  if (!name.starts_with('.') || !name.ends_with(suffix)) return false;
  name.remove_suffix(suffix.size());
  const std::size_t dot = name.rfind('.');
  const std::string_view owner = name.substr(dot + 1);
  const std::size_t dash = owner.find('-');
  return dot > 0 && dash != std::string_view::npos && dash > 0 &&
         owner.find_first_not_of("0123456789") == dash && is_alphanumeric(owner.substr(dash + 1));
}

/// A few letters and digits that another attempt does not have.
std::string tail(int attempt) {
  constexpr int base = 36;
  const auto ticks =
      static_cast<unsigned long long>(std::chrono::steady_clock::now().time_since_epoch().count());
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), ticks + static_cast<unsigned>(attempt), base);
  return std::string(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
}

/// How the names of a target's temporaries begin.
std::string start_of(const std::string& target) {
  const std::string output{file_part(target).substr(0, longest_output)};
  return std::string{folder_part(target)}.append(".").append(output).append(".") +
         std::to_string(os::process_id()) + "-";
}

/// Makes a file of a new name, set in `name`.
os::Descriptor make(const std::string& target, std::string& name) {
  const std::string start = start_of(target);
  for (int attempt = 0;; ++attempt) {
    name = start + tail(attempt) + std::string{suffix};
    try {
      return os::create_new(name, target);
    } catch (const RunTimeError& error) {
      if (error.number != RunTimeError::file_already_exists || attempt == most_attempts) throw;
    }
  }
}

}  // namespace

FolderLock::FolderLock(std::string folder, bool wait)
    : folder_(std::move(folder)),
      open_(os::open_folder(folder_)),
      held_(wait ? os::lock(open_) : os::try_lock(open_)) {}

std::string replaced_file(const std::string& path) {
  if (path.find('\0') != std::string::npos) throw RunTimeError(RunTimeError::bad_file_name, path);
  std::string target = os::is_link(path) ? os::behind_links(path) : path;
  const auto facts = os::facts_of(target);
  if (facts && facts->kind != os::FileFacts::Kind::plain)
    throw RunTimeError(RunTimeError::path_access_error, path);
  if (facts && ((facts->permissions & write_bits) == 0 || !os::may_write(target)))
    throw RunTimeError(RunTimeError::permission_denied, path);
  return target;
}

Temporary::Temporary(const std::string& target, const FolderLock& lock) : target_(target) {
  const auto old = os::facts_of(target);
  {
    const SignalsWait listed_once_made;
    std::string name;
    file_ = make(target, name);
    name_.emplace(std::move(name));
  }
  if (old) os::set_permissions(file_, old->permissions, target);
  held_ = os::duplicate(file_, target);
  // Who clears the folder must see that somebody holds the file.
  if (!os::try_lock(held_) && lock.held()) throw RunTimeError(RunTimeError::path_access_error, target);
}

FileHandle Temporary::take_file() {
  return FileHandle::adopt(std::move(file_), target_);
}

void Temporary::rename() {
  os::rename_file(path(), target_, target_);
  name_->spare();
}

void clear_abandoned(const FolderLock& lock) {
  if (!lock.held()) return;
  std::vector<std::string> names;
  os::for_each_name(lock.folder(), [&](std::string_view name) {
    if (is_temporary(name)) names.push_back(lock.folder() + std::string{name});
  });
  for (const std::string& name : names)
    if (os::try_lock(os::open_existing(name))) os::delete_file(name);  // one that is another user's stays
}

}  // namespace varnisto
