// What is played, shown and changed through the real windows: the panel of boxes, the map whose provinces are
// switched off, the files of configurations.
#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QTest>
#include <array>

#include "core/paths.h"
#include "front/qt/demonstration/mouse.h"
#include "map/main_window.h"
#include "program_test.h"

namespace ardane {
namespace {

using testing::ElementsAre;

class ConfigurationTest : public ProgramTest {
 protected:
  void SetUp() override { start(); }
  void restart() {
    end();
    start();
  }
  void edit() { order().choose("menu_paramétrer", "menu_définir"); }
  void look() { order().choose("menu_paramétrer", "Menu_affiche_paramètres"); }
  /// The box of a position and of a stage's row, both from 1.
  static std::string box(int position, int row) {
    return "Bouton(" + std::to_string((position - 1) * nombre_jeux + row) + ")";
  }
  void name_file(const QString &name) {
    order().fill_in("Nom_fichier", name);
    order().click("Bouton_OK");
  }
  void reload(const QString &file, Réponse for_next_starts) {
    order().choose("menu_paramétrer", "menu_recharger");
    order().pick("Fichier", file);
    order().click("Bouton_OK");
    order().answer(for_next_starts);
  }
  /// Towns, then flags, without the first thirty provinces; kept under that name.
  void make_class_configuration(const QString &name) {
    edit();
    order().click(box(1, towns));
    order().click(box(2, flags));
    for (int p = 1; p <= 30; ++p) order().click(province(p));
    order().click("BTN(1)");
    name_file(name);
  }

  /// The provinces and nothing else, kept as "Seules" but not for the next starts.
  void make_provinces_alone() {
    edit();
    order().click("BTN_Démarrage");
    order().click(box(2, regions));
    order().click("BTN(1)");
    name_file("Seules");
  }
  /// As far as the question whether that is meant.
  void leave_five_out_unsaved() {
    edit();
    order().click(province(5));
    order().click("BTN_Sauvegarde");
    order().click("BTN(1)");
  }

  std::string path(const char *name) const { return texte_du_chemin(folder.path() / name); }
  std::vector<int> stages() { return {state().Ordre_jeux.begin(), state().Ordre_jeux.end()}; }
  int switched_off() {
    int count = 0;
    for (int p = 1; p <= nombre_provinces; ++p) count += state().TableProvinces(p).inhibée ? 1 : 0;
    return count;
  }
  template <class Widget = QWidget>
  Widget *widget(const std::string &name) {
    return frame()->findChild<Widget *>(QString::fromStdString(name));
  }
  bool is_ticked(const std::string &name) { return widget<QCheckBox>(name)->isChecked(); }
  /// The rows ticked at the positions 1 to 4, as the player sees them: "1234", "3400".
  std::string ticks() {
    std::string rows;
    for (int position = 1; position <= nombre_jeux; ++position) {
      char ticked = '0';
      for (int row = 1; row <= nombre_jeux; ++row)
        if (is_ticked(box(position, row))) ticked = ticked == '0' ? static_cast<char>('0' + row) : '?';
      rows += ticked;
    }
    return rows;
  }
  std::string text(Message message) { return ardane::message(state(), message); }

