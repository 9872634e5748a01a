#include "front/qt/demonstration/map_target.h"

#include <QRect>
#include <algorithm>
#include <cstdlib>

#include "core/hit_test_table.h"
#include "front/qt/control_view.h"
#include "map/main_window.h"
#include "map/pointing.h"

namespace ardane {
namespace {

Contrôle &picture_of(Ecran_principal &main, MapTarget target) {
  return target.kind == MapTarget::Kind::province ? main.Pays(target.number) : repère(main, target.number);
}

/// Marks reach over borders, and a click on one is a click on its town.
bool is_mark(const Contrôle &picture) {
  return picture.nom.starts_with("rond") || picture.nom.starts_with("Rond");
}

/// True if the map's pixel and those around it are the province's.
bool is_inside(const GameState &g, QPoint pixel, int province) {
  for (int dy = -1; dy <= 1; ++dy)
    for (int dx = -1; dx <= 1; ++dx)
      if (code_du_pixel(g, 0, pixel.x() + dx, pixel.y() + dy) != province) return false;
  return true;
}

bool is_reached_at(Programme &programme, MapTarget target, QPoint place) {
  Ecran_principal &main = programme.principale();
  const auto topmost = [&] { return image_sous(main, place.x(), place.y()); };
  if (target.kind == MapTarget::Kind::town) return topmost() == &picture_of(main, target);
  const QPoint scrolled(main.barre_h.valeur, main.barre_v.valeur);
  if (!is_inside(programme.état(), place + scrolled, target.number)) return false;
  const Contrôle *picture = topmost();
  return picture != nullptr && !is_mark(*picture);
}

/// The first place of the area that is accepted, ring by ring from its middle.
template <class Accepts>
std::optional<QPoint> nearest_to_middle(QRect area, Accepts &&accepts) {
  const int last_ring = std::max(area.width(), area.height()) / 2 + 1;
  for (int ring = 0; ring <= last_ring; ++ring) {
    for (int y = -ring; y <= ring; ++y) {
      const int step = std::abs(y) == ring ? 1 : 2 * ring;
      for (int x = -ring; x <= ring; x += step) {
        const QPoint place = area.center() + QPoint(x, y);
        if (area.contains(place) && accepts(place)) return place;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<QPoint> free_place(Programme &programme, MapTarget target) {
  Ecran_principal &main = programme.principale();
  const QRect view(QPoint(0, 0), place_of(main.Carte).size());
  return nearest_to_middle(place_of(picture_of(main, target)), [&](QPoint place) {
    return view.contains(place) && is_reached_at(programme, target, place);
  });
}

QPoint middle(Programme &programme, MapTarget target) {
  return place_of(picture_of(programme.principale(), target)).center();
}

std::string to_text(MapTarget target) {
  return (target.kind == MapTarget::Kind::province ? "la province " : "la ville ") +
         std::to_string(target.number);
}

}  // namespace ardane
