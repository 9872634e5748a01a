// Systems other than Windows: arguments and streams are bytes.
#include "platform/process_start.h"

namespace ardane {

std::vector<std::string> arguments_du_programme(int argc, char **argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void ouvrir_les_flux() {}

void ouvrir_les_flux_du_bureau() {}

}  // namespace ardane
