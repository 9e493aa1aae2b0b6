#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/line_sink.h"

namespace varnisto::test {

/// Keeps the lines put into it.
class LineList final : public LineSink {
 public:
  std::vector<std::string> lines;
  void put(std::string_view line) override { lines.emplace_back(line); }
};

}  // namespace varnisto::test
