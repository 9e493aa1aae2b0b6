#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnisto {

/// The lines of a text file in one block of memory: a file of some megabytes loads at once.
class TextLines {
 public:
  /// Reads a file of code page 932; one that is not there gives no lines. Throws RunTimeError when it cannot
  /// be read.
  static TextLines read(const std::string& path);

  void add(std::string_view line);
  std::size_t size() const { return ends_.size(); }
  /// Line `index`, from 0, as UTF-8.
  std::string_view line(std::size_t index) const;

 private:
  std::string text_;
  std::vector<std::size_t> ends_;
};

enum class Direction { down, up };

/// The first line, from line `from` on in this direction and round the end of the file once, that holds
/// `text`; the case of ASCII letters does not matter. Nothing for an empty text.
std::optional<std::size_t> find_line(const TextLines& lines, std::string_view text, std::size_t from,
                                     Direction direction);

}  // namespace varnisto
