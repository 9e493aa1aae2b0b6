#pragma once

#include "ui/app_form.h"

namespace varnisto {

/// The version window.
class frmVer final : public AppForm {
 public:
  explicit frmVer(App& the_app);

  std::vector<NamedControl> controls() override;
  void Form_Load() override;
  void cmdOK_Click();

  Label Label1;  ///< program and version
  Label Label2;  ///< authors
  Button cmdOK;
};

}  // namespace varnisto
