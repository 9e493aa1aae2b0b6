#include "ui/frm_ver.h"

#include "core/version.h"

namespace varnisto {

frmVer::frmVer(App& the_app) : AppForm(the_app) {
  cmdOK.caption = "Ｏ Ｋ";
  on_click("cmdOK", [this](int) { cmdOK_Click(); });
}

std::vector<NamedControl> frmVer::controls() {
  return {{"Label1", &Label1}, {"Label2", &Label2}, {"cmdOK", &cmdOK}};
}

void frmVer::Form_Load() {
  app.trace.line("Private Sub Form_Load()_frmVer");
  Label1.text = "Varnisto.exe  " + std::string{program_version};
  Label2.text = "Copyright (c) 2026 the Varnisto developers";
  caption = "　" + Label1.text;
}

void frmVer::cmdOK_Click() {
  app.trace.line("Private Sub cmdOK_Click()");
  closed = true;
}

}  // namespace varnisto
