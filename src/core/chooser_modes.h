// The choosers of files and folders: what they are opened for, values of the variables `Mode_sélection` and
// `Type_fichier`, and their opening.
#pragma once

#include <cstdint>

#include "core/context.h"

namespace ardane {

enum Modes_sélection : std::int16_t {
  choix_nouveau_nom = 1,             ///< the name of a new file
  choix_fichier = 2,                 ///< a file that is there
  choix_nom_gardant_les_scores = 3,  ///< the name of a new configuration that keeps its scores
  choix_dossier_information = 6,     ///< the folder of the information file
  choix_dossier_sauvegarde = 7,      ///< the folder of scores and saved games
};

enum Types_fichier : std::int16_t {
  fichier_partie = 4,
  fichier_paramétrage = 5,
};

/// Has the player choose or name a file; what comes of it the window sees to.
void Faire_choisir_fichier(Contexte &c, Modes_sélection mode, Types_fichier type);
/// Has the player choose a folder for scores and games, or for the information file.
void Faire_choisir_dossier(Contexte &c, Modes_sélection mode);

}  // namespace ardane
