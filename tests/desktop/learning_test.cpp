// The windows around the game, opened, used and closed in the real program: cards and their editor,
// statistics, the palette of markers.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <fstream>
#include <sstream>

#include "cells.h"
#include "front/qt/demonstration/mouse.h"
#include "map/main_window.h"
#include "persistence/information_file.h"
#include "program_test.h"

namespace ardane {
namespace {

class LearningTest : public ProgramTest {
 protected:
  void SetUp() override { start(); }
  void revise() {
    order().choose("Menu_réviser", "Menu_révision");
    order().accept();
  }
  template <class Widget = QWidget>
  static Widget *widget(const std::string &window, const std::string &name) {
    for (QWidget *frame : QApplication::topLevelWidgets())
      if (frame->objectName() == QString::fromStdString(window))
        return frame->findChild<Widget *>(QString::fromStdString(name));
    return nullptr;
  }
  static void drag_to_the_end(QScrollBar &bar) {
    const QPoint thumb(bar.width() / 2, 20), below(bar.width() / 2, bar.height() * 2);
    QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
    QTest::mouseMove(&bar, below);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, below);
  }
  std::string shown_on_map(int town) {
    return ressources_du_programme().images.nom(repère(desktop().programme().principale(), town).image);
  }
  std::string text_of_card(int p) {
    return Lire_fiche_information(desktop().programme().contexte(), p).value().texte;
  }
};

TEST_F(LearningTest, ACardIsAClickAwayInRevisionAndClosesByMouse) {
  revise();
  std::string name, text;
  bool marker = false;
  order().click(province(42));
  order().then([&] {
    name = widget<QLabel>("Pompe", "LBL_Pays")->text().toStdString();
    text = widget<QPlainTextEdit>("Pompe", "TXT_INFOS")->toPlainText().toStdString();
    marker = screen().rond(42).visible;
  });
  order().click("BTN_OK");
  play();
  EXPECT_EQ(name, state().TableProvinces(42).nom);
  EXPECT_EQ(text, lignes_simples(text_of_card(42)));
  EXPECT_TRUE(marker);
  EXPECT_FALSE(screen().rond(42).visible);
}

TEST_F(LearningTest, ACardClosesByTheEnterKeyOnItsButton) {
  revise();
  order().click(province(7));
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(state().ProvinceFiche, 7);
  EXPECT_EQ(state().Etape, étape_révision);
}

TEST_F(LearningTest, WhiteLettersOnDarkRedAreWhatIsOnTheScreen) {
  revise();
  order().click(province(1));
  QColor ground, letters, field;
  order().then([&] {
    const auto *text = widget<QPlainTextEdit>("Pompe", "TXT_INFOS");
    ground = text->window()->grab().toImage().pixelColor(4, 200);
    field = text->palette().color(QPalette::Base);
    letters = text->palette().color(QPalette::Text);
  });
  order().click("BTN_OK");
  play();
  EXPECT_EQ(ground, QColor(64, 0, 0));
  EXPECT_EQ(field, QColor(64, 0, 0));
  EXPECT_EQ(letters, QColor(255, 255, 255));
}

TEST_F(LearningTest, ACardIsRewrittenInTheEditorAndReadInTheRevision) {
  order().choose("menu_paramétrer", "MenuFicheur");
  order().click("BTN_Right");
  order().fill_in("TXT_INFOS", QString::fromUtf8("Un bel été"));
  order().click("BTN_quit");
  play();
  EXPECT_EQ(text_of_card(2), "Un bel été");
  revise();
  std::string read;
  order().click(province(2));
  order().then([&] { read = widget<QPlainTextEdit>("Pompe", "TXT_INFOS")->toPlainText().toStdString(); });
  order().click("BTN_OK");
  play();
  EXPECT_EQ(read, "Un bel été");
}

TEST_F(LearningTest, ATextThatIsTooLongIsRefusedAndStaysInTheEditor) {
  const std::string before = text_of_card(1);
  order().choose("menu_paramétrer", "MenuFicheur");
  order().fill_in("TXT_INFOS", QString(700, QLatin1Char('x')));
  order().click("BTN_quit");
  order().answer(Réponse::ok);
  order().fill_in("TXT_INFOS", QStringLiteral("court"));
  order().click("BTN_quit");
  play();
  EXPECT_NE(before, "court");
  EXPECT_EQ(text_of_card(1), "court");
}

TEST_F(LearningTest, TheEditorsArrowsAndItsCloseControlWorkByMouse) {
  std::vector<std::string> titles;
  order().choose("menu_paramétrer", "MenuFicheur");
  for (const char *arrow : {"BTN_Down", "BTN_Left", "BTN_Up", "BTN_Right"}) {
    order().click(arrow);
    order().then([&] { titles.push_back(widget<QLineEdit>("Edition", "LBL_Pays")->text().toStdString()); });
  }
  order().then([&] { widget("Edition", "LBL_Pays")->window()->close(); });
  play();
  std::vector<std::string> expected;
  for (const int p : {110, 109, 1, 2}) expected.push_back("Département : " + state().TableProvinces(p).nom);
  EXPECT_EQ(titles, expected);
}

TEST_F(LearningTest, ACloseControlLeavesTheEditorOpenOverACardThatCannotBeWritten) {
  bool open = false;
  order().choose("menu_paramétrer", "MenuFicheur");
  order().fill_in("TXT_INFOS", QString(700, QLatin1Char('x')));
  order().then([&] { widget("Edition", "LBL_Pays")->window()->close(); });
  order().answer(Réponse::ok);
  order().then([&] { open = widget("Edition", "LBL_Pays")->isVisible(); });
  order().fill_in("TXT_INFOS", QStringLiteral("court"));
  order().then([&] { widget("Edition", "LBL_Pays")->window()->close(); });
  play();
  EXPECT_TRUE(open);
  EXPECT_EQ(text_of_card(1), "court");
}

TEST_F(LearningTest, AFileOfEveryByteIsGoneThroughInTheEditorAndStaysAsItIs) {
  std::string bytes;
  for (int slot = 0; slot < 110; ++slot) {
    std::string card("\0\0\x86\x02", 4);
    for (int i = 0; i < 646; ++i) card.push_back(static_cast<char>(slot * 7 + i));
    bytes += card;
  }
  const std::filesystem::path file = folder.path() / "ARDANE.INF";
  std::ofstream(file, std::ios::binary) << bytes;
  order().choose("menu_paramétrer", "MenuFicheur");
  for (int card = 2; card <= 20; ++card) order().click("BTN_Right");
  order().click("BTN_quit");
  play();
  std::ostringstream after;
  after << std::ifstream(file, std::ios::binary).rdbuf();
  EXPECT_EQ(after.str(), bytes);
  EXPECT_TRUE(script().told.empty());
}

TEST_F(LearningTest, AColourChosenByMouseIsThatOfEveryMarker) {
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().click("ChoixCouleur(14)");
  order().choose("menu_paramétrer", "MenuCouleurSousPréfectures");
  order().click("ChoixCouleur(40)");
  play();
  EXPECT_EQ(shown_on_map(1), "ChoixCouleur(14)");
  EXPECT_EQ(shown_on_map(330), "ChoixCouleur(40)");
}

TEST_F(LearningTest, ThePaletteIsLeftWithoutAChoiceByAClickOnItsPicture) {
  const std::string before = shown_on_map(1);
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().click("BoutonFermeture");
  play();
  EXPECT_EQ(shown_on_map(1), before);
}

TEST_F(LearningTest, ThePaletteIsClosedByNothingElse) {
  bool open = false;
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().then([&] { widget("Palette", "BoutonFermeture")->window()->close(); });
  for (const Qt::Key key : {Qt::Key_F4, Qt::Key_Backspace, Qt::Key_A}) order().press(key);
  order().then([&] { open = widget("Palette", "BoutonFermeture")->isVisible(); });
  order().press(Qt::Key_Escape);
  play();
  EXPECT_TRUE(open);
}

TEST_F(LearningTest, BothListsAreWrittenByMouse) {
  order().choose("Menu_réviser", "Menu_liste");
  order().answer(Réponse::ok);
  order().choose("Menu_réviser", "Menu_liste_souspréf");
  order().answer(Réponse::ok);
  play();
  for (const char *list : {"ARDANE.TXT", "ARDANE_SP.TXT"})
    EXPECT_GT(std::filesystem::file_size(folder.path() / list), 5'000U);
}

TEST_F(LearningTest, AColourIsChosenByKeysAloneAndEscapeLeavesWithoutOne) {
  const std::string before = shown_on_map(1);
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().press(Qt::Key_Tab);
  order().press(Qt::Key_Escape);
  play();
  EXPECT_EQ(shown_on_map(1), before);
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().press(Qt::Key_Tab);
  order().press(Qt::Key_Tab);
  order().press(Qt::Key_Space);
  play();
  EXPECT_EQ(shown_on_map(1), "ChoixCouleur(3)");
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(shown_on_map(1), "ChoixCouleur(1)");
}

TEST_F(LearningTest, AScreenReaderHearsASwatchAsAButtonWithItsColoursName) {
  QAccessible::Role role = QAccessible::NoRole;
  QString name;
  order().choose("menu_paramétrer", "MenuCouleurPréfectures");
  order().then([&] {
    QAccessibleInterface *swatch =
        QAccessible::queryAccessibleInterface(widget("Palette", "ChoixCouleur(26)"));
    role = swatch->role();
    name = swatch->text(QAccessible::Name);
  });
  order().press(Qt::Key_Escape);
  play();
  EXPECT_EQ(role, QAccessible::Button);
  EXPECT_EQ(name, QStringLiteral("Or"));
}

TEST_F(LearningTest, TheStatisticsOfAGameLeftAreLookedThroughAndWritten) {
  order().choose("menu_fichier", "fichier_nouveau");
  order().fill_in("boîte_nom_joueur", QString::fromUtf8("Zoé"));
  order().click("niveau_facile");
  order().click("bouton_sortie");
  play();
  const int wrong = state().ProvinceCourante == 1 ? 2 : 1;
  const std::string asked = state().TableProvinces(state().ProvinceCourante).nom;
  order().click(province(wrong));
  order().choose("menu_paramétrer", "Menu_affiche_paramètres");
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("BoutonStatistiques");
  std::string first, points, last_town;
  order().then([&] {
    first = read_cell(*QApplication::activeModalWidget(), "NomProvince(1)");
    points = read_cell(*QApplication::activeModalWidget(), "PerteProvinces(1)");
  });
  order().click("BoutonVilles");
  order().then([&] { drag_to_the_end(*widget<QScrollBar>("Stats", "BarreVerticale")); });
  order().then([&] { last_town = read_cell(*QApplication::activeModalWidget(), "NomColonne1(18)"); });
  order().click("BoutonSauvegarde");
  order().answer(Réponse::ok);
  order().click("Command1");
  order().click("Command1");
  play();
  EXPECT_EQ(first, asked);
  EXPECT_EQ(points, "1");
  const Fiche_ville &ville = state().TableVilles(330);
  EXPECT_EQ(last_town, ville.nom + " (" + state().TableProvinces(ville.province).nom + ")");
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "ARDA_STA.TXT"));
}

class WelcomeTest : public ProgramTest {
 protected:
  static QWidget *welcome() {
    for (QWidget *window : QApplication::topLevelWidgets())
      if (window->objectName() == QStringLiteral("Patience") && window->isVisible()) return window;
    return nullptr;
  }
};

TEST_F(WelcomeTest, ItStandsPaintedWhileTheProgramLoadsAndNothingClosesItBefore) {
  bool open = false;
  QColor letters;
  order().accept();  // the reminder of a first start, before any window
  order().then([&] {
    ASSERT_NE(welcome(), nullptr);
    press(*welcome(), Qt::Key_Escape);
    click(*welcome());
    welcome()->close();
    open = welcome() != nullptr;
    letters = welcome()->findChild<QLabel *>("Adresse")->palette().color(QPalette::WindowText);
  });
  order().accept();  // of the cards
  start();
  EXPECT_TRUE(open);
  EXPECT_EQ(letters, QColor(0, 0, 255));
  EXPECT_EQ(welcome(), nullptr);
  EXPECT_TRUE(frame()->isVisible());
}

}  // namespace
}  // namespace ardane
