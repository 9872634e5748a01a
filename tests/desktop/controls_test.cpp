// Each kind of control: how its data is shown, and what the player does with it.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QTextCursor>
#include <QToolTip>

#include "front/qt/accessibility.h"
#include "stage.h"

namespace ardane {
namespace {

class Controls : public testing::Test {
 protected:
  Contrôle &add(const std::string &name, Genre genre, Contrôle *holder = nullptr) {
    return place(window, name, genre, {10, 5, 120, 40}, holder);
  }
  void show() {
    window.largeur = 300;
    window.hauteur = 200;
    stage.renderer.montrer(window);
  }
  void show_active() {
    show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  }

  Stage stage{{{"drapeau", 20, 10, Qt::red}, {"fanion", 20, 10, Qt::blue}}};
  Fenêtre window{"fenêtre"};
};

TEST_F(Controls, ALabelShowsItsTextFontColoursAndAlignment) {
  Contrôle &label = add("étiquette(1)", Genre::étiquette);
  label.texte = "Trouvez & <b>cherchez</b>";
  label.police = {Famille_police::times, 12, true};
  label.alignement = Alignement::droite;
  label.fond = Couleur{0, 0, 0};
  label.couleur = Couleur{255, 255, 0};
  show();
  auto *shown = stage.widget<QLabel>(window, "étiquette(1)");
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->text(), "Trouvez & <b>cherchez</b>");
  EXPECT_EQ(shown->textFormat(), Qt::PlainText);
  EXPECT_EQ(shown->font().pixelSize(), 16);
  EXPECT_TRUE(shown->font().bold());
  const QStringList serif{"Times New Roman", "Liberation Serif", "serif"};
  ASSERT_EQ(shown->font().families().size(), 1)
      << "each further one is looked for at once, and costs the start";
  EXPECT_TRUE(serif.contains(shown->font().family())) << shown->font().family().toStdString();
  EXPECT_TRUE(shown->alignment().testFlag(Qt::AlignRight));
  EXPECT_EQ(shown->palette().color(QPalette::Window), QColor(0, 0, 0));
  EXPECT_EQ(shown->palette().color(QPalette::WindowText), QColor(255, 255, 0));
  EXPECT_TRUE(shown->autoFillBackground());
}

TEST_F(Controls, DigitsFitTheirCounterInEveryFontAndTheCounterItsFrame) {
  Contrôle &frame = place(window, "cadre", Genre::cadre, {130, 40, 79, 57});
  Contrôle &counter = place(window, "compteur", Genre::texte, {136, 65, 24, 34});
  counter.lecture_seule = true;
  counter.fond = Couleur{0, 0, 0};
  counter.couleur = Couleur{255, 255, 0};
  counter.alignement = Alignement::centre;
  counter.texte = "12";
  show();
  auto *shown = stage.widget<QLineEdit>(window, "compteur");
  for (const Famille_police family :
       {Famille_police::times, Famille_police::système, Famille_police::sans_serif})
    for (const double points : {9.0, 18.0, 30.0}) {
      counter.police = {family, points, true};
      stage.renderer.sync();
      const QImage seen = shown->grab().toImage();
      const auto has_ink = [&](int x) {
        for (int y = 0; y < seen.height(); ++y)
          if (seen.pixelColor(x, y) != QColor(0, 0, 0)) return true;
        return false;
      };
      EXPECT_FALSE(has_ink(0) || has_ink(seen.width() - 1)) << points << " points";
      EXPECT_LE(shown->font().pixelSize(), 40);
      EXPECT_TRUE(stage.widget(window, "cadre")->geometry().contains(shown->geometry()));
    }
  EXPECT_EQ(counter.haut, 65) << "the data stays";
  counter.texte = "7";
  counter.police.points = 18;
  stage.renderer.sync();
  EXPECT_EQ(shown->font().pixelSize(), 24) << "as designed, where there is room";
  EXPECT_EQ(frame.hauteur, 57);
}

/// A box to type in whose text goes into a file of the game's.
class FileText : public Controls {
 protected:
  FileText() {
    box.pour_fichier = true;
    show();
    line = stage.widget<QLineEdit>(window, "nom");
  }
  ~FileText() override { QToolTip::hideText(); }

