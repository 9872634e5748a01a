#include "persistence/lifeline.h"

#include <fstream>
#include <sstream>

#include "core/paths.h"
#include "platform/file_replacement.h"
#include "platform/log.h"
#include "platform/player_folders.h"
#include "platform/whole_file.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view tête_écriture = "Scores à écrire, forme 1";
constexpr std::size_t plus_gros_fichier = 16'000'000;

struct Ecriture_annoncée {
  bool fin_de_partie = false;
  std::string fichier;
  std::string octets;
};

/// Nothing if there is none, or none that is whole.
std::optional<Ecriture_annoncée> lire_annonce(std::istream &flux) {
  Lecteur_de_cases cases(flux);
  if (cases.texte() != tête_écriture) return std::nullopt;
  Ecriture_annoncée annonce;
  annonce.fin_de_partie = cases.booléen().value_or(false);
  annonce.fichier = cases.octets(longueur_de_chemin).value_or("");
  annonce.octets = cases.octets(plus_gros_fichier).value_or("");
  if (!chemin_natif(annonce.fichier).is_absolute()) cases.refuser();
  return cases.défaut() ? std::nullopt : std::optional(annonce);
}

std::string octets_de(const Ecriture_annoncée &annonce) {
  std::ostringstream flux;
  Scripteur_de_cases cases(flux);
  cases.texte(tête_écriture);
  cases.booléen(annonce.fin_de_partie);
  cases.octets(annonce.fichier);
  cases.octets(annonce.octets);
  return flux.str();
}

/// A pipe could keep a start waiting for ever; what is no plain file is not there.
std::ifstream ouvrir(const fs::path &fichier) {
  std::error_code erreur;
  std::ifstream flux;
  if (fs::is_regular_file(fichier, erreur)) flux.open(fichier, std::ios::binary);
  return flux;
}

}  // namespace

fs::path dossier_de_secours(const fs::path &réglages) {
  const fs::path états = dossier_des_états();
  if (états.empty()) return {};
  const fs::path dossier = états / "mirabonde";
  return réglages.empty() ? dossier : dossier / "autres" / en_noms(réglages);
}

// --- The game under way

void Secours::garder(Contenu_partie partie, std::chrono::seconds heure) {
  if (!en_service() || gardée_ == partie) return;
  gardée_ = partie;
  partie.interruption->heure = static_cast<std::int32_t>(heure.count());
  if (!lieu_.en_arrière_plan) return écrire_partie_gardée(partie);
  fond_.confier([this, partie = std::move(partie)] { écrire_partie_gardée(partie); });
}

void Secours::écrire_partie_gardée(const Contenu_partie &partie) {
  std::ostringstream flux;
  const auto défaut = écrire_partie(flux, partie);
  // A write that fails leaves the game as it was kept before.
  if (!défaut && écrire(fichier_partie(), flux.str())) sur_le_disque_ = true;
}

void Secours::oublier() {
  if (!gardée_) return;
  gardée_.reset();
  fond_.abandonner();
  sur_le_disque_ = false;
  std::error_code erreur;
  fs::remove(fichier_partie(), erreur);
  if (erreur) consigner("La partie mise de côté ne peut pas être effacée : " + erreur.message());
}

std::optional<Contenu_partie> Secours::partie_interrompue() const {
  std::error_code erreur;
  if (!en_service() || !fs::exists(fichier_partie(), erreur)) return std::nullopt;
  std::ifstream flux = ouvrir(fichier_partie());
  const Lecture_partie lecture = lire_partie_interrompue(flux);
  if (lecture.défaut) {
    consigner("La partie mise de côté dans « " + texte_du_chemin(fichier_partie()) +
              " » est refusée : " + décrire_défaut(*lecture.défaut));
    return std::nullopt;
  }
  return lecture.contenu;
}

void Secours::prendre_en_charge(Contenu_partie partie) {
  partie.interruption->heure = 0;
  gardée_ = std::move(partie);
  sur_le_disque_ = true;
}

bool Secours::tient_la_partie() {
  attendre();
  return gardée_.has_value() && sur_le_disque_;
}

// --- Score files

void Secours::garder_scores(const std::string &fichier, const Horloge &horloge) const {
  if (en_service()) Garder_scores(dossier_des_scores(), fichier, horloge);
}

void Secours::annoncer_écriture(const std::string &fichier, const std::string &octets, bool fin_de_partie) {
  if (en_service()) écrire(fichier_écriture(), octets_de({fin_de_partie, fichier, octets}));
}

void Secours::écriture_faite() {
  if (!en_service()) return;
  std::error_code erreur;
  fs::remove(fichier_écriture(), erreur);
}

void Secours::achever(const Horloge &horloge) {
  if (!en_service()) return;
  balayer();
  std::ifstream flux = ouvrir(fichier_écriture());
  const auto annonce = flux.is_open() ? lire_annonce(flux) : std::nullopt;
  if (!annonce) return;
  const fs::path fichier = chemin_natif(annonce->fichier);
  if (octets_du_fichier(fichier, annonce->octets.size()) != annonce->octets) {
    garder_scores(annonce->fichier, horloge);
    if (const auto échec = remplacer_fichier(fichier, annonce->octets))
      return consigner("Les scores attendus dans « " + annonce->fichier +
                       " » n'y sont pas écrits : " + std::string(*échec));
  }
  // What the run was killed in was the end of its game.
  std::error_code erreur;
  if (annonce->fin_de_partie) fs::remove(fichier_partie(), erreur);
  écriture_faite();
}

/// What killed runs have left beside the names that it should have taken.
void Secours::balayer() const {
  std::error_code erreur;
  fs::recursive_directory_iterator entrée(lieu_.dossier, fs::directory_options::skip_permission_denied,
                                          erreur);
  for (; !erreur && entrée != fs::recursive_directory_iterator(); entrée.increment(erreur)) {
    std::error_code ignorée;
    if (entrée->path().extension() == ".tmp" && entrée->is_regular_file(ignorée))
      fs::remove(entrée->path(), ignorée);
  }
}

/// Makes the folder with the first thing that is to stand in it.
bool Secours::écrire(const fs::path &fichier, const std::string &octets) {
  std::error_code erreur;
  fs::create_directories(lieu_.dossier, erreur);
  const auto échec = remplacer_fichier(fichier, octets);
  if (échec && !en_échec_)
    consigner("Rien n'est mis de côté dans « " + texte_du_chemin(fichier) + " » : " + std::string(*échec));
  en_échec_ = échec.has_value();
  return !échec;
}

}  // namespace ardane
