#pragma once

#include <string>
#include <string_view>

namespace varnisto {

/// A worked call sign taken apart at its "/".
struct CallParts {
  std::string main_call;   ///< the station's own call
  std::string other_part;  ///< what was put before or behind it
  std::string full_call;   ///< the whole, for a comment; empty for a plain call of up to six characters
};
CallParts calls_check(std::string_view call);

}  // namespace varnisto
