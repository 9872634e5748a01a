// The help's window: its pages, what a search shows, keys, size, colours, and that modal windows leave it
// alone.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <fstream>

#include "front/qt/help_page.h"
#include "front/qt/help_window.h"
#include "stage.h"

namespace ardane {
namespace {

constexpr int contents = 10;

/// The help over the pages that ship, or over those of a test.
class Help : public testing::Test {
 protected:
  void write(const std::string &name, const std::string &text) const {
    QDir(folder.path()).mkpath("aide");
    std::ofstream(folder.filePath("aide/").toStdString() + name) << text;
  }
  QTextBrowser &open(int context) { return open_in(folder.path().toStdString(), context); }
  QTextBrowser &open_shipped(int context = contents) { return open_in(ARDANE_RESOURCES, context); }

  QTextBrowser &page() { return *child<QTextBrowser>("page_aide"); }
  QLineEdit &field() { return *child<QLineEdit>("recherche_aide"); }
  QString status() { return child<QLabel>("résultat_recherche")->text().replace(QChar::Nbsp, ' '); }
  QRect status_place() { return child<QLabel>("résultat_recherche")->geometry(); }
  QPushButton &button(const char *name) { return *child<QPushButton>(name); }
  QPushButton &button_called(const char *words) {
    const auto buttons = help.window()->findChildren<QPushButton *>();
    return **std::ranges::find(buttons, QString::fromUtf8(words), &QPushButton::text);
  }
  void type(const char *words) { field().setText(QString::fromUtf8(words)); }
  /// Of the word behind that text.
  bool is_bold(const QString &word, const QString &after) {
    const QTextDocument &text = *page().document();
    return text.find(word, text.find(after, 0, QTextDocument::FindCaseSensitively))
               .charFormat()
               .fontWeight() == QFont::Bold;
  }
  QString results(const char *words) {
    type(words);
    QTest::keyClick(&field(), Qt::Key_Return);
    return page().toPlainText();
  }
  QString file() { return page().source().fileName(); }

  QTemporaryDir folder;
  HelpQt help;

