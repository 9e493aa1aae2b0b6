#pragma once

#include "core/app.h"
#include "ui/form.h"

namespace varnisto {

/// A form that works on the program's state. Its event routines throw: whoever hands an event in (a window,
/// the command line) runs it inside an action, which shows the error.
class AppForm : public Form {
 public:
  explicit AppForm(App& the_app) : app(the_app) {}

 protected:
  App& app;
};

}  // namespace varnisto
