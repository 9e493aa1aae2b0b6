#pragma once
// Comma-separated sequential files: list files that users edit, and scratch files.

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_reader.h"

namespace varnisto {

/// Reads one field after the other, over line ends. A field ends at a comma or at the line end; it may sit in
/// double quotes, which are removed (two in a row inside stand for one); blanks around an unquoted field are
/// dropped. An empty line is one empty field.
class FieldReader {
 public:
  explicit FieldReader(TextReader reader) : reader_(std::move(reader)) {}

  /// The next field, or nothing at the end of the file.
  std::optional<std::string> next();
  /// The next field. Throws RunTimeError 62 at the end of the file.
  std::string must_next();

  /// True when the field that was read last was the last one on its line.
  bool at_line_end() const { return !more_on_line_; }
  /// Passes over what the current line still holds.
  void end_line() { more_on_line_ = false; }

  /// "path: line n" of the field that was read last.
  std::string place() const { return reader_.place(); }

 private:
  TextReader reader_;
  std::string line_;           ///< the current one
  std::size_t taken_ = 0;      ///< bytes of it that were read
  bool more_on_line_ = false;  ///< a field (perhaps an empty one) follows on the current line
};

/// Takes the first field off `rest`. True when a comma followed it, so that another field comes on the same
/// line. The field is a part of the line, or of `room` when quotes inside it had to go.
bool take_field(std::string_view& rest, std::string_view& field, std::string& room);
/// The same with a field of its own.
bool take_field(std::string_view& rest, std::string& field);

/// Sets `line` to one record of a scratch file: every field in double quotes, commas between them. There
/// is at least one, and none is part of `line`.
void set_quoted_fields(std::string& line, std::initializer_list<std::string_view> fields);

}  // namespace varnisto
