#include "screens/welcome.h"

#include <array>
#include <string>

#include "core/game_state.h"
#include "core/resources.h"
#include "core/window_placing.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

constexpr Couleur bleu{0, 0, 255};

constexpr int largeur_confortable = 768;
constexpr int moins_de_bits = 16;
constexpr int modes_au_départ = 36;
constexpr int modes_de_plus = 10;

constexpr std::array places_de_l_accueil = std::to_array<Place>({
    {"Image1", Genre::image, 2, 16, 120, 132},
    {"Commentaire", Genre::étiquette, 136, 8, 337, 81},
    {"Conseil", Genre::étiquette, 128, 96, 345, 57},
    {"Adresse", Genre::étiquette, 8, 160, 489, 113},
});

/// How many colours a depth has, in brackets; one of another depth leaves them open.
std::string couleurs_de(const GameState &g, int bits) {
  const std::string &couleurs = message(g, Message::couleurs);
  switch (bits) {
    case 4: return "16 " + couleurs + "]";
    case 8: return "256" + couleurs + "]";
    case 16: return "65536" + couleurs + "]";
    case 24: return couleurs + " 24 bits]";
    case 32: return couleurs + " 32 bits]";
    default: return {};
  }
}

std::string décrire_mode(const GameState &g, const Fiche_mode &mode) {
  return std::to_string(mode.largeur) + "x" + std::to_string(mode.hauteur) + "  [" +
         couleurs_de(g, mode.couleurs);
}

void conseiller(Contexte &c, Contrôle &conseil) {
  const GameState &g = c.état;
  const bool mieux = Chercher_mode_supérieur(c);
  const bool confortable = g.Largeur_écran >= largeur_confortable;
  conseil.couleur = confortable ? noir : rouge;
  if (!mieux) {
    conseil.texte = confortable ? message(g, Message::résolution_convenable) : "";
    return;
  }
  conseil.texte = message(g, Message::résolution_possible) + décrire_mode(g, g.Modes_écran(0)) +
                  (confortable ? " ; " + message(g, Message::résolution_actuelle_satisfaisante)
                               : message(g, Message::éviterait_de_se_déplacer));
}

/// Adds a mode behind the `retenus` that are kept already.
void retenir_mode(GameState &g, const Mode_écran &mode, int retenus) {
  if (retenus + 1 > g.Nombre_modes) {
    g.Nombre_modes = static_cast<std::int16_t>(g.Nombre_modes + modes_de_plus);
    g.Modes_écran.redimensionner(g.Nombre_modes);
  }
  g.Modes_écran(retenus + 1) = {mode.largeur, mode.hauteur, mode.couleurs};
}

}  // namespace

bool Chercher_mode_supérieur(Contexte &c) {
  GameState &g = c.état;
  g.Nombre_modes = modes_au_départ;
  g.Modes_écran.dimensionner(g.Nombre_modes);
  int retenus = 0;
  for (const Mode_écran &mode : c.plateforme.écran.modes())
    if (mode.couleurs >= moins_de_bits && mode.largeur > g.Largeur_écran) retenir_mode(g, mode, retenus++);
  Fiche_mode &meilleur = g.Modes_écran(0);
  meilleur = {g.Largeur_écran, 0, g.Couleurs_écran};
  bool trouvé = false;
  for (int i = 1; i <= retenus; ++i) {
    const Fiche_mode &mode = g.Modes_écran(i);
    const bool plus_profond = mode.largeur == meilleur.largeur && mode.couleurs > meilleur.couleurs;
    if (mode.largeur <= meilleur.largeur && !plus_profond) continue;
    meilleur = mode;
    trouvé = true;
  }
  return trouvé;
}

Patience::Patience(Contexte &c) : Fenêtre("Patience") {
  const GameState &g = c.état;
  Mesurer_moniteur(c);
  placée_sur_le_moniteur = true;
  largeur = 500;
  hauteur = 282;
  fermable = false;
  titre = message(g, Message::chargement_du_programme) + "...  (" + message(g, Message::version) + ")";
  Centrer_fenêtre(g, *this);
  placer_tout(*this, places_de_l_accueil);
  poser_image(contrôle(*this, "Image1"), c.ressources.images.chercher("Patience.Image1"));
  contrôle(*this, "Adresse").texte = message(g, Message::dernières_versions_sur_le_site);
  contrôle(*this, "Adresse").couleur = bleu;
  contrôle(*this, "Commentaire").texte =
      message(g, Message::bienvenue) + décrire_mode(g, {g.Largeur_écran, g.Hauteur_écran, g.Couleurs_écran});
  conseiller(c, contrôle(*this, "Conseil"));
}

}  // namespace ardane
