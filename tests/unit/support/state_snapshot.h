// The program-wide variables as text, value by value, so that two moments of a run can be compared whole.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/game_state_fields.h"

namespace ardane {

/// A value and its path: "TableVilles(12).trouvée". An array whose length changes is one value.
struct Valeur_d_état {
  std::string chemin, texte;
};

/// All values of the record at one moment, always in the same order.
using Photo = std::vector<Valeur_d_état>;

namespace photo {

void relever(Photo &valeurs, const std::string &chemin, const auto &valeur);

template <class T, int Premier, int Dernier>
void relever_table(Photo &valeurs, const std::string &chemin, const Table<T, Premier, Dernier> &table) {
  for (int i = Premier; i <= Dernier; ++i) relever(valeurs, chemin + "(" + std::to_string(i) + ")", table(i));
}

template <class T, int P1, int D1, int P2, int D2>
void relever_table(Photo &valeurs, const std::string &chemin, const Table2<T, P1, D1, P2, D2> &table) {
  for (int i = P1; i <= D1; ++i) relever(valeurs, chemin + "(" + std::to_string(i) + ")", table.ligne(i));
}

template <class T, int Premier>
void relever_table(Photo &valeurs, const std::string &chemin, const TableauDynamique<T, Premier> &table) {
  std::string texte;
  for (int i = Premier; i <= table.dernier(); ++i) {
    Photo élément;
    relever(élément, "", table(i));
    for (const Valeur_d_état &valeur : élément) texte += valeur.texte + ", ";
  }
  valeurs.push_back({chemin, texte});
}

void relever(Photo &valeurs, const std::string &chemin, const auto &valeur) {
  if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(valeur)>>)
    valeurs.push_back({chemin, std::to_string(valeur)});
  else if constexpr (std::is_convertible_v<decltype(valeur), std::string_view>)
    valeurs.push_back({chemin, valeur});
  else if constexpr (requires { relever_table(valeurs, chemin, valeur); })
    relever_table(valeurs, chemin, valeur);
  else
    décrire(valeur, [&](const char *nom, const auto &champ) { relever(valeurs, chemin + "." + nom, champ); });
}

}  // namespace photo

inline Photo photographier(const GameState &g) {
  Photo valeurs;
  décrire(g, [&](const char *nom, const auto &variable) { photo::relever(valeurs, nom, variable); });
  return valeurs;
}

/// "path: before -> after" for all that is not the same, but for the paths that `sauf` names.
inline std::vector<std::string> différences(const Photo &avant, const Photo &après,
                                            const std::function<bool(std::string_view)> &sauf = {}) {
  std::vector<std::string> résultat;
  for (std::size_t i = 0; i < avant.size(); ++i) {
    if (avant[i].texte == après.at(i).texte || (sauf && sauf(avant[i].chemin))) continue;
    résultat.push_back(avant[i].chemin + ": " + avant[i].texte + " -> " + après[i].texte);
  }
  return résultat;
}

/// Names of the variables in which something is not the same, in alphabetical order.
inline std::vector<std::string> variables_changées(const Photo &avant, const Photo &après) {
  std::set<std::string> noms;
  for (std::size_t i = 0; i < avant.size(); ++i)
    if (avant[i].texte != après.at(i).texte)
      noms.insert(avant[i].chemin.substr(0, avant[i].chemin.find_first_of("(.")));
  return {noms.begin(), noms.end()};
}

}  // namespace ardane
