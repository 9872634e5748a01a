// What one run of the program is made of, handed on as one parameter.
#pragma once

namespace ardane {

struct GameState;
struct Ressources;
struct Plateforme;
class Ecran_principal;

struct Contexte {
  GameState &état;
  Ecran_principal &principale;
  Plateforme &plateforme;
  const Ressources &ressources;
};

}  // namespace ardane
