#include "core/expanses.h"

#include <algorithm>
#include <charconv>

#include "platform/text.h"

namespace ardane {
namespace {

/// In the order of `Etendue`.
constexpr std::string_view lettres = "mlpvi";

}  // namespace

Etendues::Etendues(std::string_view source) {
  while (!source.empty()) {
    std::string_view ligne = couper(source, '\n');
    std::vector<Plage> &plages = lignes_.emplace_back();
    int fin = 0;
    while (!ligne.empty()) {
      const std::size_t lettre = lettres.find(ligne.front());
      int longueur = 0;
      const auto lu = std::from_chars(ligne.data() + 1, ligne.data() + ligne.size(), longueur);
      if (lettre == lettres.npos || lu.ec != std::errc{} || longueur < 1) break;
      fin += longueur;
      plages.push_back({fin, static_cast<Etendue>(lettre)});
      ligne.remove_prefix(static_cast<std::size_t>(lu.ptr - ligne.data()));
    }
  }
}

Etendue Etendues::en(int x, int y) const {
  if (x < 0 || y < 0 || y >= static_cast<int>(lignes_.size())) return Etendue::mer;
  const std::vector<Plage> &ligne = lignes_[static_cast<std::size_t>(y)];
  const auto plage = std::ranges::upper_bound(ligne, x, {}, &Plage::fin);
  return plage == ligne.end() ? Etendue::mer : plage->étendue;
}

}  // namespace ardane
