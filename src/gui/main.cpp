// The desktop program: varnisto [--app-dir DIR] [LOG]
//   gui/program.cpp     arguments, start-up, main window
//   gui/qt_desk.cpp     message boxes, dialogs, the error trap around every event
//   gui/windows.cpp     which form is shown by which .ui file
//   gui/binder.cpp      form data <-> widgets
// What the windows do is told in ui/.
#include "gui/program.h"

int main(int argc, char* argv[]) {
  return varnisto::run_program(argc, argv);
}
