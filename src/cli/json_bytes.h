#pragma once
// Texts of any bytes in JSON, which holds characters only: a byte that is part of no character becomes the
// lone surrogate "\udcXX", as scripts know it from file names.

#include <string>
#include <string_view>

namespace varnisto {

/// The text as UTF-8 that a JSON writer takes: bytes that are part of no character stand as the code page's
/// private characters for them.
std::string escape_bytes(std::string_view text);

/// Written JSON with "\udcXX" for those private characters.
std::string with_surrogates(std::string_view json);

}  // namespace varnisto
