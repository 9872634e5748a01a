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
#include "platform/text.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::array places = std::to_array<Place>({
    {"Entête", Genre::étiquette, 16, 12, 388, 42},
    {"Nom_fichier", Genre::texte, 16, 62, 388, 24, 4},
    {"Lecteur", Genre::liste, 16, 94, 190, 22},
    {"Répertoire", Genre::liste, 16, 94, 190, 210, 0},
    {"Fichier", Genre::liste, 214, 94, 190, 210, 5},
    {"Command1", Genre::bouton, 16, 322, 40, 40, 1},
    {"Sous_répertoire", Genre::texte, 64, 330, 260, 24, 2},
    {"Bouton_OK", Genre::bouton, 338, 326, 66, 31, 3, "OK"},
});

struct Usage {
  Modes_sélection mode;
  Message message_entête;
  std::string_view extension;  ///< of the files shown, in capitals
};

constexpr std::array usages = std::to_array<Usage>({
    {choix_dossier_information, Message::répertoire_du_fichier_d_information, ".INF"},
    {choix_dossier_sauvegarde, Message::répertoire_des_parties, extension_scores},
});

constexpr std::string_view dossier_parent = "..";
constexpr std::string_view racine = "/";

const Usage &usage(const GameState &g) {
  const auto trouvé =
      std::find_if(usages.begin(), usages.end(), [&](const Usage &u) { return u.mode == g.Mode_sélection; });
  if (trouvé == usages.end()) throw ErreurFatale("Choix de dossier sans objet", Lieu::ici());
  return *trouvé;
}

std::string avec_séparateur(std::string_view dossier) {
  return Joindre_chemin(dossier, "");
}

std::string sans_séparateur(std::string dossier) {
  while (dossier.size() > racine.size() && dossier.back() == séparateur_de_chemin) dossier.pop_back();
  return dossier;
}

std::string dossier_au_dessus(std::string_view dossier) {
  const std::string dessus = Dossier_de(dossier);
  return dessus.empty() ? std::string(racine) : dessus;
}

/// Names in a folder that pass `retenir`, sorted as in capitals; those that begin with a point are hidden
/// ones. A folder that cannot be read has none.
template <class Condition>
std::vector<std::string> noms(const std::string &dossier, Condition retenir) {
  std::vector<std::string> trouvés;
  std::error_code erreur;
  for (fs::directory_iterator i(chemin_natif(dossier), erreur), fin; !erreur && i != fin;
       i.increment(erreur)) {
    std::string nom = texte_du_chemin(i->path().filename());
    if (!nom.starts_with('.') && retenir(*i, nom)) trouvés.push_back(std::move(nom));
  }
  std::sort(trouvés.begin(), trouvés.end(), [](const std::string &a, const std::string &b) {
    const std::string grand_a = en_majuscules(a), grand_b = en_majuscules(b);
    return grand_a != grand_b ? grand_a < grand_b : a < b;
  });
  return trouvés;
}

std::vector<std::string> sous_dossiers(const std::string &dossier) {
  return noms(dossier, [](const fs::directory_entry &entrée, const std::string &) {
    std::error_code erreur;
    return entrée.is_directory(erreur);
  });
}

