#include "base/text_writer.h"

#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;

}  // namespace

TextWriter::TextWriter(const std::string& path, Unmappable policy)
    : file_(FileHandle::create(path)), policy_(policy) {
  pending_.reserve(buffer_size);
}

void TextWriter::put(std::string_view line) {
  if (pending_.size() + line.size() + 2 > buffer_size) flush();
  if (is_ascii(line))
    pending_.append(line);
  else
    code_page_.encode(line, pending_, policy_);
  pending_.append("\r\n");
}

void TextWriter::flush() {
  file_.write(pending_);
  pending_.clear();
}

void TextWriter::close() {
  flush();
  file_.close();
}

}  // namespace varnisto
