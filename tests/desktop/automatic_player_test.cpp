// The player who plays by himself: what he cannot do he says, and leaves the program closed.
#include "front/qt/demonstration/automatic_player.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <numeric>
#include <vector>

#include "core/game_state.h"
#include "front/qt/demonstration/mouse.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "play/question_selection.h"
#include "script.h"

namespace ardane {
namespace {

class Player : public testing::Test {
 protected:
  Player() { EXPECT_TRUE(script.player.start()); }

  void open_new_game() { script.player.choose("menu_fichier", "fichier_nouveau"); }
  /// The program is expected to be closed, and the player to say why.
  void expect_given_up(const std::string &why) {
    EXPECT_EQ(script.run(), why);
    EXPECT_FALSE(desktop.programme().en_cours());
    EXPECT_EQ(desktop.renderer().top_frame(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }

  const ScratchFolder folder{ARDANE_RESOURCES};
  Desktop desktop{folder.places(), ressources_du_programme()};
  Script script{desktop};
};

TEST_F(Player, RestsAtTheMapWhenAllOrdersAreCarriedOut) {
  open_new_game();
  script.player.click("Bouton_annuler");
  EXPECT_EQ(script.run(), "");
  EXPECT_TRUE(desktop.programme().en_cours());
}

TEST_F(Player, ReplacesWhatStandsInATextBox) {
  for (const char *name : {"Zoé", "Élodie"}) {
    open_new_game();
    script.player.fill_in("boîte_nom_joueur", QString::fromUtf8(name));
    script.player.click("bouton_sortie");
    EXPECT_EQ(script.run(), "");
    EXPECT_EQ(desktop.programme().état().Nom_joueur, name);
  }
  open_new_game();
  script.player.fill_in("boîte_nom_joueur", "");
  script.player.then([this] {
    const auto *box = desktop.renderer().top_frame()->findChild<QLineEdit *>("boîte_nom_joueur");
    EXPECT_EQ(box->text(), "");
  });
  script.player.click("Bouton_annuler");
  EXPECT_EQ(script.run(), "");
}

/// Counts what it is asked for orders, and has nothing to say of boxes.
struct NoPlan : Plan {
  void at_window(AutomaticPlayer &, const std::string &) override { ++times; }
  void at_map(AutomaticPlayer &) override { ++times; }
  int times = 0;
};

TEST_F(Player, AsksForNoMoreOrdersOnceTheProgramHasEnded) {
  script.player.choose("menu_fichier", "fichier_quitter");
  EXPECT_EQ(script.run(), "");
  ASSERT_FALSE(desktop.programme().en_cours());
  NoPlan plan;
  AutomaticPlayer player(desktop, plan);
  player.begin();
  for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
  EXPECT_EQ(plan.times, 0);
}

TEST_F(Player, AsksForNoOrdersWhileAProcedureIsAtWork) {
  NoPlan plan;
  AutomaticPlayer player(desktop, plan);
  int times_at_work = -1;
  Ecran_principal &main = desktop.programme().principale();
  main.menu("MenuSon").clic = [&] {
    player.begin();
    for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
    times_at_work = plan.times;
  };
  desktop.renderer().frame(main)->findChild<QAction *>("MenuSon")->trigger();
  EXPECT_EQ(times_at_work, 0);
}

TEST_F(Player, PressesTheDefaultButtonOfABoxThatThePlanSaysNothingOf) {
  NoPlan plan;
  AutomaticPlayer player(desktop, plan);
  QMessageBox box;
  box.addButton(QStringLiteral("Oui"), QMessageBox::YesRole);
  QPushButton *no = box.addButton(QStringLiteral("Non"), QMessageBox::NoRole);
  box.setDefaultButton(no);
  box.open();
  player.begin();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !box.isVisible(); }));
  EXPECT_EQ(box.clickedButton(), no);
}

TEST_F(Player, GivesUpWhereAWindowWaitsForNoOrder) {
  open_new_game();
  expect_given_up("la fenêtre nouvelle_partie attend un ordre");
}

TEST_F(Player, GivesUpOverAControlThatIsNotThere) {
  open_new_game();
  script.player.click("bouton_absent");
  script.player.click("bouton_sortie");
  expect_given_up("rien à utiliser sous le nom bouton_absent dans nouvelle_partie");
}

TEST_F(Player, GivesUpOverAControlOfAnotherWindow) {
  open_new_game();
  script.player.click("Carte");
  expect_given_up("rien à utiliser sous le nom Carte dans nouvelle_partie");
}

TEST_F(Player, GivesUpOverAProvinceUnderAnotherWindow) {
  open_new_game();
  script.player.click(province(1));
  expect_given_up("rien à utiliser sous le nom Carte dans nouvelle_partie");
}

TEST(Mouse, ScrollsAListToAnItemThatIsOutOfSight) {
  QListWidget list;
  for (int i = 1; i <= 100; ++i) list.addItem(QString::number(i));
  list.resize(100, 100);
  list.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
  for (const int row : {99, 0}) {
    click(list, *list.item(row));
    EXPECT_EQ(list.currentRow(), row);
  }
}

TEST_F(Player, GivesUpOverAListThatIsNoneOrLacksTheItem) {
  open_new_game();
  script.player.pick("boîte_nom_joueur", "Zoé");
  expect_given_up("boîte_nom_joueur n'est pas une liste");
}

TEST_F(Player, GivesUpOverATextBoxThatIsNotThere) {
  open_new_game();
  script.player.fill_in("boîte_absente", "Zoé");
  expect_given_up("rien à utiliser sous le nom boîte_absente dans nouvelle_partie");
}

class PlayerByKeys : public Player {
 protected:
  void begin_game(std::int16_t stage) {
    desktop.programme().état().Ordre_jeux = Ordre_de_jeu({stage, 0, 0, 0});
    by_keys.player.choose("menu_fichier", "fichier_nouveau");
    by_keys.player.fill_in("boîte_nom_joueur", "Zoé");
    by_keys.player.click("niveau_facile");
    by_keys.player.click("bouton_sortie");
    EXPECT_EQ(by_keys.run(), "");
  }
  void expect_given_up(const std::string &why) {
    EXPECT_EQ(by_keys.run(), why);
    EXPECT_FALSE(desktop.programme().en_cours());
  }

