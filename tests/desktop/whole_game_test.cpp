// Games from the new game dialog to the top ten and the end of the program, played through the real windows.
#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "core/game_state.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "whole_game_plan.h"

namespace ardane {
namespace {

struct Order {
  const char *name;
  std::array<int, nombre_jeux> stages;
};

constexpr Order provinces_alone = {"provinces_alone", {étape_provinces}};
constexpr Order as_designed = {"as_designed", {étape_provinces, étape_régions, étape_villes, étape_drapeaux}};
constexpr Order the_other_way = {"the_other_way",
                                 {étape_drapeaux, étape_villes, étape_régions, étape_provinces}};

/// A rank in `levels`, 0 for learning, and the stages to play.
using Game_to_play = std::tuple<int, Order>;

std::string name_of(const testing::TestParamInfo<Game_to_play> &game) {
  const auto [level, order] = game.param;
  return std::string(levels.at(static_cast<std::size_t>(level))) + "_" + order.name;
}

class PlayedGame : public testing::TestWithParam<Game_to_play> {
 protected:
  /// Plays it and compares what it comes to with what the plan has counted.
  void play(AutomaticPlayer::Hand hand = AutomaticPlayer::Hand::mouse) {
    const auto [level, order] = GetParam();
    program = std::make_unique<Desktop>(places(), ressources_du_programme());
    Desktop &desktop = *program;
    GameState &state = desktop.programme().état();
    plan = std::make_unique<WholeGamePlan>(desktop.programme(), "Élodie",
                                           levels.at(static_cast<std::size_t>(level)));
    AutomaticPlayer player(desktop, *plan, hand);
    ASSERT_TRUE(player.start());
    for (int rank = 1; rank <= nombre_jeux; ++rank)
      state.Ordre_jeux(rank) = static_cast<std::int16_t>(order.stages.at(static_cast<std::size_t>(rank - 1)));
    player.begin();
    desktop.play();

    EXPECT_EQ(player.trouble(), "");
    EXPECT_EQ(state.Etape, étape_repos);
    EXPECT_FALSE(desktop.programme().en_cours());
    if (learning())
      expect_nothing_kept(state);
    else
      expect_kept(state, level);
  }
  static bool learning() { return std::get<int>(GetParam()) == 0; }

  std::unique_ptr<WholeGamePlan> plan;
  const ScratchFolder folder{ARDANE_RESOURCES};
  virtual DesktopPlaces places() const { return folder.places(); }
  std::unique_ptr<Desktop> program;

 private:
  void expect_nothing_kept(const GameState &state) {
    EXPECT_EQ(state.Nombre_scores(1), 0);
    EXPECT_EQ(plan->expected_score, score_de_départ);
  }
  void expect_kept(const GameState &state, int level) {
    EXPECT_EQ(state.Niveau, level);
    EXPECT_EQ(state.Nombre_scores(level), 1);
    EXPECT_EQ(state.Meilleurs_scores(level, 1).nom, "Élodie");
    EXPECT_EQ(state.Meilleurs_scores(level, 1).score, plan->expected_score);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "ARDANE.SCI"));
  }
};

class GameOfOneStage : public PlayedGame {};
class WholeGame : public PlayedGame {};
class WholeGameByKeys : public PlayedGame {
  DesktopPlaces places() const override {
    DesktopPlaces framed = PlayedGame::places();
    framed.sans_cadre = false;
    return framed;
  }
};

INSTANTIATE_TEST_SUITE_P(EveryLevel, GameOfOneStage,
                         testing::Combine(testing::Range(0, 5), testing::Values(provinces_alone)), name_of);
INSTANTIATE_TEST_SUITE_P(EveryLevel, WholeGame,
                         testing::Combine(testing::Range(0, 5), testing::Values(as_designed, the_other_way)),
                         name_of);

INSTANTIATE_TEST_SUITE_P(EveryLevel, WholeGameByKeys,
                         testing::Combine(testing::Range(0, 5), testing::Values(as_designed)), name_of);

TEST_P(GameOfOneStage, PlayedByMouseWithMistakesCostsWhatIsCountedByHand) {
  play();
  // What was given up, passed or answered with help is asked again.
  EXPECT_EQ(plan->questions, nombre_provinces + plan->given_up + plan->passes + plan->helps);
  EXPECT_GT(plan->mistakes, 20);
  EXPECT_EQ(plan->given_up, 2);
}

TEST_P(WholeGameByKeys, IsPlayedWithoutAMouseInARealWindow) {
  play(AutomaticPlayer::Hand::keys);
  EXPECT_GT(plan->mistakes, 50);
  EXPECT_GT(plan->wrong_selections, 4);
}

TEST_P(WholeGame, PlayedByMouseWithMistakesHelpAndPassesCostsWhatIsCountedByHand) {
  play();
  EXPECT_GT(plan->mistakes, 50);
  EXPECT_GT(plan->given_up, 3);
  EXPECT_GT(plan->wrong_selections, 4);
  EXPECT_EQ(plan->helps > 0, learning());
  EXPECT_EQ(plan->passes > 0, std::get<int>(GetParam()) == 1);
}

}  // namespace
}  // namespace ardane
