#include <iostream>

#include "core/resources.h"
#include "front/pilote/options.h"
#include "front/pilote/pilot.h"
#include "platform/process_start.h"

int main(int argc, char **argv) {
  constexpr int mauvaise_option = 2;
  ardane::ouvrir_les_flux();
  ardane::OptionsPilote options;
  try {
    options = ardane::lire_options(ardane::arguments_du_programme(argc, argv));
    ardane::établir_dossiers(options, argv[0]);
  } catch (const ardane::OptionRefusée &refusée) {
    std::cerr << refusée.what() << '\n';
    return mauvaise_option;
  }
  if (options.version) {
    std::cout << ardane::Présenter_version("ardane-pilote");
    return 0;
  }
  std::ios::sync_with_stdio(false);
  return ardane::Pilote(std::cin, std::cout, options).exécuter();
}
