// What the demonstration plays, and what it looks at afterwards.
#pragma once

#include <cstddef>
#include <string>

#include "core/context.h"
#include "core/game_state.h"
#include "front/qt/demonstration/album.h"
#include "front/qt/demonstration/automatic_player.h"

namespace ardane {

/// A game of the stage Provinces by somebody who knows the country, and slips now and then. Half way it is
/// stopped and taken up again; afterwards the north is tried out as a configuration of its own, and a look is
/// taken at the windows around the game.
class DemonstrationPlan : public Plan {
 public:
  DemonstrationPlan(const GameState &state, Album &album) : g_(state), album_(album) {}

  /// Leaves the game that one stage.
  static void choose_stage(Contexte &c);

  void at_box(AutomaticPlayer &player, const QMessageBox &box) override;
  void at_window(AutomaticPlayer &player, const std::string &name) override;
  void at_map(AutomaticPlayer &player) override;

  int mistakes() const { return mistakes_; }
  /// The score when the last question was answered.
  int score() const { return score_; }

 private:
  void new_game(AutomaticPlayer &player);
  void choose_file(AutomaticPlayer &player);
  void between_games(AutomaticPlayer &player);
  void look_at_scores(AutomaticPlayer &player);
  void configure(AutomaticPlayer &player);
  void answer(AutomaticPlayer &player);
  int other_province() const;
  void tell_progress() const;

  const GameState &g_;
  Album &album_;
  bool started_ = false, stopped_ = false, ended_ = false, erred_ = false, counted_ = false;
  std::size_t visits_ = 0;  ///< made of those after the game
  int answers_ = 0, mistakes_ = 0, score_ = 0;
};

}  // namespace ardane
