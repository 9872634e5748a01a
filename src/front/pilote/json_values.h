// The kinds of value that program-wide variables have, to JSON and back.
//
// A record is an object with its field names. An array is a JSON array that begins at index 0, with null at
// an index below its first; an array of two indices is an array of such arrays.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "core/game_state_fields.h"
#include "core/table.h"
#include "front/pilote/journal.h"
#include "front/pilote/refusal.h"

namespace ardane {

/// Walks a record's fields by name.
template <class T>
concept Fiche = requires(T &fiche) {
  décrire(fiche, [](std::string_view, auto &) {});
};

/// One way to see the three kinds of array.
template <class T>
struct Tableau {
  static constexpr bool est_tableau = false;
};

template <class T, int Premier, int Dernier>
struct Tableau<Table<T, Premier, Dernier>> {
  static constexpr bool est_tableau = true;
  static constexpr bool est_dynamique = false;
  static constexpr int premier = Premier;
  static constexpr int dernier(const Table<T, Premier, Dernier> &) { return Dernier; }
  static auto &élément(auto &table, int i) { return table(i); }
};

template <class T, int P1, int D1, int P2, int D2>
struct Tableau<Table2<T, P1, D1, P2, D2>> {
  static constexpr bool est_tableau = true;
  static constexpr bool est_dynamique = false;
  static constexpr int premier = P1;
  static constexpr int dernier(const Table2<T, P1, D1, P2, D2> &) { return D1; }
  static auto &élément(auto &table, int i) { return table.ligne(i); }
};

template <class T, int Premier>
struct Tableau<TableauDynamique<T, Premier>> {
  static constexpr bool est_tableau = true;
  static constexpr bool est_dynamique = true;
  static constexpr int premier = Premier;
  static int dernier(const TableauDynamique<T, Premier> &table) { return table.dernier(); }
  static auto &élément(auto &table, int i) { return table(i); }
};

template <class T>
Json vers_json(const T &valeur) {
  using Forme = Tableau<T>;
  if constexpr (Forme::est_tableau) {
    Json tableau = Json::array();
    const int dernier = Forme::dernier(valeur);
    if (dernier < Forme::premier) return tableau;
    for (int i = 0; i <= dernier; ++i)
      tableau.push_back(i < Forme::premier ? Json() : vers_json(Forme::élément(valeur, i)));
    return tableau;
  } else if constexpr (Fiche<const T>) {
    Json objet = Json::object();
    décrire(valeur,
            [&](std::string_view nom, const auto &champ) { objet[std::string(nom)] = vers_json(champ); });
    return objet;
  } else if constexpr (std::floating_point<T>) {
    return nombre_json(valeur);
  } else {
    return valeur;
  }
}

/// Throws Refus for a number that a field of that name cannot have, though its kind could: the program trusts
/// some fields, and would end or reckon nonsense.
void exiger_dans_les_bornes(std::string_view champ, const Json &json);

/// Takes over `json` into `valeur`, which may be half changed when the value is refused. Fields that an
/// object does not name stay as they are.
template <class T>
void depuis_json(const Json &json, T &valeur) {
  using Forme = Tableau<T>;
  if constexpr (Forme::est_tableau) {
    if (!json.is_array()) throw Refus("Il faut un tableau, et non " + json.dump());
    const int dernier = static_cast<int>(json.size()) - 1;
    if constexpr (Forme::est_dynamique)
      valeur.redimensionner(dernier);
    else if (dernier != Forme::dernier(valeur))
      throw Refus("Il faut un tableau d'indices 0 à " + std::to_string(Forme::dernier(valeur)) +
                  ", et non 0 à " + std::to_string(dernier));
    for (int i = 0; i <= dernier; ++i) {
      const Json &élément = json[static_cast<std::size_t>(i)];
      if (i >= Forme::premier)
        depuis_json(élément, Forme::élément(valeur, i));
      else if (!élément.is_null())
        throw Refus("Le tableau n'a pas d'indice " + std::to_string(i) + " : il faut y mettre null");
    }
  } else if constexpr (Fiche<T>) {
    if (!json.is_object()) throw Refus("Il faut un objet, et non " + json.dump());
    std::size_t connus = 0;
    décrire(valeur, [&](std::string_view nom, auto &champ) {
      const auto place = json.find(std::string(nom));
      if (place == json.end()) return;
      ++connus;
      exiger_dans_les_bornes(nom, *place);
      depuis_json(*place, champ);
    });
    if (connus != json.size()) throw Refus("L'objet a un champ inconnu : " + json.dump());
  } else if constexpr (std::same_as<T, bool>) {
    if (!json.is_boolean()) throw Refus("Il faut true ou false, et non " + json.dump());
    valeur = json.get<bool>();
  } else if constexpr (std::integral<T>) {
    const bool entier =
        json.is_number_unsigned()
            ? json.get<std::uint64_t>() <= std::uint64_t{std::numeric_limits<T>::max()}
            : json.is_number_integer() && json.get<std::int64_t>() >= std::numeric_limits<T>::min();
    if (!entier)
      throw Refus("Il faut un nombre entier de " + std::to_string(std::numeric_limits<T>::min()) + " à " +
                  std::to_string(std::numeric_limits<T>::max()) + ", et non " + json.dump());
    valeur = json.get<T>();
  } else if constexpr (std::floating_point<T>) {
    if (!json.is_number()) throw Refus("Il faut un nombre, et non " + json.dump());
    valeur = json.get<T>();
  } else {
    static_assert(std::same_as<T, std::string>);
    if (!json.is_string()) throw Refus("Il faut un texte, et non " + json.dump());
    valeur = json.get<std::string>();
  }
}

}  // namespace ardane
