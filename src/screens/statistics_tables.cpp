#include "screens/statistics_tables.h"

#include <algorithm>

namespace ardane {
namespace {

constexpr Couleur vert{0, 255, 0};

/// The objects of 1..dernier that are in play, by falling points.
template <class EnJeu, class Points>
void trier(GameState &g, int dernier, EnJeu en_jeu, Points points) {
  std::vector<std::int16_t> objets;
  for (int i = 1; i <= dernier; ++i)
    if (en_jeu(i)) objets.push_back(static_cast<std::int16_t>(i));
  std::stable_sort(objets.begin(), objets.end(), [&](int a, int b) { return points(a) > points(b); });
  std::copy(objets.begin(), objets.end(), g.OrdreTableau.begin() + 1);
}

}  // namespace

void Trier_provinces(GameState &g) {
  trier(
      g, nombre_provinces, [&](int p) { return !g.TableProvinces(p).inhibée; },
      [&](int p) { return g.TableProvinces(p).points_perdus(0); });
}

void Trier_régions(GameState &g) {
  trier(
      g, nombre_régions, [&](int r) { return !g.TableRégions(r).inhibée; },
      [&](int r) { return g.TableRégions(r).points_perdus; });
}

void Trier_villes(GameState &g) {
  trier(
      g, nombre_villes, [&](int v) { return !g.TableProvinces(g.TableVilles(v).province).inhibée; },
      [&](int v) { return g.TableVilles(v).points_perdus; });
}

int nombre_de_lignes(const GameState &g, Tableau tableau) {
  switch (tableau) {
    case Tableau::provinces: return g.ProvincesEnJeu;
    case Tableau::régions: return g.RégionsEnJeu;
    case Tableau::villes: return g.VillesEnJeu;
    case Tableau::aucun: break;
  }
  return 0;
}

bool Région_hors_jeu(const GameState &g, int région) {
  return std::none_of(
      g.TableProvinces.begin() + 1, g.TableProvinces.end(),
      [&](const Fiche_province &province) { return province.région == région && !province.inhibée; });
}

Coût coût_de_province(const GameState &g, int province, int étape) {
  const Fiche_province &fiche = g.TableProvinces(province);
  return {fiche.points_perdus(étape), fiche.trouvée_étape(étape), fiche.inhibée};
}

Coût coût_de_région(const GameState &g, int région) {
  const Fiche_région &fiche = g.TableRégions(région);
  return {fiche.points_perdus, fiche.trouvée_étape, fiche.inhibée || Région_hors_jeu(g, région)};
}

Coût coût_de_ville(const GameState &g, int ville) {
  const Fiche_ville &fiche = g.TableVilles(ville);
  return {fiche.points_perdus, fiche.trouvée_étape, g.TableProvinces(fiche.province).inhibée};
}

Teinte Couleur_étape(const GameState &g, int étape) {
  if (Jeu_utilisé(g, étape)) return rouge;
  return Couleur_système::barre_de_défilement;
}

Teinte couleur_de_cellule(const GameState &g, const Coût &coût, int étape) {
  if (coût.trouvée && coût.points == 0) return vert;
  if (coût.trouvée || coût.hors_jeu) return Couleur_système::barre_de_défilement;
  return Couleur_étape(g, étape);
}

std::string mots_de_cellule(const GameState &g, const Coût &coût, int étape) {
  if (coût.trouvée) return coût.points == 0 ? "trouvé du premier coup" : "trouvé";
  return coût.hors_jeu || !Jeu_utilisé(g, étape) ? "pas joué" : "pas trouvé";
}

}  // namespace ardane