  Contrôle &box = add("nom", Genre::texte);
  QLineEdit *line = nullptr;
};

TEST_F(FileText, IsWhatAFileCanHoldWhateverIsPasted) {
  const std::array<std::pair<const char *, const char *>, 7> cases{{
      {"Zoé Œuf €", "Zoé Œuf €"},
      {"Zoe\u0301", "Zoé"},
      {"Ann\r\nBob\nCéline", "Ann Bob Céline"},
      {"Ann\u2028Bob\tDan", "Ann Bob Dan"},
      {"A\u0001n\u007Fn\u009F", "Ann"},
      {"Łukasz 😀!", "ukasz !"},
      {"", ""},
  }};
  for (const auto &[pasted, kept] : cases) {
    line->selectAll();
    line->insert(QString::fromUtf8(pasted));
    EXPECT_EQ(line->text().toStdString(), kept);
    EXPECT_EQ(box.texte, kept);
  }
}

TEST_F(FileText, ARefusedCharacterIsToldAndTheCursorStays) {
  line->setText("Anne");
  line->setCursorPosition(2);
  line->insert("Łé");
  EXPECT_EQ(line->text(), "Anéne");
  EXPECT_EQ(line->cursorPosition(), 3);
  EXPECT_EQ(QToolTip::text(), "Ce caractère ne peut pas être gardé.");
}

TEST_F(FileText, OtherBoxesTakeWhatTheyAreGiven) {
  box.pour_fichier = false;
  line->insert(QString::fromUtf8("Łukasz"));
  EXPECT_EQ(box.texte, "Łukasz");
  EXPECT_EQ(QToolTip::text(), "");
}

TEST_F(Controls, ATextTooLongForItsLabelIsSetSmaller) {
  Contrôle &label = add("nom", Genre::étiquette);
  label.hauteur = 22;
  label.police = {Famille_police::times, 12, false};
  label.texte = "Court";
  show();
  auto *shown = stage.widget<QLabel>(window, "nom");
  EXPECT_EQ(shown->font().pixelSize(), 16);
  label.texte = "Un nom un peu trop long";
  stage.renderer.sync();
  EXPECT_LT(shown->font().pixelSize(), 16);
  EXPECT_LE(shown->fontMetrics().horizontalAdvance(shown->text()), 120);
  label.texte = "Court";
  stage.renderer.sync();
  EXPECT_EQ(shown->font().pixelSize(), 16);
}

TEST_F(Controls, ALabelMayRunOnBeyondItsRightEdge) {
  Contrôle &label = add("tête", Genre::étiquette);
  label.largeur = 17;
  label.hauteur = 17;
  label.déborde = true;
  label.texte = "4ème";
  show();
  auto *shown = stage.widget<QLabel>(window, "tête");
  EXPECT_EQ(shown->x(), static_cast<int>(label.gauche));
  EXPECT_EQ(shown->font().pixelSize(), 11);
  EXPECT_GE(shown->width(), shown->fontMetrics().horizontalAdvance(shown->text()));
  label.texte = "1";
  stage.renderer.sync();
  EXPECT_EQ(shown->width(), 17);
}

TEST_F(Controls, ATextTooLongForAnySizeLosesItsMiddleAndNotItsSize) {
  Contrôle &label = add("chemin", Genre::étiquette);
  label.multiligne = true;
  label.texte = "Fichier :\n/" + std::string(150, 'm') + "/fin";
  label.infobulle = label.texte;
  show();
  auto *shown = stage.widget<QLabel>(window, "chemin");
  EXPECT_EQ(shown->font().pixelSize(), 11);
  const QStringList lines = shown->text().split('\n');
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0], "Fichier :");
  EXPECT_TRUE(lines[1].startsWith("/m"));
  EXPECT_TRUE(lines[1].endsWith("/fin"));
  EXPECT_LE(shown->fontMetrics().horizontalAdvance(lines[1]), 120);
  EXPECT_EQ(shown->accessibleName(), to_qt(label.texte)) << "spoken whole";
  label.texte = "Court";
  stage.renderer.sync();
  EXPECT_EQ(shown->text(), "Court");
}

TEST_F(Controls, AHighLabelWrapsItsText) {
  Contrôle &label = add("haute", Genre::étiquette);
  Contrôle &low = add("basse", Genre::étiquette);
  low.hauteur = 14;
  label.texte = low.texte = "un deux trois quatre cinq six sept";
  show();
  EXPECT_TRUE(stage.widget<QLabel>(window, "haute")->wordWrap());
  EXPECT_FALSE(stage.widget<QLabel>(window, "basse")->wordWrap());
}

TEST_F(Controls, APushButtonKeepsAnAmpersandAndTakesTheSpaceBar) {
  Contrôle &button = add("bouton", Genre::bouton);
  button.texte = "Oui & non";
  int clicks = 0;
  button.clic = [&] { ++clicks; };
  show();
  auto *shown = stage.widget<QPushButton>(window, "bouton");
  EXPECT_EQ(shown->text(), "Oui && non");
  EXPECT_EQ(shown->accessibleName(), "Oui & non");
  QTest::keyClick(shown, Qt::Key_Space);
  EXPECT_EQ(clicks, 1);
}

