#include "pattern.h"

#include <algorithm>
#include <optional>

namespace ardane {
namespace {

/// Nothing for "...".
using Motif = std::optional<Json>;

bool suite_correspond(const Motif *motif, const Motif *fin_motifs, const Json *ligne,
                      const Json *fin_lignes) {
  if (motif == fin_motifs) return ligne == fin_lignes;
  if (*motif)
    return ligne != fin_lignes && correspond(**motif, *ligne) &&
           suite_correspond(motif + 1, fin_motifs, ligne + 1, fin_lignes);
  return suite_correspond(motif + 1, fin_motifs, ligne, fin_lignes) ||
         (ligne != fin_lignes && suite_correspond(motif, fin_motifs, ligne + 1, fin_lignes));
}

bool dit_ce_qui_attend(const Motif &motif) {
  return motif && motif->contains("attend");
}

bool sans_échec(const Json &ligne) {
  return !ligne.contains("erreur") && !ligne.contains("fatale");
}

}  // namespace

bool correspond(const Json &motif, const Json &reçu) {
  if (motif == "*") return true;
  if (!motif.is_object()) {
    if (!motif.is_array() || !reçu.is_array()) return motif == reçu;
    return std::equal(motif.begin(), motif.end(), reçu.begin(), reçu.end(), correspond);
  }
  if (!reçu.is_object()) return false;
  return std::all_of(motif.items().begin(), motif.items().end(), [&](const auto &champ) {
    const auto place = reçu.find(champ.key());
    return place != reçu.end() && correspond(champ.value(), *place);
  });
}

bool réponse_attendue(const std::vector<std::string> &motifs, std::vector<Json> lignes) {
  if (motifs.empty()) return std::all_of(lignes.begin(), lignes.end(), sans_échec);
  std::vector<Motif> lus;
  for (const std::string &motif : motifs) lus.push_back(motif == "..." ? Motif() : Motif(Json::parse(motif)));
  const bool attente_dite = std::any_of(lus.begin(), lus.end(), dit_ce_qui_attend);
  if (!attente_dite && !lignes.empty()) lignes.pop_back();
  return suite_correspond(lus.data(), lus.data() + lus.size(), lignes.data(), lignes.data() + lignes.size());
}

}  // namespace ardane
