// The whole program in its real windows: start, menus, abandoned games, closing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPaintEvent>
#include <QSessionManager>
#include <QTest>
#include <QToolTip>

#include "listener.h"
#include "program_test.h"

namespace {

int refusals = 0;

}  // namespace

/// In place of the toolkit's, which tells a session's manager; the offscreen platform has none.
void QSessionManager::cancel() {
  ++refusals;
}

namespace ardane {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class Game : public ProgramTest {
 protected:
  void start() {
    ProgramTest::start();
    state().Ordre_jeux.remplir(0);
    state().Ordre_jeux(1) = étape_provinces;
  }
  /// Starts a game and misses its first question, so that it has begun.
  void begin_game() {
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", "Zoé");
    order().click("niveau_moyen");
    order().click("bouton_sortie");
    order().then([this] { order().click(province(state().ProvinceCourante % nombre_provinces + 1)); });
    ASSERT_EQ(script().run(), "");
    ASSERT_EQ(state().Score, score_de_départ - 1);
  }
  /// Waits for what the program puts off until the map is up, its icon among it, and for all painting.
  void settle() {
    ASSERT_EQ(script().run([this] { return frame()->testAttribute(Qt::WA_SetWindowIcon); }), "");
    QApplication::processEvents();
    frame()->repaint();
  }
};

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
  begin_game();
  order().then([this] { frame()->close(); });
  order().answer(Réponse::non);
  EXPECT_EQ(script().run(), "");
  EXPECT_TRUE(desktop().programme().en_cours());
  EXPECT_TRUE(frame()->isVisible());
  EXPECT_EQ(state().Etape, étape_provinces);
}

TEST_F(Game, AGameIsAbandonedForAnotherOnlyByAYes) {
  start();
  begin_game();
  order().choose("menu_fichier", "fichier_nouveau");
  order().answer(Réponse::non);
  ASSERT_EQ(script().run(), "");
  EXPECT_EQ(state().Niveau, niveau_moyen);
  order().choose("menu_fichier", "fichier_nouveau");
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("Command1");
  order().fill_in("boîte_nom_joueur", "Achille");
  order().click("niveau_expert");
  order().click("bouton_sortie");
  ASSERT_EQ(script().run(), "");
  EXPECT_EQ(state().Nom_joueur, "Achille");
  EXPECT_EQ(state().Niveau, niveau_expert);
  EXPECT_EQ(state().Score, score_de_départ);
}

TEST_F(Game, AGameAbandonedByTheMenuEndsTheProgramAfterTheTopTen) {
  start();
  begin_game();
  order().choose("menu_fichier", "fichier_quitter");
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("Command1");
  EXPECT_EQ(script().run(), "");
  EXPECT_FALSE(desktop().programme().en_cours());
}

TEST_F(Game, ClosingAtRestEndsTheProgram) {
  start();
  QTimer::singleShot(0, qApp, [this] { frame()->close(); });
  desktop().play();
  EXPECT_FALSE(desktop().programme().en_cours());
  EXPECT_EQ(frame(), nullptr);
}

TEST_F(Game, TheEndOfTheSessionAsksAsTheCloseControlDoes) {
  start();
  begin_game();
  auto *session = qApp->findChild<QSessionManager *>();
  ASSERT_NE(session, nullptr);
  for (const Réponse answer : {Réponse::non, Réponse::oui}) {
    EXPECT_TRUE(desktop().programme().en_cours());
    refusals = 0;
    order().then([&] { Q_EMIT qApp->commitDataRequest(*session); });
    order().answer(answer);
    if (answer == Réponse::oui) {
      order().answer(Réponse::ok);
      order().click("Command1");
    }
    EXPECT_EQ(script().run(), "");
    EXPECT_EQ(refusals, answer == Réponse::non ? 1 : 0) << "the session goes on with a game that does";
  }
  EXPECT_FALSE(desktop().programme().en_cours());
}

class GameByEar : protected Listener, public Game {};

TEST_F(GameByEar, EachQuestionAndAnswerIsToldOnce) {
  start();
  forget();  // the boxes of a first start
  begin_game();
  order().click(province(state().ProvinceCourante));
  EXPECT_EQ(script().run(), "");
  const std::vector<std::string> alerts = heard(QAccessible::Alert);
  EXPECT_THAT(alerts, ElementsAre(AllOf(StartsWith("Trouvez"), EndsWith("Reste 110.")),
                                  StartsWith("Faux. Score : 999"),
                                  AllOf(StartsWith("Juste. "), EndsWith("Reste 109."))));
  EXPECT_THAT(heard(QAccessible::ObjectShow), testing::IsSupersetOf(alerts)) << "each is there to be told of";
}

TEST_F(GameByEar, TheMapTellsItsPlacesAndTheQuestionByKeys) {
  start();
  begin_game();
  auto *map = frame()->findChild<QWidget *>("Carte");
  const auto told = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
    forget();
    QTest::keyClick(map, key, held);
    const std::vector<std::string> names = heard(QAccessible::NameChanged);
    return names.empty() ? std::string() : names.back();
  };
  EXPECT_THAT(told(Qt::Key_R), StartsWith("Trouvez"));
  const std::string corner = told(Qt::Key_O);
  EXPECT_NE(told(Qt::Key_PageDown, Qt::ControlModifier), "");
  EXPECT_NE(told(Qt::Key_O), corner) << "there are places to go to";
  EXPECT_NE(told(Qt::Key_T), told(Qt::Key_O));
}

