#pragma once

#include <span>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// A check box of the main window and the flag that it sets.
struct OptionBox {
  std::string_view name;
  CheckBox MainForm::*box;
  bool Settings::*flag;
};
/// The boxes in the order of their numbers.
std::span<const OptionBox> option_boxes();

}  // namespace varnisto
