#pragma once
// The one binder of all windows: it pairs the controls of a form with the widgets of the same objectName,
// copies control data to widgets, and hands widget events to the form. It decides nothing.

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QListView>
#include <QObject>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "ui/form.h"

namespace varnisto {

/// | control     | widget                                                                     |
/// |-------------|----------------------------------------------------------------------------|
/// | Label       | QLabel                                                                     |
/// | TextBox     | QLineEdit, QPlainTextEdit                                                  |
/// | Button      | QPushButton, QAction                                                       |
/// | CheckBox    | QCheckBox                                                                  |
/// | OptionGroup | QGroupBox, which gets a QRadioButton for each option: Option1_0, Option1_1 |
/// | ListBox     | QListView                                                                  |
/// | MenuItem    | QAction, QMenu                                                             |
///
/// A control without a caption of its own keeps the caption that the window gives it.
class Binder final : public QObject {
 public:
  /// Runs an event of the form; afterwards the windows are to be refreshed.
  using Run = std::function<void(const std::function<void()>&)>;

  /// Both `window` and `form` must live as long as the binder.
  Binder(QWidget& window, Form& form, Run run);

  /// Copies the form's data to the widgets, as far as it changed.
  void refresh();

  /// Controls for which the window has no widget of a fitting kind.
  const std::vector<std::string>& unbound() const { return unbound_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool bind(const std::string& name, Label& control);
  bool bind(const std::string& name, TextBox& control);
  bool bind(const std::string& name, Button& control);
  bool bind(const std::string& name, CheckBox& control);
  bool bind(const std::string& name, OptionGroup& control);
  bool bind(const std::string& name, ListBox& control);
  bool bind(const std::string& name, MenuItem& control);

  template <class Editor>
  bool bind_text(const std::string& name, TextBox& control);
  void show_options(const std::string& name, QGroupBox& box, OptionGroup& control,
                    std::vector<QAbstractButton*>& buttons);
  void bind_selection(const std::string& name, QListView& view, ListBox& control);

  template <class Widget>
  Widget* widget(const std::string& name) const;
  /// Hands an event in, unless it comes from refresh().
  void hand_in(const std::function<void()>& event);
  void colour(QWidget& widget, QPalette::ColorRole role, Color color);

  QWidget& window_;
  Form& form_;
  Run run_;
  std::vector<std::function<void()>> shows_;  ///< each copies one control to its widget
  std::vector<std::string> unbound_;
  bool refreshing_ = false;
};

}  // namespace varnisto
