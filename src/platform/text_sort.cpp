#include "platform/text_sort.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "base/run_time_error.h"
#include "platform/line_sort.h"

namespace varnisto {
namespace {

/// What a command such as "/k(2:6)  'in.csv'   'out.csv'" asks for.
struct SortCommand {
  Columns key;
  std::string input, output;
};

/// Input and output path of "  'in'   'out'". A path may hold single quotes: the outer ones and the three
/// blanks count.
std::pair<std::string, std::string> parse_paths(std::string_view text) {
  constexpr std::string_view between = "'   '";
  const std::size_t open = text.find('\'');
  const std::size_t middle = text.find(between);
  if (open == std::string_view::npos || middle == std::string_view::npos || !text.ends_with('\'')) return {};
  const std::size_t second = middle + between.size();
  if (open >= middle || second >= text.size()) return {};
  return {std::string{text.substr(open + 1, middle - open - 1)},
          std::string{text.substr(second, text.size() - 1 - second)}};
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
  const auto [input, output] = parse_paths({number.ptr, static_cast<std::size_t>(end - number.ptr)});
  SortCommand parsed{{first, last + 1 - first}, input, output};
  const bool complete = first > 0 && last >= first && !parsed.input.empty() && !parsed.output.empty();
  return complete ? std::optional{parsed} : std::nullopt;
}

}  // namespace

int FileTextSort::ksort(const std::string& command) {
  const auto parsed = parse(command);
  if (!parsed) throw RunTimeError(RunTimeError::bad_argument, command);
  sort_lines(parsed->input, parsed->output, parsed->key);
  return 0;
}

}  // namespace varnisto
