#include "armorial/blazon_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "armorial/company.h"
#include "armorial/fields.h"
#include "armorial/ordinaries.h"
#include "armorial/paint.h"
#include "armorial/placing.h"
#include "armorial/zones.h"
#include "drawing/raster.h"
#include "numbers/math.h"

namespace atelier {
namespace {

/// One weight for every line of a drawing, seen on the outer side of what it bounds.
constexpr double trait_seul = 0.9;

Zone image_entière(const Image &image) {
  return zone(
      coverage(rectangle({0, 0, static_cast<double>(image.width()), static_cast<double>(image.height())}),
               image.width(), image.height()));
}

/// What goes with a charge, in the room taken from it.
struct Compagnie {
  const Objet *objet = nullptr;
  std::vector<Place> places;
};

class Peintre {
 public:
  Peintre(Image &image, const Meubles &meubles, double unité) : image_(image), meubles_(meubles), u_(unité) {}

  void peindre(const Blason &blason, const Zone &entière) {
    peindre_champ(blason.champ, entière);
    // Pieces on the edge take their room first; the rest of the field is what the others are set in.
    Zone reste = champ_libre(blason.champ, entière);
    for (const Objet &objet : blason.objets)
      if (est_de_bord(objet.pièce)) reste = hors_de(reste, forme_de_bord(objet, entière));
    for (const Objet &objet : blason.objets)
      if (!est_de_bord(objet.pièce)) peindre_objet(objet, reste);
    for (const Objet &objet : blason.objets)
      if (est_de_bord(objet.pièce)) peindre_pièce(objet, entière, {forme_de_bord(objet, entière)});
  }

  void peindre_meuble(const Meuble &meuble, const Objet &objet, const Affine &affine,
                      const Coverage &pochoir) {
    const double échelle = std::sqrt(std::abs(affine.xx * affine.yy - affine.xy * affine.yx));
    const double contour = 2 * trait_seul * u_;
    const auto &traits = meuble.traits;
    for (std::size_t i = 0; i < traits.size();) {
      std::size_t fin = i + 1;
      while (fin < traits.size() && traits[fin].joint) ++fin;
      // All outlines of a figure lie under all its surfaces.
      for (std::size_t k = i; k < fin; ++k)
        if (traits[k].contour)
          remplir(stroked(traits[k].forme.transformed(affine), traits[k].plume * échelle + contour), pochoir,
                  encre);
      for (std::size_t k = i; k < fin; ++k) {
        const Path forme = traits[k].forme.transformed(affine);
        remplir(traits[k].plume > 0 ? stroked(forme, traits[k].plume * échelle) : forme, pochoir,
                peinture(meuble, objet, traits[k]));
      }
      i = fin;
    }
  }

 private:
  Pièces_honorables pièces(const Zone &zone_) const { return {zone_.cadre, u_}; }

  void remplir(const Path &path, const Coverage &pochoir, Pixel couleur_) {
    fill_within(image_, path, pochoir, [couleur_](int, int) { return couleur_; });
  }

  void remplir(const Path &path, const Zone &zone_, Pixel couleur_) { remplir(path, zone_.masque, couleur_); }

  void peindre_émail(const Zone &zone_, Émail émail) {
    const bool fourrure = émail == Émail::hermine || émail == Émail::vair;
    // The frame leaves out pixels that belong to the zone by less than half.
    const Cadre &c = zone_.cadre;
    remplir(rectangle({c.x - 1, c.y - 1, c.l + 2, c.h + 2}), zone_,
            couleur(fourrure ? Émail::argent : émail));
    if (émail == Émail::hermine) semer(zone_, meubles_.chercher("moucheture"), Émail::sable);
    if (émail == Émail::vair) remplir(cloches_de_vair(zone_.cadre), zone_, couleur(Émail::azur));
  }

  Path cloches_de_vair(const Cadre &c) const {
    const double l = std::max(10 * u_, c.petit_côté() / 4.5);
    const double h = l * 1.1;
    constexpr std::array<Point, 9> cloche{{{0, 1},
                                           {0, 0.8},
                                           {0.25, 0.55},
                                           {0.25, 0.25},
                                           {0.5, 0},
                                           {0.75, 0.25},
                                           {0.75, 0.55},
                                           {1, 0.8},
                                           {1, 1}}};
    const Path une = Path().add_polygon(cloche).transformed(Affine::scaling(l, h));
    Path toutes;
    int rang = 0;
    for (double y = c.y; y < c.bas(); y += h, ++rang)
      for (double x = c.x - l + (rang % 2) * l / 2; x < c.droite() + l; x += l)
        toutes.add(une.transformed(Affine::translation(x, y)));
    return toutes;
  }

