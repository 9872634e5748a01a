#include "armorial/armorial.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <stdexcept>

#include "armorial/blazon_drawing.h"
#include "armorial/paint.h"
#include "drawing/raster.h"
#include "files/image_file.h"

namespace atelier {
namespace {

constexpr int double_dessin = 2;
/// Under the country's arms, whose picture knows no transparency.
constexpr Pixel parchemin{248, 244, 234};

std::vector<std::string> champs(const std::string &ligne, std::size_t nombre) {
  std::vector<std::string> result;
  std::size_t début = 0;
  while (result.size() + 1 < nombre) {
    const auto barre = ligne.find('|', début);
    if (barre == std::string::npos) throw std::runtime_error("a field is missing");
    result.push_back(ligne.substr(début, barre - début));
    début = barre + 1;
  }
  result.push_back(ligne.substr(début));
  return result;
}

Armoiries &case_libre(std::vector<Armoiries> &cases, const std::string &numéro) {
  const std::size_t n = std::stoul(numéro);
  if (n < 1 || n >= cases.size()) throw std::runtime_error("no such number: " + numéro);
  if (!cases[n].texte.empty()) throw std::runtime_error("given twice: " + numéro);
  return cases[n];
}

void remplir(Armoiries &armoiries, const std::string &couronne, const std::string &texte,
             const Meubles &meubles) {
  if (!couronne.empty()) meubles.chercher("couronne " + couronne);
  armoiries = {couronne, texte, lire_blason(texte, meubles)};
}

void lire_ligne(Armorial &armorial, const std::string &ligne, const Meubles &meubles) {
  if (ligne.starts_with("pays|")) {
    const auto c = champs(ligne, 3);
    remplir(armorial.pays, c[1], c[2], meubles);
  } else if (ligne.starts_with("province|")) {
    const auto c = champs(ligne, 4);
    remplir(case_libre(armorial.provinces, c[1]), c[2], c[3], meubles);
  } else if (ligne.starts_with("région|")) {
    const auto c = champs(ligne, 3);
    remplir(case_libre(armorial.régions, c[1]), "", c[2], meubles);
  } else {
    throw std::runtime_error("unknown line");
  }
}

/// A shield with straight flanks that run out into a point.
Path écu(double x, double y, double l, double h) {
  const double m = x + l / 2;
  const double coin = l * 0.03;
  return Path(0.05)
      .move_to({x + coin, y})
      .line_to({x + l - coin, y})
      .quad_to({x + l, y}, {x + l, y + coin})
      .line_to({x + l, y + h * 0.56})
      .curve_to({x + l, y + h * 0.78}, {m + l * 0.27, y + h * 0.92}, {m, y + h})
      .curve_to({m - l * 0.27, y + h * 0.92}, {x, y + h * 0.78}, {x, y + h * 0.56})
      .line_to({x, y + coin})
      .quad_to({x, y}, {x + coin, y})
      .close();
}

void tracer(Image &image, const Path &path, double largeur, Pixel couleur_) {
  fill(image, stroked(path, largeur * double_dessin), couleur_);
}

void enregistrer(const Image &dessin, const std::filesystem::path &images, const std::string &nom,
                 const std::string &fichier, Catalogue &catalogue) {
  catalogue.écrire(images, nom, fichier, reduced(dessin, double_dessin));
  écrire_png(images / fichier_double_en_png(fichier), dessin);
}

Image sur_parchemin(const Image &dessin) {
  Image image(dessin.width(), dessin.height(), parchemin);
  draw(image, dessin, 0, 0);
  return image;
}

void écrire_document(const Données &données, const Armorial &armorial, const std::filesystem::path &images,
                     const std::filesystem::path &docs) {
  std::filesystem::create_directories(docs);
  const std::string dossier = images.lexically_relative(docs).generic_string();
  std::ofstream flux(docs / "armorial.md", std::ios::binary);
  const auto image = [&](const std::string &fichier) { return "![](" + dossier + "/" + fichier + ")"; };
  const auto drapeau = [&](const std::string &fichier) {
    return "<img src=\"" + dossier + "/" + fichier_double_en_png(fichier) +
           "\" width=\"200\" height=\"177\">";
  };
  flux << "# The armorial of Ardane\n\n"
          "Written by the atelier from `tools/atelier/data/armorial.txt`; the drawings are in\n"
          "`resources/images`. The arms speak of the name, the land or the trade of their province.\n"
          "The crown tells the rank: *royale* for the capital, *ducale*, *comtale* and *baronale* for old\n"
          "lordships, *murale* for towns, *navale* for the coast and the islands, *vallaire* for the "
          "marches.\n\n"
          "Ardane: "
       << armorial.pays.texte << ".\n\n"
       << image("drapeau/000.jpg")
       << "\n\n## Flags of the regions\n\n| | Region | Blazon | Flag |\n|--:|---|---|---|\n";
  for (std::size_t r = 1; r < armorial.régions.size(); ++r)
    flux << "| " << r << " | " << données.régions[r].nom << " | " << armorial.régions[r].texte << " | "
         << drapeau(fichier_numéroté("drapeau_region", static_cast<int>(r), 2)) << " |\n";
  flux << "\n## Arms of the provinces\n\n| | Province | Region | Blazon | Arms |\n|--:|---|---|---|---|\n";
  for (std::size_t p = 1; p < armorial.provinces.size(); ++p) {
    const Province &province = données.provinces[p];
    flux << "| " << p << " | " << province.nom << " | "
         << données.régions[static_cast<std::size_t>(province.région)].nom << " | "
         << armorial.provinces[p].texte << " | " << image(fichier_numéroté("drapeau", static_cast<int>(p), 3))
         << " |\n";
  }
  if (!flux.flush()) throw std::runtime_error("cannot write " + (docs / "armorial.md").string());
}

void écrire_blasons(const Armorial &armorial, const std::filesystem::path &fichier) {
  constexpr int avant_les_régions = 200;
  std::map<int, std::string> blasons;
  for (std::size_t p = 1; p < armorial.provinces.size(); ++p)
    blasons[static_cast<int>(p)] =
        armorial.provinces[p].texte + ", timbré d'une couronne " + armorial.provinces[p].couronne;
  for (std::size_t r = 1; r < armorial.régions.size(); ++r)
    blasons[avant_les_régions + static_cast<int>(r)] = armorial.régions[r].texte;
  écrire_textes(fichier, blasons);
}

}  // namespace

Armorial lire_armorial(const std::filesystem::path &fichier, const Meubles &meubles) {
  std::ifstream flux(fichier, std::ios::binary);
  if (!flux) throw std::runtime_error("cannot read " + fichier.string());
  Armorial armorial;
  armorial.provinces.resize(nombre_provinces + 1);
  armorial.régions.resize(nombre_régions + 1);
  int numéro = 0;
  for (std::string ligne; std::getline(flux, ligne);) {
    ++numéro;
    if (ligne.empty() || ligne.starts_with("//")) continue;
    try {
      lire_ligne(armorial, ligne, meubles);
    } catch (const std::exception &failure) {
      throw std::runtime_error(fichier.string() + ", line " + std::to_string(numéro) + ": " + failure.what());
    }
  }
  const auto manque = [](const Armoiries &armoiries) { return armoiries.texte.empty(); };
  if (manque(armorial.pays) ||
      std::any_of(armorial.provinces.begin() + 1, armorial.provinces.end(), manque) ||
      std::any_of(armorial.régions.begin() + 1, armorial.régions.end(), manque))
    throw std::runtime_error(fichier.string() + ": a province, a region or the country has no arms");
  return armorial;
}

Image dessiner_armes(const Armoiries &armoiries, const Meubles &meubles) {
  constexpr double d = double_dessin;
  Image image(largeur_des_armes * double_dessin, hauteur_des_armes * double_dessin);
  const Path contour = écu(2.5 * d, 33 * d, 95 * d, 106.5 * d);
  dessiner_blason(image, armoiries.blason, meubles, contour, d);
  tracer(image, contour, 2.2, encre);
  dessiner_meuble(image, meubles.chercher("couronne " + armoiries.couronne), Émail::or_, {12 * d, 1.5 * d},
                  76 * d, 28.5 * d, d);
  return image;
}

Image dessiner_drapeau(const Armoiries &armoiries, const Meubles &meubles) {
  // The panel stretches a flag to its box. It is composed in the box's proportions and then pressed flat, so
  // that it is seen there as it was drawn.
  constexpr int finesse = 4;
  Image image(largeur_du_drapeau * finesse, hauteur_vue_du_drapeau * finesse, encre);
  const Path contour = Path().add_rectangle(0, 0, image.width(), image.height());
  dessiner_blason(image, armoiries.blason, meubles, contour, finesse);
  fill(image, stroked(contour, 2.4 * finesse), encre);
  return resized(image, largeur_du_drapeau * double_dessin, hauteur_du_drapeau * double_dessin);
}

void dessiner_armorial(const Données &données, const std::filesystem::path &images, Catalogue &catalogue,
                       const std::filesystem::path &blasons, const std::filesystem::path &docs) {
  const Meubles meubles = Meubles::lire(données.dossier / "charges.txt");
  const Armorial armorial = lire_armorial(données.dossier / "armorial.txt", meubles);

  std::filesystem::create_directories(images / "drapeau");
  const Image pays = sur_parchemin(dessiner_armes(armorial.pays, meubles));
  écrire_jpeg(images / "drapeau/000.jpg", reduced(pays, double_dessin));
  écrire_jpeg(images / "drapeau/000@2x.jpg", pays);
  catalogue.ajouter("Graphismes.Drapeau(0)", "drapeau/000.jpg", largeur_des_armes, hauteur_des_armes);

  for (int p = 1; p <= nombre_provinces; ++p)
    enregistrer(dessiner_armes(armorial.provinces[static_cast<std::size_t>(p)], meubles), images,
                "Graphismes.Drapeau(" + std::to_string(p) + ")", fichier_numéroté("drapeau", p, 3),
                catalogue);
  for (int r = 1; r <= nombre_régions; ++r)
    enregistrer(dessiner_drapeau(armorial.régions[static_cast<std::size_t>(r)], meubles), images,
                "Graphismes.DrapeauRégion(" + std::to_string(r) + ")",
                fichier_numéroté("drapeau_region", r, 2), catalogue);
  écrire_document(données, armorial, images, docs);
  écrire_blasons(armorial, blasons);
}

}  // namespace atelier
