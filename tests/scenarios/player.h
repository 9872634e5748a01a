// Plays a scenario through the pilot.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "chronicle.h"
#include "conversation.h"
#include "scenario.h"

namespace ardane {

/// The game did not answer as the scenario has it. `what()` tells the line, what was expected and what came.
class Scénario_démenti : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Joueur {
 public:
  /// `livrés` holds what ships with the program; a copy of it is played with.
  explicit Joueur(const std::filesystem::path &livrés);

  /// Throws Scénario_démenti at the first answer that is not the one expected.
  void jouer(const std::vector<Etape_scénario> &étapes);

  /// What each command played has changed for the player: events, windows, files.
  const std::vector<std::string> &chronique() const { return chronique_; }

 private:
  void faire(const Etape_scénario &étape);
  void dire(const Etape_scénario &étape);
  void noter(const std::string &commande, const Réplique &réplique);
  void noter_fichiers();
  void vérifier_présence(const Etape_scénario &étape, bool attendue);
  Conversation &pilote();
  /// The text with what stands in braces told: the folder, an answer, a variable.
  std::string compléter(const std::string &texte);
  std::string valeur(std::string_view nom);

  DossierDeJeu dossier_;
  std::vector<std::string> options_;
  std::unique_ptr<Conversation> pilote_;
  Chronique fenêtres_;
  std::map<std::string, std::string> fichiers_;  ///< of the folder: name and what tells its contents apart
  std::vector<std::string> chronique_;
  std::string tours_;  ///< which round of which repetition is being played, for reports
};

}  // namespace ardane
