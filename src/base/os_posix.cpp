#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "base/os.h"
#include "base/run_time_error.h"

namespace varnisto::os {
namespace {

constexpr unsigned permission_bits = 0777;

/// flock() until it is no signal that ends it.
bool flock_now(int descriptor, int operation) {
  int result = 0;
  do {
    result = ::flock(descriptor, operation);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

/// Replaces a file by exchanging both names and deleting the old one: in the end the same as a rename, but a
/// rename over a file makes the file system write the new one out first. False when the system cannot.
bool exchange(const std::string& from, const std::string& to) {
#ifdef RENAME_EXCHANGE
  const auto old = facts_of(to);
  if (!old || old->kind != FileFacts::Kind::plain) return false;
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_EXCHANGE) != 0) return false;
  delete_file(from);  // if that fails the next run clears it
  return true;
#else
  return false;
#endif
}

}  // namespace

std::optional<FileFacts> facts_of(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return std::nullopt;
  const FileFacts::Kind kind = S_ISREG(info.st_mode)   ? FileFacts::Kind::plain
                               : S_ISDIR(info.st_mode) ? FileFacts::Kind::folder
                                                       : FileFacts::Kind::other;
  return FileFacts{{info.st_dev, info.st_ino}, kind, info.st_mode & permission_bits};
}

bool same_file(const std::string& a, const std::string& b) {
  const auto facts_a = facts_of(a);
  const auto facts_b = facts_of(b);
  return facts_a && facts_b && facts_a->id == facts_b->id;
}

bool is_link(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

bool may_write(const std::string& path) {
  return ::access(path.c_str(), W_OK) == 0;
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

int Descriptor::release() {
  return std::exchange(number_, -1);
}

void Descriptor::close() {
  if (is_open()) ::close(release());
}

Descriptor open_folder(const std::string& folder) {
  return Descriptor{::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
}

Descriptor create_new(const std::string& path, const std::string& shown) {
  Descriptor file{::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666)};
  if (file.is_open()) return file;
  if (errno == ENOENT) throw RunTimeError(RunTimeError::path_not_found, shown);
  throw_file_error(errno, shown);
}

Descriptor open_existing(const std::string& path) {
  return Descriptor{::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC)};
}

Descriptor duplicate(const Descriptor& file, const std::string& shown) {
  Descriptor copy{::fcntl(file.number(), F_DUPFD_CLOEXEC, 0)};
  if (!copy.is_open()) throw_file_error(errno, shown);
  return copy;
}

void set_permissions(const Descriptor& file, unsigned permissions, const std::string& shown) {
  if (::fchmod(file.number(), static_cast<mode_t>(permissions)) != 0) throw_file_error(errno, shown);
}

bool lock(const Descriptor& file) {
  return file.is_open() && flock_now(file.number(), LOCK_EX);
}

bool try_lock(const Descriptor& file) {
  return file.is_open() && flock_now(file.number(), LOCK_EX | LOCK_NB);
}

void rename_file(const std::string& from, const std::string& to, const std::string& shown) {
  if (exchange(from, to)) return;
  if (std::rename(from.c_str(), to.c_str()) != 0) throw_file_error(errno, shown);
}

bool delete_file(const std::string& path) {
  return ::unlink(path.c_str()) == 0;
}

void must_delete_file(const std::string& path) {
  if (!delete_file(path) && errno != ENOENT && errno != ENOTDIR) throw_file_error(errno, path);
}

void for_each_name(const std::string& folder, const std::function<void(std::string_view)>& take) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open{::opendir(folder.empty() ? "." : folder.c_str()),
                                                 ::closedir};
  if (!open) return;
  while (const dirent* entry = ::readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") take(name);
  }
}

std::string temporary_folder() {
  const char* const chosen = std::getenv("TMPDIR");
  const std::string folder = chosen && *chosen ? chosen : "/tmp";
  return folder.ends_with('/') ? folder : folder + "/";
}

std::string make_private_folder(const std::string& start) {
  std::string path = start + std::string(6, 'X');  // the pattern that mkdtemp() wants
  if (::mkdtemp(path.data())) return path;
  if (errno == ENOENT) throw RunTimeError(RunTimeError::path_not_found, path);
  throw_file_error(errno, path);
}

bool is_own_folder(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid();
}

bool is_terminal(int descriptor) {
  return ::isatty(descriptor) == 1;
}

int process_id() {
  return ::getpid();
}

bool process_runs(int id) {
  return ::kill(id, 0) == 0 || errno != ESRCH;
}

}  // namespace varnisto::os
