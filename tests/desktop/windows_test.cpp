// Windows: keeping step, stacking, focus, modal nesting, closing, boxes.
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

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

TEST_F(Windows, AResizableWindowKeepsThePlayersSize) {
  window.redimensionnable = true;
  stage.renderer.montrer(window);
  QWidget *frame = stage.renderer.frame(window);
  frame->resize(400, 250);
  stage.renderer.sync();
  EXPECT_EQ(frame->size(), QSize(400, 250));
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
  const std::array<std::pair<const char *, int>, 3> order{{{"un", 2}, {"deux", 0}, {"trois", 1}}};
  int y = 0;
  for (const auto &[name, rank] : order) button(window, name, y += 30).ordre_tabulation = rank;
  window.focus = window.chercher("deux");
  show();
  QWidget *frame = stage.renderer.frame(window);
  std::vector<std::string> met;
  for (int i = 0; i < 3; ++i) {
    met.push_back(window.focus->nom);
    QTest::keyClick(frame->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(met, (std::vector<std::string>{"deux", "trois", "un"}));
}

TEST_F(Windows, FocusGoesBothWays) {
  Contrôle &first = button(window, "premier", 0);
  Contrôle &second = button(window, "second", 40);
  window.focus = &second;
  show();
  EXPECT_EQ(stage.renderer.frame(window)->focusWidget()->objectName(), "second");
  QTest::mouseClick(stage.widget(window, "premier"), Qt::LeftButton);
  EXPECT_EQ(window.focus, &first);
  window.focus = &second;
  stage.renderer.sync();
  EXPECT_EQ(stage.renderer.frame(window)->focusWidget()->objectName(), "second");
}

TEST_F(Windows, LosingTheFocusReachesTheHandlerBeforeTheOtherControlsClick) {
  std::string told;
  Contrôle &line = place(window, "ligne", Genre::texte, {0, 0, 100, 20});
  line.perte_du_focus = [&] { told += "perte "; };
  button(window, "bouton", 40).clic = [&] { told += "clic"; };
  window.focus = &line;
  show();
  QTest::mouseClick(stage.widget(window, "bouton"), Qt::LeftButton);
  EXPECT_EQ(told, "perte clic");
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

TEST_F(Windows, AModalWindowHoldsItsCallerUntilItCloses) {
  std::string told;
  button(window, "ouvrir").clic = [&] {
    told += "avant ";
    stage.renderer.montrer_modale(dialog);
    told += "après";
  };
  button(dialog, "fermer").clic = [&] {
    told += "dedans ";
    dialog.fermer();
  };
  dialog.largeur = dialog.hauteur = 100;
  stage.renderer.montrer(window);
  then([&] {
    EXPECT_EQ(QApplication::activeModalWidget(), stage.renderer.frame(dialog));
    EXPECT_EQ(stage.renderer.top_frame(), stage.renderer.frame(dialog));
    stage.widget<QPushButton>(dialog, "fermer")->click();
  });
  stage.widget<QPushButton>(window, "ouvrir")->click();
  EXPECT_EQ(told, "avant dedans après");
  EXPECT_EQ(stage.renderer.frame(dialog), nullptr);
}

TEST_F(Windows, ModalWindowsNest) {
  Fenêtre inner{"intérieure"};
  std::string told;
  button(inner, "fermer").clic = [&] { inner.fermer(); };
  button(dialog, "ouvrir").clic = [&] {
    then([&] { stage.widget<QPushButton>(inner, "fermer")->click(); });
    stage.renderer.montrer_modale(inner);
    told += "intérieure fermée, ";
    EXPECT_TRUE(dialog.ouverte);
    dialog.fermer();
  };
  stage.renderer.montrer(window);
  then([&] { stage.widget<QPushButton>(dialog, "ouvrir")->click(); });
  stage.dispatcher.run([&] {
    stage.renderer.montrer_modale(dialog);
    told += "dialogue fermé";
  });
  EXPECT_EQ(told, "intérieure fermée, dialogue fermé");
}

TEST_F(Windows, AnOuterWindowThatClosesUnderAnInnerOneWaitsForIt) {
  Fenêtre inner{"intérieure"};
  std::string told;
  button(inner, "fermer").clic = [&] {
    dialog.fermer();
    then([&] { stage.dispatcher.run([&] { inner.fermer(); }); });
  };
  button(dialog, "ouvrir").clic = [&] {
    then([&] { stage.widget<QPushButton>(inner, "fermer")->click(); });
    stage.renderer.montrer_modale(inner);
    told += "intérieure, ";
  };
  stage.renderer.montrer(window);
  then([&] { stage.widget<QPushButton>(dialog, "ouvrir")->click(); });
  stage.dispatcher.run([&] { stage.renderer.montrer_modale(dialog); });
  told += "dialogue";
  EXPECT_EQ(told, "intérieure, dialogue");
}

TEST_F(Windows, ActivationComesOncePerVisit) {
  int activations = 0;
  dialog.activation = [&] { ++activations; };
  button(dialog, "boîte").clic = [&] {
    then([&] { box()->accept(); });
    stage.boxes.montrer({Icône::information, "Titre", "Texte"});
  };
  stage.renderer.montrer(window);
  then([&] {
    EXPECT_TRUE(QTest::qWaitForWindowActive(stage.renderer.frame(dialog)));
    EXPECT_EQ(activations, 1);
    stage.widget<QPushButton>(dialog, "boîte")->click();
    then([&] {
      EXPECT_EQ(activations, 1) << "back from a box";
      stage.dispatcher.run([&] { dialog.fermer(); });
    });
  });
  stage.dispatcher.run([&] { stage.renderer.montrer_modale(dialog); });
  EXPECT_EQ(activations, 1);
}

TEST_F(Windows, TheCloseControlAsksTheWindowsOwnHandler) {
  int asked = 0;
  bool granted = false;
  window.demande_de_fermeture = [&] {
    ++asked;
    if (granted) window.fermer();
  };
  stage.renderer.montrer(window);
  QWidget *frame = stage.renderer.frame(window);
  frame->close();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(frame->isVisible()) << "a refusal leaves everything";
  EXPECT_TRUE(window.ouverte);
  bool all_gone = false;
  stage.renderer.last_closed = [&] { all_gone = true; };
  granted = true;
  frame->close();
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(all_gone);
  EXPECT_EQ(stage.renderer.frame(window), nullptr);
}

TEST_F(Windows, WithoutAHandlerTheCloseControlCloses) {
  stage.renderer.montrer(window);
  stage.renderer.frame(window)->close();
  EXPECT_FALSE(window.ouverte);
}

TEST_F(Windows, AWindowWithoutCloseControlStays) {
  window.fermable = false;
  window.demande_de_fermeture = [] { FAIL(); };
  stage.renderer.montrer(window);
  QWidget *frame = stage.renderer.frame(window);
  EXPECT_FALSE(frame->windowFlags().testFlag(Qt::WindowCloseButtonHint));
  frame->close();
  QTest::keyClick(frame, Qt::Key_Escape);
  QTest::keyClick(frame, Qt::Key_Return);
  EXPECT_TRUE(window.ouverte);
  EXPECT_TRUE(frame->isVisible());
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
  window.avec_titre = false;
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
  EXPECT_EQ(helps, 1);
  EXPECT_FALSE(quit_action->isEnabled());
  EXPECT_EQ(stage.renderer.frame(window)->height(), 200) << "the bar counts in the window's height";
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
