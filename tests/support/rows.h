#pragma once

#include <array>
#include <concepts>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace varnisto::test {

/// The rows of a table-driven test.
template <class Row, class... Rest>
std::array<Row, 1 + sizeof...(Rest)> rows_of(Row first, Rest... rest) {
  return {std::move(first), std::move(rest)...};
}

/// Rows of `fields` texts, each written as one text with "|" between the fields.
template <std::size_t fields>
std::vector<std::array<std::string, fields>> texts_of(
    const std::convertible_to<std::string_view> auto&... rows) {
  std::vector<std::array<std::string, fields>> split;
  for (std::string_view rest : {std::string_view{rows}...}) {
    auto& row = split.emplace_back();
    for (std::size_t i = 0; i < fields; ++i) {
      const std::size_t bar = rest.find('|');
      if ((bar == std::string_view::npos) != (i + 1 == fields)) throw std::logic_error{std::string{rest}};
      row.at(i) = rest.substr(0, bar);
      rest.remove_prefix(bar == std::string_view::npos ? rest.size() : bar + 1);
    }
  }
  return split;
}

}  // namespace varnisto::test
