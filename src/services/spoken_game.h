// What somebody who listens must hear of a game: the question, right and wrong, the score and what is left.
#pragma once

#include <string>

#include "core/context.h"

namespace ardane {

/// What of a game can be heard to change.
struct Partie_entendue {
  int étape = 0;
  std::string consigne;  ///< what is to be found, as the panel shows it; empty where nothing is asked
  long score = 0;
  bool compté = false;  ///< the score is shown
  int reste = 0;        ///< to place in this stage
  int erreurs = 0;      ///< on this question
  int choisies = 0;     ///< provinces selected of the region asked

  friend bool operator==(const Partie_entendue &, const Partie_entendue &) = default;
};

Partie_entendue Ecouter(const Contexte &c);

/// What is said when an event has led from one to the other; empty if nothing has changed.
std::string Annoncer_partie(const Partie_entendue &avant, const Partie_entendue &après);
/// What is said to who asks for the question once more.
std::string Redire_partie(const Partie_entendue &partie);

}  // namespace ardane
