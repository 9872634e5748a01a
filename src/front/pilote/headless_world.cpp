#include "front/pilote/headless_world.h"

#include "core/paths.h"
#include "platform/registry_store.h"

namespace ardane {
namespace {

std::unique_ptr<Registre> ouvrir_registre(const Options &options) {
  if (options.registre.empty()) return std::make_unique<RegistreMémoire>();
  return std::make_unique<RegistreFichier>(chemin_natif(options.registre));
}

}  // namespace

MondeScripté::MondeScripté(const Options &options, Journal &journal, Attente &attente)
    : registre(ouvrir_registre(options)),
      écran(options),
      son(journal),
      horloge(options),
      hasard(options),
      web(journal),
      aide(journal),
      boîtes(journal, attente),
      façade(journal, attente) {}

Monde MondeScripté::monde() {
  return {boîtes, *registre, écran, son, horloge, hasard, web, aide, façade};
}

}  // namespace ardane
