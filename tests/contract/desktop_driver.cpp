// The contract over the desktop: gestures are events of the mouse and the keyboard, what the player finds is
// what the widgets show.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <deque>

#include "core/resources.h"
#include "driver.h"
#include "front/qt/appearance.h"
#include "front/qt/boxes.h"
#include "front/qt/heartbeat.h"
#include "front/qt/renderer.h"

namespace ardane {
namespace {

bool is_usable(const QWidget *widget) {
  return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

/// Presses and lets go twice, the second time as Qt tells of it where it follows soon.
void press_twice(QWidget &target, QPoint place) {
  const QPointer<QWidget> alive(&target);
  QTest::mouseClick(&target, Qt::LeftButton, {}, place);
  if (!alive || !alive->isVisible()) return;
  QMouseEvent again(QEvent::MouseButtonDblClick, place, target.mapToGlobal(place), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&target, &again);
  if (alive && alive->isVisible()) QTest::mouseRelease(&target, Qt::LeftButton, {}, place);
}

void type_over(QWidget &box, const QString &text) {
  box.setFocus(Qt::MouseFocusReason);
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Delete);
  for (const QChar letter : text) {
    if (letter == QLatin1Char('\n'))
      QTest::keyClick(&box, Qt::Key_Return);
    else
      QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(letter), Qt::NoModifier);
  }
}

class DesktopDriver : public Driver {
 public:
  DesktopDriver() {
    heartbeat_.beat = [this] {
      ++beats_;
      if (main_.tic) main_.tic();
    };
  }

  Façade &windows() override { return renderer_; }
  Boîtes &boxes() override { return boxes_; }
  Ecran_principal &main_window() override { return main_; }

