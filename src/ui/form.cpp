#include "ui/form.h"

#include <algorithm>

namespace varnisto {

void Form::run_named(const Routines& routines, std::string_view name, int index) {
  const auto hit = std::ranges::find(routines, name, &Routines::value_type::first);
  if (hit != routines.end()) hit->second(index);
}

void Form::click(std::string_view name, int index) {
  run_named(clicks_, name, index);
}

void Form::change(std::string_view name) {
  run_named(changes_, name, 0);
}

std::string Form::typed(std::string_view, std::string_view text) const {
  return std::string{text};
}

}  // namespace varnisto
