// The windows around the game, opened, used and closed by a player who has a keyboard alone.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include "cells.h"
#include "front/qt/demonstration/mouse.h"
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
  AutomaticPlayer::Hand hand() const override { return AutomaticPlayer::Hand::keys; }
  /// Presses the Tab key until the control has the focus.
  void go_to(const std::string &control) {
    order().then([control] {
      const auto *wanted = front().findChild<QWidget *>(QString::fromStdString(control));
      for (int presses = 0; presses < 60 && front().focusWidget() != wanted; ++presses)
        press(front(), Qt::Key_Tab);
      EXPECT_EQ(front().focusWidget(), wanted) << control;
    });
  }
  void paste(const std::string &control, const QString &text) {
    order().fill_in(control, {});
    order().then([text] {
      QGuiApplication::clipboard()->setText(text);
      press(front(), Qt::Key_V, Qt::ControlModifier);
    });
  }
  static QWidget &front() { return *QApplication::activeModalWidget(); }
  template <class Widget>
  static Widget &shown(const char *name) {
    return *front().findChild<Widget *>(QString::fromUtf8(name));
  }
  /// After a new game that is left behind its first answer.
  void open_statistics() {
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", QStringLiteral("Ann"));
    order().click("niveau_facile");
    order().click("bouton_sortie");
    play();
    order().click(province(state().ProvinceCourante));
    order().choose("menu_paramétrer", "Menu_affiche_paramètres");
    order().press(Qt::Key_Tab);  // to Oui: the game that is thrown away stays by default
    order().press(Qt::Key_Space);
    order().press(Qt::Key_Return);
    order().click("BoutonStatistiques");
  }
  /// What the cell of the window in front will say at its turn.
  void read_into(std::string &text, const char *cell) {
    order().then([&text, cell] { text = read_cell(front(), cell); });
  }
  Fiche_information card(int province) {
    return Lire_fiche_information(desktop().programme().contexte(), province).value();
  }
  std::string dot(int town) { return ressources_du_programme().images.nom(repère(screen(), town).image); }
  bool written(const char *file) const { return std::filesystem::exists(folder.path() / file); }
};

TEST_F(LearningByKeys, TheEditorIsGoneThroughRewrittenAndLeft) {
  const Fiche_information first = card(1);
  order().choose("menu_paramétrer", "MenuFicheur");
  order().fill_in("TXT_INFOS", QStringLiteral("un"));
  order().click("BTN_Right");
  order().fill_in("TXT_INFOS", QStringLiteral("deux"));
  order().fill_in("LBL_Pays", QStringLiteral("Titre"));
  order().click("BTN_Down");
  order().fill_in("TXT_INFOS", QString::fromUtf8("dernière"));
  order().click("BTN_Left");
  order().fill_in("TXT_INFOS", QString::fromUtf8("avant-dernière"));
  order().click("BTN_Up");
  order().click("BTN_quit");
  play();
  EXPECT_EQ(card(1), (Fiche_information{first.titre, "un"}));
  EXPECT_EQ(card(2), (Fiche_information{"Titre", "deux"}));
  EXPECT_EQ(card(109).texte, "avant-dernière");
  EXPECT_EQ(card(110).texte, "dernière");
}

TEST_F(LearningByKeys, TheEditorsTextTakesLinesAndItsButtonsTheEnterKey) {
  order().choose("menu_paramétrer", "MenuFicheur");
  order().fill_in("TXT_INFOS", QStringLiteral("un"));
  order().press(Qt::Key_Return);
  order().then([] { type(front(), "deux"); });
  go_to("BTN_quit");
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(card(1).texte, "un\r\ndeux");
}