  bool click(const std::string &control) override {
    QWidget *widget = find(control);
    if (widget == nullptr || !widget->isVisible()) return false;
    const bool can_be_done = widget->isEnabled();
    QTest::mouseClick(widget, Qt::LeftButton);
    settle();
    return can_be_done;
  }
  bool double_click(const std::string &control) override {
    QWidget *widget = find(control);
    if (widget == nullptr || !widget->isVisible()) return false;
    const bool can_be_done = widget->isEnabled();
    if (auto *list = qobject_cast<QListWidget *>(widget))
      press_twice(*list->viewport(), list->visualItemRect(list->currentItem()).center());
    else
      press_twice(*widget, widget->rect().center());
    settle();
    return can_be_done;
  }
  bool click_map(int x, int y) override {
    QWidget *map = find("Carte");
    if (!is_usable(map)) return false;
    QTest::mouseClick(map, Qt::LeftButton, {}, QPoint(x, y) + place_of(main_.image_région).topLeft());
    settle();
    return true;
  }
  bool press_enter(const std::string &control) override {
    QWidget *widget = find(control);
    if (!is_usable(widget) || widget->focusPolicy() == Qt::NoFocus) return false;
    widget->setFocus(Qt::TabFocusReason);
    settle();
    QTest::keyClick(widget, Qt::Key_Return);
    settle();
    return true;
  }
  bool type(const std::string &control, const std::string &text) override {
    QWidget *widget = find(control);
    if (!is_usable(widget)) return false;
    const auto *line = qobject_cast<QLineEdit *>(widget);
    const bool can_be_done = line == nullptr || !line->isReadOnly();
    type_over(*widget, to_qt(text));
    settle();
    return can_be_done;
  }
  bool select(const std::string &control, int rank) override {
    auto *list = find<QListWidget>(control);
    if (!is_usable(list) || list->item(rank - 1) == nullptr) return false;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(rank - 1)).center());
    settle();
    return true;
  }
  bool move_bar(const std::string &control, int value) override {
    auto *bar = find<QScrollBar>(control);
    if (!is_usable(bar)) return false;
    bar->setFocus(Qt::MouseFocusReason);
    bar->setSliderDown(true);
    bar->setSliderPosition(value);
    bar->setSliderDown(false);
    settle();
    return true;
  }
  bool choose(const std::string &menu_entry) override {
    QWidget *top = ready();
    auto *bar = top == nullptr ? nullptr : top->findChild<QMenuBar *>();
    auto *entry = bar == nullptr ? nullptr : bar->findChild<QAction *>(to_qt(menu_entry));
    auto *menu = entry == nullptr ? nullptr : qobject_cast<QMenu *>(entry->parent());
    if (menu == nullptr) return false;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    if (!menu->isVisible()) return false;
    const bool can_be_done = entry->isVisible() && entry->isEnabled();
    if (entry->isVisible()) QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
    menu->close();
    settle();
    return can_be_done;
  }
  bool close() override {
    QWidget *top = ready();
    if (top == nullptr || box() != nullptr) return false;
    const bool can_be_done = top->windowFlags().testFlag(Qt::WindowCloseButtonHint);
    top->close();
    settle();
    return can_be_done;
  }
  bool answer(const std::string &word) override {
    auto *button = box() == nullptr ? nullptr : box()->findChild<QPushButton *>(to_qt(word));
    if (button == nullptr) return false;
    QTest::mouseClick(button, Qt::LeftButton);
    return true;
  }
  bool beat() override {
    const int before = beats_;
    QTimerEvent event(1);
    QApplication::sendEvent(&heartbeat_, &event);
    settle();
    return beats_ > before;
  }

  bool shows(const std::string &control) override {
    const QWidget *widget = find(control);
    return widget != nullptr && widget->isVisible();
  }
  std::string text(const std::string &control) override {
    QWidget *widget = find(control);
    if (const auto *label = qobject_cast<QLabel *>(widget)) return to_utf8(label->text());
    if (const auto *line = qobject_cast<QLineEdit *>(widget)) return to_utf8(line->text());
    return {};
  }
  bool marked(const std::string &control) override { return find<QAbstractButton>(control)->isChecked(); }
  std::vector<std::string> items(const std::string &control) override {
    const auto *list = find<QListWidget>(control);
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(list->count()));
    for (int row = 0; row < list->count(); ++row) texts.push_back(to_utf8(list->item(row)->text()));
    return texts;
  }
  int choice(const std::string &control) override {
    const auto *list = find<QListWidget>(control);
    const auto marked = list->selectedItems();
    return marked.isEmpty() ? 0 : list->row(marked.front()) + 1;
  }
  int value(const std::string &control) override { return find<QScrollBar>(control)->value(); }
  std::string focus() override {
    const QWidget *top = ready();
    const QWidget *holder = top == nullptr ? nullptr : top->focusWidget();
    return holder == nullptr ? "" : to_utf8(holder->objectName());
  }
  std::string top() override {
    const QWidget *top = ready();
    if (box() != nullptr) return "boîte";
    return top == nullptr ? "" : to_utf8(top->objectName());
  }

  void then(std::function<void()> step) override {
    steps_.push_back(std::move(step));
    QTimer::singleShot(0, &heartbeat_, [this] { next_step(); });
  }
  bool all_done() const override { return steps_.empty(); }

 private:
  static QMessageBox *box() { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }

  /// Runs the next step, unless the one before is still at work on the same window or box.
  void next_step() {
    const QWidget *waiting = QApplication::activeModalWidget();
    if (waiting == nullptr || waiting == served_) {
      QTimer::singleShot(1, &heartbeat_, [this] { next_step(); });
      return;
    }
    if (steps_.empty()) return;
    const std::function<void()> step = std::move(steps_.front());
    steps_.pop_front();
    const QWidget *before = std::exchange(served_, waiting);
    settle();
    step();
    served_ = before;
  }

  /// The window on top, active and painted; null if there is none.
  QWidget *ready() {
    QWidget *top = renderer_.top_frame();
    if (top != nullptr && box() == nullptr && !top->isActiveWindow()) {
      top->activateWindow();  // as a window manager does for the window that another one has uncovered
      static_cast<void>(QTest::qWaitForWindowActive(top));
    }
    settle();
    return renderer_.top_frame();
  }
  static void settle() { QApplication::processEvents(); }
  template <class W = QWidget>
  W *find(const std::string &control) {
    QWidget *top = ready();
    return top == nullptr || box() != nullptr ? nullptr : top->findChild<W *>(to_qt(control));
  }

  Ecran_principal main_{ressources_du_programme().images};
  Dispatcher dispatcher_;
  ScreenQt screen_;
  PictureStore pictures_{ressources_du_programme().images, QStringLiteral("/nulle part")};
  Renderer renderer_{dispatcher_, pictures_, screen_};
  BoxesQt boxes_{dispatcher_, screen_, renderer_};
  Heartbeat heartbeat_{dispatcher_, boxes_};
  int beats_ = 0;
  std::deque<std::function<void()>> steps_;
  const QWidget *served_ = nullptr;  ///< the modal window or box that a step is at work on
};

}  // namespace

std::unique_ptr<Driver> make_desktop_driver() {
  return std::make_unique<DesktopDriver>();
}

}  // namespace ardane
