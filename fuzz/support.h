#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/cp932.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "support/line_list.h"

namespace varnisto::fuzz {

/// Keeps the system's code page tables loaded: they would be read from disk again for every input.
inline const CodePage loaded_code_page = [] {
  CodePage code_page;
  std::string text;
  code_page.decode("\x95\x5C", text);
  std::string bytes;
  code_page.encode(text, bytes, Unmappable::refuse);
  return code_page;
}();

/// Ends the run when what must always hold does not.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

inline std::string_view bytes_of(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// The lines of these bytes as a log's reader hands them out.
inline std::vector<std::string> lines_of(std::string_view bytes) {
  std::vector<std::string> lines;
  TextReader reader = TextReader::from_bytes(std::string{bytes});
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  return lines;
}

using test::LineList;  // NOLINT(misc-unused-using-decls): of the targets

}  // namespace varnisto::fuzz
