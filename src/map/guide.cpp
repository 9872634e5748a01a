#include "map/guide.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <optional>

#include "core/game_state.h"
#include "core/hit_test_table.h"
#include "core/resources.h"
#include "map/main_window.h"
#include "map/pointing.h"

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

namespace {

/// The longest way that is a step and no leap.
constexpr int dernier_pas = 10;
/// The scale bar's: a pixel of the map is a kilometre.
constexpr double kilomètres_par_pixel = 1;

struct Direction {
  const char *nom;
  int dx, dy;
};
constexpr std::array directions = std::to_array<Direction>({{"nord", 0, -1},
                                                            {"nord-est", 1, -1},
                                                            {"est", 1, 0},
                                                            {"sud-est", 1, 1},
                                                            {"sud", 0, 1},
                                                            {"sud-ouest", -1, 1},
                                                            {"ouest", -1, 0},
                                                            {"nord-ouest", -1, -1}});

int kilomètres(double dx, double dy) {
  return static_cast<int>(std::lround(std::hypot(dx, dy) * kilomètres_par_pixel));
}

/// The rank of the direction that a way comes nearest to.
std::size_t rang_de_direction(double dx, double dy) {
  const double huitièmes = std::atan2(dx, -dy) / (std::numbers::pi / 4);
  return static_cast<std::size_t>(std::lround(huitièmes) + 8) % 8;
}

bool contient(const Contrôle &image, const Ecran_principal &e, Point lieu) {
  const double x = lieu.x + e.image_région.gauche - image.gauche;
  const double y = lieu.y + e.image_région.haut - image.haut;
  return x >= 0 && y >= 0 && x < image.largeur && y < image.hauteur;
}

/// Calls for every dot and marker that is shown.
template <class Action>
void pour_chaque_repère(Ecran_principal &e, Action action) {
  for (int v = 1; v <= nombre_villes; ++v)
    for (const Contrôle *point : {&e.rond(v), &repère(e, v)})
      if (point->visible) action(*point);
}

bool est_dessinée(Ecran_principal &e, int province) {
  return province != 0 && (e.Pays(province).visible || e.Inv(province).visible);
}

int région_de(const GameState &g, int province) {
  return province == 0 ? 0 : g.TableProvinces(province).région;
}

bool sur_la_carte(const Ecran_principal &e, Point lieu) {
  return lieu.x >= 0 && lieu.y >= 0 && lieu.x < e.image_région.largeur && lieu.y < e.image_région.hauteur;
}

/// A province's pixel is the table's that answers clicks; the picture tells the rest.
Etendue étendue_en(const Contexte &c, Point lieu) {
  return code_du_pixel(c.état, 0, lieu.x, lieu.y) != 0 ? Etendue::province
                                                       : c.ressources.étendues.en(lieu.x, lieu.y);
}

/// What parts two places of which one at least is in no province.
Ligne ligne_entre(Etendue a, Etendue b) {
  const auto est_l_une = [a, b](Etendue étendue) { return a == étendue || b == étendue; };
  if (a == b) return Ligne::aucune;
  if (est_l_une(Etendue::mer)) return Ligne::côte;
  if (est_l_une(Etendue::lac)) return Ligne::rive;
  return est_l_une(Etendue::pays_voisin) ? Ligne::frontière : Ligne::aucune;
}

std::string mot(Etendue étendue) {
  switch (étendue) {
    case Etendue::mer: return "mer";
    case Etendue::lac: return "lac";
    case Etendue::pays_voisin: return "pays voisin";
    case Etendue::îlot: return "îlot";
    case Etendue::province: break;
  }
  return "terre";
}

std::string mot(Ligne ligne) {
  switch (ligne) {
    case Ligne::côte: return "côte";
    case Ligne::rive: return "rive";
    case Ligne::frontière: return "frontière";
    case Ligne::limite_de_province: return "limite de province";
    case Ligne::limite_de_région: return "limite de région";
    case Ligne::aucune: break;
  }
  return {};
}

/// The name that the map shows there; nothing for a dot that shows none.
std::string nom_montré(const Contrôle &point) {
  return est_cliquable(point) ? point.infobulle : std::string();
}

std::string appeler(const std::string &nom) {
  return nom.empty() ? "point" : nom;
}

void ajouter(std::string &phrase, const std::string &partie, const char *séparateur = ", ") {
  if (partie.empty()) return;
  if (!phrase.empty()) phrase += séparateur;
  phrase += partie;
}

/// Something with its distance.
struct Repérage {
  std::string nom;
  int distance;
};

/// The nearest dot in each of the eight directions.
std::array<std::optional<Repérage>, 8> repères_autour(Ecran_principal &e, Point lieu) {
  std::array<std::optional<Repérage>, 8> autour;
  pour_chaque_repère(e, [&](const Contrôle &point) {
    const Point là = milieu(e, point);
    const int dx = là.x - lieu.x, dy = là.y - lieu.y;
    if (contient(point, e, lieu)) return;
    std::optional<Repérage> &voisin = autour.at(rang_de_direction(dx, dy));
    if (const int distance = kilomètres(dx, dy); !voisin || distance < voisin->distance)
      voisin = Repérage{appeler(nom_montré(point)), distance};
  });
  return autour;
}

/// What begins first on the way in a direction: other land or water, what lies behind a line, the map's edge.
Repérage premier_changement(Contexte &c, Point lieu, const Direction &direction) {
  for (int pas = 1;; ++pas) {
    const Point avant{lieu.x + (pas - 1) * direction.dx, lieu.y + (pas - 1) * direction.dy};
    const Point ici{lieu.x + pas * direction.dx, lieu.y + pas * direction.dy};
    const int distance = kilomètres(pas * direction.dx, pas * direction.dy);
    if (!sur_la_carte(c.principale, ici)) return {"bord de la carte", distance};
    const Etendue étendue = étendue_en(c, ici);
    if (étendue != étendue_en(c, avant)) return {mot(étendue), distance};
    if (const Ligne ligne = Ligne_franchie(c, avant, ici); ligne != Ligne::aucune)
      return {mot(ligne), distance};
  }
}

}  // namespace

