// A player who has a keyboard alone.
#pragma once

#include <QMenuBar>
#include <string>

namespace ardane {

/// The window that the keys reach: the modal one in front, else the main window.
QWidget &window_with_keys(QWidget &main);

/// Presses the Tab key there until the control has the focus, and says whether it got it.
bool tab_to(QWidget &window, const std::string &control);

/// Presses a key in the menu that is open, else in the bar.
void press_in_menus(QMenuBar &bar, Qt::Key key);

/// Goes to the bar by the Alt key, to the menu and down to its entry by the arrows, and chooses it. False if
/// the arrows never came there.
bool choose_by_keys(QMenuBar &bar, const std::string &menu, const std::string &entry);

}  // namespace ardane
