#pragma once
// Every window of the program: which form it shows, from which .ui file it comes, how it opens and closes.

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "core/app.h"
#include "ui/form.h"
#include "ui/main_window.h"

namespace varnisto {

/// A window, its form loaded, not shown yet.
struct Window {
  std::unique_ptr<Form> form;
  std::unique_ptr<QWidget> widget;  ///< goes before the form that it shows
  std::string close_control;        ///< what closing the frame clicks; "": it just closes
  bool modal = true;
};

/// Runs an event of a form that does not come through a control.
using RunEvent = std::function<void(const std::function<void()>&)>;

/// Makes a dialog or viewer with its form and loads the form. Throws what the load throws, and NotAvailable
/// for a window that the program does not have yet.
Window make_window(FormName name, App& app, QWidget* parent, const RunEvent& run);

/// The main window around its form, which must live as long.
std::unique_ptr<QWidget> make_main_window(MainWindow& form, const RunEvent& run);

}  // namespace varnisto
