#include "player.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "answers.h"
#include "core/paths.h"
#include "core/resources.h"
#include "pattern.h"

namespace ardane {
namespace {

using Sorte = Etape_scénario::Sorte;

std::string en_colonne(const std::string &titre, const std::vector<std::string> &lignes) {
  std::string texte = "  " + titre + "\n";
  for (const std::string &ligne : lignes) texte += "    " + ligne + "\n";
  return texte;
}

std::vector<std::string> écrites(const Réplique &réplique) {
  std::vector<std::string> lignes;
  for (const Json &ligne : réplique.lignes) lignes.push_back(ligne.dump());
  return lignes;
}

/// A path as scenarios tell it.
std::string en_barres(std::string chemin) {
  std::replace(chemin.begin(), chemin.end(), séparateur_de_chemin, '/');
  return chemin;
}

/// The answer with the paths below a folder as scenarios tell them.
Json chemins_en_barres(Json réponse, const std::string &dossier) {
  if (réponse.is_structured())
    for (Json &partie : réponse) partie = chemins_en_barres(partie, dossier);
  if (!réponse.is_string()) return réponse;
  const auto texte = réponse.get<std::string>();
  const auto place = texte.find(dossier);
  return place == std::string::npos ? réponse : Json(texte.substr(0, place) + en_barres(texte.substr(place)));
}

/// What the pilot says most of the time.
const Json la_carte_attend = {{"attend", "Ecran_principal"}};

/// Commands that change nothing.
bool lit(const std::string &commande) {
  constexpr std::array lectures = {"état", "contrôle", "contrôles", "dessus", "fenêtres", "boîte"};
  const std::string mot = commande.substr(0, commande.find(' '));
  return commande == "registre" || std::ranges::find(lectures, mot) != lectures.end();
}

/// What tells a file's contents from others. One whose bytes count the letters of the folder's name differs
/// from run to run.
std::string empreinte(const std::string &contenu, const std::string &dossier) {
  const std::string neutre = remplacé(contenu, dossier, "{dossier}");
  if (neutre != contenu && contenu.find('\0') != std::string::npos) return "nomme le dossier";
  return std::to_string(neutre.size()) + " octets, somme " + std::to_string(somme_de(neutre));
}

constexpr std::string_view province_de_région = "province de ";

/// True for what stands for something else between braces; JSON has braces of its own.
bool est_un_nom(std::string_view texte) {
  return texte == "dossier" || texte == "bonne réponse" || texte == "mauvaise réponse" ||
         texte.starts_with(province_de_région) || texte.starts_with("état ");
}

}  // namespace

Joueur::Joueur(const std::filesystem::path &livrés)
    : dossier_(livrés), fenêtres_(ressources_du_programme().images, dossier_.chemin(), "{dossier}") {
  noter_fichiers();
  chronique_.clear();  // what ships is no news
}

void Joueur::jouer(const std::vector<Etape_scénario> &étapes) {
  for (const Etape_scénario &étape : étapes) faire(étape);
}

void Joueur::faire(const Etape_scénario &étape) {
  switch (étape.sorte) {
    case Sorte::commande: dire(étape); break;
    case Sorte::répéter: {
      const std::string tours = tours_;
      for (int tour = 1; tour <= étape.nombre; ++tour) {
        tours_ = tours + ", tour " + std::to_string(tour) + " de " + std::to_string(étape.nombre);
        jouer(étape.étapes);
      }
      tours_ = tours;
      break;
    }
    case Sorte::relancer: pilote_.reset(); break;
    case Sorte::options: options_ = étape.mots; break;
    case Sorte::fichier: {
      std::ofstream fichier(chemin_natif(dossier_.chemin(étape.texte)), std::ios::binary);
      for (const std::string &ligne : étape.attendu) fichier << ligne << '\n';
      break;
    }
    case Sorte::sans: std::filesystem::remove_all(chemin_natif(dossier_.chemin(étape.texte))); break;
    case Sorte::présent: vérifier_présence(étape, true); break;
    case Sorte::absent: vérifier_présence(étape, false); break;
  }
}

void Joueur::vérifier_présence(const Etape_scénario &étape, bool attendue) {
  if (std::filesystem::exists(chemin_natif(dossier_.chemin(étape.texte))) != attendue)
    throw Scénario_démenti("ligne " + std::to_string(étape.ligne) + tours_ + "\n  " + étape.texte +
                           (attendue ? " n'est pas là\n" : " est là\n"));
}

void Joueur::dire(const Etape_scénario &étape) {
  const std::string commande = compléter(étape.texte);
  Réplique réplique = pilote().dire(commande);
  for (Json &ligne : réplique.lignes) ligne = chemins_en_barres(ligne, dossier_.chemin());
  if (!lit(commande)) noter(commande, réplique);
  std::vector<std::string> attendu;
  for (const std::string &motif : étape.attendu) attendu.push_back(compléter(motif));
  if (réponse_attendue(attendu, réplique.lignes)) return;
  if (attendu.empty()) attendu = {"(ni erreur ni fatale)"};
  throw Scénario_démenti("ligne " + std::to_string(étape.ligne) + tours_ + "\n  > " + commande + "\n" +
                         en_colonne("attendu :", attendu) + en_colonne("reçu :", écrites(réplique)));
}

void Joueur::noter(const std::string &commande, const Réplique &réplique) {
  const auto ajouter = [this](const std::string &ligne) {
    chronique_.push_back(remplacé(ligne, dossier_.chemin(), "{dossier}"));
  };
  ajouter("> " + commande);
  for (const Json &ligne : réplique.lignes)
    if (ligne != la_carte_attend) ajouter(ligne.dump());
  if (!pilote().finie())
    for (const std::string &ligne : fenêtres_.noter(pilote().fenêtres())) ajouter("  " + ligne);
  noter_fichiers();
}

void Joueur::noter_fichiers() {
  namespace fs = std::filesystem;
  std::map<std::string, std::string> présents;
  for (const auto &entrée : fs::recursive_directory_iterator(chemin_natif(dossier_.chemin()))) {
    if (!entrée.is_regular_file()) continue;
    std::ifstream flux(entrée.path(), std::ios::binary);
    const std::string contenu{std::istreambuf_iterator<char>(flux), {}};
    const std::string nom = en_barres(texte_du_chemin(entrée.path()).substr(dossier_.chemin().size() + 1));
    présents[nom] = empreinte(contenu, dossier_.chemin());
  }
  for (const auto &[nom, contenu] : présents)
    if (const auto avant = fichiers_.find(nom); avant == fichiers_.end() || avant->second != contenu)
      chronique_.push_back("  fichier " + nom + " : " + contenu);
  for (const auto &[nom, contenu] : fichiers_)
    if (!présents.contains(nom)) chronique_.push_back("  fichier " + nom + " : parti");
  fichiers_ = std::move(présents);
}

Conversation &Joueur::pilote() {
  if (pilote_) return *pilote_;
  std::vector<std::string> arguments = {"--programme", dossier_.chemin("programme"),
                                        "--dossier",   dossier_.chemin(),
                                        "--registre",  dossier_.chemin("registre"),
                                        "--date",      "2026-11-21",
                                        "--hasard",    "1"};
  for (const std::string &option : options_) arguments.push_back(compléter(option));
  pilote_ = std::make_unique<Conversation>(arguments);
  return *pilote_;
}

std::string Joueur::valeur(std::string_view nom) {
  if (nom == "dossier") return en_barres(dossier_.chemin());
  if (nom == "bonne réponse") return bonne_réponse(pilote());
  if (nom == "mauvaise réponse") return mauvaise_réponse(pilote());
  if (nom.starts_with(province_de_région))
    return province_de(pilote(), nom.substr(province_de_région.size()));
  const Json état = pilote().état(std::string(nom.substr(nom.find(' ') + 1)));
  return état.is_string() ? état.get<std::string>() : état.dump();
}

std::string Joueur::compléter(const std::string &texte) {
  std::string complet;
  std::size_t place = 0;
  while (place < texte.size()) {
    const auto fin = texte[place] == '{' ? texte.find('}', place) : std::string::npos;
    const auto nom = fin == std::string::npos ? std::string() : texte.substr(place + 1, fin - place - 1);
    complet += est_un_nom(nom) ? valeur(nom) : std::string(1, texte[place]);
    place = est_un_nom(nom) ? fin + 1 : place + 1;
  }
  return complet;
}

}  // namespace ardane
