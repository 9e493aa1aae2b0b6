#pragma once
// Writes a text file of code page 932 with CR LF line ends. Lines are collected and written in large pieces.

#include <cstddef>
#include <string>
#include <string_view>

#include "base/byte_buffer.h"
#include "base/cp932.h"
#include "base/file_handle.h"
#include "base/line_sink.h"

namespace varnisto {

class TextWriter final : public LineSink {
 public:
  /// Writes to a file that was opened for it. A character that code page 932 does not have becomes "?".
  explicit TextWriter(FileHandle file);
  /// A file of the program's own scratch folder. Throws RunTimeError 58 when it is there already, 61, 76.
  static TextWriter scratch(const std::string& path) { return TextWriter{FileHandle::create_new(path)}; }

  /// Takes one line (UTF-8); its end follows it in the file. Control characters in it, but tabs, become
  /// blanks. Throws what flush() throws: not necessarily for this line.
  void put(std::string_view line) override;
  /// Writes what was collected so far. Throws RunTimeError 61 (disk full) or 57.
  void flush();
  /// Flushes and closes. A writer that is destroyed without this leaves an unfinished file: only the way out
  /// of an error does that.
  void close();

  const std::string& path() const { return file_.path(); }

 private:
  void make_room(std::size_t size);
  void encode();

  FileHandle file_;
  ByteBuffer pending_;            ///< room for the lines that are collected
  std::size_t used_ = 0;          ///< bytes of it
  std::size_t encoded_size_ = 0;  ///< those that are in the file's code page
  CodePage code_page_;
  std::string encoded_;
};

}  // namespace varnisto