TEST_F(Controls, TheAltKeyPressesTheLetterThatTheCaptionShowsUnderlined) {
  Contrôle &button = add("bouton", Genre::bouton);
  button.texte = "Sauver & quitter";
  button.mnémonique = U'q';
  Contrôle &frame = add("cadre", Genre::cadre);
  frame.texte = "Été";
  frame.mnémonique = U'É';
  Contrôle &other = add("autre", Genre::bouton);
  other.texte = "Oui";
  other.mnémonique = U'z';
  show();
  EXPECT_EQ(stage.widget<QPushButton>(window, "bouton")->text(), "Sauver && &quitter");
  EXPECT_EQ(stage.widget<QGroupBox>(window, "cadre")->title(), "&Été");
  EXPECT_EQ(stage.widget<QPushButton>(window, "autre")->text(), "Oui") << "a caption without the letter";
  EXPECT_EQ(button.texte, "Sauver & quitter");
  int clicks = 0;
  button.clic = [&] { ++clicks; };
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  QTest::keyClick(stage.renderer.frame(window), Qt::Key_Q, Qt::AltModifier);
  QTRY_COMPARE_WITH_TIMEOUT(clicks, 1, 1000);
}

TEST_F(Controls, ALabelLeadsToTheControlThatItNames) {
  Contrôle &label = add("étiquette", Genre::étiquette);
  label.texte = "Nom & prénom";
  label.mnémonique = U'n';
  add("bouton", Genre::bouton);
  Contrôle &line = add("ligne", Genre::texte);
  line.étiquette = &label;
  show();
  auto *shown = stage.widget<QLabel>(window, "étiquette");
  QWidget *box = stage.widget(window, "ligne");
  EXPECT_EQ(shown->buddy(), box);
  EXPECT_EQ(shown->text(), "&Nom && prénom");
  EXPECT_EQ(box->accessibleName(), "Nom & prénom");
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  EXPECT_EQ(window.focus->nom, "bouton");
  QTest::keyClick(stage.renderer.frame(window), Qt::Key_N, Qt::AltModifier);
  EXPECT_EQ(window.focus, &line);
  window.retirer(line);
  stage.renderer.sync();
  EXPECT_EQ(shown->text(), "Nom & prénom") << "it leads nowhere any more";
}

TEST_F(Controls, EveryKindSpeaks) {
  for (const Genre kind :
       {Genre::image, Genre::étiquette, Genre::cadre, Genre::texte, Genre::bouton, Genre::case_à_cocher,
        Genre::option, Genre::liste, Genre::barre, Genre::boîte_image})
    add(std::string(nom_genre(kind)), kind).nom_parlé = "Parlé par " + std::string(nom_genre(kind));
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = true;
  page.texte = "Un texte que l'on écrit";
  page.nom_parlé = "Parlé par page";
  show();
  for (const Contrôle &control : window.contrôles())
    EXPECT_EQ(stage.widget(window, control.nom.c_str())->accessibleName(), to_qt("Parlé par " + control.nom));
  page.nom_parlé = "Autrement";
  stage.renderer.sync();
  EXPECT_EQ(stage.widget(window, "page")->accessibleName(), "Autrement");
}

TEST_F(Controls, AScreenReaderPassesOverWhatIsSilent) {
  install_accessibility();
  add("chiffre", Genre::texte).muet = true;
  add("nom", Genre::texte);
  window.chercher("chiffre")->nom_parlé = "Chiffre";
  show();
  const auto state_of = [&](const char *name) {
    return QAccessible::queryAccessibleInterface(stage.widget(window, name))->state();
  };
  EXPECT_TRUE(state_of("chiffre").invisible);
  EXPECT_FALSE(state_of("chiffre").focusable);
  EXPECT_EQ(stage.widget(window, "chiffre")->accessibleName(), "");
  EXPECT_FALSE(state_of("nom").invisible);
  EXPECT_TRUE(state_of("nom").focusable);
}

TEST_F(Controls, ASystemColourIsThatOfTheDesktop) {
  Contrôle &label = add("étiquette", Genre::étiquette);
  label.fond = Couleur_système::barre_de_défilement;
  show();
  auto *shown = stage.widget<QLabel>(window, "étiquette");
  EXPECT_EQ(shown->palette().color(QPalette::Window), QApplication::palette().color(QPalette::Midlight));
  EXPECT_TRUE(shown->autoFillBackground());
  EXPECT_EQ(shown->margin(), 3) << "words keep off the edge of their ground";
  label.fond = Couleur{0, 255, 0};
  stage.renderer.sync();
  EXPECT_EQ(shown->palette().color(QPalette::Window), QColor(0, 255, 0));
  label.fond.reset();
  stage.renderer.sync();
  EXPECT_FALSE(shown->autoFillBackground());
  EXPECT_EQ(shown->margin(), 0);
}

