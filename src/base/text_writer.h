#pragma once
// Writes a text file of code page 932 with CR LF line ends. Lines are collected and written in large pieces.

#include <string>
#include <string_view>

#include "base/cp932.h"
#include "base/file_handle.h"
#include "base/line_sink.h"

namespace varnisto {

class TextWriter final : public LineSink {
 public:
  /// Makes the file anew, replacing one that is there. Throws RunTimeError 70, 75 or 76.
  explicit TextWriter(const std::string& path, Unmappable policy = Unmappable::refuse);

  /// Writes one line (UTF-8) and its end. Throws RunTimeError 61 (disk full), 57, or 5 as the policy says.
  void put(std::string_view line) override;
  /// Writes what was collected so far.
  void flush();
  /// Flushes and closes. A writer that is destroyed without this leaves an unfinished file: only the way out
  /// of an error does that.
  void close();

  const std::string& path() const { return file_.path(); }

 private:
  FileHandle file_;
  Unmappable policy_;
  std::string pending_;
  CodePage code_page_;
};

}  // namespace varnisto
