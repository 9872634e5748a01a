#include "armorial/company.h"

#include "armorial/placing.h"

namespace atelier {
namespace {

std::vector<Place> places_des_côtés(int nombre, Cadre &c) {
  const double l = c.l * 0.3;
  const double y = c.y + c.h * 0.08;
  const double h = c.h * 0.6;
  const auto colonne = [&](double x, int n) {
    return n == 0 ? std::vector<Place>()
                  : en_rangs({x, y, l, h}, std::vector<int>(static_cast<std::size_t>(n), 1));
  };
  auto places = colonne(c.x, (nombre + 1) / 2);
  const auto sénestres = colonne(c.droite() - l, nombre / 2);
  places.insert(places.end(), sénestres.begin(), sénestres.end());
  c = {c.x + l, c.y, c.l - 2 * l, c.h};
  return places;
}

std::vector<Place> places_des_cantons(Cadre &c) {
  const double l = c.l * 0.34;
  const double h = c.h * 0.34;
  std::vector<Place> places;
  for (const double y : {c.y, c.y + c.h * 0.6})
    for (const double x : {c.x, c.droite() - l}) places.push_back({{x, y, l, h}});
  c = {c.x + l * 0.72, c.y + h * 0.35, c.l - l * 1.44, c.h - h * 0.8};
  return places;
}

std::vector<Place> places_deux_et_une(Cadre &c) {
  const double l = c.l * 0.37;
  const double h = c.h * 0.33;
  std::vector<Place> places{
      {{c.x, c.y, l, h}}, {{c.droite() - l, c.y, l, h}}, {{c.centre().x - l / 2, c.bas() - h, l, h}}};
  c = {c.x + c.l * 0.06, c.y + h * 0.72, c.l * 0.88, c.h - h * 1.6};
  return places;
}

}  // namespace

std::vector<int> répartis(int nombre, std::size_t cadres, Pièce pièce, Lieu lieu) {
  std::vector<int> result(cadres, 0);
  if (cadres == 0) return result;
  const bool chevron = pièce == Pièce::chevron;
  if (lieu == Lieu::en_pointe) {
    result.back() = nombre;
  } else if (lieu == Lieu::en_chef && chevron) {
    result[0] = (nombre + 1) / 2;
    result[1] = nombre / 2;
  } else if (lieu == Lieu::en_chef) {
    result[0] = nombre;
  } else if (chevron && nombre == 1) {
    result[2] = 1;
  } else {
    for (int i = 0; i < nombre; ++i) ++result[static_cast<std::size_t>(i) % cadres];
  }
  return result;
}

std::vector<Place> places_prises(const Annexe &annexe, const Meuble &meuble, const Meuble &principal,
                                 const Zone &zone, Cadre &c) {
  const Objet &objet = annexe.objet;
  if (annexe.relation == Relation::accosté) return places_des_côtés(objet.nombre, c);
  if (annexe.relation == Relation::cantonné || objet.nombre == 4) return places_des_cantons(c);
  const bool partout = annexe.relation == Relation::accompagné && annexe.lieu == Lieu::partout;
  if (partout && objet.nombre == 3) return places_deux_et_une(c);
  if (annexe.lieu == Lieu::en_pointe) {
    const double h = c.h * 0.31;
    c.h -= h;
    return disposés(objet, objet.nombre, {c.x, c.bas(), c.l, h}, zone, meuble);
  }
  // A charge that is wider than high leaves more above it to two others, which have but half its width each.
  const bool couché = principal.largeur > principal.hauteur;
  const double h = c.h * (objet.nombre > 2 ? 0.31 : objet.nombre == 2 && couché ? 0.43 : 0.36);
  const Cadre chef{c.x, c.y, c.l, h};
  c = {c.x, c.y + h, c.l, c.h - h};
  return disposés(objet, objet.nombre, chef, zone, meuble);
}

}  // namespace atelier
