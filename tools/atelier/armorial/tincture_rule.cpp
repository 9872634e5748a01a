#include "armorial/tincture_rule.h"

#include <algorithm>
#include <optional>
#include <string>

namespace atelier {
namespace {

/// The rule of tincture over a whole blazon.
class Règle_des_émaux {
 public:
  explicit Règle_des_émaux(std::string_view texte) : texte_(texte) {}

  void vérifier(const Blason &blason) const {
    const Champ &champ = blason.champ;
    for (const Blason &quartier : champ.quartiers) vérifier(quartier);
    // Parts that lie side by side may be of one class; stripes and chequers lie on each other.
    if (champ.pièces > 0 && champ.partition != Partition::gironné)
      exiger_contraste(champ.émaux[0], champ.émaux[1]);
    if (!champ.semé.empty()) exiger_contraste(champ.émaux[0], champ.émail_du_semé);
    const auto fond = fond_commun(champ);
    for (const Objet &objet : blason.objets) vérifier(objet, fond);
  }

 private:
  /// The tincture that stands for the whole field; none when metal and colour, or blazons, lie in it.
  static std::optional<Émail> fond_commun(const Champ &champ) {
    if (champ.émaux.empty()) return {};
    const bool uni = std::all_of(champ.émaux.begin(), champ.émaux.end(),
                                 [&](Émail émail) { return classe(émail) == classe(champ.émaux.front()); });
    return uni ? std::optional(champ.émaux.front()) : std::nullopt;
  }

  void vérifier(const Objet &objet, std::optional<Émail> fond) const {
    if (fond && !objet.cousu) exiger_contraste(*fond, objet.émail);
    for (const Annexe &annexe : objet.annexes)
      vérifier(annexe.objet, annexe.relation == Relation::chargé ? std::optional(objet.émail) : fond);
  }

  void exiger_contraste(Émail dessous, Émail dessus) const {
    const Classe_d_émail c = classe(dessous);
    if (c == Classe_d_émail::libre || c != classe(dessus)) return;
    throw Erreur_de_blason("\"" + std::string(texte_) + "\": the rule of tincture forbids " +
                           (c == Classe_d_émail::métal ? "metal on metal" : "colour on colour") + ", " +
                           std::string(nom(dessus)) + " on " + std::string(nom(dessous)));
  }

  std::string_view texte_;
};

}  // namespace

void vérifier_les_émaux(const Blason &blason, std::string_view texte) {
  Règle_des_émaux(texte).vérifier(blason);
}

}  // namespace atelier
