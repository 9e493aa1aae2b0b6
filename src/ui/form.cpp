#include "ui/form.h"

#include <algorithm>

namespace varnisto {

void Form::run(const Routines& routines, std::string_view name, int index) {
  const auto hit = std::ranges::find(routines, name, &Routines::value_type::first);
  if (hit != routines.end()) hit->second(index);
}

void Form::click(std::string_view name, int index) {
  run(clicks_, name, index);
}

void Form::change(std::string_view name) {
  run(changes_, name, 0);
}

}  // namespace varnisto
