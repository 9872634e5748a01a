#include "map/visibility_rules.h"

#include <array>
#include <cstddef>

#include "core/game_state.h"
#include "map/layers.h"
#include "map/main_window.h"

namespace ardane {
namespace {

// The rows of a table are sets of stages and levels; what they say is asked of functions.

/// A set of stages or of levels.
using Ensemble = unsigned;

template <class... Codes>
constexpr Ensemble parmi(Codes... codes) {
  return ((1U << codes) | ...);
}

constexpr Ensemble tout_niveau =
    parmi(aucun_niveau, niveau_facile, niveau_moyen, niveau_difficile, niveau_expert);

/// A cell that leaves the picture as it is.
constexpr std::nullptr_t inchangé = nullptr;

/// A table of rules, laid out by stage and level so that none is searched for. Two rules for one case do not
/// compile.
template <class Règle>
class Grille {
 public:
  template <std::size_t n>
  constexpr explicit Grille(const std::array<Règle, n> &règles) {
    for (const Règle &règle : règles)
      for (std::size_t étape = 0; étape < nombre_étapes; ++étape)
        for (std::size_t niveau = 0; niveau < nombre_niveaux; ++niveau) {
          if (((règle.étapes >> étape) & (règle.niveaux >> niveau) & 1U) == 0) continue;
          const Règle *&place = cases_.at(étape).at(niveau);
          if (place != nullptr) throw ErreurFatale("Deux règles pour un cas", Lieu::ici());
          place = &règle;
        }
  }

  /// The rule for the present stage and level, null if there is none. A level that cannot be played is no
  /// level.
  const Règle *operator()(const GameState &g) const {
    if (g.Etape < 0 || g.Etape >= static_cast<int>(nombre_étapes)) return nullptr;
    std::int16_t niveau = aucun_niveau;
    if (est_niveau(g.Niveau)) niveau = g.Niveau;
    return cases_.at(static_cast<std::size_t>(g.Etape)).at(static_cast<std::size_t>(niveau));
  }

 private:
  static constexpr std::size_t nombre_étapes = étape_paramétrage_défini + 1;
  static constexpr std::size_t nombre_niveaux = niveau_expert + 1;

