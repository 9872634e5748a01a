// The program-wide variables written down by name, so that a test can say which of them something changes.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "core/game_state_fields.h"

namespace ardane {

/// Each variable's value as text, by its name.
using Photo = std::map<std::string, std::string>;

template <class T>
void mettre_en_texte(std::ostream &sortie, const T &valeur) {
  if constexpr (std::is_arithmetic_v<T>) {
    sortie << +valeur << ' ';
  } else if constexpr (std::is_same_v<T, std::string>) {
    sortie << valeur.size() << ':' << valeur << ' ';
  } else if constexpr (requires { valeur.ligne(0); }) {
    for (int i = T::premier; i <= T::dernier; ++i) mettre_en_texte(sortie, valeur.ligne(i));
  } else if constexpr (requires { valeur.begin(); }) {
    for (const auto &élément : valeur) mettre_en_texte(sortie, élément);
  } else if constexpr (requires { valeur.dernier(); }) {
    sortie << valeur.dernier() << ": ";
    for (int i = T::premier; i <= valeur.dernier(); ++i) mettre_en_texte(sortie, valeur(i));
  } else {
    décrire(valeur, [&](const char *, const auto &champ) { mettre_en_texte(sortie, champ); });
  }
}

inline Photo photographier(const GameState &g) {
  Photo photo;
  décrire(g, [&](const char *nom, const auto &variable) {
    std::ostringstream texte;
    mettre_en_texte(texte, variable);
    photo.emplace(nom, texte.str());
  });
  return photo;
}

/// Names of the variables that differ, in alphabetical order.
inline std::vector<std::string> différences(const Photo &avant, const Photo &après) {
  std::vector<std::string> noms;
  for (const auto &[nom, texte] : avant)
    if (après.at(nom) != texte) noms.push_back(nom);
  return noms;
}

}  // namespace ardane
