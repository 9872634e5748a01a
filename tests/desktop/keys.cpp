#include "keys.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include "front/qt/demonstration/mouse.h"

namespace ardane {
namespace {

constexpr int more_than_there_are = 60;

/// Presses the key until that entry is the one under the cursor.
bool go_to_entry(const auto &menu, QMenuBar &bar, Qt::Key key, const std::string &name) {
  for (int presses = 0; presses < more_than_there_are; ++presses) {
    const QAction *here = menu.activeAction();
    if (here != nullptr && here->objectName() == QString::fromStdString(name)) return true;
    press_in_menus(bar, key);
  }
  return false;
}

}  // namespace

QWidget &window_with_keys(QWidget &main) {
  QWidget *modal = QApplication::activeModalWidget();
  return modal != nullptr ? *modal : main;
}

bool tab_to(QWidget &window, const std::string &control) {
  const auto *wanted = window.findChild<QWidget *>(QString::fromStdString(control));
  for (int presses = 0; presses < more_than_there_are; ++presses) {
    if (wanted != nullptr && window.focusWidget() == wanted) return true;
    press(window, Qt::Key_Tab);
  }
  return false;
}

void press_in_menus(QMenuBar &bar, Qt::Key key) {
  QWidget *open = QApplication::activePopupWidget();
  QTest::keyClick(open != nullptr ? open : &bar, key);
}

bool choose_by_keys(QMenuBar &bar, const std::string &menu, const std::string &entry) {
  QTest::keyPress(bar.window(), Qt::Key_Alt);
  QTest::keyRelease(bar.window(), Qt::Key_Alt);
  if (!go_to_entry(bar, bar, Qt::Key_Right, menu)) return false;
  press_in_menus(bar, Qt::Key_Down);
  const auto *open = qobject_cast<QMenu *>(QApplication::activePopupWidget());
  if (open == nullptr || !go_to_entry(*open, bar, Qt::Key_Down, entry)) return false;
  press_in_menus(bar, Qt::Key_Return);
  return true;
}

}  // namespace ardane
