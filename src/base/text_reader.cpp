#include "base/text_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;
/// Room in which the end of a line shows, or that it is longer than that.
constexpr std::size_t longest_buffer = longest_line + 2;
constexpr char end_of_text = '\x1A';

/// Blanks and control characters: what fills up a file behind its end.
bool is_padding(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte <= ' ' || byte == 127;
}

/// Counts the lines that hold more than padding in a text that comes in parts.
class LineCount {
 public:
  explicit LineCount(std::size_t line_number) : line_number_(line_number) {}

  void take(std::string_view part) {
    for (std::size_t end = 0; (end = part.find('\n')) != std::string_view::npos;
         part.remove_prefix(end + 1)) {
      look_at(part.substr(0, end));
      counted_ = false;
      ++line_number_;
    }
    look_at(part);
  }
  AfterEnd found() const { return found_; }

 private:
  void look_at(std::string_view part_of_line) {
    if (counted_ || std::ranges::all_of(part_of_line, is_padding)) return;
    counted_ = true;
    if (found_.lines++ == 0) found_.first_line = line_number_;
  }

  std::size_t line_number_;
  bool counted_ = false;  ///< the current line
  AfterEnd found_;
};

}  // namespace

TextReader::TextReader(const std::string& path, std::string_view shown)
    : file_(FileHandle::open_for_reading(path)),
      path_(shown.empty() ? std::string_view{path} : shown),
      buffer_(buffer_size) {}

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

/// Reads on where the buffer holds a line only in part. False when it must do: the file is at its end, or the
/// line fills the longest buffer.
bool TextReader::refill() {
  if (ended_) return false;
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.grow(std::min(buffer_.size() * 2, longest_buffer), end_);
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
  if (!plain_ && !cut_at_end(line)) return false;
  ++line_number_;
  if (line.size() > longest_line) throw RunTimeError(RunTimeError::bad_argument, place());
  ascii_ = plain_ || is_ascii(line);
  if (!ascii_) decode(line);
  return true;
}

/// Cuts the line where the file ends. False when nothing of it is left.
bool TextReader::cut_at_end(std::string_view& line) {
  const std::size_t stop = line.find(end_of_text);
  if (stop == std::string_view::npos) return true;
  end_line_ = line_number_ + 1;
  behind_ = static_cast<std::size_t>(line.data() - buffer_.data()) + stop + 1;
  begin_ = end_;
  ended_ = true;
  line = line.substr(0, stop);
  return stop > 0;
}

void TextReader::decode(std::string_view& line) {
  decoded_.clear();
  code_page_.decode(line, decoded_);
  line = decoded_;
}

AfterEnd TextReader::after_end() {
  if (end_line_ == 0) return {};
  LineCount count{std::exchange(end_line_, 0)};
  count.take(buffer_.first(end_).substr(behind_));
  std::size_t size = 0;
  while (file_.is_open() && (size = file_.read(buffer_.data(), buffer_.size())) > 0)
    count.take(buffer_.first(size));
  return count.found();
}

std::string_view TextReader::must_next() {
  std::string_view line;
  if (!next(line)) throw RunTimeError(RunTimeError::past_end, path_);
  return line;
}

std::string TextReader::place() const {
  return path_ + ": " + std::to_string(std::max<std::size_t>(line_number_, 1)) + " 行目";
}

}  // namespace varnisto
