// What a screen reader is told of the program's windows, beyond what the toolkit tells of its widgets.
#pragma once

#include <QWidget>
#include <cstddef>

namespace ardane {

class CellSheet;

/// A widget that a screen reader passes over.
void set_silent(QWidget &widget, bool silent);

/// Says a text by itself, whatever has the focus: a notification of the window that it lies in. The eye sees
/// nothing.
class Speech : public QWidget {
 public:
  explicit Speech(QWidget *window);
  void say(const QString &text);
};

/// Says what lies under the cursor of a map that has the focus; where on the desktop that is.
void tell_place(QWidget &map, const QString &text, QRect where);

/// Says that what is to be told of a sheet's cell has changed, to whom that matters.
void tell_cell(CellSheet &sheet, std::size_t cell);

/// From now on windows are windows, dialogs dialogs, the map a picture with a cursor, cells are texts, and
/// silent widgets are silent. To be called once, before the first window.
void install_accessibility();

}  // namespace ardane
