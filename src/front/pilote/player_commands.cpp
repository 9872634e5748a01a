// What the player's hand does.
#include <algorithm>
#include <cstdint>
#include <limits>

#include "front/pilote/commands.h"
#include "front/pilote/json_boxes.h"
#include "front/pilote/numbers.h"
#include "front/pilote/refusal.h"

namespace ardane {
namespace {

int lire_entier(const std::string &texte) {
  const auto nombre = lire_nombre<int>(texte);
  if (!nombre) throw Refus("« " + texte + " » n'est pas un nombre entier");
  return *nombre;
}

/// Of a point on a screen, which no sum of such points makes overflow.
int lire_coordonnée(const std::string &texte) {
  constexpr int extrême = std::numeric_limits<std::int16_t>::max();
  const int coordonnée = lire_entier(texte);
  if (coordonnée < -extrême || coordonnée > extrême)
    throw Refus("« " + texte + " » n'est pas une coordonnée d'écran");
  return coordonnée;
}

void exiger_utilisable(const Contrôle &contrôle) {
  if (!est_visible(contrôle)) throw Refus("Le contrôle " + contrôle.nom + " est caché");
  if (!est_utilisable(contrôle)) throw Refus("Le contrôle " + contrôle.nom + " est inactif");
}

Contrôle &contrôle_utilisable(const Session &s, const std::string &nom) {
  Contrôle &contrôle = contrôle_du_dessus(s, nom);
  exiger_utilisable(contrôle);
  return contrôle;
}

Contrôle &contrôle_utilisable(const Session &s, const std::string &nom, Genre genre) {
  Contrôle &contrôle = contrôle_du_dessus(s, nom);
  if (contrôle.genre != genre)
    throw Refus("Le contrôle " + nom + " est du genre " + std::string(nom_genre(contrôle.genre)) +
                ", et non " + std::string(nom_genre(genre)));
  exiger_utilisable(contrôle);
  return contrôle;
}

/// The focus goes to what the player's mouse touches, before anything else happens.
void toucher(Session &s, Contrôle &contrôle) {
  if (prend_le_clavier(contrôle)) s.monde.façade.porter_focus(fenêtre_du_dessus(s), contrôle);
}

void cliquer_sur(Session &s, Contrôle &contrôle) {
  toucher(s, contrôle);
  cliquer(fenêtre_du_dessus(s), contrôle);
}

/// "\n" is a line end and "\\" a backslash; before any other character a backslash is itself.
std::string sans_échappement(std::string_view texte) {
  std::string clair;
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const char suivant = texte[i] == '\\' && i + 1 < texte.size() ? texte[i + 1] : '\0';
    const bool échappé = suivant == 'n' || suivant == '\\';
    clair += !échappé ? texte[i] : suivant == 'n' ? '\n' : '\\';
    if (échappé) ++i;
  }
  return clair;
}

/// Rank in a list of the item of that text, or of "#N".
int rang_élément(const Contrôle &liste, const std::string &texte) {
  const auto &éléments = liste.éléments;
  const auto rang =
      texte.starts_with('#') ? lire_nombre<int>(std::string_view(texte).substr(1)) : std::nullopt;
  if (rang && (*rang < 1 || *rang > static_cast<int>(éléments.size())))
    throw Refus("La liste " + liste.nom + " n'a que " + std::to_string(éléments.size()) + " éléments");
  if (rang) return *rang;
  const auto place = std::find(éléments.begin(), éléments.end(), texte);
  if (place == éléments.end()) throw Refus("La liste " + liste.nom + " n'a pas d'élément « " + texte + " »");
  return static_cast<int>(place - éléments.begin()) + 1;
}

}  // namespace

void démarrer(Session &s, const Arguments &) {
  if (s.démarrée) throw Refus("Le programme est déjà démarré");
  s.démarrée = true;
  s.programme.Démarrage(s.répertoire);
}

void choisir_menu(Session &s, const Arguments &a) {
  Contrôle &entrée = contrôle_utilisable(s, a[0], Genre::menu);
  cliquer(fenêtre_du_dessus(s), entrée);
}

void cliquer_contrôle(Session &s, const Arguments &a) {
  cliquer_sur(s, contrôle_utilisable(s, a[0]));
}

void double_cliquer(Session &s, const Arguments &a) {
  // The first of the two presses is a click like any other.
  Fenêtre &fenêtre = fenêtre_du_dessus(s);
  cliquer_sur(s, contrôle_utilisable(s, a[0]));
  // The click may have closed the window, or taken the control off.
  Contrôle *contrôle = fenêtre.ouverte ? fenêtre.chercher(a[0]) : nullptr;
  if (contrôle != nullptr && est_utilisable(*contrôle)) déclencher(contrôle->double_clic);
}

void cliquer_carte(Session &s, const Arguments &a) {
  Ecran_principal &principale = s.programme.principale();
  if (&fenêtre_du_dessus(s) != &principale) throw Refus("La carte n'est pas dans la fenêtre du dessus");
  const int x = lire_entier(a[0]);
  const int y = lire_entier(a[1]);
  const Visée visée = viser(s, x, y);
  if (visée.image == nullptr) throw Refus("Le point " + a[0] + " " + a[1] + " de la carte n'est pas en vue");
  s.monde.écran.placer_curseur(visée.écran);
  cliquer(principale, *visée.image);
}

void placer_curseur(Session &s, const Arguments &a) {
  s.monde.écran.placer_curseur({lire_coordonnée(a[0]), lire_coordonnée(a[1])});
}

void écrire_texte(Session &s, const Arguments &a) {
  Contrôle &boîte = contrôle_utilisable(s, a[0], Genre::texte);
  if (boîte.lecture_seule) throw Refus("Le contrôle " + boîte.nom + " ne se modifie pas");
  toucher(s, boîte);
  saisir(boîte, sans_échappement(a[1]));
}

void presser_entrée(Session &s, const Arguments &a) {
  Contrôle &contrôle = contrôle_utilisable(s, a[0]);
  if (!prend_le_clavier(contrôle)) throw Refus("Le contrôle " + contrôle.nom + " ne prend pas le clavier");
  toucher(s, contrôle);
  entrer(fenêtre_du_dessus(s), contrôle);
}

void sélectionner(Session &s, const Arguments &a) {
  Contrôle &liste = contrôle_utilisable(s, a[0], Genre::liste);
  const int rang = rang_élément(liste, a[1]);
  toucher(s, liste);
  choisir(liste, rang);
}

void déplacer_barre(Session &s, const Arguments &a) {
  Contrôle &barre = contrôle_utilisable(s, a[0], Genre::barre);
  const int valeur = lire_entier(a[1]);
  toucher(s, barre);
  fixer_valeur(barre, valeur);
}

void fermer_fenêtre(Session &s, const Arguments &) {
  Fenêtre &fenêtre = fenêtre_du_dessus(s);
  if (!fenêtre.fermable) throw Refus("La fenêtre " + fenêtre.nom + " n'a pas de bouton de fermeture");
  demander_fermeture(fenêtre);
}

void répondre_boîte(Session &s, const Arguments &a) {
  const auto réponse = réponse_du_mot(*s.monde.boîtes.affichée(), a[0]);
  if (!réponse) throw Refus("La boîte n'offre pas la réponse « " + a[0] + " »");
  s.réponse = réponse;
}

void presser_touche(Session &s, const Arguments &a) {
  if (a[0] != "F1") throw Refus("La touche « " + a[0] + " » est inconnue");
  s.programme.aide(fenêtre_du_dessus(s));
}

}  // namespace ardane