TEST_F(Controls, BordersComeAndGo) {
  Contrôle &line = add("ligne", Genre::texte);
  Contrôle &page = add("page", Genre::texte);
  Contrôle &label = add("étiquette", Genre::étiquette);
  Contrôle &box = add("boîte", Genre::boîte_image);
  page.multiligne = true;
  show();
  auto *shown_line = stage.widget<QLineEdit>(window, "ligne");
  auto *shown_page = stage.widget<QPlainTextEdit>(window, "page");
  auto *shown_label = stage.widget<QLabel>(window, "étiquette");
  EXPECT_TRUE(shown_line->hasFrame());
  EXPECT_NE(shown_page->frameShape(), QFrame::NoFrame);
  for (const bool fixed : {true, false}) {
    page.lecture_seule = fixed;
    stage.renderer.sync();
    EXPECT_EQ(shown_page->isReadOnly(), fixed);
  }
  EXPECT_EQ(shown_label->frameShape(), QFrame::NoFrame);
  auto *shown_box = stage.widget<QFrame>(window, "boîte");
  for (const Bord edge : {Bord::avec, Bord::sans, Bord::avec}) {
    box.bord = edge;
    stage.renderer.sync();
    EXPECT_EQ(shown_box->frameShape() != QFrame::NoFrame, edge == Bord::avec);
  }
  line.bord = page.bord = Bord::sans;
  label.bord = Bord::avec;
  stage.renderer.sync();
  EXPECT_FALSE(shown_line->hasFrame());
  EXPECT_EQ(shown_page->frameShape(), QFrame::NoFrame);
  EXPECT_NE(shown_label->frameShape(), QFrame::NoFrame);
}

TEST_F(Controls, ASynchronisedPageKeepsItsCursorAndItsSelection) {
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = page.lignes_crlf = true;
  page.texte = "un\r\ndeux\r\ntrois";
  page.changement = [] { FAIL(); };
  show();
  auto *shown = stage.widget<QPlainTextEdit>(window, "page");
  EXPECT_EQ(shown->toPlainText(), "un\ndeux\ntrois");
  QTextCursor cursor = shown->textCursor();
  cursor.setPosition(4);
  cursor.setPosition(6, QTextCursor::KeepAnchor);
  shown->setTextCursor(cursor);
  for (int i = 0; i < 3; ++i) stage.renderer.sync();
  page.police.points = 12;
  stage.renderer.sync();
  EXPECT_EQ(shown->textCursor().position(), 6);
  EXPECT_EQ(shown->textCursor().anchor(), 4);
  EXPECT_EQ(page.texte, "un\r\ndeux\r\ntrois");
}

TEST_F(Controls, APageKeepsTheCursorWhereThePlayerTypes) {
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = page.lignes_crlf = true;
  page.texte = "un\r\ntrois\u00A0!";
  show();
  auto *shown = stage.widget<QPlainTextEdit>(window, "page");
  QTextCursor cursor = shown->textCursor();
  cursor.setPosition(2);
  shown->setTextCursor(cursor);
  QTest::keyClick(shown, Qt::Key_Return);
  QTest::keyClicks(shown, "deux");
  EXPECT_EQ(page.texte, "un\r\ndeux\r\ntrois\u00A0!");
  EXPECT_EQ(shown->textCursor().position(), 7);
  page.changement = [&] { page.texte = "refusé"; };
  QTest::keyClicks(shown, "x");
  EXPECT_EQ(shown->toPlainText(), "refusé");
}

TEST_F(Controls, APictureButtonShowsItsPictureAndSpeaksItsToolTip) {
  Contrôle &button = add("bouton", Genre::bouton);
  button.image = stage.catalogue.chercher("drapeau");
  button.infobulle = "Je passe !";
  show();
  auto *shown = stage.widget<QPushButton>(window, "bouton");
  EXPECT_EQ(shown->iconSize(), QSize(20, 10));
  EXPECT_FALSE(shown->icon().isNull());
  EXPECT_EQ(shown->toolTip(), "Je passe !");
  EXPECT_EQ(shown->accessibleName(), "Je passe !");
}

TEST_F(Controls, TheMarkOfAnOptionIsAsHighAsItsLetters) {
  add("petite", Genre::option).police = {Famille_police::sans_serif, 8};
  add("grande", Genre::option).police = {Famille_police::sans_serif, 24};
  show();
  for (const char *name : {"petite", "grande"}) {
    const auto *button = stage.widget<QRadioButton>(window, name);
    EXPECT_EQ(button->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, button),
              button->fontMetrics().height());
  }
}

TEST_F(Controls, ABoxTooLowForItsMarkGrowsUpAndDownAndAHighOneStays) {
  Contrôle &high = add("haute", Genre::case_à_cocher);
  Contrôle &low = add("basse", Genre::case_à_cocher);
  low.hauteur = 4;
  show();
  EXPECT_EQ(stage.widget(window, "haute")->geometry(), place_of(high));
  const QRect grown = stage.widget(window, "basse")->geometry();
  EXPECT_GE(grown.height(), stage.widget(window, "basse")->sizeHint().height());
  EXPECT_LE(std::abs(grown.center().y() - place_of(low).center().y()), 1);
}

