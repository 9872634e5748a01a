// The main window with a frame: any size, any place, one scale for all that it shows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <fstream>

#include "cells.h"
#include "front/qt/demonstration/mouse.h"
#include "front/qt/window_memory.h"
#include "map/layout.h"
#include "play/question_selection.h"
#include "program_test.h"
#include "started_program.h"

namespace ardane {
namespace {

class RealWindow : public ProgramTest {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces result = folder.places();
    result.sans_cadre = false;
    return result;
  }
  QWidget &widget(const char *name) {
    auto *found = frame()->findChild<QWidget *>(QString::fromUtf8(name));
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  double scale() { return desktop().renderer().scale().value(); }
  QSize window_for(double wanted) { return script().window_for(wanted); }
  void resize(QSize size) {
    frame()->resize(size);
    QApplication::processEvents();
  }
  bool at_rest() {
    const Ecran &seen = desktop().programme().contexte().plateforme.écran;
    return state().Largeur_écran == seen.largeur() && state().Hauteur_écran == seen.hauteur();
  }
  void wait_for_layout() {
    ASSERT_EQ(script().run([this] { return at_rest(); }), "");
  }
  void begin_game() {
    state().Ordre_jeux.remplir(0);
    state().Ordre_jeux(1) = étape_provinces;
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", "Zoé");
    order().click("niveau_facile");
    order().click("bouton_sortie");
    play();
  }

  const std::filesystem::path memory = folder.path() / "fenetre.ini";
};

TEST_F(RealWindow, HasATitleBarWithTheProgramsNameAndCanBeMinimisedMaximisedAndClosed) {
  start();
  const Qt::WindowFlags flags = frame()->windowFlags();
  EXPECT_FALSE(flags.testFlag(Qt::FramelessWindowHint));
  for (const Qt::WindowType hint :
       {Qt::WindowTitleHint, Qt::WindowMinMaxButtonsHint, Qt::WindowCloseButtonHint})
    EXPECT_TRUE(flags.testFlag(hint)) << hint;
  EXPECT_EQ(frame()->windowTitle(), "L'Ardane et ses provinces");
}

TEST_F(RealWindow, AScreenReaderFindsThePictureThatTheMapIs) {
  start();
  const auto role_of = [](QWidget &found) { return QAccessible::queryAccessibleInterface(&found)->role(); };
  EXPECT_EQ(role_of(*frame()), QAccessible::Window);
  EXPECT_EQ(role_of(widget("Carte")), QAccessible::Canvas);
}

TEST_F(RealWindow, WhoMeasuresAStartIsToldItsSizeAndItsCost) {
  start();
  const QSize size = frame()->size();
  end();
  Started measured(places(), {"--pret-et-quitter"});
  ASSERT_TRUE(measured.waitForFinished(end_ms));
  EXPECT_EQ(measured.exitCode(), 0);
  const std::string cost = " cpu_ms=[0-9.]+ mémoire_kio=[0-9]+\n";
  EXPECT_THAT(measured.readAllStandardOutput().toStdString(),
              testing::MatchesRegex("prêt" + cost + "fenêtre " + std::to_string(size.width()) + " " +
                                    std::to_string(size.height()) + "\nchargé" + cost));
}

TEST_F(RealWindow, FillsMostOfTheMonitorAtTheFirstStart) {
  start();
  const QRect room = frame()->screen()->availableGeometry();
  EXPECT_TRUE(room.contains(frame()->frameGeometry()));
  EXPECT_GT(frame()->height(), room.height() * 8 / 10);
  EXPECT_GT(scale(), 1.1);
}

TEST_F(RealWindow, IsNoLargerThanTheMonitorAtTheFirstStartEvenAtTheSmallestScale) {
  QWidget window;
  place_for_the_first_time(window, {4000, 3000});
  EXPECT_EQ(window.geometry(), window.screen()->availableGeometry());
}

TEST_F(RealWindow, KeepsTheProportionsOfMapAndPanelAtTheFirstStart) {
  start();
  EXPECT_NEAR(frame()->width(), window_for(scale()).width(), 1);
  EXPECT_NEAR(frame()->height(), window_for(scale()).height(), 1);
}

TEST_F(RealWindow, TellsTheProgramAScreenThatBeginsAtItsOwnCorner) {
  start();
  frame()->move(120, 60);
  QApplication::processEvents();
  const Point needed = Taille_confortable(screen());
  EXPECT_EQ(state().Largeur_écran, needed.x);
  EXPECT_EQ(state().Hauteur_écran, needed.y);
  EXPECT_EQ(state().Rect_carte, (Rect{10, 5, 616, 667}));
  EXPECT_EQ(screen().haut, 0);
}

TEST_F(RealWindow, ShowsMapAndPanelWholeWithoutABarAtEveryScale) {
  start();
  begin_game();
  for (const double wanted : {0.75, 0.9, 1.0, 1.25, 1.37, 1.5, 2.0, 3.0}) {
    resize(window_for(wanted));
    wait_for_layout();
    EXPECT_NEAR(scale(), wanted, 0.002);
    EXPECT_FALSE(screen().barre_h.visible || screen().barre_v.visible) << wanted;
    EXPECT_NEAR(widget("Carte").width(), 606 * wanted, 1);
    EXPECT_TRUE(frame()->rect().contains(widget("Texte_à_chercher").geometry())) << wanted;
  }
}

TEST_F(RealWindow, LettersGrowWithTheMap) {
  start();
  begin_game();
  resize(window_for(1));
  const int before = widget("que_faire").font().pixelSize();
  resize(window_for(2));
  EXPECT_EQ(widget("que_faire").font().pixelSize(), 2 * before);
}

TEST_F(RealWindow, ItsMenusGrowWithTheMapToo) {
  start();
  const QMenuBar &bar = *frame()->findChild<QMenuBar *>();
  const QMenu &menu = *bar.actions().first()->menu();
  for (const double wanted : {1.0, 1.5, 2.0, 3.0}) {
    resize(window_for(wanted));
    EXPECT_EQ(bar.font().pixelSize(), qRound(11 * wanted)) << wanted;
    EXPECT_EQ(menu.font().pixelSize(), qRound(11 * wanted)) << wanted;
    EXPECT_LE(QFontMetrics(bar.font()).height(), bar.height()) << wanted;
  }
}

TEST_F(RealWindow, AtItsSmallestItsMenusAreStillAllThere) {
  start();
  resize(frame()->minimumSize());
  const QMenuBar &bar = *frame()->findChild<QMenuBar *>();
  for (const QAction *entry : bar.actions())
    EXPECT_TRUE(bar.rect().contains(bar.actionGeometry(const_cast<QAction *>(entry))))
        << entry->text().toStdString();
}

TEST_F(RealWindow, WhatItHasTooMuchOfLiesOnBothSides) {
  start();
  const QSize fitting = window_for(1);
  resize({fitting.width() + 300, fitting.height()});
  QWidget &map = widget("Carte");
  EXPECT_DOUBLE_EQ(scale(), 1);
  EXPECT_EQ(map.mapTo(frame(), QPoint(0, 0)).x(), 150 + 10);
}

TEST_F(RealWindow, BelowTheSmallestScaleTheMapHasBarsAndThePanelStaysWhole) {
  start();
  begin_game();
  resize(frame()->minimumSize());
  wait_for_layout();
  EXPECT_DOUBLE_EQ(scale(), 0.75);
  EXPECT_TRUE(screen().barre_h.visible);
  EXPECT_TRUE(screen().barre_v.visible);
  for (const char *part : {"que_faire", "Elément_recherché", "Boîte_score"}) {
    const QWidget &shown = widget(part);
    EXPECT_TRUE(frame()->rect().contains({shown.mapTo(frame(), QPoint(0, 0)), shown.size()})) << part;
  }
}

TEST_F(RealWindow, AClickReachesTheProvinceAtEveryScale) {
  start();
  begin_game();
  for (const double wanted : {0.75, 1.25, 1.5, 2.0}) {
    resize(window_for(wanted));
    wait_for_layout();
    const int asked = state().ProvinceCourante;
    order().click(province(asked));
    play();
    EXPECT_TRUE(state().TableProvinces(asked).trouvée) << wanted;
    EXPECT_EQ(state().Score, score_de_départ) << wanted;
  }
}

TEST_F(RealWindow, AGameUnderWayGoesOnWhenTheWindowIsResized) {
  start();
  begin_game();
  const int asked = state().ProvinceCourante, score = state().Score;
  const std::string question = screen().Texte_à_chercher.texte;
  resize(frame()->minimumSize());
  wait_for_layout();
  EXPECT_EQ(state().ProvinceCourante, asked);
  EXPECT_EQ(state().Score, score);
  EXPECT_EQ(screen().Texte_à_chercher.texte, question);
  EXPECT_TRUE(screen().Boîte_score.visible);
}

TEST_F(RealWindow, TheMapStaysScrolledWhereItCan) {
  start();
  begin_game();
  resize(frame()->minimumSize());
  wait_for_layout();
  fixer_valeur(screen().barre_h, 40);
  fixer_valeur(screen().barre_v, 60);
  resize(frame()->minimumSize() + QSize(30, 20));
  wait_for_layout();
  EXPECT_EQ(screen().barre_h.valeur, 40);
  EXPECT_EQ(screen().barre_v.valeur, 60);
  EXPECT_EQ(screen().image_région.gauche, -40);
  EXPECT_EQ(screen().image_région.haut, -60);
}

TEST_F(RealWindow, ControlPlusAndMinusSetTheScaleAndControlZeroTheOneThatFits) {
  start();
  const double fitting = scale();
  press(*frame(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(scale(), fitting * 1.1, 0.001);
  press(*frame(), Qt::Key_Minus, Qt::ControlModifier);
  press(*frame(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_NEAR(scale(), fitting / 1.1, 0.001);
  press(*frame(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(scale(), fitting);
}

TEST_F(RealWindow, AScaleThatIsSetEnlargesTheMapBeyondTheWindow) {
  start();
  begin_game();
  resize(window_for(1));
  for (int i = 0; i < 3; ++i) press(*frame(), Qt::Key_Plus, Qt::ControlModifier);
  wait_for_layout();
  EXPECT_TRUE(screen().barre_h.visible);
  EXPECT_TRUE(screen().barre_v.visible);
}

TEST_F(RealWindow, NoScaleMakesTheScreenTooSmallForThePanel) {
  start();
  for (int i = 0; i < 40; ++i) press(*frame(), Qt::Key_Plus, Qt::ControlModifier);
  wait_for_layout();
  EXPECT_GE(state().Largeur_écran, 600);
  EXPECT_GE(state().Hauteur_écran, 470);
  for (int i = 0; i < 40; ++i) press(*frame(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(scale(), 0.75);
}

/// The window at scale 1, too small for the map, with a game in it.
class ScrolledWindow : public RealWindow {
 protected:
  void SetUp() override {
    start();
    begin_game();
    resize(frame()->minimumSize());
    wait_for_layout();
    map = &widget("Carte");
  }
  /// False if the widget leaves the turn to what it lies in.
  bool turn_wheel(QWidget &over, QPoint angle, Qt::KeyboardModifiers held = {}) {
    const QPointF place(50, 50);
    QWheelEvent event(place, over.mapToGlobal(place), {}, angle, Qt::NoButton, held, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&over, &event);
    return event.isAccepted();
  }

  QWidget *map = nullptr;
};

TEST_F(ScrolledWindow, TheWheelScrollsTheMap) {
  turn_wheel(*map, {0, -120});
  EXPECT_EQ(screen().barre_v.valeur, 40);
  turn_wheel(*map, {0, -120}, Qt::ShiftModifier);
  EXPECT_EQ(screen().barre_h.valeur, 40);
  turn_wheel(*map, {0, 240});
  EXPECT_EQ(screen().barre_v.valeur, 0);
}

TEST_F(ScrolledWindow, TheWheelWithControlSetsTheScale) {
  resize(frame()->minimumSize() * 1.2);
  wait_for_layout();
  const double before = scale();
  EXPECT_FALSE(turn_wheel(*map, {0, 120}, Qt::ControlModifier));
  turn_wheel(*frame(), {0, 120}, Qt::ControlModifier);
  EXPECT_NEAR(scale(), before * 1.1, 0.001);
  turn_wheel(*frame(), {0, 60}, Qt::ControlModifier);
  EXPECT_NEAR(scale(), before * 1.1, 0.001) << "half a notch is none yet";
  turn_wheel(*frame(), {0, 60}, Qt::ControlModifier);
  EXPECT_GT(scale(), before * 1.15);
  const double turned = scale();
  EXPECT_FALSE(turn_wheel(*frame(), {0, 120})) << "without Control it is others' affair";
  EXPECT_EQ(scale(), turned);
  EXPECT_EQ(screen().barre_v.valeur, 0);
}

TEST_F(ScrolledWindow, TheMiddleButtonDragsTheMap) {
  QTest::mousePress(map, Qt::MiddleButton, {}, QPoint(100, 100));
  EXPECT_EQ(map->cursor().shape(), Qt::ClosedHandCursor);
  QMouseEvent move(QEvent::MouseMove, QPointF(70, 85), map->mapToGlobal(QPointF(70, 85)), Qt::NoButton,
                   Qt::MiddleButton, Qt::NoModifier);
  QApplication::sendEvent(map, &move);
  QTest::mouseRelease(map, Qt::LeftButton, {}, QPoint(70, 85));
  EXPECT_EQ(map->cursor().shape(), Qt::ClosedHandCursor) << "another button lets nothing go";
  QTest::mouseRelease(map, Qt::MiddleButton, {}, QPoint(70, 85));
  EXPECT_EQ(map->cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(screen().barre_h.valeur, 40);
  EXPECT_EQ(screen().barre_v.valeur, 20);
  QApplication::sendEvent(map, &move);
  EXPECT_EQ(screen().barre_h.valeur, 40) << "it is let go";
}

TEST_F(ScrolledWindow, TheViewFollowsTheKeyboardsCursor) {
  map->setFocus();
  press(*map, Qt::Key_End);
  press(*map, Qt::Key_PageDown);
  EXPECT_EQ(screen().barre_h.valeur, screen().barre_h.max);
  EXPECT_EQ(screen().barre_v.valeur, screen().barre_v.max);
  press(*map, Qt::Key_Home);
  EXPECT_EQ(screen().barre_h.valeur, 0);
}

TEST_F(ScrolledWindow, ThePlayerWhoPlaysByHimselfReachesWhatIsOutOfSightOnEachSide) {
  const auto capital = [this](auto further) {
    int found = 1;
    for (int p = 2; p <= nombre_provinces; ++p)
      if (further(state().TableVilles(p), state().TableVilles(found))) found = p;
    return found;
  };
  const int west = capital([](const auto &a, const auto &b) { return a.x < b.x; }),
            east = capital([](const auto &a, const auto &b) { return a.x > b.x; }),
            north = capital([](const auto &a, const auto &b) { return a.y < b.y; }),
            south = capital([](const auto &a, const auto &b) { return a.y > b.y; });
  for (const int p : {south, north, east, west}) {
    if (state().TableProvinces(p).trouvée) continue;
    Poser_question(desktop().programme().contexte(), p);
    order().click(province(p));
    play();
    EXPECT_TRUE(state().TableProvinces(p).trouvée) << p;
  }
}

class ScrolledByKeys : public ScrolledWindow {
 protected:
  AutomaticPlayer::Hand hand() const override { return AutomaticPlayer::Hand::keys; }
};

TEST_F(ScrolledByKeys, ThePlayerWhoPlaysByHimselfBringsIntoViewWhatHeGoesTo) {
  map->setFocus();
  press(*map, Qt::Key_Home);
  press(*map, Qt::Key_PageUp);
  int furthest = 1;
  for (int p = 2; p <= nombre_provinces; ++p)
    if (state().TableVilles(p).y > state().TableVilles(furthest).y) furthest = p;
  order().click(province(furthest));
  play();
  EXPECT_GT(screen().barre_v.valeur, 0);
}

TEST_F(RealWindow, FocusReturnsToTheMapWhenThePassButtonHasGone) {
  start();
  begin_game();
  const auto miss = [this] { order().click(province(state().ProvinceCourante % nombre_provinces + 1)); };
  miss();
  play();
  QWidget &pass = widget("BoutonPasse");
  ASSERT_TRUE(pass.isVisible());
  pass.setFocus(Qt::TabFocusReason);
  press(pass, Qt::Key_Space);
  EXPECT_EQ(frame()->focusWidget()->objectName(), "Carte");
  miss();
  play();
  ASSERT_TRUE(pass.isVisible());
  EXPECT_EQ(frame()->focusWidget()->objectName(), "Carte");
  const int score = state().Score;
  press(*frame(), Qt::Key_Space);
  EXPECT_EQ(state().Score, score);
}

TEST_F(RealWindow, FocusReturnsToTheMapUnderAnotherWindowToo) {
  start();
  begin_game();
  order().click(province(state().ProvinceCourante % nombre_provinces + 1));
  play();
  frame()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
  widget("BoutonPasse").setFocus(Qt::TabFocusReason);
  ASSERT_EQ(screen().focus, &screen().BoutonPasse);
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  screen().BoutonPasse.visible = false;
  desktop().renderer().sync();
  EXPECT_EQ(screen().focus, &screen().Carte);
  EXPECT_EQ(frame()->focusWidget()->objectName(), "Carte");
}

TEST_F(RealWindow, ADialogGrowsWithItAndLiesOverItsMiddle) {
  start();
  order().choose("menu_fichier", "fichier_nouveau");
  order().then([this] {
    const QWidget *dialog = desktop().renderer().top_frame();
    ASSERT_NE(dialog, frame());
    EXPECT_NEAR(dialog->geometry().center().x(), frame()->geometry().center().x(), 2);
    const auto *name = dialog->findChild<QWidget *>("boîte_nom_joueur");
    ASSERT_NE(name, nullptr);
    EXPECT_GT(name->font().pixelSize(), 0);
  });
  order().click("Bouton_annuler");
  play();
}

TEST_F(RealWindow, TheCellsOfATableGrowWithIt) {
  start();
  resize(window_for(1.5));
  wait_for_layout();
  begin_game();
  order().click(province(state().ProvinceCourante));
  order().choose("menu_paramétrer", "Menu_affiche_paramètres");
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("BoutonStatistiques");
  CellSheet::Cell heading, cell;
  order().then([&] {
    const std::vector<CellSheet::Cell> &cells = sheet_of(*QApplication::activeModalWidget()).cells();
    heading = cells.front();
    cell = *std::ranges::find(cells, "NomProvince(1)", &CellSheet::Cell::name);
  });
  order().click("Command1");
  order().click("Command1");
  play();
  EXPECT_EQ(heading.name, "EntêteColonne1");
  EXPECT_EQ(heading.place, QRect(QPoint(12, 135), QPoint(235, 179)));
  EXPECT_EQ(cell.place, QRect(QPoint(12, 180), QPoint(253, 205)));
}

/// The window on the lower one of two monitors: run only on the desktop that has two.
class TwoMonitors : public RealWindow {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::screens().size(), 2);
    start();
    for (const QScreen *monitor : QGuiApplication::screens())
      if (monitor->geometry().top() > lower.top()) lower = monitor->geometry();
    frame()->move(lower.topLeft() + QPoint(100, 100));
    QApplication::processEvents();
  }
  QRect lower;
};

TEST_F(TwoMonitors, AGameIsPlayedOnTheLowerOne) {
  begin_game();
  const int asked = state().ProvinceCourante;
  order().click(province(asked));
  play();
  EXPECT_TRUE(state().TableProvinces(asked).trouvée);
  EXPECT_EQ(state().Rect_carte.haut, 5);
}

TEST_F(TwoMonitors, ADialogLiesWhollyOnTheMonitorOfItsWindow) {
  frame()->move(lower.right() - 200, lower.bottom() - 300);
  QApplication::processEvents();
  order().choose("menu_fichier", "fichier_nouveau");
  order().then([this] {
    const QRect dialog = desktop().renderer().top_frame()->frameGeometry();
    EXPECT_EQ(dialog & lower, dialog);
  });
  order().click("Bouton_annuler");
  play();
}

TEST_F(TwoMonitors, ADialogFollowsItsWindowToEither) {
  for (const QScreen *screen : QGuiApplication::screens()) {
    const QRect monitor = screen->geometry();
    frame()->move(monitor.topLeft() + QPoint(20, 20));
    QApplication::processEvents();
    order().choose("menu_fichier", "fichier_nouveau");
    order().then([&] {
      const QRect dialog = desktop().renderer().top_frame()->frameGeometry();
      EXPECT_EQ(dialog & monitor, dialog);
    });
    order().click("Bouton_annuler");
    play();
  }
}

TEST_F(RealWindow, ADialogLiesWhollyOnAMonitorWhereverItsWindowHangsOut) {
  start();
  const QList<QScreen *> screens = QGuiApplication::screens();
  for (const QPoint by : {QPoint(-700, 0), QPoint(0, -600), QPoint(700, 0), QPoint(0, 600)}) {
    frame()->move(by);
    QApplication::processEvents();
    order().choose("menu_fichier", "fichier_nouveau");
    order().then([&] {
      const QRect dialog = desktop().renderer().top_frame()->frameGeometry();
      const auto holds = [&](const QScreen *s) { return s->availableGeometry().contains(dialog); };
      EXPECT_TRUE(std::ranges::any_of(screens, holds)) << by.x() << ", " << by.y();
    });
    order().click("Bouton_annuler");
    play();
  }
}

TEST_F(RealWindow, HasItsSizeItsPlaceAndItsScaleAgainAtTheNextStart) {
  start();
  resize(window_for(1));
  frame()->move(70, 50);
  press(*frame(), Qt::Key_Minus, Qt::ControlModifier);
  const QRect left = frame()->geometry();
  const double scale_left = scale();
  end();
  start();
  EXPECT_EQ(frame()->geometry(), left);
  EXPECT_NEAR(scale(), scale_left, 1e-9);
}

TEST_F(RealWindow, IsRememberedAsItGoesAndNotAtWhateverItHears) {
  start();
  std::filesystem::remove(memory);
  QEvent other(QEvent::User);
  QApplication::sendEvent(frame(), &other);
  EXPECT_FALSE(std::filesystem::exists(memory));
  frame()->hide();
  EXPECT_TRUE(std::filesystem::exists(memory));
}

TEST_F(RealWindow, IsRememberedWhenAResizeHasRestedThoughTheProgramBeKilled) {
  start();
  resize(window_for(1));
  const QSize left = frame()->size();
  EXPECT_TRUE(QTest::qWaitFor([this] { return std::filesystem::exists(memory); }));
  die();
  start();
  EXPECT_EQ(frame()->size(), left);
}

TEST_F(RealWindow, AMemoryOfItThatIsDamagedIsAsGoodAsNone) {
  std::ofstream(memory) << "[fenetre]\ngeometrie=@ByteArray(\\x1\\xd9rien)\nechelle=-3\n";
  start();
  EXPECT_TRUE(frame()->screen()->availableGeometry().contains(frame()->frameGeometry()));
  EXPECT_GT(scale(), 1.1);
}

}  // namespace
}  // namespace ardane
