#include "screens/top_ten.h"

#include <array>

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/resources.h"
#include "core/window_placing.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

constexpr std::array places_du_classement = std::to_array<Place>({
    {"Etiquette", Genre::étiquette, 131, 9, 265, 24},
    {"Command1", Genre::bouton, 528, 144, 39, 40, 0, "OK"},
    {"BoutonStatistiques", Genre::bouton, 528, 248, 40, 37, 1},
});

// The rows are irregular by a pixel.
constexpr Table<double, 1, nombre_rangs> hauts_des_rangs({55, 85, 116, 146, 177, 207, 237, 268, 298, 329});

/// Titles by level. That of the expert level is a message of its own beside the menu entry's.
constexpr Table<Message, niveau_facile, niveau_expert> titres({Message::niveau_facile, Message::niveau_moyen,
                                                               Message::niveau_difficile,
                                                               Message::titre_niveau_expert});

void habiller(Contrôle &étiquette, Alignement alignement) {
  étiquette.police = {Famille_police::times, 15.75, true};
  étiquette.couleur = Couleur{255, 255, 0};
  étiquette.fond = noir;
  étiquette.alignement = alignement;
}

}  // namespace

void AfficherScores(Contexte &c, int niveau) {
  c.état.Niveau_affiché = static_cast<std::int16_t>(niveau);
  c.plateforme.fenêtres.ouvrir_modale("Affichage_scores");
}

Affichage_scores::Affichage_scores(Contexte &c) : Fenêtre("Affichage_scores") {
  largeur = 593;
  hauteur = 377;
  redimensionnable = true;
  titre = message(c.état, Message::meilleurs_scores);
  contexte_aide = 90;
  placer_tout(*this, places_du_classement);
  habiller(contrôle(*this, "Etiquette"), Alignement::centre);
  for (int i = 1; i <= nombre_rangs; ++i) {
    habiller(placer(*this, {indexé("nomjoueur", i), Genre::étiquette, 27, hauts_des_rangs(i), 368, 28}),
             Alignement::gauche);
    habiller(placer(*this, {indexé("valeurscore", i), Genre::étiquette, 409, hauts_des_rangs(i), 89, 28}),
             Alignement::centre);
  }
  Centrer_fenêtre(c.état, *this);
  contrôle(*this, "Command1").police = {Famille_police::times, 14.25, true};
  contrôle(*this, "Command1").clic = [this] { fermer(); };
  Contrôle &statistiques = contrôle(*this, "BoutonStatistiques");
  statistiques.image = c.ressources.images.chercher("Affichage_scores.BoutonStatistiques");
  statistiques.nom_parlé = "Statistiques";
  statistiques.visible = c.état.AprèsPartie;
  statistiques.clic = [&c] { c.plateforme.fenêtres.ouvrir_modale("Stats"); };
  écrire_titre(c);
  écrire_liste(c);
}

void Affichage_scores::écrire_titre(Contexte &c) {
  GameState &g = c.état;
  if (g.Niveau_affiché == aucun_niveau) {
    annoncer(c, Message::être_plus_précis, Message::niveau_non_sélectionné);
    g.Niveau_affiché = niveau_facile;
  }
  contrôle(*this, "Etiquette").texte = message(g, titres(g.Niveau_affiché));
}

void Affichage_scores::écrire_liste(const Contexte &c) {
  for (int i = 1; i <= nombre_rangs; ++i) {
    const Meilleur_score &entrée = c.état.Meilleurs_scores(c.état.Niveau_affiché, i);
    const bool vide = entrée.score == 0;
    contrôle(*this, indexé("nomjoueur", i)).texte = vide ? "" : entrée.nom;
    contrôle(*this, indexé("valeurscore", i)).texte = vide ? "" : std::to_string(entrée.score);
  }
}

}  // namespace ardane
