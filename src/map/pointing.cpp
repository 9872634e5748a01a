#include "map/pointing.h"

#include "map/main_window.h"

namespace ardane {
namespace {

bool contient(const Contrôle &image, double x, double y) {
  return x >= image.gauche && x < image.gauche + image.largeur && y >= image.haut &&
         y < image.haut + image.hauteur;
}

}  // namespace

Contrôle *image_sous(Ecran_principal &principale, double x, double y) {
  Contrôle *dessus = nullptr;
  for (Contrôle &image : principale.contrôles()) {
    if (!image.visible || !image.actif || image.conteneur != &principale.Carte || !image.clic) continue;
    if (contient(image, x, y) && (dessus == nullptr || image.plan > dessus->plan)) dessus = &image;
  }
  return dessus;
}

const Contrôle *image_avec_infobulle(Ecran_principal &principale, double x, double y) {
  const Contrôle *image = image_sous(principale, x, y);
  return image != nullptr && !image->infobulle.empty() ? image : nullptr;
}

}  // namespace ardane
