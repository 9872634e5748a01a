#include "armorial/paint.h"

#include <cmath>
#include <cstdint>

#include "armorial/blazon.h"
#include "numbers/math.h"

namespace atelier {
namespace {

Pixel mêlé(Pixel de, Pixel à, double t) {
  const auto canal = [t](std::uint8_t a, std::uint8_t b) {
    return static_cast<std::uint8_t>(std::lround(mix(a, b, t)));
  };
  return {canal(de.r, à.r), canal(de.g, à.g), canal(de.b, à.b)};
}

/// The tone for lines drawn on a body of this colour. On black a darker one would not be seen: it is grey
/// there.
Pixel ombre(Pixel corps) {
  const int clarté = corps.r * 3 + corps.g * 6 + corps.b;
  if (clarté < 700) return {132, 124, 116};
  return mêlé(corps, {24, 12, 16}, clarté > 1900 ? 0.42 : 0.5);
}

}  // namespace

Pixel couleur(Émail émail) {
  switch (émail) {
    case Émail::or_: return {243, 192, 54};
    case Émail::argent:
    case Émail::hermine: return {246, 243, 234};
    case Émail::gueules: return {196, 32, 44};
    case Émail::azur:
    case Émail::vair: return {34, 88, 168};
    case Émail::sable: return {44, 40, 38};
    case Émail::sinople: return {38, 122, 66};
    case Émail::pourpre: return {122, 56, 130};
    case Émail::naturel: return {150, 106, 62};
  }
  return encre;
}

Pixel peinture(const Meuble &meuble, const Objet &objet, const Trait_de_meuble &trait) {
  std::string nom_ = trait.peinture;
  if (const auto détail = meuble.détails.find(nom_); détail != meuble.détails.end()) {
    if (const auto choisi = objet.détails.find(nom_); choisi != objet.détails.end())
      return couleur(choisi->second);
    nom_ = détail->second;
  }
  const Pixel corps = objet.émail == Émail::naturel ? meuble.naturel : couleur(objet.émail);
  if (nom_ == "corps") return corps;
  if (nom_ == "ombre") return ombre(corps);
  if (nom_ == "clair") return mêlé(corps, {255, 255, 255}, 0.4);
  if (nom_ == "encre") return encre;
  if (nom_.starts_with('#')) return lire_couleur(nom_);
  if (const auto émail = émail_nommé(nom_); émail && *émail <= Émail::pourpre) return couleur(*émail);
  throw Erreur_de_blason("charge \"" + meuble.nom + "\": no paint named " + nom_);
}

}  // namespace atelier
