#include "configuration/file_chooser.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "configuration/player_file.h"
#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/window_placing.h"
#include "map/map_reset.h"
#include "persistence/folders.h"
#include "persistence/saved_game_format.h"
#include "persistence/score_file.h"
#include "platform/text.h"
#include "platform/window_layout.h"
#include "play/saved_game.h"
#include "play/stage_sequencer.h"

namespace ardane {
namespace {

constexpr std::array places_des_fichiers = std::to_array<Place>({
    {"Entête", Genre::étiquette, 16, 12, 388, 24},
    {"Nom_fichier", Genre::texte, 16, 42, 388, 24, 0},
    {"Dossier_ouvert", Genre::étiquette, 16, 74, 388, 17},
    {"Lecteur", Genre::liste, 16, 94, 190, 22},
    {"Répertoire", Genre::liste, 16, 94, 190, 222, 1},
    {"Fichier", Genre::liste, 214, 94, 190, 222, 2},
    {"Bouton_OK", Genre::bouton, 130, 332, 66, 31, 3, "OK"},
    {"Bouton_annuler", Genre::bouton, 224, 332, 66, 31, 4},
});

struct Usage_des_fichiers {
  Types_fichier type;
  std::string_view extension;
  Message titre, entête_à_charger, entête_à_écrire, rien_de_choisi;
};

constexpr std::array usages_des_fichiers = std::to_array<Usage_des_fichiers>({
    {fichier_partie, extension_parties, Message::arrêt_en_cours_de_jeu, Message::partie_à_charger,
     Message::nom_du_fichier_de_sauvegarde, Message::choisir_un_fichier_de_partie},
    {fichier_paramétrage, extension_scores, Message::paramétrage_de_la_partie,
     Message::fichier_paramétrage_à_charger, Message::fichier_paramétrage_à_sauvegarder,
     Message::choisir_un_fichier_de_paramétrage},
});

const Usage_des_fichiers &usage_des_fichiers(const GameState &g) {
  const auto trouvé = std::find_if(usages_des_fichiers.begin(), usages_des_fichiers.end(),
                                   [&](const Usage_des_fichiers &u) { return u.type == g.Type_fichier; });
  if (trouvé == usages_des_fichiers.end()) throw ErreurFatale("Choix de fichier sans objet", Lieu::ici());
  return *trouvé;
}

/// What the player has typed without its extension: an extension begins at the first point.
std::string sans_extension(const std::string &nom) {
  return nom.substr(0, nom.find('.'));
}

/// The end of a path that is too long to be read at one glance.
std::string abrégé(const std::string &chemin) {
  constexpr std::size_t lisible = 56;
  if (chemin.size() <= lisible) return chemin;
  const auto coupe = chemin.find(séparateur_de_chemin, chemin.size() - lisible);
  return coupe == std::string::npos ? chemin : "…" + chemin.substr(coupe);
}

}  // namespace

Sélection_partie::Sélection_partie(Contexte &c)
    : Fenêtre("Sélection_partie"),
      c_(c),
      listes_(placer_tout(*this, places_des_fichiers), usage_des_fichiers(c.état).extension) {
  largeur = 420;
  hauteur = 380;
  Centrer_fenêtre(c.état, *this);
  poser_textes();
  if (choisit_un_fichier()) cacher_nom();
  listes_.changement = [this] { montrer_dossier(); };
  listes_.ouvrir(c.dossier.chemin());

  activation = [this] {
    if (c_.état.Mode_sélection == choix_nouveau_nom) focus = &contrôle(*this, "Nom_fichier");
  };
  tic = [this] { listes_.suivre(); };
  demande_de_fermeture = [this] { annuler(); };
  contrôle(*this, "Bouton_annuler").clic = [this] { annuler(); };
  const auto accepter = [this] { choisit_un_fichier() ? charger() : enregistrer(); };
  contrôle(*this, "Bouton_OK").clic = accepter;
  contrôle(*this, "Nom_fichier").entrée = accepter;
  Contrôle &fichiers = contrôle(*this, "Fichier");
  fichiers.double_clic =
      fichiers.entrée = [this] { choisit_un_fichier() ? charger() : prendre_nom_de_la_liste(); };
}

bool Sélection_partie::choisit_un_fichier() const {
  return c_.état.Mode_sélection == choix_fichier;
}

/// The lists take the place of the name.
void Sélection_partie::cacher_nom() {
  Contrôle &nom_fichier = contrôle(*this, "Nom_fichier");
  nom_fichier.visible = false;
  Contrôle &dossier = contrôle(*this, "Dossier_ouvert");
  const double gagné = dossier.haut - nom_fichier.haut;
  dossier.haut -= gagné;
  for (const char *nom_liste : {"Lecteur", "Répertoire", "Fichier"}) contrôle(*this, nom_liste).haut -= gagné;
  for (const char *nom_liste : {"Répertoire", "Fichier"}) contrôle(*this, nom_liste).hauteur += gagné;
}

void Sélection_partie::poser_textes() {
  const GameState &g = c_.état;
  const Usage_des_fichiers &u = usage_des_fichiers(g);
  titre = message(g, u.titre);
  Contrôle &entête = contrôle(*this, "Entête");
  entête.texte = message(g, choisit_un_fichier() ? u.entête_à_charger : u.entête_à_écrire);
  entête.police = {Famille_police::times, 12, true};
  entête.alignement = Alignement::centre;
  contrôle(*this, "Bouton_annuler").texte = message(g, Message::annuler);
  contrôle(*this, "Nom_fichier").étiquette = &entête;
  contrôle(*this, "Répertoire").nom_parlé = "Dossiers";
  contrôle(*this, "Lecteur").nom_parlé = "Lecteurs";
  contrôle(*this, "Fichier").nom_parlé = "Fichiers du dossier";
}

void Sélection_partie::montrer_dossier() {
  Contrôle &label = contrôle(*this, "Dossier_ouvert");
  label.texte = abrégé(listes_.dossier());
  label.infobulle = listes_.dossier();
}

void Sélection_partie::prendre_nom_de_la_liste() {
  const Contrôle &fichiers = contrôle(*this, "Fichier");
  if (fichiers.choix != 0) contrôle(*this, "Nom_fichier").texte = élément_choisi(fichiers);
}

void Sélection_partie::annuler() {
  c_.état.Configuration_acceptée = false;
  fermer();
}

void Sélection_partie::refuser(Message titre_boîte, Message texte) {
  annoncer(c_, titre_boîte, texte, Icône::exclamation);
}

// --- A new file

void Sélection_partie::enregistrer() {
  GameState &g = c_.état;
  std::string &saisie = contrôle(*this, "Nom_fichier").texte;
  const std::string nom_saisi = sans_extension(saisie);
  saisie = nom_saisi + std::string(usage_des_fichiers(g).extension);
  if (sans_blancs(nom_saisi).empty() || !est_nom_de_fichier(nom_saisi))
    return refuser(Message::courage, Message::nom_de_fichier_obligatoire);
  const std::string chemin = Joindre_chemin(listes_.dossier(), saisie);
  if (fichier_existe(chemin)) return refuser(Message::pas_d_accord, Message::fichier_existe_déjà);
  if (!(g.Type_fichier == fichier_partie ? enregistrer_partie(chemin) : enregistrer_paramétrage(chemin)))
    return;
  RevenirAuRepos(c_);
  g.PartieClose = true;
  g.Configuration_acceptée = true;
  fermer();
}

bool Sélection_partie::enregistrer_partie(const std::string &chemin) {
  if (!Enregistrer_partie(c_, chemin)) return false;
  Proposer_répertoire(c_, listes_.dossier());
  return true;
}

bool Sélection_partie::enregistrer_paramétrage(const std::string &chemin) {
  GameState &g = c_.état;
  g.Fichier_lancement = chemin;
  Retenir_exclusions(g);
  if (!Ecrire_scores(c_, true)) return false;
  // The file holds the scores made so far; the program goes on with none.
  if (g.Mode_sélection == choix_nouveau_nom) Vider_scores(c_);
  if (g.Démarrage_demandé) Lancer_aux_prochains_démarrages(c_, chemin, listes_.dossier());
  return true;
}

// --- A file that is there

void Sélection_partie::charger() {
  const Contrôle &fichiers = contrôle(*this, "Fichier");
  if (fichiers.choix == 0) return refuser(Message::mais_enfin, usage_des_fichiers(c_.état).rien_de_choisi);
  const std::string chemin = Joindre_chemin(listes_.dossier(), élément_choisi(fichiers));
  if (c_.état.Type_fichier == fichier_partie)
    reprendre_partie(chemin);
  else
    charger_paramétrage(chemin);
}

void Sélection_partie::reprendre_partie(const std::string &chemin) {
  if (!Reprendre_fichier(c_, chemin)) return listes_.actualiser();
  fermer();
}

void Sélection_partie::charger_paramétrage(const std::string &chemin) {
  Prendre_fichier_paramétrage(c_, chemin);
  fermer();
}

}  // namespace ardane
