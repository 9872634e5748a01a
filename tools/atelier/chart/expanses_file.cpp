#include "chart/expanses_file.h"

#include <fstream>
#include <stdexcept>

namespace atelier {
namespace {

/// The shores at the map's own size.
struct Coasts {
  Field land, lake, ours;
};

char expanse_at(const Provinces &provinces, const Coasts &coasts, int x, int y) {
  if (provinces.at(x, y) != 0) return 'p';
  if (coasts.land.at(x, y) <= 0) return 'm';
  if (coasts.lake.at(x, y) > 0) return 'l';
  return coasts.ours.at(x, y) > 0 ? 'i' : 'v';
}

}  // namespace

void écrire_étendues(const std::filesystem::path &fichier, const Provinces &provinces, const Shores &shores) {
  const Coasts coasts{halved(shores.land), halved(shores.lake), halved(shores.ours)};
  std::ofstream out(fichier, std::ios::binary);
  for (int y = 0; y < provinces.height(); ++y) {
    for (int x = 0; x < provinces.width();) {
      const char expanse = expanse_at(provinces, coasts, x, y);
      const int first = x;
      while (x < provinces.width() && expanse_at(provinces, coasts, x, y) == expanse) ++x;
      out << expanse << x - first;
    }
    out << '\n';
  }
  out.close();
  if (!out) throw std::runtime_error(fichier.string() + ": cannot be written");
}

}  // namespace atelier
