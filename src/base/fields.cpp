#include "base/fields.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {

namespace {

constexpr std::string_view two_quotes = "\"\"";

/// Takes the text of a quoted field at the start of `rest`; returns where its closing quote stands.
std::size_t take_quoted(std::string_view rest, std::string& field) {
  std::size_t begin = 1;
  std::size_t quote = rest.find('"', begin);
  field.clear();
  while (quote != std::string_view::npos && rest.substr(quote, 2) == two_quotes) {
    field.append(rest.substr(begin, quote + 1 - begin));
    begin = quote + 2;
    quote = rest.find('"', begin);
  }
  field.append(rest.substr(begin, quote == std::string_view::npos ? quote : quote - begin));
  return quote;
}

void append_quoted(std::string& line, std::string_view field) {
  line += '"';
  for (std::size_t quote = field.find('"'); quote != std::string_view::npos; quote = field.find('"')) {
    line.append(field.substr(0, quote)).append(two_quotes);
    field.remove_prefix(quote + 1);
  }
  line.append(field) += '"';
}

}  // namespace

bool take_field(std::string_view& rest, std::string& field) {
  if (rest.starts_with(' ')) rest = trim_left(rest);
  std::size_t comma = std::string_view::npos;
  if (rest.starts_with('"')) {
    const std::size_t close = take_quoted(rest, field);
    if (rest.substr(std::min(close, rest.size())).starts_with("\","))
      comma = close + 1;
    else if (close != std::string_view::npos)
      comma = rest.find(',', close);
  } else {
    comma = rest.find(',');
    field = trim_right(rest.substr(0, comma));
  }
  const bool more = comma != std::string_view::npos;
  rest = more ? rest.substr(comma + 1) : std::string_view{};
  return more;
}

std::optional<std::string> FieldReader::next() {
  if (!more_on_line_) {
    std::string_view line;
    if (!reader_.next(line)) return std::nullopt;
    rest_ = line;
  }
  std::string field;
  std::string_view rest = rest_;
  more_on_line_ = take_field(rest, field);
  rest_.erase(0, rest_.size() - rest.size());
  return field;
}

std::string FieldReader::must_next() {
  auto field = next();
  if (!field) throw RunTimeError(RunTimeError::past_end, place());
  return *std::move(field);
}

void append_quoted_fields(std::string& line, std::initializer_list<std::string_view> fields) {
  bool first = true;
  for (const std::string_view field : fields) {
    if (!first) line += ',';
    append_quoted(line, field);
    first = false;
  }
}

}  // namespace varnisto