TEST_F(Controls, OptionsOfOneFrameExcludeEachOther) {
  Contrôle &frame = add("cadre", Genre::cadre);
  Contrôle &other_frame = add("autre", Genre::cadre);
  Contrôle &first = add("premier", Genre::option, &frame);
  Contrôle &second = add("second", Genre::option, &frame);
  Contrôle &third = add("troisième", Genre::option, &other_frame);
  first.coché = third.coché = true;
  show();
  stage.widget<QRadioButton>(window, "second")->click();
  EXPECT_FALSE(first.coché);
  EXPECT_TRUE(second.coché);
  EXPECT_TRUE(third.coché);
  EXPECT_FALSE(stage.widget<QRadioButton>(window, "premier")->isChecked());
  EXPECT_TRUE(stage.widget<QRadioButton>(window, "troisième")->isChecked());
  second.coché = false;
  stage.renderer.sync();
  EXPECT_FALSE(stage.widget<QRadioButton>(window, "second")->isChecked()) << "the data may mark none";
}

TEST_F(Controls, AnArrowMarksTheNextOptionOfTheFrameAndTellsOfIt) {
  Contrôle &frame = add("cadre", Genre::cadre);
  Contrôle &first = add("premier", Genre::option, &frame);
  Contrôle &second = add("second", Genre::option, &frame);
  second.haut += 50;
  add("dehors", Genre::option).haut = 150;
  first.coché = true;
  int told = 0;
  second.clic = [&] { ++told; };
  show_active();
  stage.widget(window, "premier")->setFocus();
  QTest::keyClick(stage.widget(window, "premier"), Qt::Key_Down);
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(second.coché);
  EXPECT_FALSE(first.coché);
  EXPECT_EQ(window.focus, &second);
  QTest::keyClick(stage.widget(window, "second"), Qt::Key_Down);
  EXPECT_EQ(window.focus, &second) << "an arrow does not leave the frame";
  QTest::keyClick(stage.widget(window, "second"), Qt::Key_Up);
  EXPECT_TRUE(first.coché);
}

TEST_F(Controls, AFrameHoldsItsControlsAtTheirPlacesInIt) {
  Contrôle &frame = add("cadre", Genre::cadre);
  frame.texte = "Difficulté";
  Contrôle &inside = add("dedans", Genre::étiquette, &frame);
  inside.gauche = 7.6;
  show();
  EXPECT_EQ(stage.widget<QGroupBox>(window, "cadre")->title(), "Difficulté");
  QWidget *label = stage.widget(window, "dedans");
  EXPECT_EQ(label->parentWidget(), stage.widget(window, "cadre"));
  EXPECT_EQ(label->geometry(), QRect(8, 5, 120, 40));
  const QPoint corner = label->mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(stage.renderer.rectangle(window, inside),
            (Rect{corner.x(), corner.y(), corner.x() + 120, corner.y() + 40}));
}

TEST_F(Controls, TypingReplacesTheTextAndTellsOfEachChange) {
  Contrôle &line = add("ligne", Genre::texte);
  int changes = 0;
  line.changement = [&] { ++changes; };
  show();
  QTest::keyClicks(stage.widget<QLineEdit>(window, "ligne"), "Élo");
  EXPECT_EQ(line.texte, "Élo");
  EXPECT_EQ(changes, 3);
  line.texte = "autre";
  stage.renderer.sync();
  EXPECT_EQ(stage.widget<QLineEdit>(window, "ligne")->text(), "autre");
  EXPECT_EQ(changes, 3) << "what the program writes is no change of the player's";
}

TEST_F(Controls, TheRulesMayRewriteWhatIsTyped) {
  Contrôle &line = add("ligne", Genre::texte);
  line.changement = [&] { line.texte = "A"; };
  show();
  QTest::keyClicks(stage.widget<QLineEdit>(window, "ligne"), "AB");
  EXPECT_EQ(stage.widget<QLineEdit>(window, "ligne")->text(), "A");
}

TEST_F(Controls, AnEmptyCounterIsNoBlackBox) {
  Contrôle &sign = add("Digit(0)", Genre::texte);
  sign.lecture_seule = true;
  sign.fond = Couleur{0, 0, 0};
  show();
  EXPECT_FALSE(stage.widget(window, "Digit(0)")->isVisible());
  EXPECT_TRUE(sign.visible);
  sign.texte = "-";
  stage.renderer.sync();
  EXPECT_TRUE(stage.widget(window, "Digit(0)")->isVisible());
}

