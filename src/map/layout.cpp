#include "map/layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/game_state.h"
#include "core/window_placing.h"
#include "map/main_window.h"

namespace ardane {
namespace {

constexpr double écart = 10;
/// Between the window's edge and the viewport.
constexpr double marge_gauche = 10, marge_haute = 5;
/// Beyond what viewport and panel take of the screen's width.
constexpr double réserve = 30;
/// By how much a viewport that shows the whole map is wider than it.
constexpr double bordure = 4;

double droite(const Contrôle &contrôle) {
  return contrôle.gauche + contrôle.largeur;
}
double bas(const Contrôle &contrôle) {
  return contrôle.haut + contrôle.hauteur;
}

void fixer_mesure(double &mesure, double valeur) {
  if (valeur < 0) throw ErreurFatale("L'écran est trop petit pour la carte", Lieu::ici());
  mesure = valeur;
}

/// How far one click in a bar's trough moves: the overhang if it is under half the view, else nine tenths
/// of the view.
int page(double carte, double vue) {
  return static_cast<int>(carte < vue * 1.5 ? carte - vue : std::trunc(vue * 0.9));
}

/// Range and page of a bar. The range reaches 4 pixels past the map's edge, the viewport's border.
void régler_barre(Contrôle &barre, double carte, double vue) {
  constexpr int bord = 4;
  fixer_bornes(barre, 0, static_cast<int>(carte - vue) + bord);
  barre.grand_pas = std::max(1, page(carte, vue));
}

void décaler(Contrôle &contrôle, double dx, double dy) {
  contrôle.gauche += dx;
  contrôle.haut += dy;
}

void disposer_grille(Ecran_principal &e) {
  const double dx = droite(e.Carte) + e.barre_v.largeur - e.LBL_param(1).gauche;
  const double dy = e.Carte.haut - e.LBL_param(1).haut;
  for (int i = 1; i <= 13; ++i) décaler(e.LBL_param(i), dx, dy);
  for (int i = 1; i <= 16; ++i) décaler(e.Bouton(i), dx, dy);
  for (int i = 1; i <= 2; ++i) décaler(e.BTN(i), dx, dy);
  décaler(e.BTN_Sauvegarde, dx, dy);
  décaler(e.BTN_Démarrage, dx, dy);
}

void disposer_panneau(Ecran_principal &e) {
  e.que_faire.haut = e.Carte.haut;
  const double ancien = e.Boîte_score.gauche;
  e.que_faire.gauche = e.Boîte_score.gauche = droite(e.Carte) + e.barre_v.largeur + écart;
  const double dx = e.Boîte_score.gauche - ancien;

  e.Elément_recherché.haut = bas(e.que_faire) + écart;
  e.Elément_recherché.gauche = e.que_faire.gauche;
  e.Texte_à_chercher.gauche = e.Elément_recherché.gauche;
  e.Texte_à_chercher.haut = bas(e.Elément_recherché) + écart;
  e.Boîte_restants.haut = bas(e.Texte_à_chercher) + écart;
  e.Boîte_restants.gauche = e.Boîte_score.gauche;

  e.Bouton_gruge.haut = bas(e.Boîte_restants) - e.Bouton_gruge.hauteur;
  e.Bouton_gruge.gauche = droite(e.Boîte_restants) + 5;
  e.BoutonPasse.haut = e.Bouton_gruge.haut;
  e.BoutonPasse.gauche = e.Bouton_gruge.gauche;
  e.au_premier_plan(e.BoutonPasse);
  e.au_premier_plan(e.Bouton_gruge);
  e.au_premier_plan(e.Boîte_restants);
  for (int i = 1; i <= 3; ++i) {
    e.Reste(i).haut = e.Boîte_restants.haut + 20;
    e.Reste(i).gauche += dx;
    e.au_premier_plan(e.Reste(i));
  }

  e.Boîte_score.haut = bas(e.Boîte_restants) + écart;
  e.au_premier_plan(e.Boîte_score);
  // The sign's box keeps its designed place: a score in play is never negative.
  for (int i = 1; i <= 6; ++i) {
    e.Digit(i).haut = e.Boîte_score.haut + 20;
    e.Digit(i).gauche += dx;
    e.au_premier_plan(e.Digit(i));
  }

  e.BoîteProvinces.haut = e.Boîte_restants.haut;
  e.BoîteProvinces.gauche += dx;
  e.NombreProvinces.haut = e.BoîteProvinces.haut + 25;
  e.NombreProvinces.gauche += dx;
  e.NombreProvinces.visible = e.BoîteProvinces.visible = e.EtiquetteProvinces.visible = false;
}

}  // namespace

void Lire_rectangle_carte(Contexte &c) {
  c.état.Rect_carte = c.plateforme.façade.rectangle(c.principale, c.principale.Carte);
}

Point Taille_confortable(const Ecran_principal &e) {
  const double largeur =
      marge_gauche + e.image_région.largeur + bordure + e.barre_v.largeur + e.que_faire.largeur + réserve;
  const double hauteur = marge_haute + e.image_région.hauteur + marge_haute;
  return {static_cast<int>(std::ceil(largeur)), static_cast<int>(std::ceil(hauteur))};
}

void DisposerCarte(Contexte &c) {
  GameState &g = c.état;
  Ecran_principal &e = c.principale;
  Contrôle &vue = e.Carte;
  const double carte_l = e.image_région.largeur;
  const double carte_h = e.image_région.hauteur;

  vue.haut = marge_haute;
  fixer_mesure(vue.largeur, g.Largeur_écran - (g.Carte_pleine_largeur ? 0 : e.que_faire.largeur) - réserve);
  c.plateforme.façade.repeindre(e);
  g.Rect_carte = c.plateforme.écran.zone_de_travail();
  g.Bas_zone_travail = g.Rect_carte.bas;
  Lire_rectangle_carte(c);
  fixer_mesure(vue.hauteur, g.Bas_zone_travail - g.Rect_carte.haut);
  vue.gauche = marge_gauche;

  const bool horizontale = vue.largeur < carte_l;
  if (!horizontale) {
    vue.largeur = carte_l + bordure;
  } else {
    fixer_mesure(vue.hauteur, vue.hauteur - e.barre_h.hauteur);
    e.barre_h.largeur = vue.largeur;
    e.barre_h.haut = vue.haut + std::min(vue.hauteur, carte_h);
    e.barre_h.gauche = vue.gauche;
  }
  e.barre_h.visible = horizontale;

  const bool verticale = vue.hauteur < carte_h;
  if (!verticale) {
    vue.hauteur = carte_h;
  } else {
    fixer_mesure(vue.largeur, vue.largeur - e.barre_v.largeur);
    if (horizontale) e.barre_h.largeur = vue.largeur;
    e.barre_v.haut = vue.haut;
    e.barre_v.gauche = droite(vue);
    e.barre_v.hauteur = vue.hauteur;
    régler_barre(e.barre_v, carte_h, vue.hauteur);
    e.barre_v.petit_pas = e.barre_v.grand_pas;
  }
  e.barre_v.visible = verticale;
  if (horizontale) {
    régler_barre(e.barre_h, carte_l, vue.largeur);
    e.barre_h.petit_pas = std::max(1, e.barre_h.grand_pas / 5);
  }

  e.hauteur = vue.hauteur + vue.haut + g.Rect_carte.haut - e.haut + (horizontale ? e.barre_h.hauteur : 0);
  e.largeur = e.que_faire.largeur + e.barre_v.largeur + vue.largeur + vue.gauche + réserve;
  g.Largeur_fenêtre = static_cast<std::int32_t>(e.largeur);
  g.Hauteur_fenêtre = static_cast<std::int32_t>(e.hauteur);
}

void Disposer_écran(Contexte &c) {
  c.état.Carte_pleine_largeur = false;
  DisposerCarte(c);
  disposer_panneau(c.principale);
  disposer_grille(c.principale);
  fixer_valeur(c.principale.barre_h, 0);
  fixer_valeur(c.principale.barre_v, 0);
}

void Redisposer(Contexte &c) {
  Ecran_principal &e = c.principale;
  const bool pleine_largeur = c.état.Carte_pleine_largeur;
  const int x = e.barre_h.valeur, y = e.barre_v.valeur;
  const std::array compteur{&e.BoîteProvinces, &e.EtiquetteProvinces, &e.NombreProvinces};
  std::array<bool, compteur.size()> vus{};
  std::ranges::transform(compteur, vus.begin(), &Contrôle::visible);

  Mesurer_écran(c);
  Disposer_écran(c);
  if (pleine_largeur) {
    c.état.Carte_pleine_largeur = true;
    DisposerCarte(c);
  }
  for (std::size_t i = 0; i < compteur.size(); ++i) compteur[i]->visible = vus[i];
  if (e.barre_h.visible) fixer_valeur(e.barre_h, x);
  if (e.barre_v.visible) fixer_valeur(e.barre_v, y);
}

}  // namespace ardane
