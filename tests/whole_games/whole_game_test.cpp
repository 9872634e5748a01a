#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <array>
#include <tuple>

#include "core/game_state.h"
#include "front/qt/desktop.h"
#include "front/demonstration/scratch_folder.h"
#include "player.h"

namespace ardane {
namespace {

using Order = std::array<int, nombre_jeux>;

constexpr Order as_designed = {étape_provinces, étape_régions, étape_villes, étape_drapeaux};
constexpr Order the_other_way = {étape_drapeaux, étape_villes, étape_régions, étape_provinces};

constexpr std::array<const char *, 5> levels = {"Niveau_apprentissage", "niveau_facile", "niveau_moyen",
                                                "niveau_difficile", "niveau_expert"};

class WholeGame : public testing::TestWithParam<std::tuple<int, Order>> {};

INSTANTIATE_TEST_SUITE_P(EveryLevel, WholeGame,
                         testing::Combine(testing::Range(0, 5), testing::Values(as_designed, the_other_way)));

TEST_P(WholeGame, PlayedByMouseWithMistakesHelpAndPassesCostsWhatIsCountedByHand) {
  const auto [level, order] = GetParam();
  const ScratchFolder scratch(ARDANE_RESOURCES);
  Desktop desktop(scratch.places(), ressources_du_programme());
  QTimer boxes_of_a_first_start;
  QObject::connect(&boxes_of_a_first_start, &QTimer::timeout, [] {
    if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) box->accept();
  });
  boxes_of_a_first_start.start(0);
  ASSERT_TRUE(desktop.start());
  boxes_of_a_first_start.stop();

  GameState &g = desktop.programme().état();
  for (int rank = 1; rank <= nombre_jeux; ++rank)
    g.Ordre_jeux(rank) = static_cast<std::int16_t>(order.at(static_cast<std::size_t>(rank - 1)));
  WholeGamePlayer player(desktop, levels.at(static_cast<std::size_t>(level)));
  player.begin();
  desktop.play();

  EXPECT_EQ(player.trouble, "");
  EXPECT_EQ(g.Etape, étape_repos);
  const bool learning = level == 0;
  const int kept = learning ? 0 : 1;
  EXPECT_EQ(g.Nombre_scores(g.Niveau), kept);
  EXPECT_TRUE(learning || g.Meilleurs_scores(level, 1).score == player.expected_score);
  EXPECT_TRUE(!learning || player.expected_score == 999999);
  EXPECT_GT(player.mistakes, 50);
  EXPECT_GT(player.given_up, 3);
  EXPECT_GT(player.wrong_selections, 4);
  EXPECT_EQ(player.helps > 0, learning);
  EXPECT_EQ(player.passes > 0, level == 1);
}

}  // namespace
}  // namespace ardane