  static constexpr int provinces = 1, regions = 2, towns = 3, flags = 4;
};

// --- Made, kept, used

TEST_F(ConfigurationTest, MadeByMouseItIsUsedAtTheNextStart) {
  make_class_configuration("Classe");
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_TRUE(std::filesystem::exists(path("Classe.SCI")));
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("Classe.SCI"));
  EXPECT_THAT(stages(), ElementsAre(étape_villes, étape_drapeaux, aucun_jeu, aucun_jeu));
  EXPECT_EQ(switched_off(), 30);
  look();
  play();
  EXPECT_EQ(ticks(), "3400");
  EXPECT_TRUE(is_ticked("BTN_Sauvegarde"));
  EXPECT_TRUE(is_ticked("BTN_Démarrage"));
  order().choose("menu_fichier", "fichier_nouveau");
  order().fill_in("boîte_nom_joueur", "Zoé");
  order().click("bouton_sortie");
  play();
  EXPECT_EQ(state().Etape, étape_villes);
  EXPECT_EQ(state().VillesRestantes, 240);
}

TEST_F(ConfigurationTest, TheRunThatMadeItGoesOnWithIt) {
  make_class_configuration("Classe");
  look();
  play();
  EXPECT_EQ(ticks(), "3400");
  EXPECT_EQ(widget<QLabel>("LBL_param(3)")->toolTip(), QString::fromStdString(path("Classe.SCI")));
  EXPECT_FALSE(screen().Pays(1).visible);
  EXPECT_TRUE(screen().Pays(31).visible);
}

TEST_F(ConfigurationTest, KeptButNotForTheNextStartsItMustBeReloaded) {
  make_provinces_alone();
  play();
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("ARDANE.SCI"));
  reload("Seules.SCI", Réponse::non);
  play();
  EXPECT_EQ(state().Fichier_lancement, path("Seules.SCI"));
  EXPECT_THAT(stages(), ElementsAre(étape_provinces, aucun_jeu, aucun_jeu, aucun_jeu));
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("ARDANE.SCI"));
  reload("Seules.SCI", Réponse::oui);
  play();
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("Seules.SCI"));
}

TEST_F(ConfigurationTest, TheMenuLeadsBackToTheDefaultFromTheNextStartOnToo) {
  make_class_configuration("Classe");
  look();
  order().choose("menu_paramétrer", "Menu_défaut");
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_FALSE(widget("LBL_param(1)")->isVisible());
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("ARDANE.SCI"));
  EXPECT_THAT(stages(), ElementsAre(étape_provinces, étape_régions, étape_villes, étape_drapeaux));
  EXPECT_EQ(switched_off(), 0);
}

TEST_F(ConfigurationTest, NotKeptItLastsUntilTheEndOfTheProgram) {
  leave_five_out_unsaved();
  order().answer(Réponse::non);
  play();
  EXPECT_EQ(state().Etape, étape_paramétrage_défini) << "he has thought better of it";
  order().click("BTN(1)");
  order().answer(Réponse::oui);
  look();
  play();
  EXPECT_EQ(widget<QLabel>("LBL_param(3)")->text().toStdString(), text(Message::paramétrage_non_sauvegardé));
  EXPECT_FALSE(is_ticked("BTN_Sauvegarde"));
  EXPECT_FALSE(is_ticked("BTN_Démarrage"));
  EXPECT_EQ(switched_off(), 1);
  restart();
  EXPECT_EQ(switched_off(), 0);
}

TEST_F(ConfigurationTest, NotKeptAtFirstItCanBecomeAFileLater) {
  leave_five_out_unsaved();
  order().answer(Réponse::oui);
  edit();
  order().click("BTN_Sauvegarde");
  order().click("BTN_Démarrage");
  order().click("BTN(1)");
  order().then(
      [] { EXPECT_EQ(QApplication::activeModalWidget()->focusWidget()->objectName(), "Nom_fichier"); });
  name_file("Sans la cinq");
  play();
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("Sans la cinq.SCI"));
  EXPECT_EQ(switched_off(), 1);
  EXPECT_TRUE(state().TableProvinces(5).inhibée);
}

TEST_F(ConfigurationTest, UnchangedItBecomesTheDefaultByATickAlone) {
  make_provinces_alone();
  look();
  edit();
  order().click("BTN_Démarrage");
  order().click("BTN(1)");
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  restart();
  EXPECT_EQ(state().Fichier_lancement, path("Seules.SCI"));
}

TEST_F(ConfigurationTest, ACancelledNameLeavesTheEditingAsItIs) {
  edit();
  order().click(province(5));
  order().click(box(1, flags));
  order().click("BTN(1)");
  order().click("Bouton_annuler");
  play();
  EXPECT_EQ(state().Etape, étape_paramétrage_défini);
  EXPECT_EQ(ticks(), "4230");
  EXPECT_FALSE(screen().Pays(5).visible);
  order().click("BTN(2)");
  edit();
  play();
  EXPECT_EQ(ticks(), "1234") << "nothing of the editing survives";
  EXPECT_TRUE(screen().Pays(5).visible);
}

