#pragma once
// Reads a file of fixed-length records from front to back through a fixed buffer.

#include <cstddef>
#include <string>
#include <string_view>

#include "base/byte_buffer.h"
#include "base/file_handle.h"

namespace varnisto {

/// Most records of a file: they are counted with 16 bits.
inline constexpr std::size_t most_records = 32767;

class RecordReader {
 public:
  /// Opens an existing file (the case of its name does not matter). Throws RunTimeError 53, 70 or 75.
  explicit RecordReader(const std::string& path);
  /// Reads from memory, as if the bytes were those of a file of this name.
  static RecordReader from_bytes(std::string_view bytes, std::string name = "");

  /// Up to `size` bytes that next() has not handed out yet; less only where the file ends. Valid until the
  /// next call. At most 4096.
  std::string_view front(std::size_t size);

  /// The next record, of `size` bytes (at most 4096; the same in every call). The number of records is the
  /// file's length divided by `size`, rounded, a half to the even number; what the last one lacks are zeros.
  /// False when there is no more. Throws RunTimeError 6 for more than 32,767 records, 57.
  bool next(std::size_t size, std::string_view& record);

  /// Bytes behind the last whole record, once next() has found the end.
  std::size_t rest() const { return rest_; }
  /// Number of the record that next() gave last, from 1.
  std::size_t number() const { return number_; }
  /// "path: n 番目のレコード", for messages.
  std::string place() const;
  const std::string& path() const { return path_; }

 private:
  RecordReader() = default;
  std::size_t have(std::size_t size);

  FileHandle file_;  ///< not open: all bytes are in the buffer
  std::string path_;
  ByteBuffer buffer_;
  std::size_t begin_ = 0;  ///< first byte not yet handed out
  std::size_t end_ = 0;    ///< end of what was read
  std::size_t number_ = 0;
  std::size_t rest_ = 0;
};

}  // namespace varnisto
