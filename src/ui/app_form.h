#pragma once

#include "core/app.h"
#include "ui/form.h"

namespace varnisto {

/// A form that works on the program's state. Its event routines run inside the error trap; an error that ends
/// the program closes the form.
class AppForm : public Form {
 public:
  explicit AppForm(App& the_app) : app(the_app) {}

 protected:
  void run(const std::function<void()>& action) override;

  App& app;
};

}  // namespace varnisto
