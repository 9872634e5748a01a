// The windows around the game, opened, used and closed by a player who has a keyboard alone.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include "front/qt/demonstration/mouse.h"
#include "keys.h"
#include "map/main_window.h"
#include "persistence/information_file.h"
#include "platform/window_layout.h"
#include "program_test.h"

namespace ardane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class LearningByKeys : public ProgramTest {
 protected:
  void SetUp() override {
    start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
  }
  void choose(const std::string &menu, const std::string &entry) {
    order().then([this, menu, entry] {
      EXPECT_TRUE(choose_by_keys(*frame()->findChild<QMenuBar *>("barre_de_menus"), menu, entry)) << entry;
    });
  }
  void go_to(const std::string &control) {
    order().then([this, control] { EXPECT_TRUE(tab_to(front(), control)) << control; });
  }
  void space_on(const std::string &control) {
    go_to(control);
    order().press(Qt::Key_Space);
  }
  /// In what has the focus, in place of what stands there.
  void write(const QString &text) {
    order().then([this, text] {
      press(front(), Qt::Key_A, Qt::ControlModifier);
      press(front(), Qt::Key_Delete);
      type(front(), text);
    });
  }
  void paste(const QString &text) {
    order().then([this, text] {
      QGuiApplication::clipboard()->setText(text);
      press(front(), Qt::Key_A, Qt::ControlModifier);
      press(front(), Qt::Key_V, Qt::ControlModifier);
    });
  }
  QWidget &front() { return window_with_keys(*frame()); }
  template <class Widget>
  Widget &shown(const char *name) {
    return *front().findChild<Widget *>(QString::fromUtf8(name));
  }
  /// After a new game that is left behind its first click: the map alone needs a mouse.
  void open_statistics() {
    choose("menu_fichier", "fichier_nouveau");
    go_to("boîte_nom_joueur");
    write(QStringLiteral("Ann"));
    space_on("niveau_facile");
    space_on("bouton_sortie");
    play();
    order().click(province(state().ProvinceCourante));
    choose("menu_paramétrer", "Menu_affiche_paramètres");
    order().press(Qt::Key_Return);
    order().press(Qt::Key_Return);
    space_on("BoutonStatistiques");
  }
  /// What the label of the window in front will say at its turn.
  void read_into(std::string &text, const char *label) {
    order().then([this, &text, label] { text = shown<QLabel>(label).text().toStdString(); });
  }
  Fiche_information card(int province) {
    return Lire_fiche_information(desktop().programme().contexte(), province).value();
  }
  std::string dot(int town) { return ressources_du_programme().images.nom(repère(screen(), town).image); }
  bool written(const char *file) const { return std::filesystem::exists(folder.path() / file); }
};

TEST_F(LearningByKeys, TheEditorIsGoneThroughRewrittenAndLeft) {
  const Fiche_information first = card(1);
  choose("menu_paramétrer", "MenuFicheur");
  write("un");
  space_on("BTN_Right");
  go_to("TXT_INFOS");
  write("deux");
  go_to("LBL_Pays");
  write("Titre");
  space_on("BTN_Down");
  go_to("TXT_INFOS");
  write("dernière");
  space_on("BTN_Left");
  go_to("TXT_INFOS");
  write("avant-dernière");
  space_on("BTN_Up");
  space_on("BTN_quit");
  play();
  EXPECT_EQ(card(1), (Fiche_information{first.titre, "un"}));
  EXPECT_EQ(card(2), (Fiche_information{"Titre", "deux"}));
  EXPECT_EQ(card(109).texte, "avant-dernière");
  EXPECT_EQ(card(110).texte, "dernière");
}

TEST_F(LearningByKeys, TheEditorsTextTakesLinesAndItsButtonsTheEnterKey) {
  choose("menu_paramétrer", "MenuFicheur");
  write("un");
  order().press(Qt::Key_Return);
  order().then([this] { type(front(), "deux"); });
  go_to("BTN_quit");
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(card(1).texte, "un\r\ndeux");
}

