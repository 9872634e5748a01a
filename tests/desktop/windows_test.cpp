// Windows: keeping step, stacking, focus, modal nesting, closing, boxes.
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOption>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <set>

#include "front/qt/style.h"
#include "front/qt/window_view.h"
#include "stage.h"

namespace ardane {
namespace {

/// Counts what a widget is told to do, by kind of event.
class Counter : public QObject {
 public:
  explicit Counter(QObject *watched) { watched->installEventFilter(this); }
  int count(QEvent::Type type) const { return static_cast<int>(std::ranges::count(types_, type)); }
  std::size_t all() const { return types_.size(); }

 private:
  bool eventFilter(QObject *, QEvent *event) override {
    types_.push_back(event->type());
    return false;
  }
  std::vector<QEvent::Type> types_;
};

class Windows : public testing::Test {
 protected:
  Windows() {
    window.largeur = 300;
    window.hauteur = 200;
  }
  Contrôle &button(Fenêtre &on, const std::string &name, int y = 0) {
    return place(on, name, Genre::bouton, {0, y, 100, 25});
  }
  Contrôle &add_line() { return place(window, "ligne", Genre::texte, {0, 0, 100, 20}); }
  void show() {
    stage.renderer.montrer(window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
  }
  QMessageBox *box() { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }
  /// Runs `answer` from the event loop of whatever window or box comes up next.
  static void then(const std::function<void()> &answer) { QTimer::singleShot(0, qApp, answer); }

  Stage stage;
  Fenêtre window{"fenêtre"};
  Fenêtre dialog{"dialogue"};
};

TEST_F(Windows, NamesTitlesAndSizesAreTheDatas) {
  window.titre = "Ardane ";
  stage.renderer.montrer(window);
  QWidget *frame = stage.renderer.frame(window);
  EXPECT_EQ(frame->objectName(), "fenêtre");
  EXPECT_EQ(frame->windowTitle(), "Ardane");
  EXPECT_EQ(frame->size(), QSize(300, 200));
  EXPECT_EQ(frame->minimumSize(), frame->maximumSize()) << "the player may not change its size";
  EXPECT_TRUE(window.ouverte);
}

TEST_F(Windows, AWindowWithoutATitleIsSpokenOfByANameOfItsOwn) {
  window.nom_parlé = "Choix d’une couleur";
  stage.renderer.montrer(window);
  EXPECT_EQ(stage.renderer.frame(window)->accessibleName(), "Choix d’une couleur");
}

TEST_F(Windows, AMapIsTheMainWindowsAlone) {
  place(window, "Carte", Genre::vue, {0, 0, 100, 80});
  EXPECT_THAT([this] { stage.renderer.montrer(window); },
              testing::ThrowsMessage<ErreurFatale>(
                  testing::StartsWith("Seule la fenêtre principale porte une carte")));
}

TEST_F(Windows, WhereNoWindowIsUpNoneIsClosed) {
  stage.renderer.close_top();
  EXPECT_EQ(stage.renderer.top_frame(), nullptr);
}

TEST_F(Windows, AResizableWindowKeepsThePlayersSize) {
  window.redimensionnable = true;
  stage.renderer.montrer(window);
  QWidget *frame = stage.renderer.frame(window);
  frame->resize(400, 250);
  stage.renderer.sync();
  EXPECT_EQ(frame->size(), QSize(400, 250));
  window.largeur = 500;
  stage.renderer.sync();
  EXPECT_EQ(frame->size(), QSize(500, 200)) << "until the data has another";
}

TEST_F(Windows, WhatHasNotChangedIsNotSet) {
  Contrôle &label = place(window, "nom", Genre::étiquette, {0, 0, 80, 20});
  label.texte = "Texte";
  stage.renderer.montrer(window);
  QApplication::processEvents();
  const Counter told(stage.widget(window, "nom"));
  stage.renderer.sync();
  stage.renderer.sync();
  QApplication::processEvents();
  EXPECT_EQ(told.all(), 0U);
  label.texte = "Autre";
  stage.renderer.sync();
  QApplication::processEvents();
  EXPECT_EQ(told.count(QEvent::Paint), 1);
}

TEST_F(Windows, AWindowThatIsUpIsPaintedWhenTheEventIsOverAndThenOnce) {
  Contrôle &label = place(window, "nom", Genre::étiquette, {0, 0, 80, 20});
  show();
  QApplication::processEvents();
  const Counter told(stage.widget(window, "nom"));
  stage.dispatcher.run([&] {
    for (const char *text : {"Texte", "Autre"}) {
      label.texte = text;
      stage.renderer.repeindre(window);
    }
  });
  EXPECT_EQ(told.count(QEvent::Paint), 0);
  QApplication::processEvents();
  EXPECT_EQ(told.count(QEvent::Paint), 1);
}

TEST_F(Windows, AControlFollowsItsDataAfterEachEvent) {
  Contrôle &label = place(window, "nom", Genre::étiquette, {0, 50, 80, 20});
  Contrôle &hidden = place(window, "caché", Genre::étiquette, {0, 80, 80, 20});
  hidden.visible = false;
  button(window, "bouton").clic = [&] {
    label.gauche = 33.4;
    label.infobulle = "Bulle";
    hidden.visible = true;
    label.visible = false;
  };
  stage.renderer.montrer(window);
  EXPECT_EQ(stage.widget(window, "caché"), nullptr) << "made when first seen";
  stage.widget<QPushButton>(window, "bouton")->click();
  EXPECT_EQ(stage.widget(window, "nom")->x(), 33);
  EXPECT_EQ(stage.widget(window, "nom")->toolTip(), "Bulle");
  EXPECT_FALSE(stage.widget(window, "nom")->isVisible());
  ASSERT_NE(stage.widget(window, "caché"), nullptr);
  EXPECT_TRUE(stage.widget(window, "caché")->isVisible());
}

TEST_F(Windows, TheHigherPlanLiesAbove) {
  Contrôle &low = place(window, "bas", Genre::étiquette, {0, 0, 50, 50});
  Contrôle &high = place(window, "haut", Genre::étiquette, {0, 0, 50, 50});
  low.fond = Couleur{255, 0, 0};
  high.fond = Couleur{0, 0, 255};
  stage.renderer.montrer(window);
  const auto seen = [&] { return stage.renderer.frame(window)->grab().toImage().pixelColor(25, 25); };
  EXPECT_EQ(seen(), QColor(0, 0, 255));
  window.au_premier_plan(low);
  stage.renderer.sync();
  EXPECT_EQ(seen(), QColor(255, 0, 0));
}

TEST_F(Windows, TheTabKeyFollowsTheOrderOfTheData) {
  const std::array<std::pair<const char *, int>, 5> order{
      {{"sans rang", -1}, {"un", 2}, {"deux", 0}, {"trois", 1}, {"ni lui", -1}}};
  int y = 0;
  for (const auto &[name, rank] : order) button(window, name, y += 30).ordre_tabulation = rank;
  Contrôle &page = place(window, "page", Genre::texte, {0, 180, 100, 20});
  page.multiligne = true;
  page.ordre_tabulation = 3;
  place(window, "compteur", Genre::texte, {120, 0, 40, 20}).lecture_seule = true;
  show();
  QWidget *frame = stage.renderer.frame(window);
  std::vector<std::string> met;
  for (int i = 0; i < 7; ++i) {
    met.push_back(window.focus->nom);
    QTest::keyClick(frame->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(met, (std::vector<std::string>{"deux", "trois", "un", "page", "sans rang", "ni lui", "deux"}));
}

TEST_F(Windows, AWindowPutUpOnceMoreIsTheActiveOneAgain) {
  show();
  stage.renderer.montrer(dialog);
  ASSERT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(dialog)));
  stage.renderer.montrer(window);
  EXPECT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(window)));
}

TEST_F(Windows, AWindowThatTheDesktopDoesNotPutUpIsNotWaitedForWithoutEnd) {
  const MapGuide guide;
  WindowView view(window, {stage.dispatcher, stage.pictures, stage.screen, guide}, {}, nullptr);
  view.frame().winId();
  view.await_first_paint(std::chrono::milliseconds(0));
  EXPECT_FALSE(view.frame().windowHandle()->isExposed());
}

TEST_F(Windows, AClosedWindowHearsOfNoLostFocus) {
  auto closing = std::make_unique<Fenêtre>("fermée");
  bool lost = false;
  Contrôle &line = place(*closing, "ligne", Genre::texte, {0, 0, 100, 20});
  line.perte_du_focus = [&] { lost = true; };
  closing->focus = &line;
  show();
  then([&] {
    EXPECT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(*closing)));
    EXPECT_TRUE(stage.widget(*closing, "ligne")->hasFocus());
    stage.dispatcher.run([&] { closing->fermer(); });
  });
  stage.dispatcher.run([&] {
    stage.renderer.montrer_modale(*closing);
    closing.reset();
  });
  QApplication::processEvents();
  EXPECT_FALSE(lost);
}

