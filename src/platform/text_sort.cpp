#include "platform/text_sort.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

#include "base/columns.h"
#include "base/run_time_error.h"
#include "base/text_reader.h"
#include "base/text_writer.h"

namespace varnisto {
namespace {

/// What a command such as "/k(2:6)  'in.csv'   'out.csv'" asks for.
struct SortCommand {
  Columns key;
  std::string input, output;
};

struct KeyedLine {
  std::string_view key, line;
};

/// Takes the text between the next two single quotes off `rest`.
std::string take_quoted(std::string_view& rest) {
  const std::size_t open = rest.find('\'');
  const std::size_t close = open == std::string_view::npos ? open : rest.find('\'', open + 1);
  if (close == std::string_view::npos) return "";
  const std::string text{rest.substr(open + 1, close - open - 1)};
  rest = rest.substr(close + 1);
  return text;
}

std::optional<SortCommand> parse(std::string_view command) {
  constexpr std::string_view start = "/k(";
  if (!command.starts_with(start)) return std::nullopt;
  std::size_t first = 0;
  std::size_t last = 0;
  const char* const end = command.data() + command.size();
  auto number = std::from_chars(command.data() + start.size(), end, first);
  if (number.ec != std::errc{} || number.ptr == end || *number.ptr != ':') return std::nullopt;
  number = std::from_chars(number.ptr + 1, end, last);
  if (number.ec != std::errc{} || number.ptr == end || *number.ptr != ')') return std::nullopt;
  std::string_view rest{number.ptr, static_cast<std::size_t>(end - number.ptr)};
  SortCommand parsed{{first, last + 1 - first}, take_quoted(rest), take_quoted(rest)};
  const bool complete = first > 0 && last >= first && !parsed.input.empty() && !parsed.output.empty();
  return complete ? std::optional{parsed} : std::nullopt;
}

}  // namespace

int FileTextSort::ksort(const std::string& command) {
  const auto parsed = parse(command);
  if (!parsed) throw RunTimeError(RunTimeError::bad_argument, command);
  std::vector<std::string> lines;
  TextReader reader{parsed->input};
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  // The keys are cut once, not at every comparison; they lie in the lines, which stay where they are.
  std::vector<KeyedLine> order;
  order.reserve(lines.size());
  for (const std::string& line : lines) order.push_back({TextLine{line}.cut(parsed->key), line});
  std::ranges::stable_sort(order, {}, &KeyedLine::key);
  TextWriter writer{parsed->output};
  for (const KeyedLine& keyed : order) writer.put(keyed.line);
  writer.close();
  return 0;
}

}  // namespace varnisto