  Script by_keys{desktop, AutomaticPlayer::Hand::keys};
};

TEST_F(PlayerByKeys, GivesUpOverAMenuEntryThatNoKeyReaches) {
  by_keys.player.choose("menu_fichier", "entrée_absente");
  expect_given_up("rien à choisir sous le nom entrée_absente");
}

TEST_F(PlayerByKeys, GivesUpOverAMenuThatHasNoEntries) {
  by_keys.player.choose("Menu_aide", "entrée_absente");
  expect_given_up("le menu ne s'ouvre pas");
}

TEST_F(PlayerByKeys, GivesUpOverTheMenusUnderAnotherWindow) {
  by_keys.player.choose("menu_fichier", "fichier_nouveau");
  by_keys.player.choose("menu_fichier", "fichier_nouveau");
  expect_given_up("rien à utiliser sous le nom barre_de_menus dans nouvelle_partie");
}

TEST_F(PlayerByKeys, GivesUpOverAControlThatTheTabKeyPasses) {
  by_keys.player.choose("menu_fichier", "fichier_nouveau");
  by_keys.player.click("Label1");
  expect_given_up("aucune touche ne mène à Label1");
}

TEST_F(PlayerByKeys, GoesToAProvinceFromWhereverTheCursorIs) {
  struct Mouse : QObject {
    bool eventFilter(QObject *, QEvent *event) override {
      pressed = pressed || event->type() == QEvent::MouseButtonPress;
      return false;
    }
    bool pressed = false;
  } mouse;
  qApp->installEventFilter(&mouse);
  GameState &g = desktop.programme().état();
  begin_game(étape_provinces);
  const auto lies_higher = [](const Fiche_ville &a, const Fiche_ville &b) { return a.y < b.y; };
  std::vector<int> provinces(nombre_provinces);
  std::iota(provinces.begin(), provinces.end(), 1);
  const auto [north, south] =
      std::ranges::minmax(provinces, lies_higher, [&](int p) { return g.TableVilles(p); });
  for (const int p : {south, north}) {
    Poser_question(desktop.programme().contexte(), p);
    by_keys.player.click(province(p));
    EXPECT_EQ(by_keys.run(), "");
    EXPECT_TRUE(g.TableProvinces(p).trouvée) << p;
  }
  EXPECT_FALSE(mouse.pressed);
}

TEST_F(PlayerByKeys, GoesToATownsDotToThePixel) {
  begin_game(étape_villes);
  for (const int v : {1, 34, 78}) {
    Poser_question(desktop.programme().contexte(), v);
    by_keys.player.click(town(v));
    EXPECT_EQ(by_keys.run(), "");
    EXPECT_TRUE(desktop.programme().état().TableVilles(v).trouvée) << v;
  }
}

TEST_F(Player, GivesUpOverAMenuEntryThatIsDisabledAndClosesTheMenu) {
  desktop.programme().principale().menu("MenuFicheur").actif = false;
  script.player.choose("menu_paramétrer", "MenuFicheur");
  expect_given_up("rien à choisir sous le nom MenuFicheur");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Player, GivesUpWhereABoxIsNotThereOrAsksOtherwise) {
  script.player.answer(Réponse::ok);
  expect_given_up("pas de boîte qui se réponde ainsi");
}

TEST_F(Player, GivesUpUnderABoxOverAWindowOverTheMap) {
  open_new_game();
  script.player.fill_in("boîte_nom_joueur", "");
  script.player.click("bouton_sortie");
  script.player.answer(Réponse::oui);
  expect_given_up("pas de boîte qui se réponde ainsi");
}

TEST_F(Player, ClosesTheWindowsThatTheProgramOpensWhileItGivesUp) {
  open_new_game();
  script.player.fill_in("boîte_nom_joueur", "Zoé");
  script.player.click("bouton_sortie");
  script.player.click(province(1));
  open_new_game();  // after a question the top ten comes up, and then the dialog
  script.player.answer(Réponse::oui);
  script.player.click("bouton_absent");
  expect_given_up("rien à utiliser sous le nom bouton_absent dans boîte");
}

TEST_F(Player, GivesUpOverATownThatIsNotShown) {
  script.player.click(town(1));
  expect_given_up("pas un pixel libre pour la ville 1");
}

}  // namespace
}  // namespace ardane