 private:
  QTextBrowser &open_in(const std::string &program_folder, int context) {
    help.ouvrir(program_folder + "/ARDANE.HLP", context);
    EXPECT_TRUE(QTest::qWaitForWindowActive(help.window()));
    return page();
  }
  template <class W>
  W *child(const char *name) {
    return help.window()->findChild<W *>(QString::fromUtf8(name));
  }
};

TEST_F(Help, OpensThePageOfTheContext) {
  write("contextes.txt", "10\tjouer.html#ici\n65\tparam.html\n");
  write("jouer.html", "<h1>Jouer</h1><p id='ici'>Cliquez.</p>");
  write("param.html", "<p>Paramétrer</p>");
  EXPECT_TRUE(open(10).toPlainText().contains("Cliquez."));
  EXPECT_TRUE(help.window()->isVisible());
  EXPECT_EQ(help.window()->windowTitle(), "Aide – L’Ardane et ses provinces");
  EXPECT_EQ(help.window()->objectName(), "aide") << "by which a screen reader's scripts know it";
  EXPECT_EQ(open(10).source().fragment(), "ici");
  EXPECT_TRUE(open(65).toPlainText().contains("Param"));
}

TEST_F(Help, AMissingPageIsToldUntilAnotherIsOpened) {
  write("contextes.txt", "10\tabsente.html\n65\tparam.html\n");
  write("param.html", "<p>Paramétrer</p>");
  EXPECT_EQ(open(65).toPlainText(), "Paramétrer");
  EXPECT_TRUE(open(10).toPlainText().contains("La page d’aide numéro 10 est introuvable"));
  EXPECT_TRUE(open(99).toPlainText().contains("La page d’aide numéro 99 est introuvable"));
  EXPECT_EQ(open(65).toPlainText(), "Paramétrer");
}

TEST_F(Help, AMissingFolderIsTold) {
  EXPECT_TRUE(open(10).toPlainText().contains("La page d’aide numéro 10 est introuvable"));
}

TEST_F(Help, AQuestionIsAnsweredByAPageOfLinksThatOneCanComeBackTo) {
  open_shipped();
  const QString found = results("comment sauver ma partie ?");
  EXPECT_TRUE(
      found.startsWith("Recherche : « comment sauver ma partie ? »\nEnregistrer et reprendre une partie"))
      << found.left(200).toStdString();
  EXPECT_TRUE(is_bold("partie", "Une"));
  EXPECT_FALSE(is_bold("complète", "Une"));
  QTest::keyClick(&page(), Qt::Key_Tab);
  QTest::keyClick(&page(), Qt::Key_Return);
  EXPECT_EQ(file(), "sauvegarde.html");
  EXPECT_FALSE(page().extraSelections().isEmpty()) << "and marked on the page";
  type("autre chose");
  page().backward();
  EXPECT_EQ(page().toPlainText(), found);
  EXPECT_EQ(field().text(), "comment sauver ma partie ?");
  page().backward();
  EXPECT_EQ(file(), "jouer.html");
}

TEST_F(Help, TheButtonsAboveThePageGoBackAndToTheContents) {
  QTextBrowser &shown = open_shipped();
  QPushButton &back = button_called("Page précédente");
  EXPECT_FALSE(back.isEnabled()) << "there is none yet";
  button_called("Sommaire").click();
  EXPECT_EQ(file(), "index.html");
  EXPECT_TRUE(back.isEnabled());
  back.click();
  EXPECT_EQ(file(), "jouer.html");
  EXPECT_TRUE(shown.isForwardAvailable());
  EXPECT_FALSE(back.isEnabled());
}

TEST_F(Help, AResultLeadsToItsHeading) {
  open_shipped();
  results("score d’avancement");
  QTest::keyClick(&page(), Qt::Key_Tab);
  QTest::keyClick(&page(), Qt::Key_Return);
  EXPECT_EQ(page().source().fragment(), "abandon");
  EXPECT_GT(page().verticalScrollBar()->value(), 0);
}

TEST_F(Help, WhatCannotBeFoundIsToldInWords) {
  open_shipped();
  EXPECT_TRUE(results("zzz").contains("Aucune page ne répond à ces mots."));
  EXPECT_TRUE(results("lampe zzz")
                  .contains("Aucune page ne réunit tous ces mots ; voici les plus proches.\nCoups de pouce"));
  EXPECT_TRUE(results("comment la").contains("Ces mots sont trop courants"));
  for (const char *odd : {"<b>zzz</b> %1 & co", "//", "../zzz", "100 %25 #zzz?", "zzz:zzz"})
    EXPECT_TRUE(results(odd).startsWith("Recherche : « " + QString::fromUtf8(odd) + " »")) << odd;
  const QString before = page().toPlainText();
  EXPECT_EQ(results("  "), before) << "nothing is asked";
}

TEST_F(Help, WithoutItsIndexTheSearchSaysSoAndLeadsToTheContents) {
  write("contextes.txt", "10\tindex.html\n");
  write("index.html", "<h1>Sommaire</h1>");
  open(10);
  EXPECT_TRUE(results("lampe").contains("le fichier « recherche.txt », manque."));
  write("recherche.txt", "Cher journal,\n");
  page().reload();
  EXPECT_TRUE(page().toPlainText().contains("n’est pas un index de l’aide."));
  QTest::keyClick(&page(), Qt::Key_Tab);
  QTest::keyClick(&page(), Qt::Key_Return);
  EXPECT_EQ(page().toPlainText(), "Sommaire");
}

TEST_F(Help, AnIndexOfPagesThatAreGoneHarmsNothing) {
  write("contextes.txt", "10\tindex.html\n");
  write("index.html", "<h1>Sommaire</h1>");
  write("recherche.txt", "Index de l’aide\t1\nabsente.html\t\tLampe\tLampe\t\tUne <i>lampe</i>.\n");
  open(10);
  EXPECT_TRUE(results("lampe").endsWith("Une <i>lampe</i>."));
}

TEST_F(Help, WordsAreMarkedAsTheyAreTypedAndGoneThroughByKeys) {
  write("contextes.txt", "10\tjouer.html\n");
  write("jouer.html", "<p>Cliquez sur la carte.</p><p>Une île, l’ÎLE et des îles.</p>");
  open(10);
  type("ile");
  ASSERT_EQ(page().extraSelections().size(), 3);
  for (const QTextEdit::ExtraSelection &marked : page().extraSelections()) {
    EXPECT_GT(marked.format.background().color().lightness(), 128);
    EXPECT_EQ(marked.format.foreground().color(), QColor(Qt::black)) << "whatever the desktop's letters are";
  }
  EXPECT_EQ(status(), "Dans cette page : 3");
  EXPECT_GT(status_place().left(), page().width() / 2) << "at the right, beside what leads on";
  const auto press = [&](Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(help.window(), Qt::Key_F3, modifiers);
    return page().textCursor().selectedText();
  };
  EXPECT_EQ(press({}), "île");
  EXPECT_EQ(press({}), "ÎLE");
  EXPECT_EQ(status(), "Dans cette page : 2 sur 3");
  EXPECT_EQ(press({}), "îles");
  EXPECT_EQ(press({}), "île") << "goes on from the top";
  EXPECT_EQ(press(Qt::ShiftModifier), "îles");
  button("mot_suivant").click();
  EXPECT_EQ(page().textCursor().selectedText(), "île");
  type("lac");
  EXPECT_TRUE(page().extraSelections().isEmpty());
  EXPECT_FALSE(button("mot_suivant").isVisible());
}

TEST_F(Help, WordsAreCountedAnewInEachPage) {
  write("contextes.txt", "10\tjouer.html\n");
  write("jouer.html", "<p>Une île, l’ÎLE et des îles.</p>");
  write("carte.html", "<p>Encore une île.</p>");
  open(10);
  type("ile");
  EXPECT_EQ(status(), "Dans cette page : 3");
  page().setSource(page().source().resolved(QUrl("carte.html")));
  EXPECT_EQ(status(), "Dans cette page : 1");
}

TEST_F(Help, IsWrittenInTheLettersOfTheDesktop) {
  QFont larger = open_shipped().font();
  larger.setPointSize(larger.pointSize() + 5);
  page().setFont(larger);
  EXPECT_EQ(page().document()->defaultFont(), larger);
}

TEST_F(Help, WhereNoWordIsMarkedThereIsNoneToGoTo) {
  HelpPage empty;
  empty.go_to_mark(false);
  EXPECT_FALSE(empty.textCursor().hasSelection());
}

TEST_F(Help, ScrollsByKeysFromTheStart) {
  const QScrollBar &bar = *open_shipped().verticalScrollBar();
  const auto press = [&](Qt::Key key) {
    QTest::keyClick(help.window()->windowHandle(), key);
    return bar.value();
  };
  EXPECT_EQ(press(Qt::Key_End), bar.maximum());
  EXPECT_LT(press(Qt::Key_PageUp), bar.maximum());
  EXPECT_EQ(press(Qt::Key_Home), 0);
  EXPECT_GT(press(Qt::Key_PageDown), 0);
  EXPECT_EQ(press(Qt::Key_PageUp), 0);
  QTest::keyClick(help.window()->windowHandle(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(field().hasFocus());
  EXPECT_GT(press(Qt::Key_PageDown), 0) << "from the field, too";
  type("lampe");
  QTest::keyClick(help.window()->windowHandle(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(field().selectedText(), "lampe") << "which the next letter replaces";
}

TEST_F(Help, F3GoesToTheFieldWhileNothingIsSoughtAndEscapeCloses) {
  open_shipped();
  QTest::keyClick(help.window()->windowHandle(), Qt::Key_F3);
  EXPECT_TRUE(field().hasFocus());
  QTest::keyClick(help.window()->windowHandle(), Qt::Key_Escape);
  EXPECT_FALSE(help.window()->isVisible());
  type("lampe");
  EXPECT_TRUE(open_shipped().hasFocus()) << "and again from the start";
  EXPECT_EQ(field().text(), "");
}

TEST_F(Help, FitsItsPicturesAndTables) {
  open_shipped();
  const QDir pages(ARDANE_RESOURCES "/aide");
  for (const QFileInfo &file : pages.entryInfoList({"*.html"})) {
    page().setSource(QUrl::fromLocalFile(file.filePath()));
    EXPECT_EQ(page().horizontalScrollBar()->maximum(), 0) << file.fileName().toStdString();
  }
}

TEST_F(Help, IsAsWideAsItsWidestPicture) {
  write("contextes.txt", "10\tindex.html\n");
  write("index.html", "<h1>Sommaire</h1>");
  for (const int width : {300, 1000, 40})
    ASSERT_TRUE(
        QImage(width, 5, QImage::Format_RGB32).save(folder.filePath(QString("aide/%1.png").arg(width))));
  open(10);
  EXPECT_GE(page().viewport()->width(), 1000);
  EXPECT_LT(help.window()->width(), 1200);
}

TEST_F(Help, FitsTheWorkArea) {
  const QSize work_area = QGuiApplication::primaryScreen()->availableSize();
  open_shipped();
  EXPECT_LT(help.window()->width(), work_area.width());
  EXPECT_LT(help.window()->height(), work_area.height());
}

TEST_F(Help, WearsThePaletteOfTheDesktopAndFollowsItsChange) {
  struct Restored {
    const QPalette palette = QApplication::palette();
    ~Restored() { QApplication::setPalette(palette); }
  } restored;
  open_shipped(65);
  const auto ground = [&] { return page().document()->rootFrame()->frameFormat().background().color(); };
  const auto ink = [&] {
    return page().document()->begin().begin().fragment().charFormat().foreground().color();
  };
  EXPECT_EQ(ground(), restored.palette.color(QPalette::Base));
  // Links are marked by a hue of their own, which must be read on this ground, too.
  const auto link = [&] {
    for (QTextBlock block = page().document()->begin(); block.isValid(); block = block.next())
      for (auto part = block.begin(); !part.atEnd(); ++part)
        if (const QTextCharFormat format = part.fragment().charFormat(); !format.anchorHref().isEmpty())
          return format.foreground().color();
    return QColor();
  };
  EXPECT_LT(ink().lightness(), ground().lightness() - 80);
  EXPECT_LT(link().lightness(), ground().lightness() - 80);
  page().verticalScrollBar()->setValue(100);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 32, 36));
  dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(dark);
  QApplication::processEvents();
  EXPECT_EQ(ground(), QColor(30, 32, 36));
  EXPECT_GT(ink().lightness(), ground().lightness() + 80);
  EXPECT_GT(link().lightness(), ground().lightness() + 110);
  EXPECT_EQ(page().verticalScrollBar()->value(), 100);
}

/// The help beside windows of the game. Clicks come from the window system, which modal windows can lock out.
class HelpBesideWindows : public Help {
 protected:
  HelpBesideWindows() {
    for (Fenêtre *each : {&game, &dialog}) {
      each->largeur = each->hauteur = 100;
      Contrôle &button = place(*each, "bouton", Genre::bouton, {0, 0, 80, 25});
      button.clic = [this, each] { clicked = each->nom; };
    }
    game.est_principale = true;
    stage.renderer.montrer(game);
  }
  /// Opens the dialog and has that done while it is up.
  void in_dialog(const std::function<void()> &act) {
    QTimer::singleShot(0, qApp, [this, act] {
      EXPECT_TRUE(QTest::qWaitForWindowExposed(stage.renderer.frame(dialog)));
      act();
      stage.dispatcher.run([&] { dialog.fermer(); });
    });
    stage.dispatcher.run([&] { stage.renderer.montrer_modale(dialog); });
  }
  /// Has that done while a message box is up.
  void in_box(const std::function<void()> &act) {
    QTimer::singleShot(0, qApp, [act] {
      QWidget *box = QApplication::activeModalWidget();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(box));
      act();
      box->close();
    });
    stage.dispatcher.run([&] { stage.boxes.montrer({Icône::information, "Titre", "Texte"}); });
  }
  static void click(QWidget &on, QPoint at) {
    QTest::mouseClick(on.window()->windowHandle(), Qt::LeftButton, {}, on.mapTo(on.window(), at));
  }
  bool hears_clicks(const Fenêtre &window) {
    clicked.clear();
    click(*stage.widget(window, "bouton"), {10, 10});
    return clicked == window.nom;
  }
  bool help_is_usable() {
    if (!help.window()->isVisible()) return false;
    page().verticalScrollBar()->setValue(0);
    QTest::keyClick(help.window()->windowHandle(), Qt::Key_PageDown);
    const bool scrolled = page().verticalScrollBar()->value() > 0;
    click(field(), field().rect().center());
    const bool typed_into = help.window()->focusWidget() == &field();
    page().setFocus();
    return scrolled && typed_into;
  }

  Stage stage;
  Fenêtre game{"jeu"}, dialog{"dialogue"};
  std::string clicked;
};

TEST_F(HelpBesideWindows, OpenedFirstItIsUsableUnderADialogAndABoxOfIt) {
  open_shipped();
  in_dialog([&] {
    EXPECT_TRUE(help_is_usable());
    EXPECT_TRUE(hears_clicks(dialog));
    EXPECT_FALSE(hears_clicks(game));
    in_box([&] {
      EXPECT_TRUE(help_is_usable());
      EXPECT_FALSE(hears_clicks(dialog));
    });
    EXPECT_TRUE(help_is_usable());
    EXPECT_TRUE(hears_clicks(dialog));
  });
  EXPECT_TRUE(help_is_usable());
  EXPECT_TRUE(hears_clicks(game));
}

TEST_F(HelpBesideWindows, OpenedInADialogItLocksNothingAndOutlivesIt) {
  in_dialog([&] {
    open_shipped();
    EXPECT_TRUE(help_is_usable());
    EXPECT_TRUE(hears_clicks(dialog));
    in_box([&] { EXPECT_TRUE(help_is_usable()); });
    EXPECT_TRUE(help_is_usable());
  });
  EXPECT_TRUE(help_is_usable());
  EXPECT_TRUE(hears_clicks(game));
}

TEST_F(HelpBesideWindows, ClosedAndOpenedAgainAtAnyTimeItIsUsable) {
  open_shipped();
  in_dialog([&] {
    help.window()->activateWindow();
    QApplication::processEvents();
    QTest::keyClick(help.window()->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(help.window()->isVisible());
    EXPECT_TRUE(hears_clicks(dialog));
    in_box([&] {
      open_shipped();
      EXPECT_TRUE(help_is_usable());
    });
    EXPECT_TRUE(help_is_usable());
    help.window()->close();
  });
  EXPECT_TRUE(hears_clicks(game));
  open_shipped();
  EXPECT_TRUE(help_is_usable());
  EXPECT_TRUE(hears_clicks(game));
}

TEST_F(HelpBesideWindows, ABoxOfItsOwnLocksItOut) {
  open_shipped();
  QTimer::singleShot(0, qApp, [&] {
    QWidget *box = QApplication::activeModalWidget();
    EXPECT_EQ(box->parentWidget(), help.window());
    EXPECT_FALSE(help_is_usable());
    box->close();
  });
  QMessageBox(QMessageBox::Critical, "Titre", "Texte", QMessageBox::Ok, help.window()).exec();
  EXPECT_TRUE(help_is_usable());
}

}  // namespace
}  // namespace ardane
