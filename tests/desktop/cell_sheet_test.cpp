// The cells of a table, which have no widgets of their own.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QPaintEvent>

#include "cells.h"
#include "front/qt/accessibility.h"
#include "listener.h"
#include "stage.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What a widget has been asked to paint.
class PaintedParts : public QObject {
 public:
  explicit PaintedParts(QWidget &widget) { widget.installEventFilter(this); }
  QRegion parts;

 private:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::Paint) parts |= static_cast<QPaintEvent *>(event)->region();
    return false;
  }
};

class Cells : public testing::Test {
 protected:
  static Contrôle &add_cell(Fenêtre &holder, const char *named, QRect where, const char *text) {
    Contrôle &cell = place(holder, named, Genre::étiquette, where);
    cell.cellule = true;
    cell.bord = Bord::avec;
    cell.texte = text;
    return cell;
  }
  void show(Fenêtre &shown) {
    shown.largeur = 300;
    shown.hauteur = 200;
    stage.renderer.montrer(shown);
  }
  void sync() {
    stage.renderer.sync();
    QApplication::processEvents();
  }
  QWidget &frame() { return *stage.renderer.frame(window); }
  CellSheet &sheet() { return sheet_of(frame()); }
  std::string read(const char *cell) { return read_cell(frame(), cell); }
  QImage picture(const Contrôle &cell) { return sheet().grab(place_of(cell)).toImage(); }
  QImage picture_of_label_like(const Contrôle &cell) {
    Fenêtre other{"autre"};
    Contrôle label = cell;
    label.cellule = false;
    other.ajouter(std::move(label));
    show(other);
    const QImage shown = stage.widget(other, cell.nom.c_str())->grab().toImage();
    stage.renderer.retirer(other);
    return shown;
  }

  Stage stage;
  Fenêtre window{"fenêtre"};
  Contrôle &name = add_cell(window, "Nom(1)", {8, 20, 161, 17}, "Hautemer");
  Contrôle &loss = add_cell(window, "Perte(1)", {176, 20, 69, 17}, "12");
};

TEST_F(Cells, ACellLooksLikeALabelWithABorder) {
  show(window);
  EXPECT_EQ(picture(name), picture_of_label_like(name));
}

TEST_F(Cells, AHeadingLooksLikeALabelOfTwoLinesWithoutABorder) {
  name.bord = Bord::selon_genre;
  name.alignement = Alignement::centre;
  name.texte = "Recherche des provinces";
  name.largeur = 77;
  name.hauteur = 30;
  show(window);
  EXPECT_EQ(picture(name), picture_of_label_like(name));
}

TEST_F(Cells, ItStandsOnItsOwnGroundWithinItsFrame) {
  loss.fond = Couleur{0, 255, 0};
  show(window);
  const QImage shown = picture(loss);
  const QPoint inside(shown.width() - 3, shown.height() - 3);
  EXPECT_EQ(shown.pixelColor(inside), QColor(0, 255, 0));
  EXPECT_NE(shown.pixelColor(0, 0), QColor(0, 255, 0));
  loss.fond = Couleur_système::barre_de_défilement;
  sync();
  EXPECT_EQ(picture(loss).pixel(inside), QApplication::palette().color(QPalette::Midlight).rgb());
  loss.fond.reset();
  sync();
  EXPECT_EQ(picture(loss).pixel(inside), frame().palette().color(QPalette::Window).rgb());
}

TEST_F(Cells, ACellFollowsItsDataAndGoesWithIt) {
  show(window);
  EXPECT_EQ(read("Nom(1)"), "Hautemer");
  name.texte = "Brume & Orme";
  loss.visible = false;
  sync();
  EXPECT_EQ(read("Nom(1)"), "Brume & Orme");
  EXPECT_EQ(read("Perte(1)"), "");
  const QImage empty = picture(loss);
  EXPECT_EQ(empty.pixelColor(0, 0), empty.pixelColor(4, 4)) << "its frame has gone";
  window.retirer(name);
  add_cell(window, "Nom(2)", {8, 40, 161, 17}, "Lisière");
  sync();
  EXPECT_EQ(read("Nom(1)"), "");
  EXPECT_EQ(read("Nom(2)"), "Lisière");
}

TEST_F(Cells, OnlyWhatHasChangedIsPaintedAnew) {
  show(window);
  QApplication::processEvents();
  PaintedParts painted(sheet());
  sync();
  EXPECT_TRUE(painted.parts.isEmpty());
  loss.texte = "13";
  sync();
  EXPECT_EQ(painted.parts, QRegion(place_of(loss)));
}

TEST_F(Cells, ATextTooLongIsSetSmallerAndOneTooLongForAnySizeLosesItsMiddle) {
  loss.texte = "12345678901";
  name.texte = "a" + std::string(150, 'm') + "z";
  show(window);
  EXPECT_EQ(read("Perte(1)"), "12345678901");
  EXPECT_THAT(read("Nom(1)"), testing::MatchesRegex("am+…m+z"));
}

TEST_F(Cells, AScreenReaderFindsTheCellsBehindTheWidgets) {
  install_accessibility();
  place(window, "bouton", Genre::bouton, {8, 60, 40, 20}).texte = "Fermer";
  loss.nom_parlé = "12, trouvé";
  show(window);
  QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&sheet());
  ASSERT_EQ(table->childCount(), 3);
  const auto said = [&](int index) { return table->child(index)->text(QAccessible::Name); };
  EXPECT_EQ(said(0), "Fermer");
  EXPECT_EQ(said(1), "Hautemer");
  EXPECT_EQ(said(2), "12, trouvé");
  EXPECT_EQ(table->child(3), nullptr);
  QAccessibleInterface *cell = table->child(2);
  EXPECT_EQ(table->indexOfChild(cell), 2);
  EXPECT_EQ(table->indexOfChild(table->child(0)), 0);
  EXPECT_EQ(cell->parent(), table);
  EXPECT_EQ(cell->window(), frame().windowHandle());
  EXPECT_EQ(cell->role(), QAccessible::StaticText);
  const QRect where(sheet().mapToGlobal(QPoint(176, 20)), QSize(69, 17));
  EXPECT_EQ(cell->rect(), where);
  EXPECT_EQ(table->childAt(where.center().x(), where.center().y()), cell);
  EXPECT_TRUE(cell->isValid());
  EXPECT_FALSE(cell->state().focusable);
  window.retirer(loss);
  sync();
  EXPECT_FALSE(cell->isValid()) << "whoever holds it still asks";
  EXPECT_EQ(cell->text(QAccessible::Name), "");
  EXPECT_EQ(table->childCount(), 2);
  const QAccessible::Id known_by = QAccessible::uniqueId(cell);
  ASSERT_EQ(QAccessible::accessibleInterface(known_by), cell);
  stage.renderer.retirer(window);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QAccessible::accessibleInterface(known_by), nullptr) << "it has gone with its window";
}

TEST_F(Cells, AScreenReaderHearsOfTheCellsThatHaveChanged) {
  install_accessibility();
  show(window);
  Listener listener;
  loss.texte = "13";
  stage.renderer.sync();
  EXPECT_THAT(listener.heard(QAccessible::NameChanged), ElementsAre("13"));
  listener.forget();
  stage.renderer.sync();
  EXPECT_THAT(listener.heard(QAccessible::NameChanged), IsEmpty());
}

}  // namespace
}  // namespace ardane
