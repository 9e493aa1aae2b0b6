#include "base/text_reader.h"

#include <cstring>

#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;
constexpr char end_of_text = '\x1A';

}  // namespace

TextReader::TextReader(const std::string& path)
    : file_(FileHandle::open_for_reading(path)), path_(path), buffer_(buffer_size) {}

TextReader TextReader::from_bytes(std::string_view bytes, std::string name) {
  TextReader reader;
  reader.path_ = std::move(name);
  reader.end_ = bytes.size();
  reader.look_at(bytes);
  reader.buffer_ = ByteBuffer{bytes.size()};
  bytes.copy(reader.buffer_.data(), bytes.size());
  reader.ended_ = true;
  return reader;
}

bool TextReader::refill() {
  if (ended_) return false;
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.grow(buffer_.size() * 2, end_);
  const std::size_t count = file_.read(buffer_.data() + end_, buffer_.size() - end_);
  if (end_ == 0) plain_ = true;
  look_at({buffer_.data() + end_, count});
  end_ += count;
  ended_ = count == 0;
  return !ended_;
}

/// Nearly every buffer is plain: one look at it saves a look at each of its lines.
void TextReader::look_at(std::string_view fresh) {
  plain_ = plain_ && is_ascii(fresh) && fresh.find(end_of_text) == std::string_view::npos;
}

bool TextReader::next_bytes(std::string_view& line) {
  std::size_t searched = 0;
  while (true) {
    const char* start = buffer_.data() + begin_;
    const std::size_t size = end_ - begin_;
    if (const void* hit = std::memchr(start + searched, '\n', size - searched)) {
      std::size_t length = static_cast<std::size_t>(static_cast<const char*>(hit) - start);
      begin_ += length + 1;
      if (length > 0 && start[length - 1] == '\r') --length;
      line = {start, length};
      return true;
    }
    searched = size;
    if (refill()) continue;
    if (size == 0) return false;
    line = {buffer_.data() + begin_, size};
    if (line.ends_with('\r')) line.remove_suffix(1);
    begin_ = end_;
    return true;
  }
}

bool TextReader::next(std::string_view& line) {
  if (!next_bytes(line)) return false;
  ascii_ = plain_;
  if (!plain_ && !take_other(line)) return false;
  ++line_number_;
  return true;
}

/// The same for a line that may hold anything.
bool TextReader::take_other(std::string_view& line) {
  if (const std::size_t stop = line.find(end_of_text); stop != std::string_view::npos) {
    begin_ = end_;
    ended_ = true;
    line = line.substr(0, stop);
    if (stop == 0) return false;
  }
  ascii_ = is_ascii(line);
  if (ascii_) return true;
  decoded_.clear();
  code_page_.decode(line, decoded_);
  line = decoded_;
  return true;
}

std::string_view TextReader::must_next() {
  std::string_view line;
  if (!next(line)) throw RunTimeError(RunTimeError::past_end, path_);
  return line;
}

std::string TextReader::place() const {
  return path_ + ": " + std::to_string(line_number_) + " 行目";
}

}  // namespace varnisto
