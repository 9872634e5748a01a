#include "front/pilote/json_boxes.h"

#include <array>
#include <vector>

namespace ardane {
namespace {

struct Bouton_de_boîte {
  std::string_view mot;      ///< in commands
  std::string_view légende;  ///< on the box
  Réponse réponse;
};

constexpr std::array bouton_ok = std::to_array<Bouton_de_boîte>({{"ok", "OK", Réponse::ok}});
constexpr std::array boutons_oui_non =
    std::to_array<Bouton_de_boîte>({{"oui", "Oui", Réponse::oui}, {"non", "Non", Réponse::non}});

std::vector<Bouton_de_boîte> boutons_de(const Boîte &boîte) {
  if (boîte.boutons == Boutons::ok) return {bouton_ok.begin(), bouton_ok.end()};
  return {boutons_oui_non.begin(), boutons_oui_non.end()};
}

std::string_view nom_icône(Icône icône) {
  switch (icône) {
    case Icône::aucune: return "aucune";
    case Icône::information: return "information";
    case Icône::exclamation: return "exclamation";
    case Icône::stop: return "stop";
    case Icône::question: return "question";
  }
  return "";
}

}  // namespace

Json boîte_json(const Boîte &boîte) {
  Json boutons = Json::array();
  for (const Bouton_de_boîte &bouton : boutons_de(boîte)) boutons.push_back(bouton.légende);
  return {{"icône", nom_icône(boîte.icône)},
          {"titre", boîte.titre},
          {"texte", boîte.texte},
          {"boutons", boutons}};
}

std::optional<Réponse> réponse_du_mot(const Boîte &boîte, std::string_view mot) {
  for (const Bouton_de_boîte &bouton : boutons_de(boîte))
    if (bouton.mot == mot) return bouton.réponse;
  return std::nullopt;
}

}  // namespace ardane
