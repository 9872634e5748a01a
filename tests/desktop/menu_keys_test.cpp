// The menus of the main window by keys alone.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include "front/qt/demonstration/mouse.h"
#include "program_test.h"

namespace ardane {
namespace {

class MenuKeys : public ProgramTest {
 protected:
  void SetUp() override {
    start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
  }
  /// The player presses keys on whatever has the focus in front; what comes up is told by its name.
  void press_keys(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    order().then([this, key, modifiers] {
      QWidget *modal = QApplication::activeModalWidget();
      QWidget *front = modal != nullptr ? modal : frame();
      order().rest();
      front->activateWindow();  // this platform does not when a box has closed
      EXPECT_TRUE(QTest::qWaitForWindowActive(front));
      order().begin();
      QTest::keyPress(front, key, modifiers);  // no release: what was pressed may be gone by then
    });
  }
  void look_in_front() {
    order().then([this] {
      const QWidget *modal = QApplication::activeModalWidget();
      seen << (modal == nullptr ? QString() : modal->objectName());
    });
  }
  QMenuBar &bar() { return *frame()->findChild<QMenuBar *>(); }
  QString caption_of(const char *name) { return bar().findChild<QAction *>(QString::fromUtf8(name))->text(); }
  static QString open_menu() {
    const QWidget *menu = QApplication::activePopupWidget();
    return menu == nullptr ? QString() : menu->objectName();
  }

  QStringList seen;
};

TEST_F(MenuKeys, ShortcutsStandBesideTheirEntriesAndCaptionsHaveTheirLetters) {
  const auto shortcut = [this](const char *name) {
    return bar().findChild<QAction *>(QString::fromUtf8(name))->shortcut().toString();
  };
  EXPECT_EQ(shortcut("fichier_nouveau"), "Ctrl+N");
  EXPECT_EQ(shortcut("Fichier_enregistrer"), "Ctrl+S");
  EXPECT_EQ(shortcut("Fichier_lire"), "Ctrl+O");
  EXPECT_EQ(shortcut("fichier_quitter"), "Ctrl+Q");
  EXPECT_EQ(caption_of("fichier_quitter"), "&Quitter");
  EXPECT_EQ(caption_of("menu_fichier"), "&Fichier");
  EXPECT_EQ(caption_of("Menu_aide"), "&Aide (F1)") << "the bar shows no shortcuts by itself";
}

TEST_F(MenuKeys, ControlNStartsAGameAndMeetsNoSecondDialog) {
  press_keys(Qt::Key_N, Qt::ControlModifier);
  look_in_front();
  press_keys(Qt::Key_N, Qt::ControlModifier);
  press_keys(Qt::Key_Q, Qt::ControlModifier);
  press_keys(Qt::Key_F10);
  look_in_front();
  order().then([this] { seen << open_menu(); });
  order().click("Bouton_annuler");
  play();
  EXPECT_EQ(seen, (QStringList{"nouvelle_partie", "nouvelle_partie", ""}));
  EXPECT_TRUE(desktop().programme().en_cours());
}

TEST_F(MenuKeys, ControlQLeavesTheGameAndNothingElseInterruptsItsQuestion) {
  order().choose("menu_fichier", "fichier_nouveau");
  order().fill_in("boîte_nom_joueur", "Zoé");
  order().click("bouton_sortie");
  order().then([this] { state().PartieVierge = false; });
  press_keys(Qt::Key_Q, Qt::ControlModifier);
  press_keys(Qt::Key_Q, Qt::ControlModifier);
  press_keys(Qt::Key_F10);
  look_in_front();
  press_keys(Qt::Key_Return);
  order().then([this] { EXPECT_TRUE(desktop().programme().en_cours()) << "Enter keeps the game"; });
  press_keys(Qt::Key_Q, Qt::ControlModifier);
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("Command1");
  play();
  EXPECT_EQ(seen, QStringList{"boîte"});
  EXPECT_FALSE(desktop().programme().en_cours());
}

TEST_F(MenuKeys, AltAndALetterOpenAMenuAndTheLetterChooses) {
  QTest::keyClick(frame(), Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(open_menu(), "menu:menu_scores");
  order().then([] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_F); });
  look_in_front();
  order().click("Command1");
  play();
  EXPECT_EQ(seen, QStringList{"Affichage_scores"});
  EXPECT_EQ(state().Niveau_affiché, niveau_facile);
}

TEST_F(MenuKeys, AnAltThatIsSentOnceMoreForAScreenReaderLeavesTheBarAsItIs) {
  for (const char *tap : {"pressed", "sent once more"}) {
    QTest::keyPress(frame(), Qt::Key_Alt);  // keys of a test bear no time, either
    QTest::keyRelease(frame(), Qt::Key_Alt);
    EXPECT_NE(bar().activeAction(), nullptr) << tap;
  }
}

TEST_F(MenuKeys, F10OpensTheFirstMenuAndEscapeLeavesIt) {
  QTest::keyClick(frame(), Qt::Key_F10);
  ASSERT_EQ(open_menu(), "menu:menu_fichier");
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  EXPECT_EQ(open_menu(), "");
}

}  // namespace
}  // namespace ardane
