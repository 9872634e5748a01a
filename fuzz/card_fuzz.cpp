// Information files of any bytes: each card reads whole or not at all, and what is read is written back to
// the same bytes.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "persistence/card_format.h"
#include "rules.h"

namespace ardane {
namespace {

std::size_t début(int numéro) {
  return static_cast<std::size_t>(numéro - 1) * taille_de_fiche;
}

void vérifier_écriture(const std::string &fichier, int numéro, const Fiche_information &fiche) {
  std::string écrit = fichier;
  Placer_fiche(écrit, numéro, fiche);
  const std::size_t fin = début(numéro) + taille_de_fiche;
  exiger(écrit.size() == std::max(fichier.size(), fin), "a file grows to the end of the slot and no further");
  exiger(écrit.compare(0, std::min(début(numéro), fichier.size()), fichier, 0, début(numéro)) == 0,
         "the cards above stay");
  exiger(fichier.size() <= fin || écrit.compare(fin, std::string::npos, fichier, fin) == 0,
         "the cards below stay");
  const auto relue = Fiche_du_fichier(écrit, numéro);
  exiger(relue.has_value() && Longueur_de_fiche(*relue) == Longueur_de_fiche(fiche),
         "what was written can be read");
}

void vérifier_carte(const std::string &fichier, int numéro) {
  const auto fiche = Fiche_du_fichier(fichier, numéro);
  const Fiche_information restes = Restes_de_fiche(fichier, numéro);
  exiger(Longueur_de_fiche(restes) <= taille_de_fiche, "no more is read than the slot holds");
  vérifier_écriture(fichier, numéro, restes);
  if (!fiche) return;
  exiger(*fiche == restes, "of a whole card everything is there");
  std::string copie = fichier;
  Placer_fiche(copie, numéro, *fiche);
  exiger(copie.compare(début(numéro), Longueur_de_fiche(*fiche), fichier, début(numéro),
                       Longueur_de_fiche(*fiche)) == 0,
         "a card that was read has the same bytes again");
  exiger(Fiche_du_fichier(copie, numéro) == fiche, "what was written reads the same");
}

/// A player's text, UTF-8 or not.
void vérifier_texte(const std::string &texte) {
  for (const Fiche_information &fiche : {Fiche_information{texte, ""}, Fiche_information{"", texte}})
    if (Longueur_de_fiche(fiche) <= taille_de_fiche) vérifier_écriture("", 1, fiche);
}

}  // namespace
}  // namespace ardane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille) {
  using namespace ardane;
  const std::string fichier = en_fichier(octets, taille);
  for (const int numéro : {1, 2, 4}) vérifier_carte(fichier, numéro);
  vérifier_texte(fichier);
  return 0;
}
