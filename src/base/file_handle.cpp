#include "base/file_handle.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "base/files.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

int open_existing(const std::string& path) {
  // O_NONBLOCK: opening a named pipe must not wait for a writer; regular files ignore it.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor >= 0 || errno != ENOENT) return descriptor;
  const auto other_case = find_file(path);
  return other_case ? ::open(other_case->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : (errno = ENOENT, -1);
}

void refuse_nul(const std::string& path) {
  if (path.find('\0') != std::string::npos) throw RunTimeError(RunTimeError::bad_file_name, path);
}

}  // namespace

FileHandle FileHandle::open_for_reading(const std::string& path) {
  refuse_nul(path);
  const int descriptor = open_existing(path);
  if (descriptor < 0) throw_file_error(errno, path);
  FileHandle file{descriptor, path, true};
  struct stat info {};
  if (::fstat(descriptor, &info) != 0) throw_file_error(errno, path);
  if (!S_ISREG(info.st_mode)) throw RunTimeError(RunTimeError::path_access_error, path);
  return file;
}

FileHandle FileHandle::create_new(const std::string& path) {
  refuse_nul(path);
  return adopt(os::create_new(path, path), path);
}

FileHandle FileHandle::adopt(os::Descriptor descriptor, std::string name) {
  return FileHandle{descriptor.release(), std::move(name), true};
}

FileHandle FileHandle::borrow(int descriptor, std::string name) {
  return FileHandle{descriptor, std::move(name), false};
}

FileHandle::FileHandle(FileHandle&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      owned_(other.owned_),
      path_(std::move(other.path_)) {}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(owned_, other.owned_);
  std::swap(path_, other.path_);
  return *this;
}

FileHandle::~FileHandle() {
  if (is_open() && owned_) ::close(descriptor_);
}

std::size_t FileHandle::read(char* data, std::size_t size) {
  while (true) {
    const ssize_t count = ::read(descriptor_, data, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw_file_error(errno, path_);
  }
}

void FileHandle::write(std::string_view data) {
  while (!data.empty()) {
    const ssize_t count = ::write(descriptor_, data.data(), data.size());
    if (count >= 0)
      data.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR)
      throw_file_error(errno, path_);
  }
}

void FileHandle::flush_to_disk() {
  if (::fsync(descriptor_) != 0) throw_file_error(errno, path_);
}

void FileHandle::close() {
  if (!is_open()) return;
  const int descriptor = std::exchange(descriptor_, -1);
  if (owned_ && ::close(descriptor) != 0) throw_file_error(errno, path_);
}

}  // namespace varnisto
