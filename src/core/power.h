#pragma once
// The sent power as logs write it.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/columns.h"
#include "base/text_reader.h"

namespace varnisto {

/// Watts that a sent power stands for: 1000 when it holds a "K" of any case, else its number.
double power_watts(std::string_view power);

/// Finds the highest of some sent powers by whole watts, a half rounded to the even number.
class HighestPower {
 public:
  /// `none`: the text while no power is above 0.
  explicit HighestPower(std::string none) : text_(std::move(none)) {}
  void add(std::string_view power);
  /// The highest one as the log writes it, of equal ones the first.
  const std::string& text() const { return text_; }

 private:
  std::int64_t watts_ = 0;
  std::string text_;
};

/// The highest power in these columns of a text log behind its first line; `none` when there is none above 0.
/// Throws what the reader throws.
std::string highest_power(TextReader& log, Columns column, std::string none);

}  // namespace varnisto
