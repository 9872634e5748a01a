// What the gazetteer says of one province, beyond its own row.
#pragma once

#include <string>
#include <vector>

namespace ardane {

struct GameState;

/// Name of a province's capital, the first town of its that is one; empty if there is none.
std::string Nom_de_capitale(const GameState &g, int province);
/// Names of all towns of a province, in table order.
std::vector<std::string> Noms_des_villes(const GameState &g, int province);
/// The same without capitals.
std::vector<std::string> Noms_des_autres_villes(const GameState &g, int province);

}  // namespace ardane
