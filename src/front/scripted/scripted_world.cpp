#include "front/scripted/scripted_world.h"

#include "core/paths.h"
#include "platform/registry_store.h"

namespace ardane {
namespace {

std::unique_ptr<Registre> ouvrir_registre(const OptionsMonde &options) {
  if (options.registre.empty()) return std::make_unique<RegistreMémoire>();
  return std::make_unique<RegistreFichier>(chemin_natif(options.registre));
}

}  // namespace

MondeScripté::MondeScripté(const OptionsMonde &options, Témoin &témoin, Attente &attente)
    : registre(ouvrir_registre(options)),
      écran(options, témoin),
      son(témoin),
      horloge(options),
      hasard(options),
      web(témoin),
      aide(témoin),
      boîtes(témoin, attente),
      façade(témoin, attente) {}

Monde MondeScripté::monde() {
  return {boîtes, *registre, écran, son, horloge, hasard, web, aide, façade};
}

}  // namespace ardane
