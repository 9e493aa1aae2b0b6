#pragma once
// An open file under its name; reads and writes throw RunTimeError instead of returning short.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/os.h"

namespace varnisto {

class FileHandle {
 public:
  FileHandle() = default;
  /// Opens an existing regular file for reading; the case of its name does not matter when no exact match
  /// exists. Throws RunTimeError 53 (missing), 70 (no permission), 75 (a folder or a device).
  static FileHandle open_for_reading(const std::string& path);
  /// Makes a file that is not there yet, for writing. Throws RunTimeError 58 (it is there), 70, 75 or 76 (no
  /// such folder).
  static FileHandle create_new(const std::string& path);
  /// Takes an open file over, and closes it.
  static FileHandle adopt(os::Descriptor file, std::string name);

  bool is_open() const { return file_.is_open(); }
  const std::string& path() const { return path_; }

  /// Reads up to `size` bytes; 0 at the end of the file.
  std::size_t read(char* data, std::size_t size);
  /// Writes everything. Throws RunTimeError 61 when the disk is full.
  void write(std::string_view data);
  /// Waits until the disk holds what was written. Throws RunTimeError 57 or 61.
  void flush_to_disk();
  /// Closes; a write that the system reports only now is an error like any other.
  void close();

 private:
  FileHandle(os::Descriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  os::Descriptor file_;
  std::string path_;
};

}  // namespace varnisto
