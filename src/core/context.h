// What one run of the program is made of, handed on as one parameter.
#pragma once

namespace ardane {

struct GameState;
struct Ressources;
struct Plateforme;
class Dossier_courant;
class Ecran_principal;
class Secours;

struct Contexte {
  GameState &état;
  Ecran_principal &principale;
  Plateforme &plateforme;
  const Ressources &ressources;
  Dossier_courant &dossier;  ///< that bare names are resolved against
  Secours &secours;          ///< what is kept of the run beside the player's files
};

}  // namespace ardane