TEST_F(ConfigurationTest, AProvinceIsSwitchedOffAndOnByClicks) {
  edit();
  order().click(province(77));
  play();
  EXPECT_FALSE(screen().Pays(77).visible);
  EXPECT_TRUE(screen().Inv(77).visible);
  order().click(province(77));
  play();
  EXPECT_TRUE(screen().Pays(77).visible);
  order().click("BTN(2)");
  look();
  order().click(province(77));
  play();
  EXPECT_TRUE(screen().Pays(77).visible) << "what is only shown cannot be changed";
}

TEST_F(ConfigurationTest, ALabelTicksTheBoxThatItStandsBeside) {
  edit();
  order().click("LBL_param(11)");
  order().click("LBL_param(10)");
  play();
  EXPECT_FALSE(is_ticked("BTN_Démarrage"));
  EXPECT_FALSE(is_ticked("BTN_Sauvegarde"));
  order().click("LBL_param(10)");
  play();
  EXPECT_TRUE(is_ticked("BTN_Sauvegarde"));
  order().click("BTN(2)");
  look();
  play();
  click(*widget("LBL_param(10)"));
  EXPECT_TRUE(is_ticked("BTN_Sauvegarde")) << "what is only shown cannot be changed";
}

// --- Refused

TEST_F(ConfigurationTest, APositionWhoseForerunnerIsEmptyIsRefused) {
  edit();
  order().click(box(2, regions));
  order().click(box(3, towns));
  play();
  EXPECT_THAT(script().told, ElementsAre(text(Message::colonne_précédente_vide)));
  EXPECT_EQ(ticks(), "1000");
}

TEST_F(ConfigurationTest, AStageThatIsPlayedBeforeIsRefused) {
  edit();
  order().click(box(3, provinces));
  play();
  EXPECT_THAT(script().told, ElementsAre(text(Message::jeu_déjà_sélectionné)));
  EXPECT_EQ(ticks(), "1234");
}

TEST_F(ConfigurationTest, TheFirstPositionCannotBeEmptied) {
  edit();
  order().click(box(1, provinces));
  play();
  EXPECT_THAT(script().told, ElementsAre(text(Message::par_quel_jeu_démarrer)));
  EXPECT_EQ(ticks(), "1234");
}

TEST_F(ConfigurationTest, AStageTakenForwardIsTakenFromItsOldPosition) {
  edit();
  order().click(box(2, flags));
  play();
  EXPECT_TRUE(script().told.empty());
  EXPECT_EQ(ticks(), "1430");
}

TEST_F(ConfigurationTest, WithoutAnyProvinceItIsRefused) {
  edit();
  for (int p = 1; p <= nombre_provinces; ++p) order().click(province(p));
  order().click("BTN(1)");
  play();
  EXPECT_THAT(script().told, ElementsAre(text(Message::un_pays_et_une_région_au_moins)));
  EXPECT_EQ(state().Etape, étape_paramétrage_défini);
  order().click(province(1));
  order().click("BTN(1)");
  name_file("Une seule");
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_EQ(switched_off(), nombre_provinces - 1);
}

// --- By keys, and what they cannot open

class ConfigurationByKeys : public ConfigurationTest {
 protected:
  void SetUp() override {
    ConfigurationTest::SetUp();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
  }
  QMenuBar &menu_bar() { return *widget<QMenuBar>("barre_de_menus"); }
  /// Presses the Tab key until the control has the focus, and says whether it got it.
  bool tab_to(const std::string &name) {
    for (int presses = 0; presses < 40; ++presses) {
      if (frame()->focusWidget() == widget(name)) return true;
      press(*frame(), Qt::Key_Tab);
    }
    return false;
  }
  void space_on(const std::string &name) {
    order().then([this, name] {
      ASSERT_TRUE(tab_to(name)) << name;
      press(*frame(), Qt::Key_Space);
    });
  }
  /// The menus that a player opens who goes through the bar by the Alt key and the arrows.
  QStringList menus_opened_by_keys() {
    QStringList opened;
    QTest::keyPress(frame(), Qt::Key_Alt);
    QTest::keyRelease(frame(), Qt::Key_Alt);
    const int entries = static_cast<int>(menu_bar().actions().size());
    for (int entry = 0; entry < entries; ++entry) {
      press_in_menus(Qt::Key_Down);
      if (const QWidget *open = QApplication::activePopupWidget()) opened += open->objectName();
      press_in_menus(Qt::Key_Right);
    }
    while (QWidget *open = QApplication::activePopupWidget()) open->close();
    if (menu_bar().activeAction() != nullptr) press_in_menus(Qt::Key_Escape);
    opened.removeDuplicates();
    return opened;
  }

