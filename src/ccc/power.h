#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/text_reader.h"

namespace varnisto {

/// Watts that a sent power stands for: 1000 when it holds a "K" of any case, else its number.
std::int64_t ccc_power_watts(std::string_view power);

/// The highest sent power in an ARRL DX text log, as the log writes it; of equal ones the first. "0" when
/// there is none above 0. Throws what the reader throws.
std::string highest_ccc_power(TextReader& log);

}  // namespace varnisto
