#pragma once
// Hands out the records of a binary log of the CCC logger through one buffer, so that memory stays flat.

#include <cstddef>
#include <string>
#include <string_view>

#include "base/byte_buffer.h"
#include "base/file_handle.h"

namespace varnisto {

/// Most records that a log can hold.
inline constexpr std::size_t most_ccc_records = 32767;

class CccRecordReader {
 public:
  /// Opens an existing file of records of `record_size` bytes (the case of its name does not matter). Throws
  /// RunTimeError 53, 70 or 75.
  CccRecordReader(const std::string& path, std::size_t record_size);
  /// Reads from memory, as if the bytes were a file's.
  static CccRecordReader from_bytes(std::string_view bytes, std::size_t record_size, std::string name = "");

  /// The next record, valid until the next call; false behind the last one. The file's length divided by the
  /// record's, rounded half to even, is the number of records: more than half a record at the end of the file
  /// counts, its missing bytes are zeros. Throws RunTimeError 6 for record 32768.
  bool next(std::string_view& record);

  /// Number of the record that next() gave last, from 1.
  std::size_t number() const { return number_; }
  /// Bytes behind the last whole record, once next() has found the end; 0 in a sound log.
  std::size_t rest() const { return rest_; }

 private:
  explicit CccRecordReader(std::size_t record_size) : size_(record_size) {}
  bool refill();
  bool rest_counts() const;

  FileHandle file_;
  std::string path_;
  ByteBuffer buffer_;
  std::size_t size_;       ///< of a record
  std::size_t begin_ = 0;  ///< first byte not yet handed out
  std::size_t end_ = 0;    ///< end of what was read
  std::size_t number_ = 0;
  std::size_t rest_ = 0;
};

}  // namespace varnisto
