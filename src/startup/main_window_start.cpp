#include "startup/main_window_start.h"

#include "core/game_state.h"
#include "core/paths.h"
#include "core/window_placing.h"
#include "map/configuration_panel.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "persistence/information_file.h"
#include "persistence/score_file.h"
#include "services/texts.h"

namespace ardane {
namespace {

void nommer_sons(GameState &g) {
  const auto son = [&](const char *nom) { return Joindre_chemin(g.Répertoire_programme, nom); };
  g.SonErreur = son("carte_er.wav");
  g.SonJuste = son("carte_ok.wav");
  g.SonGagné = son("carte_ga.wav");
  g.SonPerdu = son("carte_pe.wav");
  g.SonFiche = son("carte_hl.wav");
  g.SonSélection = son("carte_es.wav");
}

}  // namespace

void Initialiser_écran(Contexte &c) {
  GameState &g = c.état;
  Ecran_principal &e = c.principale;
  Mesurer_écran(c);
  e.haut = 0;
  c.plateforme.écran.sablier(true);
  MasquerParamétrage(c);
  Poser_textes(c);
  e.contexte_aide = 10;
  Charger_scores(c);
  g.Hauteur_image_cible = e.Elément_recherché.hauteur;
  g.Largeur_image_cible = e.Elément_recherché.largeur;
  Disposer_écran(c);
  c.plateforme.façade.repeindre(e);
  c.plateforme.hasard.semer();
  Charger_images(c);
  nommer_sons(g);
  g.Niveau = aucun_niveau;
  Lire_régions(c);
  Lire_provinces(c);
  Lire_capitales(c);
  Lire_villes(c);
  Placer_provinces(c);
  Placer_régions(c);
  for (int v = 1; v <= nombre_villes; ++v) Placer_repère(c, v);
  Empiler_au_départ(c);
  Préparer_fichiers_info(c);
  g.Etape = étape_repos;
  MasquerPanneau(c);
  g.Carte_pleine_largeur = false;
  RedessinerCarte(c);
  g.PartieVierge = true;
  g.PartieClose = false;
  g.ConseilFicheVu = false;
  c.plateforme.écran.sablier(false);
}

}  // namespace ardane
