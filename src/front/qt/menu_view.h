// The menu bar of a window, from its controls of the kind menu.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <vector>

#include "front/qt/control_view.h"

namespace ardane {

/// True if the window has entries for a menu bar.
bool has_menu(const Fenêtre &window);

/// Entries without a container stand in the bar, the others in the menu of their container. An entry of the
/// bar that holds none is chosen in the bar itself, and only tells its keys, which are then the window's
/// affair. F10 opens the first menu.
class MenuView : public QObject {
 public:
  MenuView(const ViewContext &context, QWidget *parent);

  QMenuBar &bar() { return bar_; }
  /// Sets the letters of bar and menus as large as those of what the window shows.
  void show_at(Scale scale);
  void sync();

 private:
  struct Entry {
    Contrôle *control;
    QAction *action;
  };
  void open_first();
  QAction *make_action(Contrôle &control);

  const ViewContext context_;
  QMenuBar &bar_;  ///< owned by its Qt parent
  std::vector<Entry> entries_;
};

}  // namespace ardane