TEST_F(GameByEar, WhatIsSaidIsANotification) {
  start();
  begin_game();
  auto *speech = frame()->findChild<QWidget *>("annonce");
  ASSERT_NE(speech, nullptr);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(speech)->role(), QAccessible::Notification);
  EXPECT_EQ(speech->size(), QSize(1, 1)) << "for the ear alone";
  EXPECT_NE(frame()->childAt(speech->geometry().center()), speech) << "the mouse does not find it";
}

TEST_F(GameByEar, TheMainWindowIsAWindowAndADialogADialog) {
  start();
  const auto role = [](QWidget &widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); };
  EXPECT_EQ(role(*frame()), QAccessible::Window);
  order().choose("menu_fichier", "fichier_nouveau");
  order().then([&] { EXPECT_EQ(role(*desktop().renderer().top_frame()), QAccessible::Dialog); });
  order().click("Bouton_annuler");
  play();
}

TEST_F(GameByEar, WhereNobodyListensNothingIsTold) {
  leave();
  start();
  begin_game();
  EXPECT_THAT(heard(QAccessible::Alert), IsEmpty());
  EXPECT_EQ(frame()->findChild<QWidget *>("annonce"), nullptr);
}

TEST_F(Game, ThePlayersDesktopGetsItsIcons) {
  QApplication::setWindowIcon({});
  start();
  settle();
  EXPECT_FALSE(QApplication::windowIcon().isNull());
  EXPECT_FALSE(frame()->windowIcon().isNull());
}

TEST_F(Game, WhatTheToolkitSaysByItselfIsFrench) {
  start();
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Annuler");
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
  settle();
  frame()->findChild<QWidget *>("Carte")->installEventFilter(&watch);
  screen().tic();
  desktop().renderer().sync();
  QApplication::processEvents();
  EXPECT_TRUE(watch.painted.isEmpty());
  state().TableClignotement(7) = true;
  state().PhaseClignotement = false;
  screen().tic();
  desktop().renderer().sync();
  QApplication::processEvents();
  EXPECT_EQ(watch.painted.boundingRect().size(),
            QSize(static_cast<int>(screen().Pays(7).largeur), static_cast<int>(screen().Pays(7).hauteur)));
}

TEST_F(Game, F1OpensTheHelp) {
  start();
  QTest::keyClick(frame(), Qt::Key_F1);
  ASSERT_NE(desktop().help().window(), nullptr);
  EXPECT_TRUE(desktop().help().window()->isVisible());
}

class GameWithSettingsOfItsOwn : public Game {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces own = folder.places();
    own.registre = settings / "registre";
    return own;
  }
  const std::filesystem::path settings = folder.path() / "réglages";
};

TEST_F(GameWithSettingsOfItsOwn, SettingsThatCanBeKeptNoMoreAreToldOnce) {
  start();
  settle();
  for (const auto &[name, kept] : {std::pair{"Ann", false}, {"Bob", false}, {"Zoé", true}, {"Lou", false}}) {
    std::filesystem::remove_all(settings);
    if (!kept) std::ofstream(settings) << "no folder any more";
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", name);
    order().click("bouton_sortie");
    play();
  }
  const std::vector<std::string> &told = script().told;
  const auto tells = [](const std::string &text) {
    return text.starts_with("Les réglages ne sont pas gardés");
  };
  EXPECT_EQ(std::ranges::count_if(told, tells), 1);
}

TEST_F(Game, WithoutTheHitTestTableTheProgramEndsAfterABox) {
  std::filesystem::remove(folder.path() / "ardane.pts");
  EXPECT_FALSE(script().player.start());
  EXPECT_FALSE(script().told.empty());
}

TEST_F(Game, MissingPicturesAreToldOnceAndTheGameGoesOn) {
  std::filesystem::remove(folder.path() / "images");
  std::filesystem::create_directory(folder.path() / "images");
  start();
  const std::vector<std::string> &told = script().told;
  ASSERT_EQ(script().run([&] { return !told.empty(); }), "");
  const std::size_t pictures = ressources_du_programme().images.toutes().size();
  EXPECT_TRUE(told[0].starts_with(std::to_string(pictures) + " images manquent ou ne peuvent être lues : "))
      << told[0];
  EXPECT_TRUE(told[0].ends_with("...\nLe jeu continue avec les autres.")) << "five names and no more";
  EXPECT_EQ(std::ranges::count(told[0], ','), 4);
  EXPECT_TRUE(desktop().programme().en_cours());
}

TEST_F(Game, OneMissingPictureIsToldByItsName) {
  namespace fs = std::filesystem;
  const fs::path images = folder.path() / "images";
  const fs::path shipped = fs::canonical(images);
  fs::remove(images);
  const auto link_all_but = [](const fs::path &one, const fs::path &place) {
    fs::create_directory(place);
    for (const fs::directory_entry &entry : fs::directory_iterator(one.parent_path()))
      if (entry.path() != one) fs::create_symlink(entry.path(), place / entry.path().filename());
  };
  link_all_but(shipped / "buttons", images);
  link_all_but(shipped / "buttons" / "etoile.gif", images / "buttons");
  start();
  const std::vector<std::string> &told = script().told;
  ASSERT_EQ(script().run([&] { return !told.empty(); }), "");
  EXPECT_EQ(told[0], "Une image manque ou ne peut être lue : BoutonEtoile\nLe jeu continue avec les autres.");
}

}  // namespace
}  // namespace ardane
