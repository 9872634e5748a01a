#include "configuration/folder_lists.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/paths.h"
#include "platform/text.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view dossier_parent = "..";

/// Of the list of drives: a row, what frames the rows, the most of them that are seen at once, what is left
/// below.
constexpr double hauteur_d_un_lecteur = 18, cadre_des_lecteurs = 4, sous_les_lecteurs = 4;
constexpr std::size_t lecteurs_au_plus = 3;

bool est_racine(const std::string &dossier) {
  return !chemin_natif(dossier).has_relative_path();
}

std::string dossier_au_dessus(const std::string &dossier) {
  return texte_du_chemin(chemin_natif(dossier).parent_path());
}

/// A name in capitals, then as it is: what names are sorted by.
using Nom_trié = std::pair<std::string, std::string>;

std::vector<std::string> triés(std::vector<Nom_trié> noms) {
  std::sort(noms.begin(), noms.end());
  std::vector<std::string> résultat;
  résultat.reserve(noms.size());
  for (Nom_trié &nom : noms) résultat.push_back(std::move(nom.second));
  return résultat;
}

struct Contenu_de_dossier {
  std::vector<std::string> dossiers, fichiers;
};

Contenu_de_dossier lister(const std::string &dossier, std::string_view extension) {
  std::vector<Nom_trié> dossiers, fichiers;
  std::error_code erreur;
  for (fs::directory_iterator i(chemin_natif(dossier), erreur), fin; !erreur && i != fin;
       i.increment(erreur)) {
    std::string nom = texte_du_chemin(i->path().filename());
    if (nom.starts_with('.')) continue;
    std::string grand = en_majuscules(nom);
    std::error_code inconnu;
    if (i->is_directory(inconnu))
      dossiers.emplace_back(std::move(grand), std::move(nom));
    else if (grand.ends_with(extension))
      fichiers.emplace_back(std::move(grand), std::move(nom));
  }
  return {triés(std::move(dossiers)), triés(std::move(fichiers))};
}

/// How fine the dates of folders are at worst.
constexpr std::chrono::seconds grain_des_dates{2};

/// When a name last came or went in a folder. Nothing if that was just now, when another name may come at the
/// same date, or if the folder is gone.
std::optional<fs::file_time_type> date_du_dossier(const std::string &dossier) {
  std::error_code erreur;
  const fs::file_time_type date = fs::last_write_time(chemin_natif(dossier), erreur);
  if (erreur || fs::file_time_type::clock::now() - date < grain_des_dates) return std::nullopt;
  return date;
}

std::string nom_choisi(const Contrôle &liste) {
  return liste.choix == 0 ? std::string{} : élément_choisi(liste);
}

void remplir(Contrôle &liste, std::vector<std::string> éléments, const std::string &choix) {
  const auto place = std::find(éléments.begin(), éléments.end(), choix);
  liste.choix = place == éléments.end() ? 0 : static_cast<int>(place - éléments.begin()) + 1;
  liste.éléments = std::move(éléments);
}

}  // namespace

Listes_de_dossier::Listes_de_dossier(Fenêtre &fenêtre, std::string_view extension,
                                     std::vector<std::string> lecteurs)
    : lecteurs_(contrôle(fenêtre, "Lecteur")),
      dossiers_(contrôle(fenêtre, "Répertoire")),
      fichiers_(contrôle(fenêtre, "Fichier")),
      extension_(extension) {
  lecteurs_.éléments = std::move(lecteurs);
  lecteurs_.visible = !lecteurs_.éléments.empty();
  if (lecteurs_.visible) montrer_lecteurs();
  dossiers_.double_clic = dossiers_.entrée = [this] { ouvrir_choix(); };
}

/// They take the upper part of the list of folders.
void Listes_de_dossier::montrer_lecteurs() {
  const auto vus = static_cast<double>(std::min(lecteurs_.éléments.size(), lecteurs_au_plus));
  lecteurs_.hauteur = vus * hauteur_d_un_lecteur + cadre_des_lecteurs;
  dossiers_.haut += lecteurs_.hauteur + sous_les_lecteurs;
  dossiers_.hauteur -= lecteurs_.hauteur + sous_les_lecteurs;
  lecteurs_.changement = [this] {
    if (lecteurs_.choix != 0) ouvrir(élément_choisi(lecteurs_));
  };
}

/// The drive that a folder lies on, as it is listed; of several the closest one.
std::string Listes_de_dossier::lecteur_de(const std::string &dossier) const {
  const std::string cherché = en_majuscules(dossier);
  std::string trouvé;
  for (const std::string &lecteur : lecteurs_.éléments)
    if (cherché.starts_with(en_majuscules(lecteur)) && lecteur.size() > trouvé.size()) trouvé = lecteur;
  return trouvé;
}

void Listes_de_dossier::ouvrir(const std::string &dossier) {
  const std::string racine = lecteurs_.éléments.empty() ? "/" : lecteurs_.éléments[0];
  dossier_ = sans_séparateur_final(dossier.empty() ? racine : dossier);
  remplir(lecteurs_, lecteurs_.éléments, lecteur_de(dossier_));
  dossiers_.choix = fichiers_.choix = 0;
  actualiser();
  déclencher(changement);
}

void Listes_de_dossier::suivre() {
  if (!date_ || date_du_dossier(dossier_) != date_) actualiser();
}

void Listes_de_dossier::actualiser() {
  // First: what changes while the folder is read is listed the next time.
  date_ = date_du_dossier(dossier_);
  Contenu_de_dossier contenu = lister(dossier_, extension_);
  if (!est_racine(dossier_)) contenu.dossiers.insert(contenu.dossiers.begin(), std::string(dossier_parent));
  remplir(dossiers_, std::move(contenu.dossiers), nom_choisi(dossiers_));
  remplir(fichiers_, std::move(contenu.fichiers), nom_choisi(fichiers_));
}

void Listes_de_dossier::ouvrir_choix() {
  const std::string choix = nom_choisi(dossiers_);
  if (choix.empty()) return;
  ouvrir(choix == dossier_parent ? dossier_au_dessus(dossier_) : Joindre_chemin(dossier_, choix));
}

}  // namespace ardane
