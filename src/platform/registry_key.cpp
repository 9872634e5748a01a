#include "platform/registry_key.h"

#include "platform/text.h"

namespace ardane {
namespace {

constexpr char séparateur_de_clé = '\\';

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
  for (const std::string_view partie : parties) clé = Joindre_clé(clé, partie);
  return clé;
}

std::string Joindre_clé(std::string_view clé, std::string_view nom) {
  std::string jointe(clé);
  if (!jointe.empty()) jointe.push_back(séparateur_de_clé);
  return jointe.append(nom);
}

}  // namespace ardane
