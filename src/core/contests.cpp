#include "core/contests.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace varnisto {
namespace {

struct FamilyMark {
  std::string_view mark;
  ContestFamily family;
};
constexpr FamilyMark marks[] = {{"CQ WPX", ContestFamily::cq_wpx}, {"CQ-WPX", ContestFamily::cq_wpx},
                                {"CQWPX", ContestFamily::cq_wpx},  {"JIDX", ContestFamily::jidx},
                                {"WAEDC", ContestFamily::waedc},   {"IOTA", ContestFamily::iota}};

}  // namespace

ContestFamily family_of(std::string_view text) {
  const auto* hit =
      std::ranges::find_if(marks, [&](const FamilyMark& row) { return contains(text, row.mark); });
  return hit == std::end(marks) ? ContestFamily::other : hit->family;
}

}  // namespace varnisto
