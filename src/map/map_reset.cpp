#include "map/map_reset.h"

#include "core/game_state.h"
#include "map/layers.h"
#include "map/main_window.h"
#include "platform/text.h"

namespace ardane {
namespace {

void remettre_provinces(GameState &g) {
  g.ProvincesRestantes = 0;
  g.ProvincesEnJeu = 0;
  for (int i = 1; i <= nombre_provinces; ++i) {
    Fiche_province &province = g.TableProvinces(i);
    province.villes_restantes = 0;
    g.TableClignotement(i) = false;
    province.trouvée = province.inhibée;
    if (province.inhibée) continue;
    ++g.ProvincesRestantes;
    ++g.ProvincesEnJeu;
  }
}

void remettre_villes(Contexte &c) {
  GameState &g = c.état;
  g.VillesParProvince.relever(g.TableVilles);
  g.VillesRestantes = 0;
  g.VillesEnJeu = 0;
  for (int i = 1; i <= nombre_villes; ++i) {
    Fiche_ville &ville = g.TableVilles(i);
    Contrôle &modèle = ville.capitale ? c.principale.RondPref(0) : c.principale.RondVille(0);
    poser_image(c.principale.rond(i), modèle.image);
    Placer_repère(c, i);
    Fiche_province &province = g.TableProvinces(ville.province);
    ville.trouvée = province.inhibée;
    if (province.inhibée) continue;
    ++province.villes_restantes;
    ++g.VillesEnJeu;
    if (!sans_blancs(ville.nom).empty()) ++g.VillesRestantes;
  }
}

/// Region 0 stands for no region: never asked, without provinces.
void remettre_régions(Contexte &c) {
  GameState &g = c.état;
  g.TableRégions(0).trouvée = true;
  g.TableRégions(0).nombre_provinces = 0;
  for (int r = 1; r <= nombre_régions; ++r) {
    Fiche_région &région = g.TableRégions(r);
    région.nombre_provinces = 0;
    région.provinces_restantes = 0;
    région.trouvée = false;
    région.inhibée = false;
  }
  for (int i = 1; i <= nombre_provinces; ++i) {
    const Fiche_province &province = g.TableProvinces(i);
    Fiche_région &région = g.TableRégions(province.région);
    région.membres(++région.nombre_provinces) = static_cast<std::int16_t>(i);
    if (province.inhibée) continue;
    ++région.provinces_restantes;
    Poser_rond(c, i, false, false);
  }
  g.RégionsRestantes = nombre_régions;
  g.RégionsEnJeu = nombre_régions;
  for (int r = 1; r <= nombre_régions; ++r) {
    Fiche_région &région = g.TableRégions(r);
    if (région.provinces_restantes != 0) continue;
    région.trouvée = true;
    région.inhibée = true;
    --g.RégionsRestantes;
    --g.RégionsEnJeu;
  }
}

}  // namespace

void RemiseAZéroCarte(Contexte &c) {
  GameState &g = c.état;
  fixer_valeur(c.principale.barre_h, 0);
  fixer_valeur(c.principale.barre_v, 0);
  g.PhaseClignotement = true;
  Placer_provinces(c);
  remettre_provinces(g);
  remettre_villes(c);
  Placer_régions(c);
  remettre_régions(c);
  g.TailleRégion = 0;
  g.NbErreurs = 0;
  g.PartieClose = false;
  g.AssistanceActive = false;
  g.ProvinceCourante = g.VilleCourante = g.RégionCourante = 0;
  c.principale.Bouton_gruge.visible = false;
  c.principale.BoutonPasse.visible = false;
  g.AprèsPartie = false;
}

void Retenir_exclusions(GameState &g) {
  for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).inhibée = g.TableProvinces(p).trouvée;
}

}  // namespace ardane
