#include "front/pilote/journal.h"

#include <cmath>
#include <cstdint>

namespace ardane {

Json nombre_json(double mesure) {
  constexpr double plus_grand_entier = 9007199254740992.0;
  if (std::trunc(mesure) == mesure && std::abs(mesure) <= plus_grand_entier)
    return static_cast<std::int64_t>(mesure);
  return mesure;
}

void Journal::écrire(const Json &ligne) {
  sortie_ << ligne.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace ardane
