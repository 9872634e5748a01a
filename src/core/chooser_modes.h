// What the choosers of files and folders are opened for: values of the variables `Mode_sélection` and
// `Type_fichier`.
#pragma once

#include <cstdint>

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

}  // namespace ardane
