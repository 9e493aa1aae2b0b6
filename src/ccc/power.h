#pragma once

#include <string>

#include "base/text_reader.h"

namespace varnisto {

/// The highest sent power in an ARRL DX text log, as the log writes it; of equal ones the first. "0" when
/// there is none above 0. Throws what the reader throws.
std::string highest_ccc_power(TextReader& log);

}  // namespace varnisto