std::vector<std::string> fichiers(const std::string &dossier, std::string_view extension) {
  return noms(dossier, [&](const fs::directory_entry &entrée, const std::string &nom) {
    std::error_code erreur;
    return !entrée.is_directory(erreur) && en_majuscules(nom).ends_with(extension);
  });
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

Paramétrage_répertoires::Paramétrage_répertoires(Contexte &c) : Fenêtre("Paramétrage_répertoires"), c_(c) {
  GameState &g = c.état;
  largeur = 420;
  hauteur = 380;
  fermable = false;
  placer_tout(*this, places);
  g.Largeur_écran = c.plateforme.écran.largeur();
  g.Hauteur_écran = c.plateforme.écran.hauteur();
  Centrer_fenêtre(g, *this);
  poser_textes();
  contrôle(*this, "Lecteur").visible = false;
  contrôle(*this, "Nom_fichier").lecture_seule = true;
  contrôle(*this, "Sous_répertoire").visible = false;

  const std::string info = c.dossier.complet(g.Répertoire_info);
  const bool pour_info = g.Mode_sélection == choix_dossier_information && est_dossier(info);
  ouvrir(pour_info ? info : c.dossier.chemin());

  Contrôle &liste = contrôle(*this, "Répertoire");
  liste.double_clic = liste.entrée = [this] { ouvrir_choix(); };
  contrôle(*this, "Command1").clic = [this] { montrer_saisie(); };
  Contrôle &saisie = contrôle(*this, "Sous_répertoire");
  saisie.entrée = [this] { créer_puis_ouvrir(); };
  saisie.perte_du_focus = [&saisie] { saisie.visible = false; };
  contrôle(*this, "Bouton_OK").clic = [this] { accepter(); };
}

void Paramétrage_répertoires::poser_textes() {
  titre = message(c_.état, Message::paramétrage_des_répertoires);
  Contrôle &entête = contrôle(*this, "Entête");
  entête.texte = message(c_.état, usage(c_.état).message_entête);
  entête.police = {Famille_police::times, 12, true};
  entête.alignement = Alignement::centre;
  contrôle(*this, "Nom_fichier").nom_parlé = "Dossier ouvert";
  contrôle(*this, "Répertoire").étiquette = &entête;
  contrôle(*this, "Fichier").nom_parlé = "Fichiers du dossier";
  contrôle(*this, "Sous_répertoire").nom_parlé = "Nom du nouveau dossier";
  Contrôle &nouveau = contrôle(*this, "Command1");
  nouveau.infobulle = "Créer un dossier";
  nouveau.image = c_.ressources.images.chercher("Paramétrage_répertoires.Command1");
}

void Paramétrage_répertoires::ouvrir(const std::string &dossier) {
  dossier_ = dossier.empty() ? std::string(racine) : sans_séparateur(dossier);
  contrôle(*this, "Nom_fichier").texte = avec_séparateur(dossier_);
  Contrôle &liste = contrôle(*this, "Répertoire");
  liste.éléments = sous_dossiers(dossier_);
  if (dossier_ != racine) liste.éléments.insert(liste.éléments.begin(), std::string(dossier_parent));
  liste.choix = 0;
  Contrôle &vus = contrôle(*this, "Fichier");
  vus.éléments = fichiers(dossier_, usage(c_.état).extension);
  vus.choix = 0;
}

void Paramétrage_répertoires::ouvrir_choix() {
  const Contrôle &liste = contrôle(*this, "Répertoire");
  if (liste.choix == 0) return;
  const std::string &nom_choisi = élément_choisi(liste);
  const std::string dossier =
      nom_choisi == dossier_parent ? dossier_au_dessus(dossier_) : Joindre_chemin(dossier_, nom_choisi);
  ouvrir(dossier);
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
  ouvrir(Joindre_chemin(dossier_, saisie.texte));
  saisie.texte.clear();
  saisie.visible = false;
  focus = &contrôle(*this, "Répertoire");
}

void Paramétrage_répertoires::accepter() {
  créer_puis_ouvrir();
  if (!Tester_ecriture(dossier_)) return refuser(Message::répertoire_non_inscriptible);
  if (c_.état.Mode_sélection == choix_dossier_information)
    retenir_dossier_info();
  else
    retenir_dossier_sauvegarde();
  fermer();
}

void Paramétrage_répertoires::retenir_dossier_info() {
  GameState &g = c_.état;
  Ecrire_registre(c_.plateforme.registre, clé_du_jeu, réglage_répertoire_info, dossier_);
  g.Répertoire_info = dossier_;
  g.Fichiers_info(g.Langue) = Joindre_chemin(g.Répertoire_info, g.Fichiers_info_noms(g.Langue));
}

void Paramétrage_répertoires::retenir_dossier_sauvegarde() {
  GameState &g = c_.état;
  Registre &registre = c_.plateforme.registre;
  Ecrire_registre(registre, clé_du_jeu, réglage_répertoire, dossier_);
  g.Répertoire_sauvegarde = dossier_;
  c_.dossier.changer(dossier_);
  Ecrire_registre(registre, clé_du_jeu, réglage_fichier_lancement,
                  Joindre_chemin(dossier_, nom_fichier_scores));
  // The bare name means the file in the folder just made current.
  g.Fichier_lancement = nom_fichier_scores;
}

void Paramétrage_répertoires::refuser(Message pourquoi) {
  annoncer(c_, Message::erreur, pourquoi);
}

}  // namespace ardane
