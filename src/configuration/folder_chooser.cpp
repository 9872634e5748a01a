#include "configuration/folder_chooser.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/resources.h"
#include "core/window_placing.h"
#include "persistence/folders.h"
#include "persistence/registry.h"
#include "persistence/score_file.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::array places_des_dossiers = std::to_array<Place>({
    {"Entête", Genre::étiquette, 16, 12, 388, 42},
    {"Nom_fichier", Genre::texte, 16, 62, 388, 24, 4},
    {"Lecteur", Genre::liste, 16, 94, 190, 22},
    {"Répertoire", Genre::liste, 16, 94, 190, 210, 0},
    {"Fichier", Genre::liste, 214, 94, 190, 210, 5},
    {"Command1", Genre::bouton, 16, 322, 40, 40, 1},
    {"Sous_répertoire", Genre::texte, 64, 330, 260, 24, 2},
    {"Bouton_OK", Genre::bouton, 338, 326, 66, 31, 3, "OK"},
});

struct Usage_des_dossiers {
  Modes_sélection mode;
  Message message_entête;
  std::string_view extension;  ///< of the files shown, in capitals
};

constexpr std::array usages_des_dossiers = std::to_array<Usage_des_dossiers>({
    {choix_dossier_information, Message::répertoire_du_fichier_d_information, ".INF"},
    {choix_dossier_sauvegarde, Message::répertoire_des_parties, extension_scores},
});

const Usage_des_dossiers &usage_des_dossiers(const GameState &g) {
  const auto trouvé = std::find_if(usages_des_dossiers.begin(), usages_des_dossiers.end(),
                                   [&](const Usage_des_dossiers &u) { return u.mode == g.Mode_sélection; });
  if (trouvé == usages_des_dossiers.end()) throw ErreurFatale("Choix de dossier sans objet", Lieu::ici());
  return *trouvé;
}

std::string avec_séparateur(std::string_view dossier) {
  return Joindre_chemin(dossier, "");
}

bool est_dossier(const std::string &chemin) {
  std::error_code erreur;
  return fs::is_directory(chemin_natif(chemin), erreur);
}

bool créer_dossier(const std::string &chemin) {
  std::error_code erreur;
  return fs::create_directory(chemin_natif(chemin), erreur);
}

}  // namespace

Paramétrage_répertoires::Paramétrage_répertoires(Contexte &c)
    : Fenêtre("Paramétrage_répertoires"),
      c_(c),
      listes_(placer_tout(*this, places_des_dossiers), usage_des_dossiers(c.état).extension) {
  GameState &g = c.état;
  largeur = 420;
  hauteur = 380;
  fermable = false;
  Mesurer_écran(c);
  Centrer_fenêtre(g, *this);
  poser_textes();
  contrôle(*this, "Nom_fichier").lecture_seule = true;
  contrôle(*this, "Sous_répertoire").visible = false;

  const std::string info = c.dossier.complet(g.Répertoire_info);
  const bool pour_info = g.Mode_sélection == choix_dossier_information && est_dossier(info);
  tic = [this] { listes_.suivre(); };
  listes_.changement = [this] { contrôle(*this, "Nom_fichier").texte = avec_séparateur(listes_.dossier()); };
  listes_.ouvrir(pour_info ? info : c.dossier.chemin());

  contrôle(*this, "Command1").clic = [this] { montrer_saisie(); };
  Contrôle &saisie = contrôle(*this, "Sous_répertoire");
  saisie.entrée = [this] { créer_puis_ouvrir(); };
  saisie.perte_du_focus = [&saisie] { saisie.visible = false; };
  contrôle(*this, "Bouton_OK").clic = [this] { accepter(); };
}

void Paramétrage_répertoires::poser_textes() {
  titre = message(c_.état, Message::paramétrage_des_répertoires);
  Contrôle &entête = contrôle(*this, "Entête");
  entête.texte = message(c_.état, usage_des_dossiers(c_.état).message_entête);
  entête.police = {Famille_police::times, 12, true};
  entête.alignement = Alignement::centre;
  contrôle(*this, "Nom_fichier").nom_parlé = "Dossier ouvert";
  contrôle(*this, "Répertoire").étiquette = &entête;
  contrôle(*this, "Lecteur").nom_parlé = "Lecteurs";
  contrôle(*this, "Fichier").nom_parlé = "Fichiers du dossier";
  contrôle(*this, "Sous_répertoire").nom_parlé = "Nom du nouveau dossier";
  Contrôle &nouveau = contrôle(*this, "Command1");
  nouveau.infobulle = "Créer un dossier";
  nouveau.image = c_.ressources.images.chercher("Paramétrage_répertoires.Command1");
}

void Paramétrage_répertoires::montrer_saisie() {
  Contrôle &saisie = contrôle(*this, "Sous_répertoire");
  saisie.visible = true;
  focus = &saisie;
}

bool Paramétrage_répertoires::Créer_sous_répertoire() {
  const std::string &nom_saisi = contrôle(*this, "Sous_répertoire").texte;
  if (nom_saisi.empty()) return false;
  const std::string &ouvert = contrôle(*this, "Nom_fichier").texte;
  const std::string nouveau = ouvert + nom_saisi;
  if (c_.dossier.changer(nouveau)) {
    refuser(Message::répertoire_existe_déjà);
    return false;
  }
  const bool créé = créer_dossier(nouveau);
  const bool entré = c_.dossier.changer(nouveau);
  const bool revenu = c_.dossier.changer(ouvert);
  if (créé && entré && revenu) return true;
  refuser(Message::dossier_impossible_à_créer);
  return false;
}

void Paramétrage_répertoires::créer_puis_ouvrir() {
  if (!Créer_sous_répertoire()) return;
  Contrôle &saisie = contrôle(*this, "Sous_répertoire");
  listes_.ouvrir(Joindre_chemin(listes_.dossier(), saisie.texte));
  saisie.texte.clear();
  saisie.visible = false;
  focus = &contrôle(*this, "Répertoire");
}

void Paramétrage_répertoires::accepter() {
  créer_puis_ouvrir();
  if (!Tester_ecriture(listes_.dossier())) return refuser(Message::répertoire_non_inscriptible);
  if (c_.état.Mode_sélection == choix_dossier_information)
    retenir_dossier_info();
  else
    retenir_dossier_sauvegarde();
  fermer();
}

void Paramétrage_répertoires::retenir_dossier_info() {
  GameState &g = c_.état;
  const std::string &dossier = listes_.dossier();
  Ecrire_registre(c_.plateforme.registre, clé_du_jeu, réglage_répertoire_info, dossier);
  g.Répertoire_info = dossier;
  g.Fichiers_info(g.Langue) = Joindre_chemin(g.Répertoire_info, g.Fichiers_info_noms(g.Langue));
}

void Paramétrage_répertoires::retenir_dossier_sauvegarde() {
  GameState &g = c_.état;
  const std::string &dossier = listes_.dossier();
  Registre &registre = c_.plateforme.registre;
  Ecrire_registre(registre, clé_du_jeu, réglage_répertoire, dossier);
  g.Répertoire_sauvegarde = dossier;
  c_.dossier.changer(dossier);
  Ecrire_registre(registre, clé_du_jeu, réglage_fichier_lancement,
                  Joindre_chemin(dossier, nom_fichier_scores));
  // The bare name means the file in the folder just made current.
  g.Fichier_lancement = nom_fichier_scores;
}

void Paramétrage_répertoires::refuser(Message pourquoi) {
  annoncer(c_, Message::erreur, pourquoi);
}

}  // namespace ardane
