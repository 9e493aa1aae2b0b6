#include "ui/text_lines.h"

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"

namespace varnisto {

TextLines TextLines::read(const std::string& path) {
  TextLines lines;
  if (!file_exists(path)) return lines;
  TextReader reader{path};
  for (std::string_view line; reader.next(line);) lines.add(line);
  return lines;
}

void TextLines::add(std::string_view line) {
  text_ += line;
  ends_.push_back(text_.size());
}

std::string_view TextLines::line(std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
  return std::string_view{text_}.substr(begin, ends_[index] - begin);
}

std::optional<std::size_t> find_line(const TextLines& lines, std::string_view text, std::size_t from,
                                     Direction direction) {
  if (text.empty()) return std::nullopt;
  const std::string wanted = to_upper(text);
  const std::size_t count = lines.size();
  for (std::size_t step = 0; step < count; ++step) {
    const std::size_t at = (from % count + (direction == Direction::down ? step : count - step)) % count;
    if (contains(to_upper(lines.line(at)), wanted)) return at;
  }
  return std::nullopt;
}

}  // namespace varnisto