  /// In staggered rows, one charge in the middle of the first.
  void semer(const Zone &zone_, const Meuble &meuble, Émail émail) {
    const Cadre &c = zone_.cadre;
    const double pas = std::max(11 * u_, c.petit_côté() / 3.9);
    const double échelle = pas * 0.76 / std::max(meuble.largeur, meuble.hauteur);
    Objet objet;
    objet.émail = émail;
    int rang = 0;
    for (double y = c.y + pas * 0.5; y < c.bas() + pas / 2; y += pas * 0.86, ++rang)
      for (double x = c.centre().x - 6 * pas + (rang % 2) * pas / 2; x < c.droite() + pas; x += pas)
        if (x > c.x - pas)
          peindre_meuble(meuble, objet, pose(meuble, objet, échelle, 0, {x, y}), zone_.masque);
  }

  void peindre_champ(const Champ &champ, const Zone &zone_) {
    if (champ.partition == Partition::plein) {
      peindre_émail(zone_, champ.émaux[0]);
      if (!champ.semé.empty()) semer(zone_, meubles_.chercher(champ.semé), champ.émail_du_semé);
      return;
    }
    const auto parts = parts_du_champ(champ, zone_.cadre, u_);
    if (champ.quartiers.empty()) peindre_émail(zone_, champ.émaux[0]);
    for (const auto &[forme, numéro] : parts) {
      const Zone part = dans(zone_, forme);
      if (part.vide()) continue;
      if (champ.quartiers.empty())
        peindre_émail(part, champ.émaux[numéro % champ.émaux.size()]);
      else
        peindre(champ.quartiers[numéro], part);
    }
    for (const auto &part : parts) remplir(stroked(part.forme, trait_seul * u_), zone_, encre);
  }

  /// What lies on a field with a hood or with hose keeps to the part between.
  Zone champ_libre(const Champ &champ, const Zone &entière) const {
    if (champ.partition != Partition::chapé && champ.partition != Partition::chaussé) return entière;
    return dans(entière, parts_du_champ(champ, entière.cadre, u_).front().forme);
  }

  Path forme_de_bord(const Objet &objet, const Zone &entière) const {
    const Pièces_honorables p = pièces(entière);
    if (objet.pièce == Pièce::bordure)
      return bordure(entière, p.épaisseur(Pièce::bordure, 1), objet.ligne, u_);
    return p.formes(objet.pièce, 1, objet.ligne).front();
  }

  void peindre_objet(const Objet &objet, const Zone &zone_) {
    if (objet.pièce == Pièce::meuble)
      peindre_meubles(objet, zone_);
    else
      peindre_pièce(objet, zone_, pièces(zone_).formes(objet.pièce, objet.nombre, objet.ligne));
  }

  void peindre_pièce(const Objet &objet, const Zone &zone_, const std::vector<Path> &formes) {
    Zone autour = zone_;
    for (const Path &forme : formes) {
      // Where bands cross, an outline inside the piece is covered again by its paint.
      remplir(stroked(forme, 2 * trait_seul * u_), zone_, encre);
      peindre_émail(dans(zone_, forme), objet.émail);
      autour = hors_de(autour, forme);
    }
    for (const Annexe &annexe : objet.annexes) {
      if (annexe.relation == Relation::chargé)
        charger(objet, annexe.objet, zone_, formes);
      else
        accompagner(objet, annexe, zone_, autour);
    }
  }

  void charger(const Objet &dessous, const Objet &dessus, const Zone &zone_,
               const std::vector<Path> &formes) {
    Path toutes;
    for (const Path &forme : formes) toutes.add(forme);
    const Zone pièce = dans(zone_, toutes);
    if (dessus.pièce != Pièce::meuble) {
      peindre_objet(dessus, pièce);
      return;
    }
    const Meuble &meuble = meubles_.chercher(dessus.meuble);
    poser(meuble, dessus, places_de_la_charge(dessous, dessus.nombre, meuble, zone_, formes), pièce,
          1.6 * u_);
  }

  std::vector<Place> places_de_la_charge(const Objet &dessous, int nombre, const Meuble &meuble,
                                         const Zone &zone_, const std::vector<Path> &formes) const {
    const double allongement = meuble.largeur / meuble.hauteur;
    if (dessous.pièce == Pièce::bordure) {
      const double e = pièces(zone_).épaisseur(Pièce::bordure, 1);
      return places_sur_le_tour(zone_, e * 0.52, nombre, e * 0.95);
    }
    if (dessous.nombre == 1) return pièces(zone_).places_dessus(dessous.pièce, nombre, allongement);
    std::vector<Place> places;
    for (const Path &forme : formes) {
      const Cadre c = dans(zone_, forme).cadre;
      const auto siennes = en_rangs(c, rangs_usuels(std::max(1, nombre / dessous.nombre), c, allongement));
      places.insert(places.end(), siennes.begin(), siennes.end());
    }
    return places;
  }