TEST_F(Windows, TheLastWindowThatClosesIsTold) {
  stage.renderer.montrer(window);
  bool all_gone = false;
  stage.renderer.last_closed = [&] { all_gone = true; };
  stage.renderer.frame(window)->close();
  EXPECT_TRUE(all_gone);
  EXPECT_EQ(stage.renderer.frame(window), nullptr);
}

TEST_F(Windows, EscapePressesTheCancelButtonAndDoesNothingWhereThereIsNone) {
  add_line();
  Contrôle &cancel = button(window, "annuler", 40);
  int clicks = 0;
  cancel.clic = [&] { ++clicks; };
  show();
  QTest::keyClick(stage.widget(window, "ligne"), Qt::Key_Escape);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(window.ouverte);
  window.bouton_annulation = &cancel;
  QTest::keyClick(stage.widget(window, "ligne"), Qt::Key_Escape);
  EXPECT_EQ(clicks, 1);
  cancel.visible = false;
  stage.renderer.sync();
  QTest::keyClick(stage.widget(window, "ligne"), Qt::Key_Escape);
  EXPECT_EQ(clicks, 1);
}

TEST_F(Windows, APictureCanBeTheCancelButtonOfAWindowWithoutTitleBar) {
  Contrôle &picture = place(dialog, "fermeture", Genre::image, {0, 0, 19, 19});
  picture.clic = [&] { dialog.fermer(); };
  dialog.avec_titre = dialog.fermable = false;
  dialog.bouton_annulation = &picture;
  dialog.largeur = dialog.hauteur = 100;
  window.est_principale = true;
  show();
  then([&] {
    QWidget *frame = stage.renderer.frame(dialog);
    EXPECT_TRUE(frame->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(frame->windowType(), Qt::Dialog) << "no entry of the task bar's";
    EXPECT_EQ(frame->parentWidget(), stage.renderer.frame(window));
    frame->close();
    EXPECT_TRUE(dialog.ouverte);
    QTest::keyClick(frame, Qt::Key_Escape);
  });
  stage.dispatcher.run([&] { stage.renderer.montrer_modale(dialog); });
  EXPECT_FALSE(dialog.ouverte);
}

TEST_F(Windows, ADialogWithoutTitleBarIsOutlined) {
  dialog.largeur = dialog.hauteur = 100;
  dialog.avec_titre = false;
  stage.renderer.montrer(dialog);
  const QImage bare = stage.renderer.frame(dialog)->grab().toImage();
  const QColor middle = bare.pixelColor(50, 50);
  for (const QPoint edge : {QPoint(50, 0), QPoint(0, 50), QPoint(50, 99), QPoint(99, 50)})
    EXPECT_NE(bare.pixelColor(edge), middle) << edge.x() << ", " << edge.y();
  window.est_principale = true;
  window.avec_titre = false;
  stage.renderer.montrer(window);
  const QImage main = stage.renderer.frame(window)->grab().toImage();
  EXPECT_EQ(main.pixelColor(0, 0), main.pixelColor(150, 100));
}

TEST_F(Windows, TheMainWindowStaysInTheWorkAreaAndMayHaveATitleBar) {
  window.est_principale = true;
  window.gauche = window.haut = -50;
  show();
  QWidget *frame = stage.renderer.frame(window);
  EXPECT_EQ(frame->windowType(), Qt::Window);
  EXPECT_FALSE(frame->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(window.gauche, 0);
  EXPECT_EQ(window.haut, 0);
}

TEST_F(Windows, ADefaultButtonIsShownAsOne) {
  Contrôle &ok = button(window, "ok");
  button(window, "autre", 40);
  window.bouton_défaut = &ok;
  show();
  EXPECT_TRUE(stage.widget<QPushButton>(window, "ok")->isDefault());
  EXPECT_FALSE(stage.widget<QPushButton>(window, "autre")->isDefault());
  window.bouton_défaut = nullptr;
  stage.renderer.sync();
  EXPECT_FALSE(stage.widget<QPushButton>(window, "ok")->isDefault());
}

TEST_F(Windows, TheWidgetOfAControlThatIsTakenOffGoes) {
  Contrôle &row = place(window, "rang", Genre::étiquette, {0, 0, 80, 20});
  stage.renderer.montrer(window);
  const QPointer<QWidget> widget = stage.widget(window, "rang");
  ASSERT_TRUE(widget);
  window.retirer(row);
  stage.renderer.sync();
  EXPECT_FALSE(widget->isVisible());
  EXPECT_EQ(stage.widget(window, "rang"), nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(widget);
}

/// What the colours of each button drawn are known by: the toolkit keeps a picture, and its name, for each.
class Palettes : public QProxyStyle {
 public:
  explicit Palettes(std::set<qint64> &keys) : keys_(keys) {}
  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
    if (element == PE_PanelButtonCommand) keys_.insert(option->palette.cacheKey());
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }

 private:
  std::set<qint64> &keys_;
};

TEST_F(Windows, AWindowOfItsOwnColoursThatComesUpAgainLeavesNothingBehind) {
  install_style();
  std::set<qint64> keys;
  std::size_t after_the_first = 0;
  auto *style = static_cast<QProxyStyle *>(QApplication::style());
  style->setBaseStyle(std::make_unique<Palettes>(keys).release());
  for (int i = 0; i < 3; ++i) {
    Fenêtre coloured("fenêtre de couleur");
    coloured.largeur = coloured.hauteur = 60;
    coloured.fond = Couleur{64, 0, 0};
    place(coloured, "bouton", Genre::bouton, {4, 4, 40, 20});
    stage.renderer.montrer(coloured);
    stage.renderer.frame(coloured)->grab();
    stage.renderer.retirer(coloured);
    if (i == 0) after_the_first = keys.size();
  }
  style->setBaseStyle(nullptr);
  EXPECT_GE(after_the_first, 1U);
  EXPECT_EQ(keys.size(), after_the_first);
}

TEST_F(Windows, AnIconOfTheStyleIsDecodedOnce) {
  install_style();
  const auto picture = [] {
    return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32);
  };
  EXPECT_FALSE(picture().isNull());
  EXPECT_EQ(picture().cacheKey(), picture().cacheKey());
}

TEST_F(Windows, ABarLooksAsTheToolkitDrawsItHoweverOftenItWasThere) {
  Fenêtre scrolled("fenêtre");
  scrolled.largeur = scrolled.hauteur = 300;
  Contrôle &bar = place(scrolled, "barre", Genre::barre, {4, 4, 17, 290});
  stage.renderer.montrer(scrolled);
  auto *toolkit = static_cast<QProxyStyle *>(QApplication::style())->baseStyle();
  QWidget &shown = *stage.widget(scrolled, "barre");
  for (const bool usable : {true, false, true})
    for (const int last : {10, 100})
      for (bar.valeur = 0; bar.valeur < last; bar.valeur += last / 5) {
        bar.actif = usable;
        bar.max = last;
        stage.renderer.sync();
        const QImage drawn = shown.grab().toImage();
        shown.setStyle(toolkit);
        EXPECT_EQ(drawn, shown.grab().toImage()) << bar.valeur << " of " << last << ", usable: " << usable;
        shown.setStyle(nullptr);
      }
}

TEST_F(Windows, F1AsksForHelpInTheWindowThatHasIt) {
  std::string asked;
  stage.renderer.help = [&](const Fenêtre &on) { asked += on.nom; };
  place(window, "ligne", Genre::texte, {0, 0, 100, 20});
  stage.renderer.montrer(window);
  QTest::keyClick(stage.widget(window, "ligne"), Qt::Key_F1);
  EXPECT_EQ(asked, "fenêtre");
}

TEST_F(Windows, TheMenuBarIsTheDatas) {
  const auto entry = [&](const char *name, Contrôle *parent = nullptr) -> Contrôle & {
    Contrôle &control = place(window, name, Genre::menu, {}, parent);
    control.texte = name;
    return control;
  };
  Contrôle &file = entry("Fichier");
  Contrôle &quit = entry("Quitter", &file);
  Contrôle &help = entry("Aide");
  window.est_principale = true;
  int quits = 0, helps = 0;
  quit.clic = [&] { ++quits; };
  help.clic = [&] {
    ++helps;
    quit.actif = false;
  };
  stage.renderer.montrer(window);
  auto *bar = stage.widget<QMenuBar>(window, "barre_de_menus");
  ASSERT_EQ(bar->actions().size(), 2);
  auto *quit_action = bar->findChild<QAction *>("Quitter");
  quit_action->trigger();
  EXPECT_EQ(quits, 1);
  bar->actions()[1]->trigger();
  EXPECT_EQ(helps, 0) << "the bar has to let go of the keyboard first";
  QCoreApplication::processEvents();
  EXPECT_EQ(helps, 1);
  EXPECT_FALSE(quit_action->isEnabled());
  EXPECT_EQ(stage.renderer.frame(window)->height(), 200) << "the bar counts in the window's height";
  EXPECT_EQ(bar->geometry(), QRect(0, 0, 300, bar->sizeHint().height()));
  for (const char *caption : {"Filer", "Partir"}) {
    quit.texte = caption;
    stage.renderer.sync();
    EXPECT_EQ(quit_action->text(), caption);
  }
  EXPECT_FALSE(quit_action->isCheckable()) << "no empty box stands before what is never checked";
  quit.visible = false;
  quit.coché = true;
  stage.renderer.sync();
  EXPECT_FALSE(quit_action->isVisible());
  EXPECT_TRUE(quit_action->isChecked());
  quit.texte = "";
  quit.coché = false;
  stage.renderer.sync();
  EXPECT_EQ(quit_action->text(), "Partir") << "a place that a caption keeps";
  EXPECT_FALSE(quit_action->isChecked());
}

TEST_F(Windows, BoxesHaveFrenchButtonsAndAnswer) {
  stage.renderer.montrer(window);
  const auto answer = [&](Boutons buttons, const char *button) {
    then([this, button] { box()->findChild<QPushButton *>(QString::fromUtf8(button))->click(); });
    return stage.boxes.montrer({Icône::question, "Titre", "Texte <b>", buttons});
  };
  EXPECT_EQ(answer(Boutons::oui_non, "oui"), Réponse::oui);
  EXPECT_EQ(answer(Boutons::oui_non, "non"), Réponse::non);
  EXPECT_EQ(answer(Boutons::ok, "ok"), Réponse::ok);
  then([&] {
    EXPECT_EQ(box()->windowTitle(), "Titre");
    EXPECT_EQ(box()->text(), "Texte <b>");
    EXPECT_EQ(box()->textFormat(), Qt::PlainText);
    EXPECT_EQ(box()->icon(), QMessageBox::Warning);
    QStringList captions;
    for (const auto *button : box()->buttons()) captions << button->text();
    captions.sort();
    EXPECT_EQ(captions, (QStringList{"Non", "Oui"}));
    QTest::keyClick(box(), Qt::Key_Escape);
  });
  EXPECT_EQ(stage.boxes.montrer({Icône::exclamation, "Titre", "Texte <b>", Boutons::oui_non}), Réponse::non);
  then([&] { QTest::keyClick(box(), Qt::Key_Escape); });
  EXPECT_EQ(stage.boxes.montrer({Icône::stop, "Titre", "Texte"}), Réponse::ok);
}

TEST_F(Windows, ATextTooLongForTheScreenScrollsInItsBox) {
  stage.renderer.montrer(window);
  for (const int lines : {60, 20'000}) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "Un jeu : version 1.0\r\n";
    bool seen = false;
    then([&] {
      EXPECT_LT(box()->height(), box()->screen()->availableSize().height());
      EXPECT_LT(box()->width(), box()->screen()->availableSize().width());
      auto *scrolling = box()->findChild<QPlainTextEdit *>("texte");
      seen = scrolling != nullptr && scrolling->document()->blockCount() == lines + 1 &&
             scrolling->isReadOnly() && scrolling->verticalScrollBar()->maximum() > 0;
      QTest::keyClick(box(), Qt::Key_Return);
    });
    EXPECT_EQ(stage.boxes.montrer({Icône::information, "Titre", text}), Réponse::ok);
    EXPECT_TRUE(seen) << lines;
  }
  then([&] {
    EXPECT_EQ(box()->findChild<QPlainTextEdit *>("texte"), nullptr);
    box()->accept();
  });
  stage.boxes.montrer({Icône::information, "Titre", "Une ligne\nDeux lignes"});
}

TEST_F(Windows, WhereYesThrowsSomethingAwayEnterAndEscapeAnswerNo) {
  stage.renderer.montrer(window);
  const auto answer = [&](bool no_by_default, Qt::Key key) {
    then([this, key] { QTest::keyClick(box(), key); });
    return stage.boxes.montrer({Icône::question, "Titre", "Texte", Boutons::oui_non, no_by_default});
  };
  EXPECT_EQ(answer(false, Qt::Key_Return), Réponse::oui);
  EXPECT_EQ(answer(true, Qt::Key_Return), Réponse::non);
  EXPECT_EQ(answer(true, Qt::Key_Escape), Réponse::non);
  then([&] { box()->findChild<QPushButton *>("oui")->click(); });
  EXPECT_EQ(stage.boxes.montrer({Icône::question, "Titre", "Texte", Boutons::oui_non, true}), Réponse::oui);
}

TEST_F(Windows, ABoxThatGoesWithoutAnAnswerHasTheOneForThat) {
  stage.renderer.montrer(window);
  for (const bool yes : {false, true}) {
    Boîte question{Icône::question, "Titre", "Texte", Boutons::oui_non};
    question.oui_si_fermée = yes;
    then([this] { box()->done(0); });
    EXPECT_EQ(stage.boxes.montrer(question), yes ? Réponse::oui : Réponse::non);
  }
}

TEST_F(Windows, TheWindowsBehindABoxShowWhatHasBeenDone) {
  Contrôle &label = place(window, "nom", Genre::étiquette, {0, 50, 80, 20});
  stage.renderer.montrer(window);
  then([&] {
    EXPECT_EQ(stage.widget<QLabel>(window, "nom")->text(), "Fait");
    box()->accept();
  });
  stage.dispatcher.run([&] {
    label.texte = "Fait";
    stage.boxes.montrer({Icône::information, "Titre", "Texte"});
  });
}

TEST_F(Windows, TheHourglassIsLiftedWhileTheProgramAsks) {
  stage.renderer.montrer(window);
  const auto is_hourglass = [] {
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor != nullptr && cursor->shape() == Qt::WaitCursor;
  };
  stage.screen.sablier(true);
  stage.screen.sablier(true);
  EXPECT_TRUE(is_hourglass());
  then([&] {
    EXPECT_FALSE(is_hourglass());
    box()->accept();
  });
  stage.boxes.montrer({Icône::information, "Titre", "Texte"});
  EXPECT_TRUE(is_hourglass());
  stage.screen.sablier(false);
  EXPECT_FALSE(is_hourglass());
}

TEST_F(Windows, AWindowTakenOffByItsOwnEventGoesAtOnce) {
  auto gone = std::make_unique<Fenêtre>("éphémère");
  button(*gone, "bouton").clic = [&] {
    stage.renderer.retirer(*gone);
    gone.reset();
  };
  stage.renderer.montrer(window);
  stage.renderer.montrer(*gone);
  stage.widget<QPushButton>(*gone, "bouton")->click();
  QApplication::processEvents();
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(stage.renderer.top_frame(), stage.renderer.frame(window));
}

}  // namespace
}  // namespace ardane