  std::array<std::array<const Règle *, nombre_niveaux>, nombre_étapes> cases_{};
};

// --- Provinces

using Condition_province = bool (*)(const GameState &, int);

bool oui(const GameState &, int) {
  return true;
}

bool non(const GameState &, int) {
  return false;
}

bool trouvée(const GameState &g, int i) {
  return g.TableProvinces(i).trouvée;
}

bool pas_trouvée(const GameState &g, int i) {
  return !trouvée(g, i);
}

bool écartée(const GameState &g, int i) {
  return g.TableProvinces(i).inhibée;
}

bool pas_écartée(const GameState &g, int i) {
  return !écartée(g, i);
}

/// Nothing is left to do there: found, or left out of play.
bool réglée(const GameState &g, int i) {
  return trouvée(g, i) || écartée(g, i);
}

bool pas_réglée(const GameState &g, int i) {
  return !réglée(g, i);
}

/// It blinks as the object asked.
bool cible(const GameState &g, int i) {
  return i == g.ProvinceCourante && g.AssistanceActive;
}

struct Règle_province {
  Ensemble étapes, niveaux;
  Condition_province pays, inv, rond;
};

// The marker of stage Régions follows the selection: `montrer_sélection`. In the configuration modes a
// province that is found is one left out.
constexpr std::array règles_provinces = std::to_array<Règle_province>({
    {parmi(étape_repos), tout_niveau, non, non, non},
    {parmi(étape_provinces), parmi(niveau_facile), réglée, pas_réglée, cible},
    {parmi(étape_provinces), parmi(niveau_moyen), réglée, pas_réglée, non},
    {parmi(étape_provinces), parmi(niveau_difficile), écartée, pas_écartée, inchangé},
    {parmi(étape_provinces), parmi(niveau_expert), écartée, non, non},
    {parmi(étape_villes), parmi(niveau_facile), pas_réglée, réglée, cible},
    {parmi(étape_villes), parmi(niveau_moyen, niveau_difficile, niveau_expert), écartée, pas_écartée, non},
    {parmi(étape_drapeaux), parmi(niveau_facile), pas_réglée, réglée, cible},
    {parmi(étape_drapeaux), parmi(niveau_moyen), réglée, pas_réglée, non},
    {parmi(étape_drapeaux), parmi(niveau_difficile), écartée, pas_écartée, non},
    {parmi(étape_drapeaux), parmi(niveau_expert), écartée, non, non},
    {parmi(étape_régions), parmi(niveau_facile), pas_réglée, réglée, inchangé},
    {parmi(étape_régions), parmi(niveau_moyen), réglée, pas_réglée, inchangé},
    {parmi(étape_régions), parmi(niveau_difficile), écartée, pas_écartée, inchangé},
    {parmi(étape_régions), parmi(niveau_expert), écartée, non, inchangé},
    {parmi(étape_révision), tout_niveau, oui, non, non},
    {parmi(étape_paramétrage_affiché, étape_paramétrage_défini), tout_niveau, pas_trouvée, trouvée, non},
});

constexpr Grille<Règle_province> grille_provinces(règles_provinces);

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
  if (hors_sélection || g.RégionCourante == 0) {
    if (!haut_niveau(g)) g.TableClignotement(i) = false;
    rond.visible = false;
    return;
  }
  const bool choisie = est_sélectionnée(g, i);
  const bool membre = est_membre(g, i, g.RégionCourante);
  if (g.Niveau == niveau_facile) {
    if (membre) rond.visible = réglée(g, i);
    if (choisie) g.TableClignotement(i) = true;
  } else if (g.Niveau == niveau_moyen) {
    if (membre) g.TableClignotement(i) = réglée(g, i);
    if (choisie) {
      g.TableClignotement(i) = false;
      rond.visible = true;
    }
  } else {
    rond.visible = choisie;
  }
}

// --- Dots of towns

/// A town with the province that it lies in.
struct Ville {
  const Fiche_ville &fiche;
  const Fiche_province &province;
};

using Condition_repère = bool (*)(const GameState &, const Ville &);

bool oui(const GameState &, const Ville &) {
  return true;
}

bool non(const GameState &, const Ville &) {
  return false;
}

/// Not on a map of its own beside the country's.
bool sur_la_carte(const GameState &, const Ville &ville) {
  return ville.province.encart == 0;
}

bool à_placer(const GameState &g, const Ville &ville) {
  return sur_la_carte(g, ville) && !ville.fiche.trouvée && !ville.province.inhibée;
}

/// The player is learning and has found its province.
bool apprise(const GameState &g, const Ville &ville) {
  return g.ModeApprentissage && ville.province.trouvée;
}

bool apprise_sur_la_carte(const GameState &g, const Ville &ville) {
  return apprise(g, ville) && sur_la_carte(g, ville);
}

bool région_apprise_sur_la_carte(const GameState &g, const Ville &ville) {
  return g.ModeApprentissage && g.TableRégions(ville.province.région).trouvée && sur_la_carte(g, ville);
}

struct Règle_repère {
  Ensemble étapes, niveaux;
  Condition_repère visible;
  Condition_repère nommé;       ///< whether the tool tip tells the name or nothing
  bool actif_inchangé = false;  ///< elsewhere a dot can be clicked exactly when it is seen
};

constexpr bool sans_désactiver = true;

constexpr std::array règles_capitales = std::to_array<Règle_repère>({
    {parmi(étape_repos), tout_niveau, non, inchangé},
    {parmi(étape_villes), parmi(niveau_facile, niveau_difficile), à_placer, non},
    {parmi(étape_villes), parmi(niveau_moyen, niveau_expert), sur_la_carte, non},
    {parmi(étape_provinces, étape_drapeaux, étape_régions, étape_paramétrage_affiché,
           étape_paramétrage_défini),
     parmi(niveau_facile, niveau_moyen, niveau_difficile), oui, apprise},
    {parmi(étape_provinces, étape_drapeaux, étape_régions, étape_paramétrage_affiché,
           étape_paramétrage_défini),
     parmi(niveau_expert), non, apprise, sans_désactiver},
    {parmi(étape_révision), tout_niveau, oui, oui},
});

constexpr std::array règles_autres_villes = std::to_array<Règle_repère>({
    {parmi(étape_provinces), parmi(niveau_facile), apprise_sur_la_carte, apprise},
    {parmi(étape_provinces), parmi(niveau_moyen, niveau_difficile, niveau_expert), non, inchangé},
    {parmi(étape_villes), parmi(niveau_facile, niveau_difficile), à_placer, non},
    {parmi(étape_villes), parmi(niveau_moyen, niveau_expert), sur_la_carte, non},
    {parmi(étape_drapeaux, étape_paramétrage_affiché, étape_paramétrage_défini), parmi(niveau_expert), non,
     inchangé, sans_désactiver},
    {parmi(étape_régions), parmi(niveau_facile), région_apprise_sur_la_carte, apprise},
    {parmi(étape_régions), parmi(niveau_moyen, niveau_difficile, niveau_expert), non, inchangé},
    {parmi(étape_révision), tout_niveau, oui, oui},
});

constexpr Grille<Règle_repère> grille_capitales(règles_capitales);
constexpr Grille<Règle_repère> grille_autres_villes(règles_autres_villes);

void appliquer(const Règle_repère &règle, const GameState &g, const Ville &ville, Contrôle &point) {
  if (règle.visible != inchangé) {
    point.visible = règle.visible(g, ville);
    if (!règle.actif_inchangé) point.actif = point.visible;
  }
  if (règle.nommé == inchangé) return;
  if (règle.nommé(g, ville))
    point.infobulle = ville.fiche.nom;
  else
    point.infobulle.clear();
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
  if (const Règle_province *règle = grille_provinces(g)) {
    montrer(c.principale.Pays(i), règle->pays(g, i));
    montrer(c.principale.Inv(i), règle->inv(g, i));
    Contrôle &rond = c.principale.rond(i);
    if (g.Etape == étape_régions)
      montrer_sélection(c, i, hors_sélection);
    else if (règle->rond != inchangé)
      rond.visible = règle->rond(g, i);
    rond.actif = rond.visible;
  }
  for (const int v : g.VillesParProvince(i)) Montrer_repère(c, v);
}

void Montrer_région(Contexte &c, int r) {
  const GameState &g = c.état;
  bool visible = false;
  switch (g.Etape) {
    case étape_provinces:
    case étape_villes: visible = g.Niveau == niveau_facile; break;
    case étape_régions: visible = bas_niveau(g) && g.TableRégions(r).trouvée; break;
    case étape_révision:
    case étape_paramétrage_défini: visible = true; break;
    default: break;
  }
  c.principale.Région(r).visible = visible;
}

void Montrer_repère(Contexte &c, int v) {
  const GameState &g = c.état;
  const Fiche_ville &fiche = g.TableVilles(v);
  const Règle_repère *règle = (fiche.capitale ? grille_capitales : grille_autres_villes)(g);
  if (règle == nullptr) return;
  Contrôle &point = fiche.capitale ? c.principale.RondPref(v) : c.principale.RondVille(v);
  appliquer(*règle, g, {fiche, g.TableProvinces(fiche.province)}, point);
}

}  // namespace ardane
