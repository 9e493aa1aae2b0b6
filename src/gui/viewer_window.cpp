#include "gui/viewer_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QShortcut>
#include <algorithm>

#include "gui/fonts.h"
#include "gui/qt_text.h"

namespace varnisto {

int FileLinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant FileLinesModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return qt_text(lines_.line(static_cast<std::size_t>(index.row())));
}

ViewerWindow::ViewerWindow(frmDisp2& form, QWidget* parent) : QMainWindow{parent}, form_{form} {
  ui_.setupUi(this);
  ui_.List1->setFont(fixed_japanese_font());
  ui_.List1->setModel(new FileLinesModel(form.lines(), this));
  connect_find_bar();
}

void ViewerWindow::connect_find_bar() {
  ui_.find_bar->hide();
  connect(ui_.action_find, &QAction::triggered, this, &ViewerWindow::open_find_bar);
  connect(ui_.action_copy, &QAction::triggered, this, &ViewerWindow::copy_selected);
  const auto down = [this] { find(Direction::down); };
  const auto up = [this] { find(Direction::up); };
  connect(ui_.find_text, &QLineEdit::returnPressed, this, down);
  connect(ui_.find_next, &QAbstractButton::clicked, this, down);
  connect(ui_.find_previous, &QAbstractButton::clicked, this, up);
  connect(ui_.action_find_next, &QAction::triggered, this, down);
  connect(ui_.action_find_previous, &QAction::triggered, this, up);
  connect(ui_.find_text, &QLineEdit::textEdited, ui_.find_message, &QLabel::clear);
  connect(new QShortcut(QKeySequence{Qt::Key_Escape}, this), &QShortcut::activated, this,
          &ViewerWindow::escape);
}

void ViewerWindow::open_find_bar() {
  ui_.find_bar->show();
  ui_.find_text->setFocus();
  ui_.find_text->selectAll();
}

void ViewerWindow::find(Direction direction) {
  const QModelIndex current = ui_.List1->currentIndex();
  if (current.isValid()) form_.select(static_cast<std::size_t>(current.row()));
  const bool found = form_.find_text(ui_.find_text->text().toStdString(), direction);
  ui_.find_message->setText(found || ui_.find_text->text().isEmpty() ? QString{}
                                                                     : QStringLiteral("見つかりません"));
  if (found) ui_.List1->setCurrentIndex(ui_.List1->model()->index(static_cast<int>(*form_.selected()), 0));
}

/// Esc closes the find bar first, then the window.
void ViewerWindow::escape() {
  if (!ui_.find_bar->isVisible()) {
    close();
    return;
  }
  ui_.find_bar->hide();
  ui_.List1->setFocus();
}

void ViewerWindow::copy_selected() {
  QModelIndexList rows = ui_.List1->selectionModel()->selectedRows();
  std::sort(rows.begin(), rows.end());
  QStringList texts;
  for (const QModelIndex& row : rows) texts += row.data().toString();
  QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}

}  // namespace varnisto
