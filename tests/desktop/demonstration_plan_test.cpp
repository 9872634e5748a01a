// What the demonstration does, in a game that is shortened by a configuration.
#include "front/qt/demonstration/demonstration_plan.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QRegularExpression>
#include <functional>
#include <utility>
#include <vector>

#include "front/qt/appearance.h"
#include "program_test.h"

namespace ardane {
namespace {

/// Without the folder, and the names of the provinces, which are drawn by lot.
constexpr const char *short_transcript = R"(Image : 01-carte.png
Image : 02-nouvelle_partie.png
Province 10 sur 22. Score : 999998
Image : 03-milieu.png
Image : 04-enregistrer.png
Image : 05-reprendre.png
Province 20 sur 22. Score : 999997
Image : 06-fin.png
Image : 07-Joli score dans la catégorie.png
Image : 08-Affichage_scores.png
Image : 09-Stats.png
Image : 10-paramétrage.png
Image : 11-A propos....png
Image : 12-Pompe.png
Image : 13-Edition.png
Image : 14-Palette.png
)";

class DemonstrationPlans : public ProgramTest {
 protected:
  /// Only the first provinces are left in play.
  void leave_in_play(int provinces) {
    for (int p = 1; p <= nombre_provinces; ++p) state().TableProvinces(p).inhibée = p > provinces;
    DemonstrationPlan::choose_stage(desktop().programme().contexte());
  }
  /// What it tells until the program has ended.
  std::string play_on() {
    testing::internal::CaptureStdout();
    player.begin();
    desktop().play();
    QString told = QString::fromStdString(testing::internal::GetCapturedStdout());
    told.remove(pictures);
    return to_utf8(told.replace(QRegularExpression("22 : [^.]+\\."), "22."));
  }

  /// A folder that cannot be made: to compress pictures takes longer than all else.
  const QString pictures = QStringLiteral("/dev/null/album/");
  Album album{QDir(pictures)};
  DemonstrationPlan plan{state(), album};
  AutomaticPlayer player{desktop(), plan};
};

TEST_F(DemonstrationPlans, AGameIsStoppedHalfWayAndTakenUpAndThenTheOtherWindowsAreSeen) {
  start();
  leave_in_play(22);
  EXPECT_EQ(play_on(), short_transcript);
  EXPECT_EQ(player.trouble(), "");
  EXPECT_EQ(plan.mistakes(), 2);
  EXPECT_EQ(plan.score(), 999'997);
  EXPECT_FALSE(album.complete());
}

/// Looks at what stands when a widget is clicked.
class AtPress : public QObject {
 public:
  AtPress(QWidget &widget, std::function<void()> look) : look_(std::move(look)) {
    widget.installEventFilter(this);
  }

 private:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::MouseButtonPress) look_();
    return false;
  }
  const std::function<void()> look_;
};

TEST_F(DemonstrationPlans, TheConfigurationThatIsTriedOutIsTheNorth) {
  start();
  order().choose("menu_paramétrer", "menu_définir");
  play();
  std::vector<int> north, chosen;
  for (int p = 1; p <= nombre_provinces; ++p)
    if (state().TableVilles(p).y <= 330) north.push_back(p);
  const AtPress way_out(*frame()->findChild<QWidget *>("BTN(2)"), [&] {
    for (int p = 1; p <= nombre_provinces; ++p)
      if (screen().Pays(p).visible) chosen.push_back(p);
  });
  testing::internal::CaptureStdout();
  plan.at_map(order());
  play();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Image : /dev/null/album/01-paramétrage.png\n");
  EXPECT_EQ(chosen, north);
  EXPECT_EQ(state().Etape, étape_repos);
}

TEST_F(DemonstrationPlans, APictureIsAFileOfTheAlbumWhateverItsScreenIsCalled) {
  const QTemporaryDir shelf;
  Album kept{QDir(shelf.path())};
  testing::internal::CaptureStdout();
  kept.add("Top ten 1/2");
  testing::internal::GetCapturedStdout();
  EXPECT_TRUE(kept.complete());
  EXPECT_EQ(QDir(shelf.path()).entryList(QDir::Files), QStringList("01-Top ten 1-2.png"));
}

TEST_F(DemonstrationPlans, ItGivesUpOverAWindowThatItDoesNotExpect) {
  plan.at_window(player, "Inconnue");
  EXPECT_EQ(player.trouble(), "fenêtre inattendue : Inconnue");
}

TEST_F(DemonstrationPlans, ItGivesUpInAStageThatItDoesNotPlay) {
  state().Etape = étape_villes;
  plan.at_map(player);
  EXPECT_EQ(player.trouble(), "la partie s'est arrêtée à l'étape " + std::to_string(étape_villes));
}

TEST_F(DemonstrationPlans, ItGivesUpWhereTheGameIsOverTooEarly) {
  testing::internal::CaptureStdout();
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(player.trouble(), "");
    plan.at_map(player);
  }
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(player.trouble(), "la partie s'est arrêtée avant sa fin");
}

}  // namespace
}  // namespace ardane
