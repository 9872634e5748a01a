// Orders to a player that a test gives one by one.
#pragma once

#include <QSize>
#include <string>
#include <vector>

#include "front/qt/demonstration/automatic_player.h"

namespace ardane {

/// Orders go to `player`; `run` has them carried out. A box that none of them answers is told of and
/// accepted.
///
///     script.player.choose("menu_fichier", "fichier_nouveau");
///     script.player.fill_in("boîte_nom_joueur", "Zoé");
///     script.player.click("bouton_sortie");
///     EXPECT_EQ(script.run(), "");
class Script : public Plan {
 public:
  explicit Script(Desktop &desktop, AutomaticPlayer::Hand hand = AutomaticPlayer::Hand::mouse)
      : player(desktop, *this, hand), desktop_(desktop) {}

  /// Runs until every order has been carried out and the map waits for the player again, and `until`, if it
  /// is given, is true; or until the program has ended. Returns why the player gave up; empty if he did not.
  std::string run(const std::function<bool()> &until = {});

  /// The size at which the real window shows map and panel just whole at that scale, below its menus.
  QSize window_for(double scale) const;

  void at_box(AutomaticPlayer &, const QMessageBox &box) override;
  /// A window that is left open is a mistake of the script's.
  void at_window(AutomaticPlayer &, const std::string &name) override;
  void at_map(AutomaticPlayer &) override { at_rest_ = true; }

  AutomaticPlayer player;
  std::vector<std::string> told;  ///< texts of the boxes accepted

 private:
  Desktop &desktop_;
  bool at_rest_ = false;
};

}  // namespace ardane