TEST_F(LearningByKeys, TenThousandCharactersPastedAreRefusedAndTakenBack) {
  const Fiche_information before = card(1);
  const std::string number =
      std::to_string(4 + before.titre.size() - 1 + 10'000);  // one letter has two bytes
  choose("menu_paramétrer", "MenuFicheur");
  paste(QString(10'000, QLatin1Char('x')));
  space_on("BTN_quit");
  std::string told;
  order().then([this, &told] { told = shown<QLabel>("qt_msgbox_label").text().toStdString(); });
  order().press(Qt::Key_Return);
  go_to("TXT_INFOS");
  order().then([this] { press(front(), Qt::Key_Z, Qt::ControlModifier); });
  space_on("BTN_quit");
  play();
  EXPECT_THAT(told, HasSubstr(" est de " + number + " pour un maximum autorisé de 650"));
  EXPECT_EQ(card(1), before);
}

TEST_F(LearningByKeys, WhatTheFilesLettersLackIsPastedAsQuestionMarks) {
  choose("menu_paramétrer", "MenuFicheur");
  paste(QString::fromUtf8("a🙂b\u0416"));
  space_on("BTN_Right");
  space_on("BTN_Left");
  QString reread;
  order().then([this, &reread] { reread = shown<QPlainTextEdit>("TXT_INFOS").toPlainText(); });
  space_on("BTN_quit");
  play();
  EXPECT_EQ(card(1).texte, "a?b?");
  EXPECT_EQ(reread.toStdString(), "a?b?");
}

TEST_F(LearningByKeys, ATitleOf651CharactersIsRefused) {
  choose("menu_paramétrer", "MenuFicheur");
  write("");
  go_to("LBL_Pays");
  paste(QString(651, QLatin1Char('t')));
  space_on("BTN_quit");
  order().press(Qt::Key_Return);
  go_to("LBL_Pays");
  write("court");
  space_on("BTN_quit");
  play();
  EXPECT_EQ(card(1), (Fiche_information{"court", ""}));
}

TEST_F(LearningByKeys, TheStatisticsAreLookedThroughScrolledWrittenAndLeft) {
  open_statistics();
  std::string first, region, last, name_of_last = state().TableVilles(330).nom;
  space_on("BoutonRégions");
  read_into(region, "NomColonne1(1)");
  space_on("BoutonVilles");
  go_to("BarreVerticale");
  order().press(Qt::Key_End);
  read_into(last, "NomColonne1(18)");
  space_on("BoutonProvinces");
  go_to("BarreVerticale");
  order().press(Qt::Key_Down);
  read_into(first, "NomProvince(1)");
  space_on("BoutonSauvegarde");
  order().press(Qt::Key_Return);
  space_on("Command1");
  space_on("Command1");
  play();
  EXPECT_EQ(region, state().TableRégions(1).nom);
  EXPECT_THAT(last, StartsWith(name_of_last + " ("));
  EXPECT_EQ(first, state().TableProvinces(2).nom);
  EXPECT_TRUE(written("ARDA_STA.TXT"));
}

TEST_F(LearningByKeys, NoNameOfTheTablesIsCut) {
  open_statistics();
  std::vector<std::string> cut;
  const auto read_all = [this, &cut](const char *column, int objects) {
    order().then([this, &cut, column, objects] {
      auto &bar = shown<QScrollBar>("BarreVerticale");
      for (int above = 0; above <= objects - 18; above += 17) {
        bar.setValue(above);
        for (int row = 1; row <= 18; ++row)
          if (const QString name = shown<QLabel>(indexé(column, row).c_str()).text(); name.contains(u'…'))
            cut.push_back(name.toStdString());
      }
    });
  };
  read_all("NomProvince", nombre_provinces);
  space_on("BoutonVilles");
  read_all("NomColonne1", nombre_villes);
  space_on("BoutonRégions");
  read_all("NomColonne1", nombre_régions);
  space_on("Command1");
  space_on("Command1");
  play();
  EXPECT_THAT(cut, testing::IsEmpty());
}

TEST_F(LearningByKeys, AColourIsChosenForEachFamilyAndThePaletteLeftByItsPicture) {
  choose("menu_paramétrer", "MenuCouleurPréfectures");
  space_on("ChoixCouleur(14)");
  choose("menu_paramétrer", "MenuCouleurSousPréfectures");
  go_to("ChoixCouleur(40)");
  order().press(Qt::Key_Return);
  choose("menu_paramétrer", "MenuCouleurPréfectures");
  space_on("BoutonFermeture");
  play();
  EXPECT_EQ(dot(1), "ChoixCouleur(14)");
  EXPECT_EQ(dot(330), "ChoixCouleur(40)");
}

TEST_F(LearningByKeys, BothListsAreWritten) {
  choose("Menu_réviser", "Menu_liste");
  order().press(Qt::Key_Return);
  choose("Menu_réviser", "Menu_liste_souspréf");
  order().press(Qt::Key_Return);
  play();
  EXPECT_TRUE(written("ARDANE.TXT"));
  EXPECT_TRUE(written("ARDANE_SP.TXT"));
}

TEST_F(LearningByKeys, TheRevisionIsEnteredAndTheProgramLeftFromThere) {
  choose("Menu_réviser", "Menu_révision");
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(state().Etape, étape_révision);
  choose("menu_fichier", "fichier_quitter");
  play();
  EXPECT_FALSE(desktop().programme().en_cours());
}

TEST_F(LearningByKeys, ACardIsReadToItsEndAndClosed) {
  std::string long_text;
  for (int line = 0; line < 80; ++line) long_text += "ligne\r\n";
  ASSERT_TRUE(Ecrire_fiche_information(desktop().programme().contexte(), 5, {"", long_text}));
  choose("Menu_réviser", "Menu_révision");
  order().press(Qt::Key_Return);
  order().click(province(5));
  int scrolled = 0;
  go_to("TXT_INFOS");
  order().press(Qt::Key_PageDown);
  order().then([&] { scrolled = shown<QPlainTextEdit>("TXT_INFOS").verticalScrollBar()->value(); });
  space_on("BTN_OK");
  play();
  EXPECT_GT(scrolled, 0);
  EXPECT_FALSE(screen().rond(5).visible);
}

}  // namespace
}  // namespace ardane
