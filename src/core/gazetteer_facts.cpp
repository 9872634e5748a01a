#include "core/gazetteer_facts.h"

#include "core/game_state.h"

namespace ardane {
namespace {

template <class Condition>
std::vector<std::string> noms_des_villes(const GameState &g, int province, Condition retenir) {
  std::vector<std::string> noms;
  for (const int v : g.VillesParProvince(province))
    if (retenir(g.TableVilles(v))) noms.push_back(g.TableVilles(v).nom);
  return noms;
}

}  // namespace

std::string Nom_de_capitale(const GameState &g, int province) {
  const auto capitales =
      noms_des_villes(g, province, [](const Fiche_ville &ville) { return ville.capitale; });
  return capitales.empty() ? std::string{} : capitales.front();
}

std::vector<std::string> Noms_des_villes(const GameState &g, int province) {
  return noms_des_villes(g, province, [](const Fiche_ville &) { return true; });
}

std::vector<std::string> Noms_des_autres_villes(const GameState &g, int province) {
  return noms_des_villes(g, province, [](const Fiche_ville &ville) { return !ville.capitale; });
}

}  // namespace ardane
