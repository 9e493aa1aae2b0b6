#include "records/record_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/run_time_error.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;
constexpr std::size_t longest_record = 4096;

/// Whether the bytes behind `whole` records are one more by the rounding of the file's length.
bool counts_as_record(std::size_t bytes, std::size_t size, std::size_t whole) {
  return bytes * 2 > size || (bytes * 2 == size && whole % 2 == 1);
}

}  // namespace

RecordReader::RecordReader(const std::string& path)
    : file_(FileHandle::open_for_reading(path)), path_(path), buffer_(buffer_size) {}

RecordReader RecordReader::from_bytes(std::string_view bytes, std::string name) {
  RecordReader reader;
  reader.path_ = std::move(name);
  reader.buffer_ = ByteBuffer{bytes.size() + longest_record};
  bytes.copy(reader.buffer_.data(), bytes.size());
  reader.end_ = bytes.size();
  return reader;
}

/// Brings `size` bytes into the buffer, or what is left of the file: returns how many of them there are.
std::size_t RecordReader::have(std::size_t size) {
  if (end_ - begin_ < size && begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= std::exchange(begin_, 0);
  }
  while (end_ - begin_ < size && file_.is_open()) {
    const std::size_t count = file_.read(buffer_.data() + end_, buffer_.size() - end_);
    if (count == 0) file_.close();
    end_ += count;
  }
  return std::min(size, end_ - begin_);
}

std::string_view RecordReader::front(std::size_t size) {
  const std::size_t count = have(size);
  return {buffer_.data() + begin_, count};
}

bool RecordReader::next(std::size_t size, std::string_view& record) {
  const std::size_t count = have(size);
  if (count < size) rest_ = std::max(rest_, count);  // the call behind it finds nothing
  if (count < size && !counts_as_record(count, size, number_)) return false;
  ++number_;
  if (number_ > most_records) throw RunTimeError(RunTimeError::overflow, place());
  char* const start = buffer_.data() + begin_;
  std::fill(start + count, start + size, '\0');
  begin_ += count;
  record = {start, size};
  return true;
}

std::string RecordReader::place() const {
  return path_ + ": " + std::to_string(number_) + " 番目のレコード";
}

}  // namespace varnisto
