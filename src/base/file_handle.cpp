#include "base/file_handle.h"

#include "base/files.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

void refuse_nul(const std::string& path) {
  if (path.find('\0') != std::string::npos) throw RunTimeError(RunTimeError::bad_file_name, path);
}

}  // namespace

FileHandle FileHandle::open_for_reading(const std::string& path) {
  refuse_nul(path);
  os::Descriptor file = os::open_plain_file(path, path);
  if (!file.is_open())
    if (const auto other_case = find_file(path)) file = os::open_plain_file(*other_case, path);
  if (!file.is_open()) throw RunTimeError(RunTimeError::file_not_found, path);
  return adopt(std::move(file), path);
}

FileHandle FileHandle::create_new(const std::string& path) {
  refuse_nul(path);
  return adopt(os::create_new(path, path), path);
}

FileHandle FileHandle::adopt(os::Descriptor file, std::string name) {
  return FileHandle{std::move(file), std::move(name)};
}

std::size_t FileHandle::read(char* data, std::size_t size) {
  return os::read(file_, data, size, path_);
}

void FileHandle::write(std::string_view data) {
  os::write(file_, data, path_);
}

void FileHandle::flush_to_disk() {
  os::flush_to_disk(file_, path_);
}

void FileHandle::close() {
  os::close(std::move(file_), path_);
}

}  // namespace varnisto
