// A renderer with pictures of its own, for windows that a test makes.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "core/resources.h"
#include "front/qt/appearance.h"
#include "front/qt/boxes.h"
#include "front/qt/renderer.h"

namespace ardane {

/// One picture of a test's stock, all of one colour.
struct Patch {
  std::string name;
  int width, height;
  QColor colour;
  bool doubled = false;  ///< has a 2x version, of the inverse colour
};

/// Adds a control of that kind at that place.
inline Contrôle &place(Fenêtre &window, const std::string &name, Genre genre, QRect where,
                       Contrôle *holder = nullptr) {
  Contrôle control;
  control.nom = name;
  control.genre = genre;
  control.gauche = where.x();
  control.haut = where.y();
  control.largeur = where.width();
  control.hauteur = where.height();
  control.conteneur = holder;
  return window.ajouter(std::move(control));
}

inline std::string catalogue_of(const std::vector<Patch> &patches) {
  std::string text;
  for (const Patch &p : patches)
    text += p.name + "|" + p.name + ".png|" + std::to_string(p.width) + "|" + std::to_string(p.height) + "\n";
  return text;
}

class Stage {
 public:
  explicit Stage(const std::vector<Patch> &patches = {}) : catalogue(catalogue_of(patches)) {
    for (const Patch &p : patches) {
      paint(p, 1, p.colour, ".png");
      if (p.doubled) paint(p, 2, QColor::fromRgb(p.colour.rgb() ^ 0xFFFFFF), "@2x.png");
    }
  }

  /// The widget of a control, which must have been seen; null otherwise.
  template <class W = QWidget>
  W *widget(const Fenêtre &window, const char *control) const {
    QWidget *frame = renderer.frame(window);
    return frame == nullptr ? nullptr : frame->findChild<W *>(QString::fromUtf8(control));
  }

 private:
  void paint(const Patch &p, int ratio, const QColor &colour, const char *suffix) const {
    QImage image(p.width * ratio, p.height * ratio, QImage::Format_ARGB32);
    image.fill(colour);
    image.save(folder.filePath(QString::fromStdString(p.name + suffix)));
  }

 public:
  QTemporaryDir folder;
  CatalogueImages catalogue;
  Dispatcher dispatcher;
  ScreenQt screen;
  PictureStore pictures{catalogue, folder.path()};
  Renderer renderer{dispatcher, pictures, screen};
  BoxesQt boxes{dispatcher, screen, renderer};
};

}  // namespace ardane