 private:
  void press_in_menus(Qt::Key key) {
    QWidget *open = QApplication::activePopupWidget();
    QTest::keyClick(open != nullptr ? open : &menu_bar(), key);
  }
};

TEST_F(ConfigurationByKeys, TheWholePanelIsWorkedByTabAndSpace) {
  edit();
  space_on(box(1, towns));
  space_on(box(2, flags));
  space_on("BTN_Démarrage");
  order().then([this] {
    EXPECT_EQ(ticks(), "3400");
    EXPECT_FALSE(is_ticked("BTN_Démarrage"));
  });
  space_on("BTN(1)");
  order().then([] { type(*QApplication::activeModalWidget(), "Classe"); });
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_EQ(state().Fichier_lancement, path("Classe.SCI"));
  EXPECT_THAT(stages(), ElementsAre(étape_villes, étape_drapeaux, aucun_jeu, aucun_jeu));
}

TEST_F(ConfigurationByKeys, TheTabKeyVisitsTheBoxesByPosition) {
  edit();
  QStringList met;
  order().then([&] {
    ASSERT_TRUE(tab_to("Bouton(1)"));
    for (int i = 0; i < 20; ++i, press(*frame(), Qt::Key_Tab)) met += frame()->focusWidget()->objectName();
  });
  play();
  QStringList expected;
  for (int i = 1; i <= 16; ++i) expected += QStringLiteral("Bouton(%1)").arg(i);
  expected << "BTN_Sauvegarde"
           << "BTN_Démarrage"
           << "BTN(1)"
           << "BTN(2)";
  EXPECT_EQ(met, expected);
}

TEST_F(ConfigurationByKeys, ARefusedBoxKeepsTheFocus) {
  edit();
  space_on(box(1, provinces));
  order().answer(Réponse::ok);
  play();
  EXPECT_EQ(frame()->focusWidget(), widget(box(1, provinces)));
  EXPECT_EQ(ticks(), "1234");
}

TEST_F(ConfigurationByKeys, NothingOfThePanelTakesTheFocusWhereItIsOnlyShown) {
  look();
  play();
  for (int i = 0; i < 30; ++i) {
    press(*frame(), Qt::Key_Tab);
    const QWidget *holder = frame()->focusWidget();
    EXPECT_FALSE(holder != nullptr && holder->objectName().startsWith("Bouton")) << i;
  }
}

TEST_F(ConfigurationByKeys, NoKeyOpensTheMenusWhileItIsEdited) {
  const QStringList all{"menu:menu_fichier", "menu:menu_paramétrer", "menu:menu_scores", "menu:Menu_réviser"};
  EXPECT_EQ(menus_opened_by_keys(), all);
  edit();
  play();
  EXPECT_EQ(menus_opened_by_keys(), QStringList());
  order().click("BTN(2)");
  play();
  EXPECT_EQ(menus_opened_by_keys(), all);
  look();
  play();
  EXPECT_EQ(menus_opened_by_keys(), all);
}

TEST_F(ConfigurationByKeys, NoClickOpensTheMenusWhileItIsEdited) {
  const auto opens = [this](const char *name) {
    click(menu_bar(), *menu_bar().findChild<QAction *>(QString::fromUtf8(name)));
    QWidget *open = QApplication::activePopupWidget();
    if (open != nullptr) open->close();
    return open != nullptr;
  };
  constexpr std::array menus = {"menu_fichier", "menu_scores", "Menu_réviser", "menu_paramétrer"};
  for (const char *menu : menus) EXPECT_TRUE(opens(menu)) << menu;
  edit();
  play();
  for (const char *menu : menus) EXPECT_FALSE(opens(menu)) << menu;
}

}  // namespace
}  // namespace ardane
