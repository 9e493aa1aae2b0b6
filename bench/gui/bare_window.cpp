// The least that a Qt program does: one empty window, gone once it was drawn.
#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char* argv[]) {
  QApplication application{argc, argv};
  QWidget window;
  window.show();
  QTimer::singleShot(0, &application, [] { QCoreApplication::exit(0); });
  return QApplication::exec();
}
