#include "base/fields.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {

bool take_field(std::string_view& rest, std::string& field) {
  rest = trim_left(rest);
  std::size_t comma = rest.find(',');
  if (rest.starts_with('"')) {
    const std::size_t close = rest.find('"', 1);
    field = rest.substr(1, close == std::string_view::npos ? close : close - 1);
    comma = close == std::string_view::npos ? close : rest.find(',', close);
  } else {
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

std::string quoted_fields(std::initializer_list<std::string_view> fields) {
  std::string line;
  for (const std::string_view field : fields) {
    if (!line.empty()) line += ',';
    line.append("\"").append(field).append("\"");
  }
  return line;
}

}  // namespace varnisto
