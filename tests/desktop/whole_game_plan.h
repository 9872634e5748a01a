// A plan for whole games: knows every answer, errs by plan, uses what help the level offers, and counts by
// hand what it all must cost.
#pragma once

#include <QString>
#include <array>
#include <string>

#include "front/qt/demonstration/automatic_player.h"

namespace ardane {

/// The buttons of the levels in the window of a new game, that of learning first.
inline constexpr std::array<const char *, 5> levels = {"Niveau_apprentissage", "niveau_facile",
                                                       "niveau_moyen", "niveau_difficile", "niveau_expert"};

/// From the map at rest over a new game to the closing of the main window. It gives up when the score is not
/// what it has counted.
class WholeGamePlan : public Plan {
 public:
  /// `level`: name of the option in the new game dialog.
  WholeGamePlan(Programme &programme, QString name, std::string level)
      : programme_(&programme), name_(std::move(name)), level_(std::move(level)) {}

  void at_box(AutomaticPlayer &player, const QMessageBox &box) override;
  void at_window(AutomaticPlayer &player, const std::string &name) override;
  void at_map(AutomaticPlayer &player) override;

  /// From now on plays in another run of the program.
  void go_on_in(Programme &programme) { programme_ = &programme; }
  bool has_ended() const { return ended_; }

  int expected_score = 999999;
  int questions = 0;  ///< ended so far: each has its own plan
  int mistakes = 0, helps = 0, passes = 0, given_up = 0, wrong_selections = 0;

 protected:
  Ecran_principal &screen() const { return programme_->principale(); }
  const GameState &g() const { return programme_->état(); }
  /// Pays what the errors on the present question have left of its price, and goes on to the next.
  void settle_question();

  int errors_ = 0;  ///< on the present question

 private:
  void answer_object(AutomaticPlayer &player);
  void answer_region(AutomaticPlayer &player);
  void err(AutomaticPlayer &player, MapTarget wrong);
  bool wants_to_err() const;
  bool seek_help(AutomaticPlayer &player);
  void end_question();
  void pay(int cost);
  MapTarget asked() const;
  MapTarget another() const;
  int other_province() const;
  int other_town() const;

  Programme *programme_;
  const QString name_;
  const std::string level_;
  bool started_ = false, ended_ = false, hesitated_ = false;
};

}  // namespace ardane
