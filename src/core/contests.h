#pragma once

#include <cstdint>
#include <string_view>

namespace varnisto {

/// Contests that the program treats in a way of their own.
enum class ContestFamily : std::uint8_t { other, cq_wpx, jidx, waedc, iota };

/// The family that a contest's title, code or CONTEST value tells, e.g. "CQ WPX Contest" and "CQ-WPX-CW".
ContestFamily family_of(std::string_view text);

}  // namespace varnisto
