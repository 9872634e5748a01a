#include "answers.h"

#include <algorithm>
#include <stdexcept>

#include "core/game_state.h"

namespace ardane {
namespace {

// From the corner of a town's dot to its middle, in pixels.
constexpr int milieu_x = 3;
constexpr int milieu_y = 4;

std::string point_de(Conversation &pilote, int ville) {
  const Json fiche = pilote.état("TableVilles(" + std::to_string(ville) + ")");
  return std::to_string(fiche["x"].get<int>() + milieu_x) + " " +
         std::to_string(fiche["y"].get<int>() + milieu_y);
}

bool est_choisie(Conversation &pilote, int province) {
  const Json sélection = pilote.état("SélectionRégion");
  const auto premier = sélection.begin() + pilote.état("ResteRégion").get<int>() + 1;
  return std::find(premier, sélection.end(), province) != sélection.end();
}

/// First province to be found that `convient`, by its number and record.
template <class Condition>
std::string première_province(Conversation &pilote, const Condition &convient) {
  const Json provinces = pilote.état("TableProvinces");
  for (int i = 1; i <= nombre_provinces; ++i) {
    const Json &province = provinces[static_cast<std::size_t>(i)];
    if (province["trouvée"] == false && province["inhibée"] == false && convient(i, province))
      return point_de(pilote, i);
  }
  throw std::runtime_error("no such province is left");
}

}  // namespace

std::string bonne_réponse(Conversation &pilote) {
  switch (pilote.état("Etape").get<int>()) {
    case étape_provinces:
    case étape_drapeaux: return point_de(pilote, pilote.état("ProvinceCourante").get<int>());
    case étape_villes: return point_de(pilote, pilote.état("VilleCourante").get<int>());
    case étape_régions: {
      const Json région = pilote.état("RégionCourante");
      return première_province(pilote, [&](int i, const Json &province) {
        return province["région"] == région && !est_choisie(pilote, i);
      });
    }
    default: throw std::runtime_error("the game asks nothing");
  }
}

std::string mauvaise_réponse(Conversation &pilote) {
  const int étape = pilote.état("Etape").get<int>();
  if (étape < étape_provinces || étape > étape_régions) throw std::runtime_error("the game asks nothing");
  const Json région = pilote.état("RégionCourante");
  const Json question = pilote.état("ProvinceCourante");
  return première_province(pilote, [&](int i, const Json &province) {
    return étape == étape_régions ? province["région"] != région && !est_choisie(pilote, i) : i != question;
  });
}

std::string province_de(Conversation &pilote, std::string_view région) {
  const Json régions = pilote.état("TableRégions");
  for (int r = 1; r <= nombre_régions; ++r) {
    if (régions[static_cast<std::size_t>(r)]["nom"] != région) continue;
    return première_province(pilote, [r](int, const Json &province) { return province["région"] == r; });
  }
  throw std::runtime_error("no region bears the name " + std::string(région));
}

}  // namespace ardane
