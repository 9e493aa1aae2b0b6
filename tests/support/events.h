#pragma once

#include <functional>
#include <string_view>

#include "app/action.h"
#include "ui/form.h"

namespace varnisto::test {

/// Hands an event to a form as a window does: inside an action, the controls brought up to date afterwards.
inline void hand_in(App& app, Form& form, const std::function<void()>& event) {
  if (run_action(app, event).ends_program) form.closed = true;
  form.refresh();
}
inline void click_in(App& app, Form& form, std::string_view name, int index = 0) {
  hand_in(app, form, [&] { form.click(name, index); });
}

}  // namespace varnisto::test
