#pragma once

#include <streambuf>

namespace varnisto {

/// What a control character of a text becomes on the way out; line ends and tabs pass.
enum class Controls {
  caret,  ///< "^[" and the like: on a terminal, which would obey the character
  blank,  ///< elsewhere
};

/// Passes characters on to another buffer.
class ConsoleBuffer final : public std::streambuf {
 public:
  ConsoleBuffer(std::streambuf& below, Controls controls) : below_(below), controls_(controls) {}

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override { return below_.pubsync(); }

 private:
  bool put(char c);

  std::streambuf& below_;
  Controls controls_;
};

}  // namespace varnisto
