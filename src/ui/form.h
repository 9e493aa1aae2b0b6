#pragma once
// What a form offers to whoever shows it: its controls by name, and one entrance for the user's events. A
// view copies control data to widgets after every event and hands widget events in; it decides nothing.

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/controls.h"

namespace varnisto {

using ControlRef = std::variant<Label*, TextBox*, Button*, CheckBox*, OptionGroup*, ListBox*, MenuItem*>;

/// A control under its given name; option groups and lists are one control each.
struct NamedControl {
  std::string_view name;
  ControlRef control;
};

class Form {
 public:
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  std::string caption;  ///< window title
  bool closed = false;  ///< the form asks to be closed

  /// Every control that a view shows.
  virtual std::vector<NamedControl> controls() = 0;

  /// What the window does when it opens: whoever makes a form calls it once, before the first event.
  virtual void Form_Load() {}
  /// Brings the controls up to date with what they tell of. A view calls it before it copies them.
  virtual void refresh() {}

  /// The user clicked a control: button, menu entry, check box (already toggled), option or list entry number
  /// `index` (already selected).
  void click(std::string_view name, int index = 0);
  /// The user changed the text of a text box (already stored).
  void change(std::string_view name);
  /// What a text that was typed or pasted into this text box becomes.
  virtual std::string typed(std::string_view name, std::string_view text) const;

  /// The control of this name, as type T; null when there is none.
  template <class T>
  T* find(std::string_view name) {
    for (const NamedControl& named : controls())
      if (named.name == name)
        if (T* const* control = std::get_if<T*>(&named.control)) return *control;
    return nullptr;
  }

 protected:
  /// Event routines by control name. A control without an entry has no routine.
  using Routine = std::function<void(int index)>;
  void on_click(std::string_view name, Routine routine) { clicks_.emplace_back(name, std::move(routine)); }
  void on_change(std::string_view name, Routine routine) { changes_.emplace_back(name, std::move(routine)); }

 private:
  using Routines = std::vector<std::pair<std::string, Routine>>;
  static void run_named(const Routines& routines, std::string_view name, int index);

  Routines clicks_;
  Routines changes_;
};

}  // namespace varnisto
