#include "base/text_writer.h"

#include <cstring>
#include <utility>

#include "base/short_text.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;
constexpr std::string_view line_end = "\r\n";

/// Control characters but tabs become blanks. None is part of a longer character.
void blank_controls(char* text, std::size_t size) {
  for (char* c = text; c != text + size; ++c)
    if (is_control(*c)) *c = ' ';
}

}  // namespace

TextWriter::TextWriter(FileHandle file) : file_(std::move(file)), pending_(buffer_size) {}

void TextWriter::put(std::string_view line) {
  const std::size_t size = line.size() + line_end.size();
  if (used_ + size > pending_.size()) make_room(size);
  char* const start = pending_.data() + used_;
  copy_piece(copy_piece(start, line), line_end);
  if (holds_control(line)) blank_controls(start, line.size());
  used_ += size;
}

void TextWriter::make_room(std::size_t size) {
  flush();
  if (size > pending_.size()) pending_ = ByteBuffer{size};
}

void TextWriter::flush() {
  if (!is_ascii(pending_.first(used_).substr(encoded_size_))) encode();
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
    if (!is_ascii(line)) {
      encoded_.clear();
      code_page_.encode(line, encoded_, Unmappable::question_mark);
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
