// A player's hands: presses and keys sent to the program's real windows, as the desktop sends them.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class QAction;
class QListWidget;
class QListWidgetItem;

namespace ardane {

/// Presses and releases the left button at a place of the widget. The window that it lies in hands the events
/// on by its own rules.
void click(QWidget &widget, QPoint place);
/// The same in the middle of it.
void click(QWidget &widget);
/// The same on an entry of a menu or a menu bar, which must be on the screen.
void click(QWidget &menu, const QAction &entry);
/// The same on an item of a list, which is scrolled until it is in sight.
void click(QListWidget &list, QListWidgetItem &item);
/// A click and, before the hand has rested, a second one.
void double_click(QListWidget &list, QListWidgetItem &item);
/// Types a text into the widget that has the focus in the widget's window.
void type(QWidget &widget, const QString &text);
/// Presses and releases a key there.
void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers held = {});

}  // namespace ardane
