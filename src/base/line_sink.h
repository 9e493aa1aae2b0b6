#pragma once

#include <string_view>

namespace varnisto {

/// Where lines go: a file, the terminal, a list in a test.
class LineSink {
 public:
  virtual ~LineSink() = default;
  /// Takes one line of UTF-8 text without its line end.
  virtual void put(std::string_view line) = 0;
};

}  // namespace varnisto
