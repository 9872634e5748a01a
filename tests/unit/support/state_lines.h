// The program-wide variables as lines of text, so that two moments of a run can be compared whole.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/game_state_fields.h"

namespace ardane {

/// A value and its path: "TableVilles(12).trouvée". An array whose length changes is one value.
struct Ligne_d_état {
  std::string chemin, texte;
};

/// All values, always in the same order.
using Lignes_d_état = std::vector<Ligne_d_état>;

namespace lignes_d_état {

void relever(Lignes_d_état &lignes, const std::string &chemin, const auto &valeur);

template <class T, int Premier, int Dernier>
void relever_table(Lignes_d_état &lignes, const std::string &chemin,
                   const Table<T, Premier, Dernier> &table) {
  for (int i = Premier; i <= Dernier; ++i) relever(lignes, chemin + "(" + std::to_string(i) + ")", table(i));
}

template <class T, int P1, int D1, int P2, int D2>
void relever_table(Lignes_d_état &lignes, const std::string &chemin, const Table2<T, P1, D1, P2, D2> &table) {
  for (int i = P1; i <= D1; ++i) relever(lignes, chemin + "(" + std::to_string(i) + ")", table.ligne(i));
}

template <class T, int Premier>
void relever_table(Lignes_d_état &lignes, const std::string &chemin,
                   const TableauDynamique<T, Premier> &table) {
  std::string texte;
  for (int i = Premier; i <= table.dernier(); ++i) {
    Lignes_d_état élément;
    relever(élément, "", table(i));
    for (const Ligne_d_état &ligne : élément) texte += ligne.texte + ", ";
  }
  lignes.push_back({chemin, texte});
}

void relever(Lignes_d_état &lignes, const std::string &chemin, const auto &valeur) {
  if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(valeur)>>)
    lignes.push_back({chemin, std::to_string(valeur)});
  else if constexpr (std::is_convertible_v<decltype(valeur), std::string_view>)
    lignes.push_back({chemin, valeur});
  else if constexpr (requires { relever_table(lignes, chemin, valeur); })
    relever_table(lignes, chemin, valeur);
  else
    décrire(valeur, [&](const char *nom, const auto &champ) { relever(lignes, chemin + "." + nom, champ); });
}

}  // namespace lignes_d_état

inline Lignes_d_état relever_état(const GameState &g) {
  Lignes_d_état lignes;
  décrire(g, [&](const char *nom, const auto &variable) { lignes_d_état::relever(lignes, nom, variable); });
  return lignes;
}

/// "path: before -> after" for all that is not the same, but for the paths that `sauf` names.
inline std::vector<std::string> différences(const Lignes_d_état &avant, const Lignes_d_état &après,
                                            const std::function<bool(std::string_view)> &sauf = {}) {
  std::vector<std::string> résultat;
  for (std::size_t i = 0; i < avant.size(); ++i) {
    if (avant[i].texte == après.at(i).texte || (sauf && sauf(avant[i].chemin))) continue;
    résultat.push_back(avant[i].chemin + ": " + avant[i].texte + " -> " + après[i].texte);
  }
  return résultat;
}

}  // namespace ardane
