#include "platform/registry_key.h"

#include "platform/text.h"

namespace ardane {
namespace {

constexpr char séparateur_de_clé = '\\';

void ajouter_partie(std::string &clé, std::string_view nom) {
  if (!clé.empty()) clé.push_back(séparateur_de_clé);
  clé.append(nom);
}

}  // namespace

std::vector<std::string_view> parties_de_clé(std::string_view clé) {
  std::vector<std::string_view> parties;
  while (!clé.empty()) {
    const std::string_view partie = couper(clé, séparateur_de_clé);
    if (!partie.empty()) parties.push_back(partie);
  }
  return parties;
}

std::string clé_de(const std::vector<std::string_view> &parties) {
  std::string clé;
  for (const std::string_view partie : parties) ajouter_partie(clé, partie);
  return clé;
}

std::string Joindre_clé(std::string_view clé, std::string_view nom) {
  std::string jointe(clé);
  ajouter_partie(jointe, nom);
  return jointe;
}

}  // namespace ardane
