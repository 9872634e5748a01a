// The whole program in its real windows: start, a game at each level by mouse, closing.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPaintEvent>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <fstream>

#include "core/game_state.h"
#include "front/qt/appearance.h"
#include "front/demonstration/automatic_player.h"
#include "front/demonstration/mouse.h"
#include "front/demonstration/scratch_folder.h"

namespace ardane {
namespace {

class Game : public testing::Test {
 protected:
  Game() {
    QObject::connect(&boxes, &QTimer::timeout, [this] {
      auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      told.push_back(to_utf8(box->text()));
      box->accept();
    });
  }

  /// Starts the program as at a first run, its boxes accepted.
  void start() {
    desktop = std::make_unique<Desktop>(folder.places(), ressources_du_programme());
    boxes.start(0);
    ASSERT_TRUE(desktop->start());
    boxes.stop();
    state().Ordre_jeux.remplir(0);
    state().Ordre_jeux(1) = étape_provinces;
  }
  GameState &state() { return desktop->programme().état(); }
  Ecran_principal &screen() { return desktop->programme().principale(); }
  QWidget *frame() { return desktop->renderer().frame(screen()); }

  ScratchFolder folder{ARDANE_RESOURCES};
  std::unique_ptr<Desktop> desktop;
  QTimer boxes;
  std::vector<std::string> told;
};

struct Level {
  const char *option;
  int niveau;
  bool learning;
};

class GameAt : public Game, public testing::WithParamInterface<Level> {};

TEST_P(GameAt, IsPlayedToItsEndByMouse) {
  start();
  AutomaticPlayer player(*desktop, {QStringLiteral("Élodie"), GetParam().option, 9});
  int found = 0;
  bool learning = false;
  player.found = [&](int) {
    ++found;
    learning = state().ModeApprentissage;
    EXPECT_EQ(state().Niveau, GetParam().niveau);
  };
  player.begin();
  desktop->play();
  EXPECT_EQ(player.trouble(), "");
  EXPECT_EQ(found, nombre_provinces);
  EXPECT_EQ(learning, GetParam().learning);
  EXPECT_EQ(player.mistakes(), 12);
  // A first error on a question costs one point, and nothing while learning.
  EXPECT_EQ(player.score(), score_de_départ - (GetParam().learning ? 0 : player.mistakes()));
  const Meilleur_score &best = state().Meilleurs_scores(GetParam().niveau, 1);
  if (GetParam().learning) {
    EXPECT_EQ(best.nom, "");
  } else {
    EXPECT_EQ(best.nom, "Élodie");
    EXPECT_EQ(best.score, player.score());
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "ARDANE.SCI"));
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, GameAt,
                         testing::Values(Level{"niveau_facile", 1, false}, Level{"niveau_moyen", 2, false},
                                         Level{"niveau_difficile", 3, false},
                                         Level{"niveau_expert", 4, false},
                                         Level{"Niveau_apprentissage", 1, true}),
                         [](const auto &level) { return std::string(level.param.option); });

TEST_F(Game, TheMapIsOnTheScreenAtTheStart) {
  start();
  EXPECT_TRUE(frame()->isVisible());
  EXPECT_EQ(frame()->pos(), QPoint(0, 0));
  EXPECT_EQ(frame()->windowTitle(), "L'Ardane et ses provinces");
  const QWidget *view = frame()->findChild<QWidget *>("Carte");
  EXPECT_EQ(view->size(), QSize(606, 662));
  const QPoint corner = view->mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(state().Rect_carte.gauche, corner.x());
  EXPECT_EQ(state().Rect_carte.haut, corner.y());
}

TEST_F(Game, ARefusedAbandonKeepsTheWindow) {
  start();
  state().Etape = étape_provinces;
  state().Niveau = 1;
  state().PartieVierge = false;
  state().PartieClose = false;
  QTimer::singleShot(0, qApp,
                     [] { QApplication::activeModalWidget()->findChild<QPushButton *>("non")->click(); });
  frame()->close();
  EXPECT_TRUE(desktop->programme().en_cours());
  EXPECT_TRUE(frame()->isVisible());
}

TEST_F(Game, ClosingAtRestEndsTheProgram) {
  start();
  QTimer::singleShot(0, qApp, [this] { frame()->close(); });
  desktop->play();
  EXPECT_FALSE(desktop->programme().en_cours());
  EXPECT_EQ(frame(), nullptr);
}

TEST_F(Game, AMovedWindowIsMeasuredAgain) {
  start();
  const Rect before = state().Rect_carte;
  frame()->move(40, 30);
  QApplication::processEvents();
  EXPECT_EQ(state().Rect_carte.gauche, before.gauche + 40);
  EXPECT_EQ(state().Rect_carte.haut, before.haut + 30);
}

TEST_F(Game, ATickPaintsNothingWhereNothingBlinks) {
  struct Watch : QObject {
    bool eventFilter(QObject *, QEvent *event) override {
      if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent *>(event)->region();
      return false;
    }
    QRegion painted;
  } watch;
  start();
  QApplication::processEvents();
  frame()->findChild<QWidget *>("Carte")->installEventFilter(&watch);
  screen().tic();
  desktop->renderer().sync();
  QApplication::processEvents();
  EXPECT_TRUE(watch.painted.isEmpty());
  state().TableClignotement(7) = true;
  state().PhaseClignotement = false;
  screen().tic();
  desktop->renderer().sync();
  QApplication::processEvents();
  EXPECT_EQ(watch.painted.boundingRect().size(),
            QSize(static_cast<int>(screen().Pays(7).largeur), static_cast<int>(screen().Pays(7).hauteur)));
}

TEST_F(Game, F1OpensTheHelp) {
  start();
  QTest::keyClick(frame(), Qt::Key_F1);
  ASSERT_NE(desktop->help().window(), nullptr);
  EXPECT_TRUE(desktop->help().window()->isVisible());
}

TEST_F(Game, WithoutTheHitTestTableTheProgramEndsAfterABox) {
  std::filesystem::remove(folder.path() / "ardane.pts");
  desktop = std::make_unique<Desktop>(folder.places(), ressources_du_programme());
  boxes.start(0);
  EXPECT_FALSE(desktop->start());
  EXPECT_FALSE(told.empty());
}

TEST_F(Game, MissingPicturesAreToldOnceAndTheGameGoesOn) {
  std::filesystem::remove(folder.path() / "images");
  std::filesystem::create_directory(folder.path() / "images");
  start();
  told.clear();
  boxes.start(0);
  while (told.empty()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  boxes.stop();
  const std::size_t pictures = ressources_du_programme().images.toutes().size();
  EXPECT_TRUE(told[0].starts_with(std::to_string(pictures) + " images manquent ou ne peuvent être lues : "))
      << told[0];
  EXPECT_TRUE(desktop->programme().en_cours());
}

}  // namespace
}  // namespace ardane
