// What the program keeps of a run in a folder of its own, beside the player's files, so that an end that
// nobody wished for costs nothing:
//
//     partie     the game under way (saved_game_format.h)
//     ecriture   a score file about to be written: what it shall hold, and where. Slots: text "Scores à
//     écrire,
//                forme 1"; boolean, the game under way ends with it; bytes, its path; bytes, its content
//     scores/    what score files held before (earlier_scores.h)
//
// Each is written beside its name and renamed, so that it is there whole or not at all. Without a folder
// nothing is kept and nothing is found. A failure is told to the log, the first of several in a row, and
// hinders nothing.
#pragma once

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>

#include "persistence/earlier_scores.h"
#include "persistence/saved_game_format.h"
#include "platform/background_task.h"

namespace ardane {

struct Lieu_de_secours {
  std::filesystem::path
      dossier;  ///< a complete path; empty for none. It is made when there is something to keep
  bool en_arrière_plan = false;  ///< the game under way is written by a thread of its own
};

/// The folder that a player's runs keep theirs in. `réglages`: the file of settings that he named himself,
/// whose runs know nothing of those under his own; empty for those. Empty if the system tells of no place for
/// it.
std::filesystem::path dossier_de_secours(const std::filesystem::path &réglages);

class Secours {
 public:
  explicit Secours(Lieu_de_secours lieu) : lieu_(std::move(lieu)) {}

  bool en_service() const { return !lieu_.dossier.empty(); }

  // --- The game under way

  /// Keeps a game that was interrupted by now, `heure` being the time; nothing happens if it is the one kept
  /// already.
  void garder(Contenu_partie partie, std::chrono::seconds heure);
  /// It has ended, and is on the disk no more when this returns.
  void oublier();
  /// The game that an earlier run has left. Nothing if there is none or its file is damaged, which then
  /// stays.
  std::optional<Contenu_partie> partie_interrompue() const;
  /// That game is this run's from now on: kept, until it is forgotten.
  void prendre_en_charge(Contenu_partie partie);
  /// Returns when what was to be kept is on the disk, or cannot be.
  void attendre() { fond_.attendre(); }
  /// True if the next start will find the game; waits as above.
  bool tient_la_partie();

  // --- Score files

  /// Keeps what a score file holds now.
  void garder_scores(const std::string &fichier, const Horloge &horloge) const;
  /// The file, a complete path, is about to hold `octets`, whatever happens to this run.
  void annoncer_écriture(const std::string &fichier, const std::string &octets, bool fin_de_partie);
  void écriture_faite();
  /// At a start: does what an earlier run has announced and was not able to do, and sweeps what it left half
  /// written. A file that cannot be written now waits for the next start.
  void achever(const Horloge &horloge);

  std::filesystem::path dossier_des_scores() const { return lieu_.dossier / "scores"; }

 private:
  std::filesystem::path fichier_partie() const { return lieu_.dossier / "partie"; }
  std::filesystem::path fichier_écriture() const { return lieu_.dossier / "ecriture"; }
  bool écrire(const std::filesystem::path &fichier, const std::string &octets);
  void écrire_partie_gardée(const Contenu_partie &partie);
  void balayer() const;

  const Lieu_de_secours lieu_;
  std::optional<Contenu_partie>
      gardée_;  ///< the game that is kept or on its way to the disk, without its time
  std::atomic<bool> sur_le_disque_ = false;
  std::atomic<bool> en_échec_ = false;
  Tâche_de_fond fond_;  ///< last: it ends before what it writes of
};

}  // namespace ardane
