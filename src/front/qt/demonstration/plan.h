// What a player who plays by himself intends.
#pragma once

#include <QMessageBox>
#include <string>

namespace ardane {

class AutomaticPlayer;

/// Asked whenever the player has nothing left to do: it gives him his next orders for what lies in front of
/// him, or none to look again at his next turn.
class Plan {
 public:
  virtual ~Plan() = default;

  /// Without an order of the plan's own the box's default button is pressed.
  virtual void at_box(AutomaticPlayer &player, const QMessageBox &box);
  /// A modal window of the program's.
  virtual void at_window(AutomaticPlayer &player, const std::string &name) = 0;
  /// The main window, with nothing above it.
  virtual void at_map(AutomaticPlayer &player) = 0;
};

}  // namespace ardane
