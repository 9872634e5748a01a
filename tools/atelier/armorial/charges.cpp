#include "armorial/charges.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "numbers/math.h"

namespace atelier {
namespace {

struct Nœud {
  Point p;
  bool angle = false;
};

/// A third of the way from `at` to its neighbour `next`, in the direction that the curve has at `at`;
/// `beyond` is the neighbour on the other side. The length is taken from the chord and not from the
/// neighbours' distance, so that unevenly set points do not make the curve swing out.
Point poignée(const Nœud &at, Point beyond, Point next) {
  const double span = length(next - beyond);
  if (at.angle || span == 0) return {at.p.x + (next.x - at.p.x) / 3, at.p.y + (next.y - at.p.y) / 3};
  const double t = length(next - at.p) / (3 * span);
  return {at.p.x + (next.x - beyond.x) * t, at.p.y + (next.y - beyond.y) * t};
}

Path courbe(const std::vector<Nœud> &nœuds, bool closed) {
  const std::size_t n = nœuds.size();
  Path path(0.05);
  path.move_to(nœuds[0].p);
  for (std::size_t i = 0; i + (closed ? 0 : 1) < n; ++i) {
    const Nœud &from = nœuds[i];
    const Nœud &to = nœuds[(i + 1) % n];
    const Point before = closed || i > 0 ? nœuds[(i + n - 1) % n].p : from.p;
    const Point after = closed || i + 2 < n ? nœuds[(i + 2) % n].p : to.p;
    path.curve_to(poignée(from, before, to.p), poignée(to, after, from.p), to.p);
  }
  if (closed) path.close();
  return path;
}

class Ligne_de_meuble {
 public:
  explicit Ligne_de_meuble(const std::string &ligne) : flux_(ligne) {}

  std::string mot() {
    std::string result;
    if (!(flux_ >> result)) throw std::runtime_error("a word is missing");
    return result;
  }
  double nombre() {
    const std::string texte = mot();
    return valeur(texte);
  }
  std::optional<double> nombre_éventuel() {
    std::string texte;
    if (!(flux_ >> texte)) return {};
    return valeur(texte);
  }
  std::string reste() {
    std::string result;
    std::getline(flux_, result);
    return result;
  }
  std::vector<Nœud> nœuds() {
    std::vector<Nœud> result;
    for (std::string texte; flux_ >> texte;) {
      Nœud nœud;
      if (texte.back() == '!') {
        nœud.angle = true;
        texte.pop_back();
      }
      const auto virgule = texte.find(',');
      if (virgule == std::string::npos) throw std::runtime_error("not a point: " + texte);
      nœud.p = {valeur(texte.substr(0, virgule)), valeur(texte.substr(virgule + 1))};
      result.push_back(nœud);
    }
    if (result.size() < 2) throw std::runtime_error("too few points");
    return result;
  }