TEST_F(Controls, AListShowsItemsAndReportsTheChoice) {
  Contrôle &list = add("liste", Genre::liste);
  list.éléments = {"un", "deux", "trois"};
  list.choix = 2;
  int changes = 0, clicks = 0, doubles = 0;
  list.changement = [&] { ++changes; };
  list.clic = [&] { ++clicks; };
  list.double_clic = [&] { ++doubles; };
  show();
  auto *shown = stage.widget<QListWidget>(window, "liste");
  ASSERT_EQ(shown->count(), 3);
  EXPECT_EQ(shown->currentRow(), 1);
  EXPECT_EQ(changes, 0);
  const QPoint third = shown->visualItemRect(shown->item(2)).center();
  QTest::mouseClick(shown->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(list.choix, 3);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(clicks, 1);
  QTest::mouseDClick(shown->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(doubles, 1);
  list.éléments = {"seul"};
  list.choix = 0;
  stage.renderer.sync();
  EXPECT_EQ(shown->count(), 1);
  EXPECT_TRUE(shown->selectedItems().isEmpty());
  EXPECT_EQ(changes, 1) << "what the program selects is no choice of the player's";
}

TEST_F(Controls, AListIsFilledAnewOnlyWithOtherItems) {
  Contrôle &list = add("liste", Genre::liste);
  const std::vector<std::string> rows(10'000, "une longue liste");
  list.éléments = rows;
  show();
  auto *shown = stage.widget<QListWidget>(window, "liste");
  int insertions = 0;
  QObject::connect(shown->model(), &QAbstractItemModel::rowsInserted, shown, [&] { ++insertions; });
  stage.renderer.sync();
  list.éléments = rows;
  stage.renderer.sync();
  EXPECT_EQ(insertions, 0);
  list.éléments = {"un", "deux"};
  stage.renderer.sync();
  EXPECT_EQ(insertions, 1) << "all rows at once";
}

TEST_F(Controls, TheWidestRowOfAListCanBeScrolledIntoSight) {
  Contrôle &list = add("liste", Genre::liste);
  list.éléments = {"iiiiiiiiiiiiiiiiiiiii", "court", "WWWWWWWWWWWWWWWWWWWW", "Éé"};
  show();
  auto *shown = stage.widget<QListWidget>(window, "liste");
  QApplication::processEvents();
  const int widest = shown->fontMetrics().horizontalAdvance("WWWWWWWWWWWWWWWWWWWW");
  EXPECT_GE(shown->visualItemRect(shown->item(0)).width(), widest);
  EXPECT_GE(shown->horizontalScrollBar()->maximum(), widest - 120);
  list.éléments = {"court", "Éé"};
  stage.renderer.sync();
  QApplication::processEvents();
  EXPECT_EQ(shown->horizontalScrollBar()->maximum(), 0);
}

TEST_F(Controls, FocusAloneChoosesNothingInAList) {
  Contrôle &list = add("liste", Genre::liste);
  list.éléments = {"un", "deux"};
  list.changement = [] { FAIL(); };
  window.focus = &list;
  show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  auto *shown = stage.widget<QListWidget>(window, "liste");
  EXPECT_TRUE(shown->hasFocus());
  EXPECT_EQ(list.choix, 0);
  EXPECT_TRUE(shown->selectedItems().isEmpty());
}

TEST_F(Controls, TheFirstKeyThatMovesTheCursorOfAListChooses) {
  Contrôle &list = add("liste", Genre::liste);
  window.focus = &list;
  show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  auto *shown = stage.widget<QListWidget>(window, "liste");
  QTest::keyClick(shown, Qt::Key_Down);
  EXPECT_EQ(list.choix, 0) << "there is nothing to choose";
  for (const auto &[key, choice] : {std::pair(Qt::Key_Down, 1), std::pair(Qt::Key_Up, 1),
                                    std::pair(Qt::Key_Home, 1), std::pair(Qt::Key_End, 2)}) {
    list.éléments = {"un"};
    stage.renderer.sync();
    list.éléments = {"un", "deux"};
    list.choix = 0;
    stage.renderer.sync();
    QTest::keyClick(shown, key);
    EXPECT_EQ(list.choix, choice) << key;
  }
  QTest::keyClick(shown, Qt::Key_Up);
  EXPECT_EQ(list.choix, 1) << "from then on keys move the choice";
}

TEST_F(Controls, ABarMovesByItsStepsAndFollowsItsRange) {
  Contrôle &bar = add("barre", Genre::barre);
  bar.hauteur = 15;
  bar.max = 100;
  bar.petit_pas = 7;
  bar.grand_pas = 30;
  int changes = 0;
  bar.changement = [&] { ++changes; };
  show();
  auto *shown = stage.widget<QScrollBar>(window, "barre");
  EXPECT_EQ(shown->orientation(), Qt::Horizontal);
  shown->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(bar.valeur, 7);
  shown->triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(bar.valeur, 37);
  EXPECT_EQ(changes, 2);
  fixer_bornes(bar, 0, 20);
  stage.renderer.sync();
  EXPECT_EQ(shown->maximum(), 20);
  EXPECT_EQ(shown->value(), 20);
  EXPECT_EQ(changes, 3);
}

TEST_F(Controls, ABarsThumbTellsOnlyWhereItIsLetGo) {
  Contrôle &bar = add("barre", Genre::barre);
  bar.largeur = 14;
  bar.hauteur = 150;
  bar.max = 100;
  int changes = 0;
  bar.changement = [&] { ++changes; };
  show();
  auto *shown = stage.widget<QScrollBar>(window, "barre");
  EXPECT_EQ(shown->orientation(), Qt::Vertical);
  shown->setSliderDown(true);
  shown->setSliderPosition(40);
  shown->setSliderPosition(60);
  EXPECT_EQ(changes, 0);
  shown->setSliderDown(false);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(bar.valeur, 60);
}

TEST_F(Controls, APictureStretchesOverItsControl) {
  Contrôle &box = add("boîte", Genre::boîte_image);
  Contrôle &picture = add("image", Genre::image, &box);
  picture.image = stage.catalogue.chercher("drapeau");
  picture.étirée = true;
  picture.gauche = picture.haut = 0;
  int clicks = 0;
  picture.clic = [&] { ++clicks; };
  show();
  QWidget *shown = stage.widget(window, "image");
  const QImage image = shown->grab().toImage();
  EXPECT_EQ(image.size(), QSize(120, 40));
  EXPECT_EQ(image.pixelColor(60, 20), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(118, 38), QColor(Qt::red));
  QTest::mouseClick(shown, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

/// How many of a widget's paints the event loop brings.
class Paints : public QObject {
 public:
  explicit Paints(QWidget *widget) { widget->installEventFilter(this); }
  int after(const std::function<void()> &change) {
    QApplication::processEvents();
    count_ = 0;
    change();
    QApplication::processEvents();
    return count_;
  }

 private:
  bool eventFilter(QObject *, QEvent *event) override {
    count_ += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count_ = 0;
};

TEST_F(Controls, APictureOfTheSameSizeTakesThePlaceOfAnother) {
  Contrôle &plain = add("image", Genre::image);
  Contrôle &pressed = add("bouton", Genre::image);
  pressed.ordre_tabulation = 0;
  pressed.clic = [] {};
  for (Contrôle *picture : {&plain, &pressed}) {
    picture->image = stage.catalogue.chercher("drapeau");
    picture->étirée = true;
  }
  show_active();
  ASSERT_NE(stage.widget<QAbstractButton>(window, "bouton"), nullptr);
  for (Contrôle *picture : {&plain, &pressed}) {
    QWidget *shown = stage.widget(window, picture->nom.c_str());
    Paints paints(shown);
    EXPECT_EQ(paints.after([&] { stage.renderer.sync(); }), 0);
    EXPECT_EQ(paints.after([&] {
      picture->image = stage.catalogue.chercher("fanion");
      stage.renderer.sync();
    }),
              1);
    const QColor middle = shown->grab().toImage().pixelColor(shown->rect().center());
    EXPECT_GT(middle.blue(), middle.red());
  }
}

TEST_F(Controls, AMissingPictureShowsNothingAndIsNamed) {
  stage.catalogue = CatalogueImages("drapeau|drapeau.png|20|10\nabsente|absente.gif|4|4\n");
  PictureStore pictures(stage.catalogue, stage.folder.path());
  const Image missing = stage.catalogue.chercher("absente");
  EXPECT_TRUE(pictures.pixmap(missing, Detail::single).isNull());
  QLoggingCategory &toolkit = *QLoggingCategory::defaultCategory();
  const bool heard_before = toolkit.isWarningEnabled();
  toolkit.setEnabled(QtWarningMsg, true);
  testing::internal::CaptureStderr();
  EXPECT_TRUE(pictures.scaled(missing, {8, 8}, 1).isNull());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "it would complain at each painting";
  toolkit.setEnabled(QtWarningMsg, heard_before);
  EXPECT_EQ(pictures.unreadable(), QStringList{"absente"});
}

TEST_F(Controls, APictureOfAnotherSizeThanTheCataloguesIsNotDecoded) {
  const QString single = stage.folder.filePath("drapeau.png"),
                doubled = stage.folder.filePath("drapeau@2x.png");
  const auto colours = [&](QSize size, QSize size_doubled) {
    for (const auto &[path, pixels, colour] :
         {std::tuple(single, size, Qt::red), {doubled, size_doubled, Qt::blue}}) {
      QImage image(pixels, QImage::Format_RGB32);
      image.fill(colour);
      EXPECT_TRUE(image.save(path));
    }
    PictureStore pictures(stage.catalogue, stage.folder.path());
    const Image flag = stage.catalogue.chercher("drapeau");
    const auto colour_of = [&](Detail detail) {
      const QImage shown = pictures.pixmap(flag, detail).toImage();
      return shown.isNull() ? QColor() : shown.pixelColor(0, 0);
    };
    return std::pair(colour_of(Detail::single), colour_of(Detail::doubled));
  };
  const QColor red(Qt::red), blue(Qt::blue), none;
  EXPECT_EQ(colours({20, 10}, {40, 20}), std::pair(red, blue));
  EXPECT_EQ(colours({21, 10}, {40, 20}), std::pair(none, blue));
  EXPECT_EQ(colours({20, 10}, {40, 21}), std::pair(red, red)) << "the plain one enlarged";
  EXPECT_EQ(colours({20, 1000}, {4000, 20}), std::pair(none, none));
}

TEST_F(Controls, ACopyThatIsNotCompressedIsReadInsteadUnlessItIsBroken) {
  const Image flag = stage.catalogue.chercher("drapeau");
  const auto colour_of = [&](Detail detail) {
    return PictureStore(stage.catalogue, stage.folder.path()).pixmap(flag, detail).toImage().pixelColor(0, 0);
  };
  for (const auto &[name, detail, size] : {std::tuple("drapeau.ppm", Detail::single, QSize(20, 10)),
                                           {"drapeau@2x.ppm", Detail::doubled, {40, 20}}}) {
    const QString copy = stage.folder.filePath(name);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(copy));
    EXPECT_EQ(colour_of(detail), QColor(Qt::green)) << name;
    ASSERT_TRUE(QFile::resize(copy, 60));
    EXPECT_EQ(colour_of(detail), QColor(Qt::red)) << name;
  }
}

TEST_F(Controls, ThePicturesThatShipAreOfTheCataloguesSizes) {
  const CatalogueImages &catalogue = ressources_du_programme().images;
  PictureStore pictures(catalogue, QStringLiteral(ARDANE_RESOURCES "/images"));
  for (const Image image : catalogue.toutes())
    EXPECT_FALSE(pictures.pixmap(image, Detail::single).isNull()) << catalogue.nom(image);
}

TEST_F(Controls, AFileThatIsNoPictureIsNamedToo) {
  QFile file(stage.folder.filePath("drapeau.png"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("GIF ou presque");
  file.close();
  EXPECT_EQ(stage.pictures.unreadable(), QStringList{"drapeau"});
  EXPECT_TRUE(stage.pictures.pixmap(stage.catalogue.chercher("drapeau"), Detail::single).isNull());
}

/// The box around all pixels that differ.
QRect difference(const QImage &one, const QImage &other) {
  QRect box;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      if (one.pixel(x, y) != other.pixel(x, y)) box |= QRect(x, y, 1, 1);
  return box;
}

TEST_F(Controls, TheFocusIsSeenOnEveryKindThatTakesItHoweverItCame) {
  const std::array kinds{Genre::texte, Genre::bouton, Genre::case_à_cocher, Genre::option,
                         Genre::liste, Genre::barre,  Genre::image};
  for (const Genre kind : kinds) {
    Contrôle &control = add(std::string(nom_genre(kind)), kind);
    control.ordre_tabulation = 1;
    control.max = 10;
    control.éléments = std::vector<std::string>{"un", "deux"};
    if (kind == Genre::image) poser_image(control, stage.catalogue.chercher("drapeau"));
  }
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = true;
  Contrôle &elsewhere = place(window, "ailleurs", Genre::bouton, {200, 150, 60, 25});
  show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  for (const Contrôle &control : window.contrôles()) {
    if (&control == &elsewhere) continue;
    stage.widget(window, "ailleurs")->setFocus();
    QWidget *shown = stage.widget(window, control.nom.c_str());
    const QImage without = shown->grab().toImage();
    shown->setFocus(Qt::OtherFocusReason);
    ASSERT_TRUE(shown->hasFocus()) << control.nom;
    const QRect mark = difference(shown->grab().toImage(), without);
    EXPECT_TRUE(mark.isValid()) << control.nom;
    if (control.genre != Genre::barre && control.genre != Genre::image) continue;
    EXPECT_GT(mark.width(), shown->width() / 2) << "our own mark lies around all of it: " << control.nom;
    EXPECT_GT(mark.height(), shown->height() / 2) << control.nom;
  }
}

TEST_F(Controls, ACounterTakesNoFocusByAClick) {
  Contrôle &counter = add("compteur", Genre::texte);
  counter.lecture_seule = true;
  counter.fond = Couleur{0, 0, 0};
  counter.texte = "7";
  Contrôle &button = place(window, "bouton", Genre::bouton, {200, 150, 60, 25});
  show();
  QTest::mouseClick(stage.widget(window, "compteur"), Qt::LeftButton);
  EXPECT_EQ(window.focus, &button);
}

}  // namespace
}  // namespace ardane
