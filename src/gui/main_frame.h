#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMainWindow>

#include "gui/windows.h"
#include "ui_main_window.h"

namespace varnisto {

/// The main window's frame: its widgets, and files that are dropped on it.
class MainFrame final : public QMainWindow {
 public:
  MainFrame(MainWindow& form, RunEvent run);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  MainWindow& form_;
  RunEvent run_;
  Ui::MainWindow ui_;
};

}  // namespace varnisto
