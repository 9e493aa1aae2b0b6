#pragma once

#include <QAbstractListModel>
#include <QMainWindow>

#include "ui/frm_disp2.h"
#include "ui_frm_disp2.h"

namespace varnisto {

/// The lines of a file for a QListView; a line becomes a QString only when it is drawn.
class FileLinesModel final : public QAbstractListModel {
 public:
  FileLinesModel(const TextLines& lines, QObject* parent) : QAbstractListModel{parent}, lines_{lines} {}
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const TextLines& lines_;
};

/// The text viewer: the list of lines in a fixed-width font, and a find bar (Ctrl+F, F3, Shift+F3).
class ViewerWindow final : public QMainWindow {
 public:
  /// `form` is loaded and lives as long as the window.
  ViewerWindow(frmDisp2& form, QWidget* parent);

 private:
  void connect_find_bar();
  void open_find_bar();
  void find(Direction direction);
  void escape();
  void copy_selected();

  frmDisp2& form_;
  Ui::frmDisp2 ui_;
};

}  // namespace varnisto