Vue_du_lieu Voir(Contexte &c, Point lieu) {
  Ecran_principal &e = c.principale;
  Vue_du_lieu vue;
  const int province = code_du_pixel(c.état, 0, lieu.x, lieu.y);
  vue.étendue = étendue_en(c, lieu);
  vue.en_jaune = province != 0 && e.Pays(province).visible;
  pour_chaque_repère(e, [&](const Contrôle &point) { vue.repère |= contient(point, e, lieu); });
  const Contrôle *nommé =
      image_avec_infobulle(e, lieu.x + e.image_région.gauche, lieu.y + e.image_région.haut);
  if (nommé != nullptr) vue.nom = nommé->infobulle;
  return vue;
}

Ligne Ligne_franchie(Contexte &c, Point départ, Point arrivée) {
  const GameState &g = c.état;
  Ecran_principal &e = c.principale;
  const int p = code_du_pixel(g, 0, départ.x, départ.y), q = code_du_pixel(g, 0, arrivée.x, arrivée.y);
  if (p == 0 || q == 0) return ligne_entre(étendue_en(c, départ), étendue_en(c, arrivée));
  if (p == q) return Ligne::aucune;
  const int r = région_de(g, p), s = région_de(g, q);
  if (r != s && (e.Région(r).visible || e.Région(s).visible)) return Ligne::limite_de_région;
  return est_dessinée(e, p) || est_dessinée(e, q) ? Ligne::limite_de_province : Ligne::aucune;
}

std::string Décrire_lieu(Contexte &c, Point départ, Point arrivée) {
  const Vue_du_lieu vue = Voir(c, arrivée);
  std::string phrase;
  if (vue.repère) ajouter(phrase, appeler(vue.nom));
  // Who leaps from one place to another crosses more lines than would be told.
  if (std::max(std::abs(départ.x - arrivée.x), std::abs(départ.y - arrivée.y)) <= dernier_pas)
    ajouter(phrase, mot(Ligne_franchie(c, départ, arrivée)));
  if (vue.en_jaune)
    ajouter(phrase, "en jaune");
  else if (!vue.repère)
    ajouter(phrase, mot(vue.étendue));
  return phrase;
}

std::string Situer(Contexte &c, Point lieu) {
  Ecran_principal &e = c.principale;
  std::optional<Repérage> proche;
  std::string où;
  pour_chaque_repère(e, [&](const Contrôle &point) {
    const Point là = milieu(e, point);
    const int dx = lieu.x - là.x, dy = lieu.y - là.y;
    const std::string nom = nom_montré(point);
    if (nom.empty() || (proche && kilomètres(dx, dy) >= proche->distance)) return;
    proche = Repérage{nom, kilomètres(dx, dy)};
    où = directions.at(rang_de_direction(dx, dy)).nom;
  });
  std::string phrase;
  if (proche && proche->distance == 0)
    phrase = proche->nom;
  else if (proche)
    phrase = std::to_string(proche->distance) + " km au " + où + " de " + proche->nom;
  const auto bord = [](const char *côté, double distance) {
    return std::string(côté) + " " + std::to_string(kilomètres(distance, 0));
  };
  ajouter(phrase, "bords : " + bord("nord", lieu.y), " ; ");
  ajouter(phrase, bord("est", e.image_région.largeur - 1 - lieu.x));
  ajouter(phrase, bord("sud", e.image_région.hauteur - 1 - lieu.y));
  ajouter(phrase, bord("ouest", lieu.x) + " km");
  return phrase;
}

std::string Balayer(Contexte &c, Point lieu) {
  const auto repères = repères_autour(c.principale, lieu);
  std::string phrase;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    Repérage proche = premier_changement(c, lieu, directions.at(i));
    if (const auto &point = repères.at(i); point && point->distance < proche.distance) proche = *point;
    ajouter(phrase,
            std::string(directions.at(i).nom) + " : " + proche.nom + ", " + std::to_string(proche.distance) +
                " km",
            " ; ");
  }
  return phrase;
}

}  // namespace ardane
