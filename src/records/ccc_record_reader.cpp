#include "records/ccc_record_reader.h"

#include <cstring>
#include <utility>

#include "base/run_time_error.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;

}  // namespace

CccRecordReader::CccRecordReader(const std::string& path, std::size_t record_size)
    : file_(FileHandle::open_for_reading(path)), path_(path), buffer_(buffer_size), size_(record_size) {}

CccRecordReader CccRecordReader::from_bytes(std::string_view bytes, std::size_t record_size,
                                            std::string name) {
  CccRecordReader reader{record_size};
  reader.path_ = std::move(name);
  reader.buffer_ = ByteBuffer{bytes.size() + record_size};  // room to fill up the last record
  reader.end_ = bytes.copy(reader.buffer_.data(), bytes.size());
  return reader;
}

/// Reads on where the buffer holds a record only in part. False when the file ends there.
bool CccRecordReader::refill() {
  if (!file_.is_open()) return false;
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  while (end_ < size_) {
    const std::size_t count = file_.read(buffer_.data() + end_, buffer_.size() - end_);
    if (count == 0) return false;
    end_ += count;
  }
  return true;
}

/// Half a record rounds to the even number of records.
bool CccRecordReader::rest_counts() const {
  return rest_ * 2 > size_ || (rest_ * 2 == size_ && number_ % 2 == 1);
}

bool CccRecordReader::next(std::string_view& record) {
  if (end_ - begin_ < size_ && !refill()) {
    if (rest_ != 0) return false;
    rest_ = end_ - begin_;
    if (!rest_counts()) return false;
    std::memset(buffer_.data() + end_, 0, size_ - rest_);
    end_ += size_ - rest_;
  }
  ++number_;
  if (number_ > most_ccc_records)
    throw RunTimeError(RunTimeError::overflow, path_ + ": " + std::to_string(number_) + " 番目の交信");
  record = {buffer_.data() + begin_, size_};
  begin_ += size_;
  return true;
}

}  // namespace varnisto
