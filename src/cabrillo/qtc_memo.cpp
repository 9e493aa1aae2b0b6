#include "cabrillo/qtc_memo.h"

#include <array>

#include "base/text.h"
#include "cabrillo/jst_to_utc.h"

namespace varnisto {
namespace {

constexpr std::string_view mark = "QTC";

/// Takes the text up to the next blank off `rest`; blanks in front of it are skipped.
std::string_view take_item(std::string_view& rest) {
  rest = trim_left(rest);
  const std::string_view item = rest.substr(0, rest.find(' '));
  rest.remove_prefix(item.size());
  return item;
}

QtcMemo read_items(std::string_view text) {
  QtcMemo memo;
  std::string_view series = take_item(text).substr(mark.size());
  const std::size_t slash = series.find('/');
  memo.group = series.substr(0, slash);
  if (slash != std::string_view::npos) memo.number = series.substr(slash + 1);
  memo.receiver = take_item(text);
  memo.date = take_item(text);
  memo.time = take_item(text);
  memo.band = take_item(text);
  return memo;
}

}  // namespace

std::optional<QtcMemo> next_qtc_memo(std::string_view& rest) {
  for (std::size_t open = rest.find('['); open != std::string_view::npos; open = rest.find('[')) {
    rest.remove_prefix(open + 1);
    if (!equal_ignoring_case(rest.substr(0, mark.size()), mark)) continue;
    const std::size_t close = rest.find(']');
    const std::string_view text = rest.substr(0, close);
    rest.remove_prefix(text.size());
    return close == std::string_view::npos ? QtcMemo{} : read_items(text);
  }
  return std::nullopt;
}

bool is_complete(const QtcMemo& memo) {
  return !memo.receiver.empty() && read_minute(memo.date, memo.time).has_value();
}

QtcTime qtc_time(const QtcMemo& memo, bool to_utc) {
  const auto utc = to_utc ? nine_hours_back(memo.date, memo.time) : std::nullopt;
  if (utc) return {std::string{utc->date()}, std::string{utc->time()}};
  return {replace_all(memo.date, "/", "-"), std::string{memo.time}};
}

}  // namespace varnisto
