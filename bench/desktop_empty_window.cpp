// The floor of a start: an empty Qt main window.
//
//     desktop_empty_window WIDTH HEIGHT
#include <QApplication>
#include <QMainWindow>
#include <cstdlib>

#include "front/qt/ready_report.h"

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  if (argc > 2) window.resize(std::atoi(argv[1]), std::atoi(argv[2]));
  window.show();
  ardane::await_first_paint(window);
  ardane::report("prêt");
  return 0;
}
