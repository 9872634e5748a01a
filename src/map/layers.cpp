#include "map/layers.h"

#include <cmath>

#include "core/game_state.h"
#include "core/resources.h"
#include "map/main_window.h"
#include "map/visibility_rules.h"

namespace ardane {
namespace {

/// Left (or top) that centres something `taille` long on a dot `taille_repère` long, cut to whole pixels.
double centré(double place_repère, double taille, double taille_repère) {
  return place_repère - std::trunc((taille - taille_repère) / 2);
}

void placer_couches(Contexte &c, Contrôle &couche, int gauche, int haut) {
  couche.gauche = c.principale.image_région.gauche + gauche;
  couche.haut = c.principale.image_région.haut + haut;
}

/// The picture that the marker of town `i` takes over its plain dot; null for none.
const Contrôle *image_du_rond(Contexte &c, int i, bool cible) {
  const GameState &g = c.état;
  switch (g.Etape) {
    case étape_régions: return cible ? &c.principale.Rondcible : &c.principale.rondjaune;
    case étape_révision: return cible ? &c.principale.Rondcible : nullptr;
    case étape_paramétrage_affiché:
    case étape_paramétrage_défini:
      return g.TableProvinces(i).trouvée ? &c.principale.RondRouge : &c.principale.rondjaune;
    default: return g.AssistanceActive && i == g.ProvinceCourante ? &c.principale.rondnoir : nullptr;
  }
}

void afficher_drapeau(Contexte &c, Image drapeau) {
  const double boîte_h = c.état.Hauteur_image_cible;
  const double boîte_l = c.état.Largeur_image_cible;
  double h = drapeau.hauteur;
  double l = drapeau.largeur;
  // A flag too tall or too wide takes its other side from the box's own proportions, not from its own.
  if (h > boîte_h) {
    l = std::nearbyint(boîte_h / h * boîte_l);
    h = boîte_h;
  }
  if (l > boîte_l) {
    h = std::nearbyint(boîte_l / l * boîte_h);
    l = boîte_l;
  }
  Contrôle &image = c.principale.Image_recherchée;
  image.haut = std::trunc((boîte_h - h) / 2);
  image.hauteur = h;
  image.gauche = std::trunc((boîte_l - l) / 2);
  image.largeur = l;
  poser_image(image, drapeau);
}

}  // namespace

void Charger_images(Contexte &c) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    poser_image(c.principale.Pays(i), c.principale.stock.Pays(i));
    poser_image(c.principale.Inv(i), c.principale.stock.Inv(i));
  }
  for (int i = 1; i <= nombre_régions; ++i) poser_image(c.principale.Région(i), c.principale.stock.Région(i));
}

void Placer_provinces(Contexte &c) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    const Fiche_province &province = c.état.TableProvinces(i);
    placer_couches(c, c.principale.Pays(i), province.gauche, province.haut);
    placer_couches(c, c.principale.Inv(i), province.gauche, province.haut);
  }
}

void Placer_régions(Contexte &c) {
  for (int i = 1; i <= nombre_régions; ++i) {
    const Fiche_région &région = c.état.TableRégions(i);
    placer_couches(c, c.principale.Région(i), région.gauche, région.haut);
  }
}

void Placer_repère(Contexte &c, int ville) {
  const Fiche_ville &fiche = c.état.TableVilles(ville);
  Contrôle &point = repère(c.principale, ville);
  Contrôle &rond = c.principale.rond(ville);
  placer_couches(c, point, fiche.x, fiche.y);
  rond.gauche = centré(point.gauche, rond.largeur, point.largeur);
  rond.haut = centré(point.haut, rond.hauteur, point.hauteur);
}

void Empiler_au_départ(Contexte &c) {
  Ecran_principal &principale = c.principale;
  principale.au_premier_plan(principale.image_région);
  for (int i = 1; i <= nombre_régions; ++i)
    if (c.état.TableRégions(i).encart == 0) principale.au_premier_plan(principale.Région(i));
  for (int i = 1; i <= nombre_provinces; ++i) {
    if (c.état.TableProvinces(i).encart != 0) continue;
    principale.au_premier_plan(principale.Pays(i));
    principale.au_premier_plan(principale.Inv(i));
  }
  for (int i = 1; i <= nombre_villes; ++i) {
    if (c.état.TableProvinces(c.état.TableVilles(i).province).encart != 0) continue;
    principale.au_premier_plan(principale.rond(i));
    principale.au_premier_plan(repère(principale, i));
  }
}

void MasquerCarte(Contexte &c) {
  for (int i = 1; i <= nombre_villes; ++i) {
    c.principale.rond(i).visible = false;
    repère(c.principale, i).visible = false;
  }
  for (int i = 1; i <= nombre_provinces; ++i) {
    c.principale.Inv(i).visible = false;
    c.principale.Pays(i).visible = false;
  }
  for (int i = 1; i <= nombre_régions; ++i) c.principale.Région(i).visible = false;
}

void RedessinerCarte(Contexte &c) {
  Ecran_principal &principale = c.principale;
  c.plateforme.écran.sablier(true);
  for (int i = 1; i <= nombre_provinces; ++i) {
    principale.au_premier_plan(principale.Inv(i));
    principale.au_premier_plan(principale.Pays(i));
    Montrer_province(c, i, false);  // and its towns
  }
  for (int i = 1; i <= nombre_régions; ++i) {
    principale.au_premier_plan(principale.Région(i));
    Montrer_région(c, i);
  }
  for (int i = 1; i <= nombre_villes; ++i) principale.au_premier_plan(repère(principale, i));
  c.plateforme.écran.sablier(false);
}

void Poser_rond(Contexte &c, int i, bool cible, bool retenue) {
  Ecran_principal &principale = c.principale;
  const Fiche_ville &ville = c.état.TableVilles(i);
  Contrôle &rond = principale.rond(i);
  const bool était_visible = rond.visible;
  rond.visible = false;
  placer_couches(c, rond, ville.x, ville.y);
  poser_image(rond, principale.RondPref(0).image);
  if (c.état.Etape == étape_régions && !cible && retenue) return;
  if (const Contrôle *modèle = image_du_rond(c, i, cible)) {
    poser_image(rond, modèle->image);
    rond.gauche = centré(rond.gauche, rond.largeur, principale.RondPref(0).largeur);
    rond.haut = centré(rond.haut, rond.hauteur, principale.RondPref(0).hauteur);
  }
  rond.visible = était_visible;
}

void AfficherDrapeau(Contexte &c, int province) {
  afficher_drapeau(c, c.principale.Drapeau(province).image);
  c.principale.Image_recherchée.nom_parlé = c.ressources.blasons.chaîne(province);
}

void AfficherDrapeauRégion(Contexte &c, int région) {
  afficher_drapeau(c, c.principale.DrapeauRégion(région).image);
  constexpr int avant_les_régions = 200;
  c.principale.Image_recherchée.nom_parlé = c.ressources.blasons.chaîne(avant_les_régions + région);
}

void Clignotant(Contexte &c) {
  GameState &g = c.état;
  g.PhaseClignotement = !g.PhaseClignotement;
  for (int i = 1; i <= nombre_provinces; ++i)
    if (g.TableClignotement(i)) c.principale.Pays(i).visible = g.PhaseClignotement;
}

}  // namespace ardane
