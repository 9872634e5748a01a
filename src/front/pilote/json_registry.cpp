#include "front/pilote/json_registry.h"

#include <string>

#include "platform/registry_key.h"

namespace ardane {
namespace {

void ajouter_clé(const Registre &registre, const std::string &clé, Json &json) {
  const auto sous_clés = registre.sous_clés(clé);
  const auto valeurs = registre.valeurs(clé);
  if (!clé.empty() && (sous_clés.empty() || !valeurs.empty())) {
    Json &textes = json[clé] = Json::object();
    for (const std::string &nom : valeurs) textes[nom] = registre.lire(clé, nom).value_or("");
  }
  for (const std::string &nom : sous_clés) ajouter_clé(registre, Joindre_clé(clé, nom), json);
}

}  // namespace

Json registre_json(const Registre &registre) {
  Json json = Json::object();
  ajouter_clé(registre, "", json);
  return json;
}

}  // namespace ardane
