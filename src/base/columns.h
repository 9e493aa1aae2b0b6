#pragma once
// Fixed-column text: a table of Columns names the fields of a layout, a TextLine cuts them out of a line.

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/text.h"

namespace varnisto {

/// A field of a fixed-column line: first column (from 1) and width, both in characters.
struct Columns {
  std::size_t first;
  std::size_t width;
};

/// A line of UTF-8 text whose columns are characters. It holds no copy: the text must outlive it.
class TextLine {
 public:
  explicit TextLine(std::string_view utf8) : TextLine(utf8, is_ascii(utf8)) {}
  /// `ascii`: the text is known to be plain ASCII, or known not to be.
  TextLine(std::string_view utf8, bool ascii) : text_(utf8), ascii_(ascii) {}

  std::string_view text() const { return text_; }
  bool ascii() const { return ascii_; }

  /// The text in these columns. A line that ends earlier gives a shorter or an empty text.
  std::string_view cut(Columns columns) const {
    if (!ascii_) return mid(text_, columns.first, columns.width);
    if (columns.first > text_.size()) return {};
    return {text_.data() + columns.first - 1, std::min(columns.width, text_.size() + 1 - columns.first)};
  }

  /// Everything from column `first` on.
  std::string_view from(std::size_t first) const { return cut({first, std::string_view::npos}); }

 private:
  std::string_view text_;
  bool ascii_;
};

/// A line of plain ASCII that reaches behind the last of its columns: cutting it needs no look at it.
class FullLine {
 public:
  explicit FullLine(std::string_view ascii) : text_(ascii.data()) {}
  std::string_view cut(Columns columns) const { return {text_ + columns.first - 1, columns.width}; }

 private:
  const char* text_;
};

}  // namespace varnisto
