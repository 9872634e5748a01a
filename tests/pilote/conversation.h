// A talk with the pilot, command by command, in the test's own process: what has been answered so far can
// decide what is said next.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "front/pilote/journal.h"
#include "front/pilote/options.h"
#include "platform/controls.h"

namespace ardane {

/// A folder of its own that goes away with it, with a folder "programme" in it that holds a copy of the files
/// that ship with the program, the pictures left out.
class DossierDeJeu {
 public:
  explicit DossierDeJeu(const std::filesystem::path &livrés);
  ~DossierDeJeu();
  DossierDeJeu(const DossierDeJeu &) = delete;
  DossierDeJeu &operator=(const DossierDeJeu &) = delete;

  /// Full path of a name in the folder; the folder itself without one.
  std::string chemin(std::string_view nom = {}) const;

 private:
  std::filesystem::path dossier_;
};

/// The pilot's answer to one command.
struct Réplique {
  std::vector<Json> lignes;  ///< all of them, the one that bears `attend` included

  /// What waits for the next command; empty if the pilot left without a word.
  std::string attend() const;
  /// Why the command was refused; empty if it was not.
  std::string erreur() const;
  /// The value under a key of the first line that has it; null if none does.
  Json valeur(std::string_view clé) const;
  /// The lines as written.
  std::string texte() const;
};

/// The pilot at the other end of a conversation: on Windows a process of its own, the program that ships.
struct Interlocuteur {
  virtual ~Interlocuteur() = default;
  virtual Réplique répondre(const std::string &commande) = 0;
  virtual std::vector<Fenêtre *> fenêtres() const { return {}; }

  bool fini = false;
  int code = 0;
};

class Conversation {
 public:
  /// Not on Windows.
  explicit Conversation(const OptionsPilote &options);
  /// The same by the words of a command line.
  explicit Conversation(const std::vector<std::string> &arguments);

  /// Says one command and waits for the answer. Nothing must be said once the pilot has left.
  Réplique dire(const std::string &commande);
  /// Value of a variable, as `état PATH` tells it.
  Json état(const std::string &chemin);
  /// The open windows, the lowest first, to be looked at between two commands; none on Windows.
  std::vector<Fenêtre *> fenêtres() const { return pilote_->fenêtres(); }
  /// True once the pilot has left; its exit code.
  bool finie() const { return pilote_->fini; }
  int code() const { return pilote_->code; }

 private:
  std::unique_ptr<Interlocuteur> pilote_;
};

}  // namespace ardane
