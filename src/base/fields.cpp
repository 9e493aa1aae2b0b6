#include "base/fields.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/short_text.h"
#include "base/text.h"

namespace varnisto {

namespace {

constexpr std::string_view two_quotes = "\"\"";

/// True when this character follows the first one.
bool second_is(std::string_view text, char c) {
  return text.size() > 1 && text[1] == c;
}

/// The text of a quoted field at the start of `rest`; `rest` then begins with its closing quote or is empty.
std::string_view take_quoted(std::string_view& rest, std::string& room) {
  rest.remove_prefix(1);
  const auto take_piece = [&rest] {
    const std::string_view piece = rest.substr(0, rest.find('"'));
    rest.remove_prefix(piece.size());
    return piece;
  };
  const std::string_view field = take_piece();
  if (!second_is(rest, '"')) return field;
  room = field;
  while (second_is(rest, '"')) {
    rest.remove_prefix(two_quotes.size());
    room.append("\"").append(take_piece());
  }
  return room;
}

/// The same with the quotes in the fields doubled.
void set_with_quotes(std::string& line, std::initializer_list<std::string_view> fields) {
  line.clear();
  for (const std::string_view field : fields)
    line.append(line.empty() ? "\"" : ",\"").append(replace_all(field, "\"", two_quotes)).append("\"");
}

}  // namespace

bool take_field(std::string_view& rest, std::string_view& field, std::string& room) {
  rest = trim_left(rest);
  const bool quoted = rest.starts_with('"');
  if (quoted) field = take_quoted(rest, room);
  const std::size_t comma = quoted && second_is(rest, ',') ? 1 : rest.find(',');
  if (!quoted) field = trim_right(rest.substr(0, comma));
  const bool more = comma != std::string_view::npos;
  rest = more ? rest.substr(comma + 1) : std::string_view{};
  return more;
}

bool take_field(std::string_view& rest, std::string& field) {
  std::string_view taken;
  const bool more = take_field(rest, taken, field);
  field.assign(taken);
  return more;
}

std::optional<std::string> FieldReader::next() {
  if (!more_on_line_) {
    std::string_view line;
    if (!reader_.next(line)) return std::nullopt;
    line_ = line;
    taken_ = 0;
  }
  std::string field;
  std::string_view rest = std::string_view{line_}.substr(taken_);
  more_on_line_ = take_field(rest, field);
  taken_ = line_.size() - rest.size();
  return field;
}

std::string FieldReader::must_next() {
  auto field = next();
  if (!field) throw RunTimeError(RunTimeError::past_end, place());
  return *std::move(field);
}

void set_quoted_fields(std::string& line, std::initializer_list<std::string_view> fields) {
  constexpr std::string_view between = "\",\"";
  std::size_t size = fields.size() * between.size() - 1;
  for (const std::string_view field : fields) size += field.size();
  line.resize(size);
  char* end = line.data();
  *end++ = '"';
  for (const std::string_view* field = fields.begin(); field != fields.end(); ++field) {
    if (field != fields.begin()) end = copy_piece(end, between);
    end = copy_piece(end, *field);
  }
  *end = '"';
  // Other quotes than these are rare.
  if (std::ranges::count(line, '"') != static_cast<std::ptrdiff_t>(2 * fields.size()))
    set_with_quotes(line, fields);
}

}  // namespace varnisto
