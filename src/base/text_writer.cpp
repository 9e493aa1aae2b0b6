#include "base/text_writer.h"

#include <cstring>
#include <utility>

#include "base/short_text.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;
constexpr std::string_view line_end = "\r\n";

/// True when lines can be written as they are: ASCII without control characters but tabs and the line ends.
/// One pass without branches over whole buffers: it costs less than a look at each line.
bool is_plain(std::string_view lines) {
  unsigned char found = 0;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const auto c = static_cast<unsigned char>(lines[i]);
    const bool line_end_inside = c == '\n' || (c == '\r' && lines[i + 1] == '\n');
    found |=
        static_cast<unsigned char>((c & 0x80U) | ((c < ' ') & (c != '\t') & !line_end_inside) | (c == 127));
  }
  return found == 0;
}

/// Control characters of a line, its end excepted, become blanks.
void blank_controls(std::string& line) {
  for (std::size_t i = 0; i + line_end.size() < line.size(); ++i)
    if (is_control(line[i]) && line[i] != '\t') line[i] = ' ';
}

}  // namespace

TextWriter::TextWriter(FileHandle file) : file_(std::move(file)), pending_(buffer_size) {}

void TextWriter::put(std::string_view line) {
  const std::size_t size = line.size() + line_end.size();
  if (used_ + size > pending_.size()) make_room(size);
  copy_piece(copy_piece(pending_.data() + used_, line), line_end);
  used_ += size;
}

void TextWriter::make_room(std::size_t size) {
  flush();
  if (size > pending_.size()) pending_ = ByteBuffer{size};
}

void TextWriter::flush() {
  if (!is_plain(pending_.first(used_).substr(encoded_size_))) encode();
  file_.write(pending_.first(used_));
  used_ = encoded_size_ = 0;
}

/// Brings the lines to the file's code page where they are: it takes no more bytes than UTF-8 for any
/// character. Most lines are plain even where some are not.
void TextWriter::encode() {
  std::string_view lines = pending_.first(used_).substr(encoded_size_);
  used_ = encoded_size_;
  while (!lines.empty()) {
    std::string_view line = lines.substr(0, lines.find('\n') + 1);
    lines.remove_prefix(line.size());
    if (!is_plain(line)) {
      encoded_.clear();
      code_page_.encode(line, encoded_, Unmappable::question_mark);
      blank_controls(encoded_);
      line = encoded_;
    }
    std::memmove(pending_.data() + used_, line.data(), line.size());
    used_ += line.size();
    encoded_size_ = used_;  // should the file refuse them, the next attempt finds them so
  }
}

void TextWriter::close() {
  flush();
  file_.close();
}

}  // namespace varnisto
