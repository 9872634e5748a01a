#include "map/guide.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "core/game_state.h"
#include "core/hit_test_table.h"
#include "map/main_window.h"

namespace ardane {
namespace {

bool est_cliquable(const Contrôle &image) {
  return image.visible && image.actif && image.clic;
}

Point milieu(const Ecran_principal &e, const Contrôle &image) {
  return {static_cast<int>(std::lround(image.gauche - e.image_région.gauche + image.largeur / 2)),
          static_cast<int>(std::lround(image.haut - e.image_région.haut + image.hauteur / 2))};
}

/// The pixel of the province that is nearest to the middle of its layer, ring by ring.
std::optional<Point> intérieur(const GameState &g, int p, Point centre, int dernier_anneau) {
  for (int r = 0; r <= dernier_anneau; ++r)
    for (int dy = -r; dy <= r; ++dy)
      for (int dx = -r; dx <= r; dx += std::abs(dy) == r ? 1 : std::max(1, 2 * r))
        if (code_du_pixel(g, 0, centre.x + dx, centre.y + dy) == p)
          return Point{centre.x + dx, centre.y + dy};
  return std::nullopt;
}

}  // namespace

std::vector<Point> Cibles(Contexte &c) {
  Ecran_principal &e = c.principale;
  std::vector<Point> cibles;
  std::array<bool, nombre_provinces + 1> marquée{};
  for (int v = 1; v <= nombre_villes; ++v)
    for (const Contrôle *point : {&e.rond(v), &repère(e, v)}) {
      if (!est_cliquable(*point)) continue;
      cibles.push_back(milieu(e, *point));
      marquée.at(static_cast<std::size_t>(c.état.TableVilles(v).province)) = true;
    }
  for (int p = 1; p <= nombre_provinces; ++p)
    for (const Contrôle *couche : {&e.Pays(p), &e.Inv(p)}) {
      if (!est_cliquable(*couche) || marquée.at(static_cast<std::size_t>(p))) continue;
      const int anneaux = static_cast<int>(std::max(couche->largeur, couche->hauteur) / 2) + 1;
      if (const auto place = intérieur(c.état, p, milieu(e, *couche), anneaux)) cibles.push_back(*place);
    }
  return cibles;
}

}  // namespace ardane
