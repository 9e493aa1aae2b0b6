#pragma once
// The debug log: while debug mode is on, every routine writes its heading there.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_writer.h"

namespace varnisto {

class Trace {
 public:
  std::int16_t debug_flag = 0;      ///< 1 while debug mode is on
  std::int16_t debug_log_open = 0;  ///< 1 while the log takes lines

  /// True when lines are written and the error trap is armed.
  bool armed() const { return debug_flag == 1 && debug_log_open == 1; }

  /// Opens a log file of its own, closing one that is open; lines are written from now on. Throws
  /// RunTimeError 58 when the name is taken.
  void open(const std::string& path);
  /// Closes the log; debug mode itself stays as it is.
  void close();
  /// Writes a line when armed. Each line reaches the file at once, so that the log survives what follows.
  void line(std::string_view text);
  /// Why the log was given up, once: a log that cannot be written must not stop what it tells of.
  std::string take_failure();

 private:
  template <class Write>
  void attempt(Write write);

  std::optional<TextWriter> log_;
  std::string failure_;
};

}  // namespace varnisto