  void accompagner(const Objet &principal, const Annexe &annexe, const Zone &zone_, const Zone &autour) {
    const Objet &objet = annexe.objet;
    const Meuble &meuble = meubles_.chercher(objet.meuble);
    const auto cadres = pièces(zone_).places_autour(principal.pièce);
    const auto nombres = répartis(objet.nombre, cadres.size(), principal.pièce, annexe.lieu);
    std::vector<Place> places;
    for (std::size_t i = 0; i < cadres.size(); ++i) {
      if (nombres[i] == 0) continue;
      const auto siennes = disposés(objet, nombres[i], cadres[i], autour, meuble);
      places.insert(places.end(), siennes.begin(), siennes.end());
    }
    poser(meuble, objet, places, autour, marge(autour));
  }

  double marge(const Zone &zone_) const {
    return std::clamp(zone_.cadre.petit_côté() * 0.05, 1.8 * u_, 4.4 * u_);
  }

  /// A banner leaves a single charge more air than a shield, whose shape already holds it off the edge.
  double marge_du_principal(const Objet &objet, const Zone &zone_) const {
    return marge(zone_) * (zone_.cadre.bannière() && objet.nombre == 1 ? 2 : 1);
  }

  /// A charge with what surrounds it: strips of the field are given to the others, the rest to it.
  void peindre_meubles(const Objet &objet, const Zone &zone_) {
    const Meuble &meuble = meubles_.chercher(objet.meuble);
    Cadre c = zone_.cadre;
    bool au_sol = false;
    std::vector<Compagnie> compagnies;
    for (const Annexe &annexe : objet.annexes) {
      if (annexe.relation == Relation::soutenu) {
        c.h = peindre_sol(annexe.objet, zone_) - c.y;
        au_sol = true;
      } else {
        compagnies.push_back(
            {&annexe.objet, places_prises(annexe, meubles_.chercher(annexe.objet.meuble), meuble, zone_, c)});
      }
    }
    for (const Compagnie &compagnie : compagnies)
      poser(meubles_.chercher(compagnie.objet->meuble), *compagnie.objet, compagnie.places, zone_,
            marge(zone_));
    if (objet.disposition == Disposition::mouvant_de_la_pointe)
      poser_mouvant(meuble, objet, zone_);
    else
      poser(meuble, objet, disposés(objet, objet.nombre, c, zone_, meuble), zone_,
            au_sol ? marge(zone_) : marge_du_principal(objet, zone_), au_sol);
  }

  /// The height at which feet stand: a little inside the ground, as they do.
  double peindre_sol(const Objet &sol, const Zone &zone_) {
    const Pièces_honorables p = pièces(zone_);
    peindre_pièce(sol, zone_, p.formes(sol.pièce, sol.nombre, sol.ligne));
    return zone_.cadre.bas() - p.épaisseur(sol.pièce, 1) * 0.72;
  }

  void poser(const Meuble &meuble, const Objet &objet, const std::vector<Place> &places, const Zone &zone_,
             double marge_, bool au_sol = false) {
    // Below five pixels of the plain drawing nobody knows a tower from a tree.
    const Poses poses = poses_les_plus_grandes(meuble, objet, places, zone_, marge_, au_sol, 5 * u_);
    for (std::size_t i = 0; i < places.size(); ++i) {
      Objet tourné = objet;
      const bool croisé = objet.disposition == Disposition::en_sautoir && objet.nombre == 2;
      if (croisé && i == 1) tourné.contourné = !objet.contourné;
      peindre_meuble(meuble, tourné, pose(meuble, tourné, poses.échelle, places[i].angle, poses.centres[i]),
                     zone_.masque);
    }
  }

  /// Over the full width, its foot below the field's lower edge so that nothing shows under it.
  void poser_mouvant(const Meuble &meuble, const Objet &objet, const Zone &zone_) {
    const Cadre &c = zone_.cadre;
    const auto [low, high] = meuble.silhouette().bounds();
    const double k = c.l * 1.02 / (high.x - low.x);
    const Affine affine = Affine::translation(-(low.x + high.x) / 2, -high.y)
                              .then(Affine::scaling(k, k))
                              .then(Affine::translation(c.centre().x, c.bas() + u_));
    peindre_meuble(meuble, objet, affine, zone_.masque);
  }

  Image &image_;
  const Meubles &meubles_;
  double u_;
};

}  // namespace

void dessiner_blason(Image &image, const Blason &blason, const Meubles &meubles, const Path &contour,
                     double unité) {
  Peintre(image, meubles, unité).peindre(blason, zone(coverage(contour, image.width(), image.height())));
}

void dessiner_meuble(Image &image, const Meuble &meuble, Émail émail, Point coin, double largeur,
                     double hauteur, double unité) {
  const auto [low, high] = meuble.silhouette().bounds();
  const double k = std::min(largeur / (high.x - low.x), hauteur / (high.y - low.y));
  const Affine affine = Affine::translation(-(low.x + high.x) / 2, -high.y)
                            .then(Affine::scaling(k, k))
                            .then(Affine::translation(coin.x + largeur / 2, coin.y + hauteur));
  Objet objet;
  objet.émail = émail;
  const Meubles aucun;
  Peintre(image, aucun, unité).peindre_meuble(meuble, objet, affine, image_entière(image).masque);
}

}  // namespace atelier
