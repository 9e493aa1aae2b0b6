#include "gui/windows.h"

#include <QDialog>
#include <algorithm>
#include <utility>

#include "gui/link_window.h"
#include "gui/main_frame.h"
#include "gui/viewer_window.h"
#include "ui/frm_overlay.h"
#include "ui/frm_ver.h"
#include "ui/make_cfg.h"
#include "ui/select_cont.h"
#include "ui_frm_overlay.h"
#include "ui_frm_ver.h"
#include "ui_make_cfg.h"
#include "ui_select_cont.h"

namespace varnisto {
namespace {

/// A dialog whose Esc key closes it like its frame does.
class FormDialog final : public QDialog {
 public:
  using QDialog::QDialog;
  void reject() override { close(); }
};

template <class FormType, class Ui>
Window dialog(App& app, QWidget* parent, const RunEvent&) {
  Window window;
  window.form = std::make_unique<FormType>(app);
  auto widget = std::make_unique<FormDialog>(parent);
  Ui ui;
  ui.setupUi(widget.get());
  window.widget = std::move(widget);
  window.form->Form_Load();
  return window;
}

Window viewer(App& app, QWidget* parent, const RunEvent&) {
  Window window;
  auto form = std::make_unique<frmDisp2>(app);
  form->Form_Load();
  window.widget = std::make_unique<ViewerWindow>(*form, qobject_cast<QDialog*>(parent));
  window.form = std::move(form);
  return window;
}

Window link_page(App& app, QWidget* parent, const RunEvent& run) {
  Window window;
  auto widget = std::make_unique<LinkWindow>(parent);
  auto form = std::make_unique<frmWeb_URL>(app, *widget);
  widget->on_link(
      [run, &page = *form](const std::string& address) { run([&] { page.open_link(address); }); });
  form->Form_Load();
  window.widget = std::move(widget);
  window.form = std::move(form);
  return window;
}

struct WindowKind {
  Window (*make)(App&, QWidget* parent, const RunEvent&);
  const char* close_control;
  FormName name;
  bool modal;
};
constexpr WindowKind kinds[] = {
    {dialog<select_cont, Ui::select_cont>, "", FormName::select_cont, true},
    {dialog<frmOVERLAY, Ui::frmOVERLAY>, "cmdBack", FormName::frmOVERLAY, true},
    {dialog<Make_cfg, Ui::Make_cfg>, "cmdBack", FormName::Make_cfg, true},
    {viewer, "mnuBack", FormName::frmDisp2, false},
    {link_page, "mnuMain", FormName::frmWeb_URL, true},
    {dialog<frmVer, Ui::frmVer>, "cmdOK", FormName::frmVer, true},
};

}  // namespace

Window make_window(FormName name, App& app, QWidget* parent, const RunEvent& run) {
  const auto* kind = std::ranges::find(kinds, name, &WindowKind::name);
  if (kind == std::end(kinds)) throw NotAvailable("dialog");
  Window window = kind->make(app, parent, run);
  window.close_control = kind->close_control;
  window.modal = kind->modal;
  return window;
}

std::unique_ptr<QWidget> make_main_window(MainWindow& form, const RunEvent& run) {
  return std::make_unique<MainFrame>(form, run);
}

}  // namespace varnisto
