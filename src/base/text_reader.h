#pragma once
// Reads a text file of code page 932 line by line through one buffer, so that memory stays flat however long
// the file is.

#include <cstddef>
#include <string>
#include <string_view>

#include "base/byte_buffer.h"
#include "base/cp932.h"
#include "base/file_handle.h"

namespace varnisto {

class TextReader {
 public:
  /// Opens an existing file (the case of its name does not matter). Throws RunTimeError 53, 70 or 75.
  explicit TextReader(const std::string& path);
  /// Reads from memory, as if the bytes were a file's.
  static TextReader from_bytes(std::string_view bytes, std::string name = "");

  /// The next line as UTF-8, without its line end (CR LF or LF; the last line may lack one). False at the end
  /// of the file. Character 26 ends the file. The text stays valid until the next call. A line longer than
  /// the buffer makes the buffer grow to the line's length.
  bool next(std::string_view& line);
  /// The next line. Throws RunTimeError 62 at the end of the file.
  std::string_view must_next();

  /// True when the line that next() gave last is plain ASCII: its bytes are its characters.
  bool ascii() const { return ascii_; }
  /// Number of the line that next() gave last, from 1.
  std::size_t line_number() const { return line_number_; }
  const std::string& path() const { return path_; }
  /// "path: line n", for messages.
  std::string place() const;

 private:
  TextReader() = default;
  bool next_bytes(std::string_view& line);
  bool take_other(std::string_view& line);
  bool refill();
  void look_at(std::string_view fresh);

  FileHandle file_;
  std::string path_;
  ByteBuffer buffer_;
  std::size_t begin_ = 0;  ///< first byte not yet handed out
  std::size_t end_ = 0;    ///< end of what was read
  bool ended_ = false;     ///< nothing more to read
  bool plain_ = true;      ///< surely ASCII without a character 26: what was read and not yet handed out
  bool ascii_ = true;
  std::size_t line_number_ = 0;
  std::string decoded_;
  CodePage code_page_;
};

}  // namespace varnisto
