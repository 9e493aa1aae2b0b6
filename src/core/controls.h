#pragma once
// The controls of a window as plain data. A form changes them; a view shows them.

#include <string>
#include <vector>

namespace varnisto {

/// Text colours, numbered as in the 16-colour palette.
enum class Color { black = 0, green = 2, blue = 9, red = 12 };

struct Control {
  bool enabled = true;
  bool visible = true;
  std::string tip;
};

struct Label : Control {
  std::string text;
  Color color = Color::black;
};

struct TextBox : Control {
  std::string text;
  Color color = Color::black;
};

struct Button : Control {
  std::string caption;
};

struct CheckBox : Control {
  std::string caption;
  bool checked = false;
};

struct OptionButton : Control {
  std::string caption;
  Color color = Color::black;
};

/// Option buttons of which at most one is selected.
struct OptionGroup : Control {
  std::string caption;
  std::vector<OptionButton> options;
  int selected = -1;

  /// Selects an option and draws it in blue, the others in black.
  void select(int index) {
    selected = index;
    color_selected();
  }
  void color_selected() {
    for (std::size_t i = 0; i < options.size(); ++i)
      options[i].color = static_cast<int>(i) == selected ? Color::blue : Color::black;
  }
};

struct ListBox : Control {
  std::vector<std::string> items;
  int selected = -1;
};

struct MenuItem : Control {
  std::string caption;
  bool checked = false;
};

/// An option group with these captions, none selected.
inline OptionGroup option_group(std::string caption, const std::vector<std::string>& captions) {
  OptionGroup group;
  group.caption = std::move(caption);
  for (const std::string& text : captions) {
    OptionButton option;
    option.caption = text;
    group.options.push_back(option);
  }
  return group;
}

}  // namespace varnisto
