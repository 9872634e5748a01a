// The configuration's panel on the screen that the platform has: nothing cut off, nothing over anything else,
// nothing outside. Run on screens of several sizes.
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <cstdio>

#include "core/current_folder.h"
#include "core/paths.h"
#include "map/main_window.h"
#include "program_test.h"

namespace ardane {
namespace {

/// A player can read letters of this size, in pixels.
constexpr int smallest_readable = 7;

class PanelOnScreen : public ProgramTest {
 protected:
  void SetUp() override {
    std::printf("Screen of %d x %d\n", screen_size().width(), screen_size().height());
    start();
  }
  static QSize screen_size() { return QGuiApplication::primaryScreen()->size(); }

  void open(const char *entry) {
    order().choose("menu_paramétrer", entry);
    play();
  }
  std::vector<QLabel *> captions() {
    std::vector<QLabel *> found;
    for (int i = 1; i <= 13; ++i)
      found.push_back(frame()->findChild<QLabel *>(QStringLiteral("LBL_param(%1)").arg(i)));
    return found;
  }
  /// What stands on the main window beside the menu bar: the map, its bars, the panel.
  std::vector<QWidget *> parts() {
    std::vector<QWidget *> found;
    for (Contrôle &control : screen().contrôles()) {
      if (control.genre == Genre::menu || control.conteneur != nullptr || !control.visible) continue;
      if (auto *widget = frame()->findChild<QWidget *>(QString::fromStdString(control.nom)))
        found.push_back(widget);
    }
    return found;
  }
  static QRect place(const QWidget &widget) {
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
  }
  static void expect_whole(const QLabel &label) {
    const QRect room = label.contentsRect();
    const int wrapping = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QRect text = label.fontMetrics().boundingRect(QRect(QPoint(), QSize(room.width(), 10'000)),
                                                        wrapping, label.text());
    EXPECT_LE(text.width(), room.width()) << label.text().toStdString();
    EXPECT_LE(text.height(), room.height()) << label.text().toStdString();
    EXPECT_FALSE(label.text().isEmpty());
  }
};

TEST_F(PanelOnScreen, EveryCaptionIsWholeAndReadable) {
  for (const char *entry : {"Menu_affiche_paramètres", "menu_définir"}) {
    SCOPED_TRACE(entry);
    open(entry);
    for (const QLabel *label : captions()) {
      expect_whole(*label);
      EXPECT_GE(label->font().pixelSize(), smallest_readable) << label->text().toStdString();
      EXPECT_FALSE(label->text().contains(QChar(0x2026))) << label->text().toStdString();
    }
  }
}

TEST_F(PanelOnScreen, NothingLiesOverAnythingElse) {
  open("menu_définir");
  const std::vector<QWidget *> all = parts();
  ASSERT_GE(all.size(), 13U + 16 + 4 + 1);
  for (const QWidget *one : all)
    for (const QWidget *other : all)
      EXPECT_TRUE(one == other || !place(*one).intersects(place(*other)))
          << one->objectName().toStdString() << " and " << other->objectName().toStdString();
}

TEST_F(PanelOnScreen, NothingIsOutsideTheWindowOrTheScreen) {
  open("menu_définir");
  const QRect window(QPoint(0, 0), frame()->size());
  const QRect on_screen(QPoint(0, 0), screen_size());
  for (const QWidget *part : parts()) {
    EXPECT_TRUE(window.contains(place(*part))) << part->objectName().toStdString();
    EXPECT_TRUE(on_screen.contains(place(*part).translated(frame()->pos())))
        << part->objectName().toStdString();
  }
}

TEST_F(PanelOnScreen, ALongPathKeepsToItsLabel) {
  const std::string letters(110, 'm');
  const std::string words =
      "/home/eleve/Documents/Géographie/L'Ardane et ses provinces/Paramétrages/Le nord, villes puis drapeaux";
  for (const std::string &path :
       {words + ".SCI", "/" + letters + ".SCI", "/" + letters + "/" + letters + "/Classe.SCI",
        words + words + words + "/Classe.SCI", std::string(126, '/')}) {
    state().Fichier_lancement = path;
    open("Menu_affiche_paramètres");
    const QLabel &label = *captions()[2];
    expect_whole(label);
    EXPECT_TRUE(label.text().startsWith("Nom du fichier paramétrage :\n"));
    EXPECT_EQ(label.toolTip().toStdString(), path) << "told whole";
    EXPECT_EQ(label.size(), QSize(216, 41));
  }
}

TEST_F(PanelOnScreen, ALongFolderKeepsToTheChoosersLabel) {
  const std::vector<std::string> folders{std::string(120, 'm'),
                                         std::string(200, 'W') + "/" + std::string(9, 'x'),
                                         "un/deux/trois/quatre/cinq/six/sept/huit/neuf/dix/onze/douze"};
  for (const std::string &name : folders) {
    const std::string path = Joindre_chemin(texte_du_chemin(folder.path()), name);
    std::filesystem::create_directories(path);
    ASSERT_TRUE(desktop().programme().contexte().dossier.changer(path));
    order().choose("menu_fichier", "Fichier_lire");
    order().then([&] {
      const auto *label = QApplication::activeModalWidget()->findChild<QLabel *>("Dossier_ouvert");
      expect_whole(*label);
      EXPECT_EQ(label->width(), 388);
      EXPECT_EQ(label->toolTip().toStdString(), path);
    });
    order().click("Bouton_annuler");
    play();
  }
}

TEST_F(PanelOnScreen, EveryTextOfTheChooserIsWhole) {
  order().choose("menu_paramétrer", "menu_recharger");
  order().then([&] {
    for (const QLabel *label : QApplication::activeModalWidget()->findChildren<QLabel *>())
      if (label->isVisible()) expect_whole(*label);
    const QRect inside = QApplication::activeModalWidget()->rect();
    for (const QWidget *part : QApplication::activeModalWidget()->findChildren<QWidget *>())
      if (part->isVisible() && !part->objectName().startsWith("qt_"))
        EXPECT_TRUE(inside.contains(place(*part))) << part->objectName().toStdString();
    EXPECT_TRUE(
        QRect(QPoint(0, 0), screen_size()).contains(QApplication::activeModalWidget()->frameGeometry()));
  });
  order().click("Bouton_annuler");
  play();
}

}  // namespace
}  // namespace ardane
