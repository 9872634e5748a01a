#include "map/visibility_rules.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/game_state.h"
#include "map/layers.h"
#include "map/main_window.h"

namespace ardane {
namespace {

// Conditions of the tables. V: the province is found or left out; X: it is left out.
enum class Si : std::uint8_t { non, oui, V, pas_V, X, pas_X, cible, inchangé, sélection, en_jeu, hors_jeu };

struct Règle_province {
  int étape;
  int niveau_premier, niveau_dernier;
  Si pays, inv, rond;
};

constexpr int tout_niveau = 99;

constexpr std::array règles_provinces = std::to_array<Règle_province>({
    {0, 0, tout_niveau, Si::non, Si::non, Si::non},
    {1, 1, 1, Si::V, Si::pas_V, Si::cible},
    {1, 2, 2, Si::V, Si::pas_V, Si::non},
    {1, 3, 3, Si::X, Si::pas_X, Si::inchangé},
    {1, 4, 4, Si::X, Si::non, Si::non},
    {2, 1, 1, Si::pas_V, Si::V, Si::cible},
    {2, 2, 4, Si::X, Si::pas_X, Si::non},
    {3, 1, 1, Si::pas_V, Si::V, Si::cible},
    {3, 2, 2, Si::V, Si::pas_V, Si::non},
    {3, 3, 3, Si::X, Si::pas_X, Si::non},
    {3, 4, 4, Si::X, Si::non, Si::non},
    {4, 1, 1, Si::pas_V, Si::V, Si::sélection},
    {4, 2, 2, Si::V, Si::pas_V, Si::sélection},
    {4, 3, 3, Si::X, Si::pas_X, Si::sélection},
    {4, 4, 4, Si::X, Si::non, Si::sélection},
    {5, 0, tout_niveau, Si::oui, Si::non, Si::non},
    {6, 0, tout_niveau, Si::en_jeu, Si::hors_jeu, Si::non},
    {7, 0, tout_niveau, Si::en_jeu, Si::hors_jeu, Si::non},
});

bool vaut(const GameState &g, Si condition, int i) {
  const Fiche_province &province = g.TableProvinces(i);
  switch (condition) {
    case Si::oui: return true;
    case Si::V: return province.trouvée || province.inhibée;
    case Si::pas_V: return !(province.trouvée || province.inhibée);
    case Si::X: return province.inhibée;
    case Si::pas_X: return !province.inhibée;
    case Si::cible: return i == g.ProvinceCourante && g.AssistanceActive;
    case Si::en_jeu: return !province.trouvée;
    case Si::hors_jeu: return province.trouvée;
    default: return false;
  }
}

/// A picture can be clicked exactly when it is seen.
void montrer(Contrôle &image, bool visible) {
  image.visible = visible;
  image.actif = visible;
}

bool est_membre(const GameState &g, int province, int région) {
  const Fiche_région &fiche = g.TableRégions(région);
  for (int k = 1; k <= fiche.nombre_provinces; ++k)
    if (fiche.membres(k) == province) return true;
  return false;
}

/// Marker and blinking of a province in stage Régions.
void montrer_sélection(Contexte &c, int i, bool hors_sélection) {
  GameState &g = c.état;
  Contrôle &rond = c.principale.rond(i);
  const bool placée = vaut(g, Si::V, i);
  const bool haut_niveau = g.Niveau == 3 || g.Niveau == 4;
  if (hors_sélection || g.RégionCourante == 0) {
    if (!haut_niveau) g.TableClignotement(i) = false;
    rond.visible = false;
    return;
  }
  const bool choisie = est_sélectionnée(g, i);
  const bool membre = est_membre(g, i, g.RégionCourante);
  if (g.Niveau == 1) {
    if (membre) rond.visible = placée;
    if (choisie) g.TableClignotement(i) = true;
  } else if (g.Niveau == 2) {
    if (membre) g.TableClignotement(i) = placée;
    if (choisie) {
      g.TableClignotement(i) = false;
      rond.visible = true;
    }
  } else {
    rond.visible = choisie;
  }
}

/// How a dot's visibility is set: `masqué` hides it and leaves it enabled as it was.
enum class Sort : std::uint8_t { inchangé, montré, caché, masqué };

void appliquer(Contrôle &point, Sort sort) {
  if (sort == Sort::inchangé) return;
  point.visible = sort == Sort::montré;
  if (sort != Sort::masqué) point.actif = point.visible;
}

Sort si(bool visible) {
  return visible ? Sort::montré : Sort::caché;
}

void donner_infobulle(Contrôle &point, const std::string &nom, bool connue) {
  if (connue)
    point.infobulle = nom;
  else
    point.infobulle.clear();
}

void montrer_capitale(Contexte &c, const Fiche_ville &ville, Contrôle &point) {
  const GameState &g = c.état;
  const Fiche_province &province = g.TableProvinces(ville.province);
  switch (g.Etape) {
    case étape_repos: appliquer(point, Sort::caché); break;
    case étape_villes: {
      const bool sur_la_carte = province.encart == 0;
      const bool écartée = ville.trouvée || province.inhibée;
      if (g.Niveau == 1 || g.Niveau == 3) appliquer(point, si(sur_la_carte && !écartée));
      if (g.Niveau == 2 || g.Niveau == 4) appliquer(point, si(sur_la_carte));
      if (g.Niveau != 0) donner_infobulle(point, ville.nom, false);
      break;
    }
    case étape_révision:
      appliquer(point, Sort::montré);
      donner_infobulle(point, ville.nom, true);
      break;
    default:
      if (g.Niveau == 0) break;
      appliquer(point, g.Niveau == 4 ? Sort::masqué : Sort::montré);
      donner_infobulle(point, ville.nom, province.trouvée && g.ModeApprentissage);
  }
}

void montrer_autre_ville(Contexte &c, const Fiche_ville &ville, Contrôle &point) {
  const GameState &g = c.état;
  const Fiche_province &province = g.TableProvinces(ville.province);
  const bool sur_la_carte = province.encart == 0;
  const bool apprise = province.trouvée && g.ModeApprentissage;
  switch (g.Etape) {
    case étape_provinces:
      if (g.Niveau == 1) {
        appliquer(point, si(apprise && sur_la_carte));
        donner_infobulle(point, ville.nom, apprise);
      } else if (g.Niveau != 0) {
        appliquer(point, Sort::caché);
      }
      break;
    case étape_villes: {
      const bool écartée = ville.trouvée || province.inhibée;
      if (g.Niveau == 1 || g.Niveau == 3) appliquer(point, si(sur_la_carte && !écartée));
      if (g.Niveau == 2 || g.Niveau == 4) appliquer(point, si(sur_la_carte));
      if (g.Niveau != 0) donner_infobulle(point, ville.nom, false);
      break;
    }
    case étape_régions:
      if (g.Niveau == 1) {
        appliquer(point, si(g.TableRégions(province.région).trouvée && g.ModeApprentissage && sur_la_carte));
        donner_infobulle(point, ville.nom, apprise);
      } else if (g.Niveau != 0) {
        appliquer(point, Sort::caché);
      }
      break;
    case étape_drapeaux:
    case étape_paramétrage_affiché:
    case étape_paramétrage_défini:
      if (g.Niveau == 4) appliquer(point, Sort::masqué);
      break;
    case étape_révision:
      appliquer(point, Sort::montré);
      donner_infobulle(point, ville.nom, true);
      break;
    default: break;
  }
}

}  // namespace

bool est_sélectionnée(const GameState &g, int province) {
  for (int k = g.ResteRégion + 1; k <= g.TailleRégion; ++k)
    if (g.SélectionRégion(k) == province) return true;
  return false;
}

void Montrer_province(Contexte &c, int i, bool hors_sélection) {
  const GameState &g = c.état;
  Poser_rond(c, i, false, false);
  const auto règle = std::find_if(règles_provinces.begin(), règles_provinces.end(), [&](const auto &r) {
    return r.étape == g.Etape && g.Niveau >= r.niveau_premier && g.Niveau <= r.niveau_dernier;
  });
  if (règle != règles_provinces.end()) {
    montrer(c.principale.Pays(i), vaut(g, règle->pays, i));
    montrer(c.principale.Inv(i), vaut(g, règle->inv, i));
    Contrôle &rond = c.principale.rond(i);
    if (règle->rond == Si::sélection)
      montrer_sélection(c, i, hors_sélection);
    else if (règle->rond != Si::inchangé)
      rond.visible = vaut(g, règle->rond, i);
    rond.actif = rond.visible;
  }
  for (const int v : g.VillesParProvince(i)) Montrer_repère(c, v);
}

void Montrer_région(Contexte &c, int r) {
  const GameState &g = c.état;
  bool visible = false;
  switch (g.Etape) {
    case étape_provinces:
    case étape_villes: visible = g.Niveau == 1; break;
    case étape_régions: visible = (g.Niveau == 1 || g.Niveau == 2) && g.TableRégions(r).trouvée; break;
    case étape_révision:
    case étape_paramétrage_défini: visible = true; break;
    default: break;
  }
  c.principale.Région(r).visible = visible;
}

void Montrer_repère(Contexte &c, int v) {
  const Fiche_ville &ville = c.état.TableVilles(v);
  if (ville.capitale)
    montrer_capitale(c, ville, c.principale.RondPref(v));
  else
    montrer_autre_ville(c, ville, c.principale.RondVille(v));
}

}  // namespace ardane
