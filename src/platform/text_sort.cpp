#include "platform/text_sort.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
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

/// All lines of a file in one text: half of the time would go into small allocations otherwise.
class LineStore {
 public:
  explicit LineStore(const std::string& path) {
    TextReader reader{path};
    std::error_code unknown;
    const auto size = std::filesystem::file_size(path, unknown);
    if (!unknown) text_.reserve(size);
    for (std::string_view line; reader.next(line);) {
      ends_.push_back(text_.append(line).size());
      ascii_ = ascii_ && reader.ascii();
    }
  }

  /// The lines, each with its key.
  std::vector<KeyedLine> keyed(Columns key) const {
    std::vector<KeyedLine> lines;
    lines.reserve(ends_.size());
    for (std::size_t begin = 0; const std::size_t end : ends_) {
      const std::string_view line = std::string_view{text_}.substr(begin, end - begin);
      lines.push_back({(ascii_ ? TextLine{line, true} : TextLine{line}).cut(key), line});
      begin = end;
    }
    return lines;
  }

 private:
  std::string text_;
  std::vector<std::size_t> ends_;
  bool ascii_ = true;
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
  const LineStore store{parsed->input};
  std::vector<KeyedLine> order = store.keyed(parsed->key);
  // Lines that go on where others end are nearly in order: those stay where they are.
  const auto rest = std::ranges::is_sorted_until(order, {}, &KeyedLine::key);
  std::ranges::stable_sort(rest, order.end(), {}, &KeyedLine::key);
  std::ranges::inplace_merge(order, rest, {}, &KeyedLine::key);
  TextWriter writer{parsed->output};
  for (const KeyedLine& keyed : order) writer.put(keyed.line);
  writer.close();
  return 0;
}

}  // namespace varnisto
