#pragma once
// Reads a text file of code page 932 line by line through one buffer, so that memory stays flat however long
// the file is.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/byte_buffer.h"
#include "base/cp932.h"
#include "base/file_handle.h"

namespace varnisto {

/// Lines that lie behind the character 26 of a file. Blanks and control characters (0 to 31, 127) alone are
/// padding and no line.
struct AfterEnd {
  std::int64_t lines = 0;
  std::size_t first_line = 0;  ///< number of the first of them in the file, from 1; 0 when there is none
};

/// Longest line of a text file, in bytes.
inline constexpr std::size_t longest_line = 1048576;

class TextReader {
 public:
  /// Opens an existing file (the case of its name does not matter). Messages call it `shown`, or by its path.
  /// Throws RunTimeError 53, 70 or 75.
  explicit TextReader(const std::string& path, std::string_view shown = "");
  /// Reads from memory, as if the bytes were a file's.
  static TextReader from_bytes(std::string_view bytes, std::string name = "");

  /// The next line as UTF-8, without its line end (CR LF or LF; the last line may lack one). False at the end
  /// of the file. Character 26 ends the file. The text stays valid until the next call. Throws RunTimeError 5
  /// with place() for a line longer than 1,048,576 bytes.
  bool next(std::string_view& line);
  /// The next line. Throws RunTimeError 62 at the end of the file.
  std::string_view must_next();

  /// What lies behind the character 26, once next() has found the end: reads the rest of the file, however
  /// long its lines are. The rest of the character's own line counts as a line. A second call finds nothing.
  AfterEnd after_end();

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
  bool cut_at_end(std::string_view& line);
  void decode(std::string_view& line);
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
  std::size_t end_line_ = 0;  ///< number of the line with the character 26; 0: none was met
  std::size_t behind_ = 0;    ///< place behind it
  std::string decoded_;
  CodePage code_page_;
};

}  // namespace varnisto
