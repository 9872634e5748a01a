#include "armorial/tinctures.h"

#include <algorithm>
#include <array>

namespace atelier {
namespace {

struct Nom_d_émail {
  std::string_view nom;
  Émail émail;
  Classe_d_émail classe;
};
constexpr std::array<Nom_d_émail, 10> émaux{{
    {"or", Émail::or_, Classe_d_émail::métal},
    {"argent", Émail::argent, Classe_d_émail::métal},
    {"gueules", Émail::gueules, Classe_d_émail::couleur},
    {"azur", Émail::azur, Classe_d_émail::couleur},
    {"sable", Émail::sable, Classe_d_émail::couleur},
    {"sinople", Émail::sinople, Classe_d_émail::couleur},
    {"pourpre", Émail::pourpre, Classe_d_émail::couleur},
    {"hermine", Émail::hermine, Classe_d_émail::libre},
    {"vair", Émail::vair, Classe_d_émail::libre},
    {"naturel", Émail::naturel, Classe_d_émail::libre},
}};

}  // namespace

Classe_d_émail classe(Émail émail) {
  return émaux[static_cast<std::size_t>(émail)].classe;
}

std::string_view nom(Émail émail) {
  return émaux[static_cast<std::size_t>(émail)].nom;
}

std::optional<Émail> émail_nommé(std::string_view nom) {
  const auto found = std::find_if(émaux.begin(), émaux.end(),
                                  [nom](const Nom_d_émail &candidat) { return candidat.nom == nom; });
  if (found == émaux.end()) return {};
  return found->émail;
}

}  // namespace atelier