TEST_F(LearningByKeys, TenThousandCharactersPastedAreRefusedAndTakenBack) {
  const Fiche_information before = card(1);
  const std::string number = std::to_string(Longueur_de_fiche({before.titre, std::string(10'000, 'x')}));
  order().choose("menu_paramétrer", "MenuFicheur");
  paste("TXT_INFOS", QString(10'000, QLatin1Char('x')));
  order().click("BTN_quit");
  std::string told;
  order().then([&told] { told = shown<QLabel>("qt_msgbox_label").text().toStdString(); });
  order().press(Qt::Key_Return);
  go_to("TXT_INFOS");
  for (int change = 0; change < 2; ++change)
    order().then([] { press(front(), Qt::Key_Z, Qt::ControlModifier); });
  order().click("BTN_quit");
  play();
  EXPECT_THAT(told, HasSubstr(" est de " + number + " pour un maximum autorisé de 650"));
  EXPECT_EQ(card(1), before);
}

TEST_F(LearningByKeys, WhatTheFilesLettersLackIsPastedAsQuestionMarks) {
  order().choose("menu_paramétrer", "MenuFicheur");
  paste("TXT_INFOS", QString::fromUtf8("a🙂b\u0416"));
  order().click("BTN_Right");
  order().click("BTN_Left");
  QString reread;
  order().then([&reread] { reread = shown<QPlainTextEdit>("TXT_INFOS").toPlainText(); });
  order().click("BTN_quit");
  play();
  EXPECT_EQ(card(1).texte, "a?b?");
  EXPECT_EQ(reread.toStdString(), "a?b?");
}

TEST_F(LearningByKeys, ATitleOf651CharactersIsRefused) {
  order().choose("menu_paramétrer", "MenuFicheur");
  order().fill_in("TXT_INFOS", {});
  paste("LBL_Pays", QString(651, QLatin1Char('t')));
  order().click("BTN_quit");
  order().press(Qt::Key_Return);
  order().fill_in("LBL_Pays", QStringLiteral("court"));
  order().click("BTN_quit");
  play();
  EXPECT_EQ(card(1), (Fiche_information{"court", ""}));
}

TEST_F(LearningByKeys, TheStatisticsAreLookedThroughScrolledWrittenAndLeft) {
  open_statistics();
  std::string first, region, last, name_of_last = state().TableVilles(330).nom;
  order().click("BoutonRégions");
  read_into(region, "NomColonne1(1)");
  order().click("BoutonVilles");
  go_to("BarreVerticale");
  order().press(Qt::Key_End);
  read_into(last, "NomColonne1(18)");
  order().click("BoutonProvinces");
  go_to("BarreVerticale");
  order().press(Qt::Key_Down);
  read_into(first, "NomProvince(1)");
  order().click("BoutonSauvegarde");
  order().press(Qt::Key_Return);
  order().click("Command1");
  order().click("Command1");
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
    order().then([&cut, column, objects] {
      auto &bar = shown<QScrollBar>("BarreVerticale");
      for (int above = 0; above <= objects - 18; above += 17) {
        bar.setValue(above);
        for (int row = 1; row <= 18; ++row)
          if (std::string name = read_cell(front(), indexé(column, row));
              name.empty() || name.find("…") != std::string::npos)
            cut.push_back(std::move(name));
      }
    });
  };
  read_all("NomProvince", nombre_provinces);
  order().click("BoutonVilles");
  read_all("NomColonne1", nombre_villes);
  order().click("BoutonRégions");
  read_all("NomColonne1", nombre_régions);
  order().click("Command1");
  order().click("Command1");
  play();
  EXPECT_THAT(cut, testing::IsEmpty());
}

TEST_F(LearningByKeys, AColourIsChosenForEachFamilyAndThePaletteLeftByItsPicture) {
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().click("ChoixCouleur(14)");
  order().choose("menu_paramétrer", "MenuCouleurSousPréfectures");
  go_to("ChoixCouleur(40)");
  order().press(Qt::Key_Return);
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().click("BoutonFermeture");
  play();
  EXPECT_EQ(dot(1), "ChoixCouleur(14)");
  EXPECT_EQ(dot(330), "ChoixCouleur(40)");
}

TEST_F(LearningByKeys, BothListsAreWritten) {
  order().choose("Menu_réviser", "Menu_liste");
  order().press(Qt::Key_Return);
  order().choose("Menu_réviser", "Menu_liste_souspréf");
  order().press(Qt::Key_Return);
  play();
  EXPECT_TRUE(written("ARDANE.TXT"));
  EXPECT_TRUE(written("ARDANE_SP.TXT"));
}

TEST_F(LearningByKeys, TheRevisionIsEnteredAndTheProgramLeftFromThere) {
  order().choose("Menu_réviser", "Menu_révision");
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(state().Etape, étape_révision);
  order().choose("menu_fichier", "fichier_quitter");
  play();
  EXPECT_FALSE(desktop().programme().en_cours());
}

TEST_F(LearningByKeys, ACardIsReadToItsEndAndClosed) {
  std::string long_text;
  for (int line = 0; line < 80; ++line) long_text += "ligne\r\n";
  ASSERT_TRUE(Ecrire_fiche_information(desktop().programme().contexte(), 5, {"", long_text}));
  order().choose("Menu_réviser", "Menu_révision");
  order().press(Qt::Key_Return);
  order().click(province(5));
  int scrolled = 0;
  go_to("TXT_INFOS");
  order().press(Qt::Key_PageDown);
  order().then([&] { scrolled = shown<QPlainTextEdit>("TXT_INFOS").verticalScrollBar()->value(); });
  order().click("BTN_OK");
  play();
  EXPECT_GT(scrolled, 0);
  EXPECT_FALSE(screen().rond(5).visible);
}

}  // namespace
}  // namespace ardane