 private:
  static double valeur(const std::string &texte) {
    std::istringstream flux(texte);
    flux.imbue(std::locale::classic());
    double result = 0;
    if (!(flux >> result) || !flux.eof()) throw std::runtime_error("not a number: " + texte);
    return result;
  }
  std::istringstream flux_;
};

/// Right half and its mirror image; points on the axis are not doubled.
std::vector<Nœud> complétés(std::vector<Nœud> nœuds, double axe) {
  const std::size_t n = nœuds.size();
  for (std::size_t i = n; i-- > 0;)
    if (nœuds[i].p.x != axe) nœuds.push_back({{2 * axe - nœuds[i].p.x, nœuds[i].p.y}, nœuds[i].angle});
  return nœuds;
}

Path à_angles(const std::vector<Nœud> &nœuds) {
  std::vector<Point> points;
  points.reserve(nœuds.size());
  for (const Nœud &nœud : nœuds) points.push_back(nœud.p);
  return polygon(points);
}

Path lire_forme(Ligne_de_meuble &ligne, const Meuble &meuble) {
  const std::string genre = ligne.mot();
  const double axe = meuble.largeur / 2;
  if (genre == "svg") return path_from_svg(ligne.reste(), 0.05);
  if (genre == "poly") return à_angles(ligne.nœuds());
  if (genre == "lisse") return courbe(ligne.nœuds(), true);
  if (genre == "ligne") return courbe(ligne.nœuds(), false);
  if (genre == "demi") return courbe(complétés(ligne.nœuds(), axe), true);
  if (genre == "demipoly") return à_angles(complétés(ligne.nœuds(), axe));
  if (genre == "cercle") {
    const double x = ligne.nombre();
    const double y = ligne.nombre();
    return Path(0.05).add_circle({x, y}, ligne.nombre());
  }
  if (genre == "ellipse") {
    const double x = ligne.nombre();
    const double y = ligne.nombre();
    const double rx = ligne.nombre();
    const double ry = ligne.nombre();
    const double angle = ligne.nombre_éventuel().value_or(0);
    return Path(0.05)
        .add_ellipse({0, 0}, rx, ry)
        .transformed(Affine::rotation(angle * pi / 180).then(Affine::translation(x, y)));
  }
  throw std::runtime_error("unknown shape: " + genre);
}

Affine miroir(double axe) {
  return {-1, 0, 2 * axe, 0, 1, 0};
}

Affine autour(Point centre, double radians) {
  return Affine::translation(-centre.x, -centre.y)
      .then(Affine::rotation(radians))
      .then(Affine::translation(centre.x, centre.y));
}

struct Commande {
  std::string_view nom;
  bool contour;
  bool plume;
  bool joint;
};
constexpr std::array<Commande, 6> commandes{{
    {"plein", true, false, false},
    {"branche", true, true, false},
    {"joint", true, false, true},
    {"jointe", true, true, true},
    {"uni", false, false, false},
    {"trait", false, true, false},
}};

void lire_dessin(std::string mot, Ligne_de_meuble &ligne, Meuble &meuble) {
  bool double_ = false;
  int copies = 1;
  if (mot.back() == '*') {
    double_ = true;
    mot.pop_back();
  } else if (const auto arobase = mot.find('@'); arobase != std::string::npos) {
    copies = std::stoi(mot.substr(arobase + 1));
    mot.resize(arobase);
  }
  const auto commande = std::find_if(commandes.begin(), commandes.end(),
                                     [&](const Commande &candidate) { return candidate.nom == mot; });
  if (commande == commandes.end()) throw std::runtime_error("unknown command: " + mot);
  Trait_de_meuble trait;
  if (commande->plume) trait.plume = ligne.nombre();
  trait.contour = commande->contour;
  trait.joint = commande->joint;
  trait.peinture = ligne.mot();
  trait.forme = lire_forme(ligne, meuble);
  const Point centre{meuble.largeur / 2, meuble.hauteur / 2};
  for (int i = 0; i < copies; ++i) {
    Trait_de_meuble copie = trait;
    if (i > 0) copie.forme = trait.forme.transformed(autour(centre, 2 * pi * i / copies));
    meuble.traits.push_back(std::move(copie));
  }
  if (double_) {
    trait.forme = trait.forme.transformed(miroir(centre.x));
    meuble.traits.push_back(std::move(trait));
  }
}

Meuble lire_tête(const std::string &ligne) {
  std::vector<std::string> champs;
  std::istringstream flux(ligne);
  for (std::string champ; std::getline(flux, champ, '|');) champs.push_back(champ);
  if (champs.size() != 4 || (champs[3] != "f" && champs[3] != "m"))
    throw std::runtime_error("a charge needs name, plural and gender");
  Meuble meuble;
  meuble.nom = champs[1];
  meuble.pluriel = champs[2];
  meuble.féminin = champs[3] == "f";
  return meuble;
}

}  // namespace

Pixel lire_couleur(const std::string &texte) {
  if (texte.size() != 7 || texte[0] != '#') throw std::runtime_error("not a colour: " + texte);
  const int valeur = std::stoi(texte.substr(1), nullptr, 16);
  return {static_cast<std::uint8_t>(valeur >> 16), static_cast<std::uint8_t>(valeur >> 8),
          static_cast<std::uint8_t>(valeur)};
}

Path Trait_de_meuble::surface() const {
  return plume > 0 ? stroked(forme, plume) : forme;
}

Path Meuble::silhouette() const {
  Path path;
  for (const Trait_de_meuble &trait : traits)
    if (trait.contour) path.add(trait.surface());
  return path;
}

Meubles Meubles::lire(const std::filesystem::path &fichier) {
  std::ifstream flux(fichier, std::ios::binary);
  if (!flux) throw std::runtime_error("cannot read " + fichier.string());
  Meubles result;
  int numéro = 0;
  for (std::string texte; std::getline(flux, texte);) {
    ++numéro;
    if (texte.find_first_not_of(" \t\r") == std::string::npos || texte.starts_with("//")) continue;
    try {
      if (texte.starts_with("meuble|")) {
        result.meubles_.push_back(lire_tête(texte));
        continue;
      }
      if (result.meubles_.empty()) throw std::runtime_error("a drawing before the first charge");
      Meuble &meuble = result.meubles_.back();
      Ligne_de_meuble ligne(texte);
      const std::string commande = ligne.mot();
      if (commande == "boîte") {
        meuble.largeur = ligne.nombre();
        meuble.hauteur = ligne.nombre();
      } else if (commande == "attitude") {
        const std::string premier = ligne.mot();
        meuble.attitudes.push_back(premier + ligne.reste());
      } else if (commande == "détail") {
        const std::string nom = ligne.mot();
        meuble.détails[nom] = ligne.mot();
      } else if (commande == "naturel") {
        meuble.naturel = lire_couleur(ligne.mot());
      } else {
        lire_dessin(commande, ligne, meuble);
      }
    } catch (const std::exception &failure) {
      throw std::runtime_error(fichier.string() + ", line " + std::to_string(numéro) + ": " + failure.what());
    }
  }
  return result;
}

const Meuble &Meubles::chercher(const std::string &nom) const {
  const auto found =
      std::find_if(meubles_.begin(), meubles_.end(), [&](const Meuble &meuble) { return meuble.nom == nom; });
  if (found == meubles_.end()) throw std::out_of_range("no charge named " + nom);
  return *found;
}

}  // namespace atelier
