#include "map/panel.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "core/game_state.h"
#include "map/main_window.h"

namespace ardane {
namespace {

void montrer_devant(Ecran_principal &e, Contrôle &contrôle, bool visible = true) {
  contrôle.visible = visible;
  if (visible) e.au_premier_plan(contrôle);
}

struct Zone_question {
  Etapes étape;
  Niveaux niveau_premier, niveau_dernier;
  bool texte, image;
};

// Which parts of the question are seen; modes that stand in no row see none.
constexpr std::array zones = std::to_array<Zone_question>({
    {étape_provinces, niveau_facile, niveau_difficile, true, true},
    {étape_provinces, niveau_expert, niveau_expert, true, false},
    {étape_villes, niveau_facile, niveau_moyen, true, true},
    {étape_villes, niveau_difficile, niveau_expert, true, false},
    {étape_drapeaux, niveau_facile, niveau_expert, false, true},
    {étape_régions, niveau_facile, niveau_expert, true, true},
});

void afficher_question(Contexte &c) {
  Ecran_principal &e = c.principale;
  Zone_question zone{};
  for (const Zone_question &z : zones)
    if (z.étape == c.état.Etape && c.état.Niveau >= z.niveau_premier && c.état.Niveau <= z.niveau_dernier)
      zone = z;
  montrer_devant(e, e.Texte_à_chercher, zone.texte);
  montrer_devant(e, e.Elément_recherché, zone.image);
  montrer_devant(e, e.Image_recherchée, zone.image);
}

/// Decimal digits of `nombre`, zeros in front, the units at index 1.
template <class Chiffres>
void afficher_chiffres(Chiffres &boîtes, int combien, long nombre) {
  for (int i = 1; i <= combien; ++i, nombre /= 10)
    boîtes(i).texte = std::string(1, static_cast<char>('0' + nombre % 10));
}

}  // namespace

bool est_en_jeu(int étape) {
  return étape >= étape_provinces && étape <= étape_régions;
}

void AfficherPanneau(Contexte &c) {
  Ecran_principal &e = c.principale;
  const bool jeu = est_en_jeu(c.état.Etape);
  const bool compté = jeu && !c.état.ModeApprentissage;
  montrer_devant(e, e.que_faire, jeu);
  e.Boîte_score.visible = compté;
  if (jeu) e.au_premier_plan(e.Boîte_score);
  e.Boîte_restants.visible = jeu;
  for (int i = 0; i <= 6; ++i) montrer_devant(e, e.Digit(i), compté);
  for (int i = 1; i <= 3; ++i) montrer_devant(e, e.Reste(i), jeu);
  afficher_question(c);
  const bool régions = c.état.Etape == étape_régions;
  montrer_devant(e, e.BoîteProvinces, régions);
  montrer_devant(e, e.EtiquetteProvinces, régions);
  montrer_devant(e, e.NombreProvinces, régions);
}

void MasquerPanneau(Contexte &c) {
  Ecran_principal &e = c.principale;
  for (Contrôle *contrôle :
       {&e.que_faire, &e.Boîte_score, &e.Boîte_restants, &e.Texte_à_chercher, &e.Elément_recherché,
        &e.Image_recherchée, &e.NombreProvinces, &e.BoîteProvinces, &e.EtiquetteProvinces})
    contrôle->visible = false;
  for (int i = 0; i <= 6; ++i) e.Digit(i).visible = false;
  for (int i = 1; i <= 3; ++i) e.Reste(i).visible = false;
}

std::string En_milliers(long nombre) {
  std::string chiffres = std::to_string(nombre);
  const std::size_t premier = nombre < 0 ? 1 : 0;
  for (std::size_t i = chiffres.size(); i > premier + 3; i -= 3) chiffres.insert(i - 3, " ");
  return chiffres;
}

void AfficherScore(Contexte &c) {
  const long score = c.état.Score;
  c.principale.Boîte_score.nom_parlé = c.principale.Boîte_score.texte + " : " + En_milliers(score);
  afficher_chiffres(c.principale.Digit, 6, std::labs(score));
  c.principale.Digit(0).texte = score < 0 ? "-" : "";
}

void AfficherNombreProvinces(Contexte &c, int nombre) {
  c.principale.NombreProvinces.texte = std::to_string(nombre);
  c.principale.BoîteProvinces.nom_parlé = "Provinces de la région à choisir : " + std::to_string(nombre);
}

void Légender_reste(Contexte &c) {
  const GameState &g = c.état;
  std::string &légende = c.principale.Boîte_restants.texte;
  switch (g.Etape) {
    case étape_provinces: légende = message(g, Message::provinces_à_placer); break;
    case étape_villes: légende = message(g, Message::villes_à_placer); break;
    case étape_drapeaux: légende = "Drapeaux à placer"; break;
    case étape_régions: légende = message(g, Message::régions_à_placer); break;
    default: break;
  }
}

void AfficherReste(Contexte &c, int nombre) {
  Légender_reste(c);
  afficher_chiffres(c.principale.Reste, 3, nombre);
  c.principale.Boîte_restants.nom_parlé = c.principale.Boîte_restants.texte + " : " + std::to_string(nombre);
}

int reste_de_l_étape(const GameState &g) {
  switch (g.Etape) {
    case étape_villes: return g.VillesRestantes;
    case étape_régions: return g.RégionsRestantes;
    default: return g.ProvincesRestantes;
  }
}

}  // namespace ardane
