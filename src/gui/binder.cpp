#include "gui/binder.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>
#include <type_traits>
#include <utility>

#include "gui/lines_model.h"
#include "gui/palette.h"
#include "gui/qt_text.h"

namespace varnisto {
namespace {

constexpr const char* shown_colour = "shown_colour";

/// What every control has. QAction and QWidget have the same setters.
template <class Target>
void show_common(const Control& control, Target& target) {
  if constexpr (std::is_base_of_v<QWidget, Target>) {
    if (target.isHidden() == control.visible) target.setVisible(control.visible);
  } else {
    if (target.isVisible() != control.visible) target.setVisible(control.visible);
  }
  if (target.isEnabled() != control.enabled) target.setEnabled(control.enabled);
  const QString tip = qt_text(control.tip);
  if (!tip.isEmpty() && target.toolTip() != tip) target.setToolTip(tip);
}

/// Captions: a blank one leaves what the window says.
template <class Target>
void show_caption(const std::string& caption, Target& target) {
  const QString text = qt_caption(caption);
  if (!text.isEmpty() && target.text() != text) target.setText(text);
}

QString text_of(const QLineEdit& edit) {
  return edit.text();
}
QString text_of(const QPlainTextEdit& edit) {
  return edit.toPlainText();
}

void set_text(QLineEdit& edit, const QString& text) {
  const int cursor = edit.cursorPosition();
  edit.setText(text);
  edit.setCursorPosition(edit.hasFocus() ? std::min(cursor, static_cast<int>(text.size())) : 0);
}
void set_text(QPlainTextEdit& edit, const QString& text) {
  edit.setPlainText(text);
}

/// Selects one of the buttons, or none.
void select(const std::vector<QAbstractButton*>& buttons, int selected) {
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    QAbstractButton& button = *buttons[i];
    const bool checked = static_cast<int>(i) == selected;
    if (button.isChecked() == checked) continue;
    const bool exclusive = button.autoExclusive();
    button.setAutoExclusive(false);  // else the last one could not be cleared
    button.setChecked(checked);
    button.setAutoExclusive(exclusive);
  }
}

void select(QListView& view, int row) {
  const QModelIndexList rows = view.selectionModel()->selectedRows();
  const int shown = rows.isEmpty() ? -1 : rows.front().row();
  if (shown == row) return;
  const QModelIndex index = view.model()->index(row, 0);
  view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  if (index.isValid()) view.scrollTo(index);
}

}  // namespace

Binder::Binder(QWidget& window, Form& form, Run run) : window_{window}, form_{form}, run_{std::move(run)} {
  for (const NamedControl& named : form.controls()) {
    std::string name{named.name};
    const bool bound =
        std::visit([&](auto* control) { return control != nullptr && bind(name, *control); }, named.control);
    if (!bound) unbound_.push_back(std::move(name));
  }
  window.installEventFilter(this);
  refresh();
}

void Binder::refresh() {
  const QScopedValueRollback guard{refreshing_, true};
  if (!form_.caption.empty()) {
    const QString title = qt_text(form_.caption);
    if (window_.windowTitle() != title) window_.setWindowTitle(title);
  }
  for (const auto& show : shows_) show();
}

void Binder::hand_in(const std::function<void()>& event) {
  if (!refreshing_) run_(event);
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) refresh();  // light to dark or back
  return QObject::eventFilter(watched, event);
}

template <class Widget>
Widget* Binder::widget(const std::string& name) const {
  return window_.findChild<Widget*>(QString::fromStdString(name));
}

void Binder::colour(QWidget& widget, QPalette::ColorRole role, Color color) {
  const int shown = static_cast<int>(color) + (is_dark(window_.palette()) ? 16 : 0);
  const QVariant before = widget.property(shown_colour);
  if (before.isValid() ? before.toInt() == shown : color == Color::black) return;
  widget.setProperty(shown_colour, shown);
  tint(widget, role, color, window_.palette());
}

bool Binder::bind(const std::string& name, Label& control) {
  auto* label = widget<QLabel>(name);
  if (label == nullptr) return false;
  label->setTextFormat(Qt::PlainText);
  shows_.emplace_back([this, &control, label] {
    show_common(control, *label);
    const QString text = qt_text(control.text);
    if (label->text() != text) label->setText(text);
    colour(*label, QPalette::WindowText, control.color);
  });
  return true;
}

template <class Editor>
bool Binder::bind_text(const std::string& name, TextBox& control) {
  auto* editor = widget<Editor>(name);
  if (editor == nullptr) return false;
  shows_.emplace_back([this, &control, editor] {
    show_common(control, *editor);
    const QString text = qt_text(control.text);
    if (text_of(*editor) != text) set_text(*editor, text);
    colour(*editor, QPalette::Text, control.color);
  });
  connect(editor, &Editor::textChanged, this, [this, name, &control, editor] {
    hand_in([&] {
      control.text = form_.typed(name, text_of(*editor).toStdString());
      form_.change(name);
    });
  });
  return true;
}

