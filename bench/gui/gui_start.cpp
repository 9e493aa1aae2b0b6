// The desktop program up to its drawn main window: gui_start PROGRAM_FOLDER [FILE_TO_VIEW]
// With a file it opens the text viewer on it too and prints how long that took.
#include <QApplication>
#include <QTimer>
#include <chrono>
#include <iostream>

#include "gui/program.h"

int main(int argc, char* argv[]) {
  QApplication application{argc, argv};
  if (argc < 2) return 2;
  varnisto::SystemLauncher launcher;
  varnisto::Program program{launcher};
  if (!program.start([&] { return std::string{argv[1]} + "/"; })) return 1;
  if (argc > 2) {
    QApplication::processEvents();
    program.app.state.display.disp_name = argv[2];
    const auto begin = std::chrono::steady_clock::now();
    program.desk.show(varnisto::FormName::frmDisp2);
    QApplication::processEvents();
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
    std::cout << "viewer: " << time.count() << " ms\n";
  }
  QTimer::singleShot(0, &application, [] { QCoreApplication::exit(0); });
  return QApplication::exec();
}
