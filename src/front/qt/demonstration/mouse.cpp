#include "front/qt/demonstration/mouse.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QWindow>

namespace ardane {
namespace {

void send_button(QWindow &window, QEvent::Type type, QPointF place, QPointF on_screen,
                 Qt::MouseButtons held) {
  QMouseEvent event(type, place, place, on_screen, Qt::LeftButton, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

/// A press, which may be the second one of a double click, and the release.
void press_and_release(QWidget &widget, QPoint place, QEvent::Type press) {
  const QPointer<QWindow> window(widget.window()->windowHandle());
  const QPointF in_window = widget.mapTo(widget.window(), QPointF(place));
  const QPointF on_screen = widget.mapToGlobal(QPointF(place));
  if (window) send_button(*window, press, in_window, on_screen, Qt::LeftButton);
  if (window) send_button(*window, QEvent::MouseButtonRelease, in_window, on_screen, Qt::NoButton);
}

QPoint place_of_item(QListWidget &list, QListWidgetItem &item) {
  list.scrollToItem(&item);
  return list.visualItemRect(&item).center();
}

/// To the widget that has the focus in the widget's window; to the window itself where none has.
void send_key(QWidget &widget, int key, Qt::KeyboardModifiers held, const QString &letter) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QWidget *target = widget.window()->focusWidget();
    if (target == nullptr) target = widget.window();
    QKeyEvent event(type, key, held, letter);
    QCoreApplication::sendEvent(target, &event);
  }
}

QRect place_of_entry(const QWidget &menu, const QAction &entry) {
  auto *action = const_cast<QAction *>(&entry);
  if (const auto *bar = qobject_cast<const QMenuBar *>(&menu)) return bar->actionGeometry(action);
  if (const auto *list = qobject_cast<const QMenu *>(&menu)) return list->actionGeometry(action);
  return {};
}

}  // namespace

void click(QWidget &widget, QPoint place) {
  press_and_release(widget, place, QEvent::MouseButtonPress);
}

void click(QWidget &widget) {
  click(widget, widget.rect().center());
}

void click(QWidget &menu, const QAction &entry) {
  click(menu, place_of_entry(menu, entry).center());
}

void click(QListWidget &list, QListWidgetItem &item) {
  click(*list.viewport(), place_of_item(list, item));
}

void double_click(QListWidget &list, QListWidgetItem &item) {
  const QPointer<QListWidget> alive(&list);
  const QPoint place = place_of_item(list, item);
  click(*list.viewport(), place);
  if (alive && alive->isVisible()) press_and_release(*alive->viewport(), place, QEvent::MouseButtonDblClick);
}

void type(QWidget &widget, const QString &text) {
  for (const QChar letter : text) send_key(widget, 0, Qt::NoModifier, QString(letter));
}

void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers held) {
  send_key(widget, key, held, {});
}

}  // namespace ardane