bool Binder::bind(const std::string& name, TextBox& control) {
  return bind_text<QLineEdit>(name, control) || bind_text<QPlainTextEdit>(name, control);
}

bool Binder::bind(const std::string& name, Button& control) {
  const auto pair_with = [&](auto* target) {
    shows_.emplace_back([&control, target] {
      show_common(control, *target);
      show_caption(control.caption, *target);
    });
  };
  const auto click = [this, name] { hand_in([&] { form_.click(name); }); };
  if (auto* button = widget<QPushButton>(name)) {
    pair_with(button);
    connect(button, &QPushButton::clicked, this, click);
    return true;
  }
  if (auto* action = widget<QAction>(name)) {
    pair_with(action);
    connect(action, &QAction::triggered, this, click);
    return true;
  }
  return false;
}

bool Binder::bind(const std::string& name, CheckBox& control) {
  auto* box = widget<QCheckBox>(name);
  if (box == nullptr) return false;
  shows_.emplace_back([&control, box] {
    show_common(control, *box);
    show_caption(control.caption, *box);
    if (box->isChecked() != control.checked) box->setChecked(control.checked);
  });
  connect(box, &QCheckBox::toggled, this, [this, name, &control](bool checked) {
    hand_in([&] {
      control.checked = checked;
      form_.click(name);
    });
  });
  return true;
}

bool Binder::bind(const std::string& name, OptionGroup& control) {
  auto* box = widget<QGroupBox>(name);
  if (box == nullptr) return false;
  auto* column = new QVBoxLayout(box);
  column->addStretch();
  shows_.emplace_back([this, name, &control, box, buttons = std::vector<QAbstractButton*>{}]() mutable {
    show_options(name, *box, control, buttons);
  });
  return true;
}

void Binder::show_options(const std::string& name, QGroupBox& box, OptionGroup& control,
                          std::vector<QAbstractButton*>& buttons) {
  show_common(control, box);
  const QString title = qt_caption(control.caption).trimmed();
  if (!title.isEmpty() && box.title() != title) box.setTitle(title);
  box.setFocusPolicy(Qt::TabFocus);  // else it has no place in the tab order that its buttons could take
  while (buttons.size() < control.options.size()) {
    const int index = static_cast<int>(buttons.size());
    auto* button = new QRadioButton(&box);
    button->setObjectName(QString::fromStdString(name) + QLatin1Char('_') + QString::number(index));
    static_cast<QVBoxLayout*>(box.layout())->insertWidget(index, button);
    QWidget::setTabOrder(buttons.empty() ? static_cast<QWidget*>(&box) : buttons.back(), button);
    connect(button, &QRadioButton::clicked, this, [this, name, &control, index] {
      hand_in([&] {
        control.selected = index;
        form_.click(name, index);
      });
    });
    buttons.push_back(button);
  }
  box.setFocusPolicy(Qt::NoFocus);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    buttons[i]->setVisible(i < control.options.size());
    if (i >= control.options.size()) continue;
    show_caption(control.options[i].caption, *buttons[i]);
    show_common(control.options[i], *buttons[i]);
    colour(*buttons[i], QPalette::WindowText, control.options[i].color);
  }
  select(buttons, control.selected);
}

bool Binder::bind(const std::string& name, ListBox& control) {
  auto* view = widget<QListView>(name);
  if (view == nullptr) return false;
  auto* model = new LinesModel(view);
  view->setModel(model);
  view->setUniformItemSizes(true);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  shows_.emplace_back([&control, view, model] {
    show_common(control, *view);
    model->set_lines(control.items);
    select(*view, control.selected);
  });
  bind_selection(name, *view, control);
  return true;
}

void Binder::bind_selection(const std::string& name, QListView& view, ListBox& control) {
  connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, name, &control, &view] {
    const QModelIndexList rows = view.selectionModel()->selectedRows();
    if (rows.isEmpty()) return;
    hand_in([&] {
      control.selected = rows.front().row();
      form_.click(name, control.selected);
    });
  });
}

bool Binder::bind(const std::string& name, MenuItem& control) {
  auto* menu = widget<QMenu>(name);
  QAction* action = menu != nullptr ? menu->menuAction() : widget<QAction>(name);
  if (action == nullptr) return false;
  shows_.emplace_back([&control, action] {
    show_common(control, *action);
    show_caption(control.caption, *action);
    if (action->isCheckable() && action->isChecked() != control.checked) action->setChecked(control.checked);
  });
  connect(action, &QAction::triggered, this, [this, name] { hand_in([&] { form_.click(name); }); });
  return true;
}

}  // namespace varnisto
