#include "ui/app_form.h"

#include "app/action.h"

namespace varnisto {

void AppForm::run(const std::function<void()>& action) {
  if (run_action(app, action).ends_program) app.state.program.ending = true;
  if (app.state.program.ending) closed = true;
}

}  // namespace varnisto
