// The floor of a start: an empty Qt main window.
#include <QApplication>
#include <QMainWindow>

#include "front/qt/ready_report.h"

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(860, 690);
  window.show();
  ardane::await_first_paint(window);
  ardane::report("prêt");
  return 0;
}
