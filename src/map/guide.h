// What a player who does not see the map, or has no mouse, is told of it: nothing that an eye would not see.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/context.h"
#include "core/expanses.h"
#include "platform/services.h"

namespace ardane {

/// The places that can be seen and clicked, in pixels of the map: the middle of every dot and marker that is
/// shown, and a place inside every province whose layer is shown without one.
std::vector<Point> Cibles(Contexte &c);

/// What an eye finds at one place of the map.
struct Vue_du_lieu {
  Etendue étendue = Etendue::mer;
  bool en_jaune = false;  ///< a province whose silhouette is filled
  bool repère = false;    ///< a dot or a marker
  std::string nom;        ///< that of its tool tip; empty if it has none
};
Vue_du_lieu Voir(Contexte &c, Point lieu);

/// The line that is crossed on the way from one place to another, as far as it is drawn.
enum class Ligne : std::uint8_t { aucune, côte, rive, frontière, limite_de_province, limite_de_région };
Ligne Ligne_franchie(Contexte &c, Point départ, Point arrivée);

/// What is told when the cursor has come from one place to another.
std::string Décrire_lieu(Contexte &c, Point départ, Point arrivée);
/// Where a place lies: from the nearest name that the map shows, and from its edges, in kilometres.
std::string Situer(Contexte &c, Point lieu);
/// What lies around it, in eight directions from the north on, with its distance.
std::string Balayer(Contexte &c, Point lieu);

}  // namespace ardane
