#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <memory>
#include <spawn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "base/os.h"
#include "base/run_time_error.h"

namespace varnisto::os {
namespace {

namespace fs = std::filesystem;

constexpr unsigned permission_bits = 0777;

struct ErrnoNumber {
  int code;
  RunTimeError::Number number;
};

constexpr ErrnoNumber errno_numbers[] = {
    {ENOENT, RunTimeError::file_not_found},      {ENOTDIR, RunTimeError::path_not_found},
    {EACCES, RunTimeError::permission_denied},   {EPERM, RunTimeError::permission_denied},
    {EROFS, RunTimeError::permission_denied},    {EISDIR, RunTimeError::path_access_error},
    {EEXIST, RunTimeError::file_already_exists}, {ENOSPC, RunTimeError::disk_full},
    {EDQUOT, RunTimeError::disk_full},           {EFBIG, RunTimeError::disk_full},
    {EMFILE, RunTimeError::too_many_files},      {ENFILE, RunTimeError::too_many_files},
    {ENAMETOOLONG, RunTimeError::bad_file_name}, {EINVAL, RunTimeError::bad_file_name},
    {ELOOP, RunTimeError::path_access_error},    {EBUSY, RunTimeError::path_access_error},
    {ETXTBSY, RunTimeError::path_access_error},
};

/// Throws the RunTimeError that stands for the `errno` value `code` met on `path`.
[[noreturn]] void throw_error(int code, const std::string& path) {
  const auto* hit = std::ranges::find(errno_numbers, code, &ErrnoNumber::code);
  throw RunTimeError(hit == std::end(errno_numbers) ? RunTimeError::device_io_error : hit->number, path);
}

std::string as_folder(const std::string& path) {
  return path.ends_with('/') ? path : path + "/";
}

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
  constexpr std::int64_t second = 1'000'000'000;
  return FileFacts{{info.st_dev, info.st_ino},
                   kind,
                   info.st_mode & permission_bits,
                   info.st_mtim.tv_sec * second + info.st_mtim.tv_nsec,
                   info.st_size};
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
  throw_error(errno, shown);
}

Descriptor open_plain_file(const std::string& path, const std::string& shown) {
  // O_NONBLOCK: opening a named pipe must not wait for a writer; regular files ignore it.
  Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
  if (!file.is_open() && errno == ENOENT) return file;
  struct stat info {};
  if (!file.is_open() || ::fstat(file.number(), &info) != 0) throw_error(errno, shown);
  if (!S_ISREG(info.st_mode)) throw RunTimeError(RunTimeError::path_access_error, shown);
  return file;
}

Descriptor open_existing(const std::string& path) {
  return Descriptor{::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC)};
}

Descriptor duplicate(const Descriptor& file, const std::string& shown) {
  Descriptor copy{::fcntl(file.number(), F_DUPFD_CLOEXEC, 0)};
  if (!copy.is_open()) throw_error(errno, shown);
  return copy;
}

void set_permissions(const Descriptor& file, unsigned permissions, const std::string& shown) {
  if (::fchmod(file.number(), static_cast<mode_t>(permissions)) != 0) throw_error(errno, shown);
}

std::size_t read(const Descriptor& file, char* data, std::size_t size, const std::string& shown) {
  while (true) {
    const ssize_t count = ::read(file.number(), data, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw_error(errno, shown);
  }
}

void write(const Descriptor& file, std::string_view data, const std::string& shown) {
  while (!data.empty()) {
    const ssize_t count = ::write(file.number(), data.data(), data.size());
    if (count >= 0)
      data.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR)
      throw_error(errno, shown);
  }
}

void flush_to_disk(const Descriptor& file, const std::string& shown) {
  if (::fsync(file.number()) != 0) throw_error(errno, shown);
}

void close(Descriptor file, const std::string& shown) {
  if (file.is_open() && ::close(file.release()) != 0) throw_error(errno, shown);
}

bool lock(const Descriptor& file) {
  return file.is_open() && flock_now(file.number(), LOCK_EX);
}

bool try_lock(const Descriptor& file) {
  return file.is_open() && flock_now(file.number(), LOCK_EX | LOCK_NB);
}

void rename_file(const std::string& from, const std::string& to, const std::string& shown) {
  if (exchange(from, to)) return;
  if (std::rename(from.c_str(), to.c_str()) != 0) throw_error(errno, shown);
}

bool delete_file(const std::string& path) {
  return ::unlink(path.c_str()) == 0;
}

void must_delete_file(const std::string& path) {
  if (!delete_file(path) && errno != ENOENT && errno != ENOTDIR) throw_error(errno, path);
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

std::string absolute_path(const std::string& path) {
  std::error_code failure;
  const fs::path whole = fs::absolute(path, failure);
  if (failure) return path;
  if (std::ranges::find(whole, fs::path{".."}) == whole.end()) return whole.lexically_normal().string();
  // Behind a link, "a/.." need not be where it seems: the folders that are there tell.
  const fs::path folder = fs::weakly_canonical(whole.parent_path(), failure);
  return failure ? whole.string() : (folder / whole.filename()).string();
}

std::string behind_links(const std::string& path) {
  std::error_code failure;
  std::string target = fs::canonical(path, failure).string();
  if (failure) throw RunTimeError(RunTimeError::path_access_error, path);
  return target;
}

void make_folders(const std::string& path) {
  std::error_code failure;
  fs::create_directories(path, failure);
  if (failure) throw_error(failure.value(), path);
}

void delete_folder(const std::string& path) {
  std::error_code what_stays;
  fs::remove_all(path, what_stays);
}

std::string temporary_folder() {
  const std::string chosen = environment("TMPDIR");
  return as_folder(chosen.empty() ? "/tmp" : chosen);
}

std::string make_private_folder(const std::string& start) {
  std::string path = start + std::string(6, 'X');  // the pattern that mkdtemp() wants
  if (::mkdtemp(path.data())) return path;
  if (errno == ENOENT) throw RunTimeError(RunTimeError::path_not_found, path);
  throw_error(errno, path);
}

bool is_own_folder(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid();
}

bool is_terminal(int descriptor) {
  return ::isatty(descriptor) == 1;
}

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

std::string user_folder() {
  if (const std::string config = environment("XDG_CONFIG_HOME"); !config.empty()) return as_folder(config);
  const std::string home = environment("HOME");
  return home.empty() ? "" : as_folder(home) + ".config/";
}

std::string_view user_folder_variables() {
  return "HOME, XDG_CONFIG_HOME";
}

std::string executable_folder() {
  std::error_code failure;
  const fs::path program = fs::read_symlink("/proc/self/exe", failure);
  return failure ? "" : as_folder(program.parent_path().string());
}

std::vector<std::string> arguments(int argc, char* const argv[]) {
  return {argv + 1, argv + argc};
}

std::tm local_time(std::time_t moment) {
  std::tm local{};
  ::localtime_r(&moment, &local);
  return local;
}

void start_program(const std::string& program, const std::string& argument) {
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  std::string name = program, only = argument;
  char* const words[] = {name.data(), only.data(), nullptr};
  pid_t pid = 0;
  const int code = ::posix_spawnp(&pid, name.c_str(), nullptr, &attributes, words, environ);
  ::posix_spawnattr_destroy(&attributes);
  if (code != 0) throw_error(code, program);
}

void open_on_desktop(const std::string& address) {
  start_program("xdg-open", address);
}

int process_id() {
  return ::getpid();
}

bool process_runs(int id) {
  return ::kill(id, 0) == 0 || errno != ESRCH;
}

}  // namespace varnisto::os
