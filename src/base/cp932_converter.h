#pragma once
// The system's own conversion between code page 932 and UTF-8. What it refuses is the business of cp932.h;
// another system is another file beside cp932_converter_iconv.cpp.

#include <memory>
#include <string>
#include <string_view>

namespace varnisto {

/// One direction of the conversion. The system's converter is opened when the first text comes.
class Cp932Converter {
 public:
  enum class To { utf8, cp932 };
  explicit Cp932Converter(To to) : to_(to) {}

  /// Converts as much of `in` as the system takes and appends it to `out`; the rest of `in` is empty or
  /// begins with what the system refuses. Throws RunTimeError 57 when the system does not have the code page.
  void run(std::string_view& in, std::string& out);

 private:
  struct Close {
    void operator()(void* converter) const;
  };

  To to_;
  std::unique_ptr<void, Close> converter_;  ///< null until it is needed
};

}  // namespace varnisto
