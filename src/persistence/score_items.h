// What the score file and the saved game have in common, item by item: the order of play and lists of scores.
#pragma once

#include <optional>
#include <vector>

#include "core/gazetteer.h"
#include "persistence/slot_file.h"

namespace ardane {

/// Reads the first `places` places of an order of play; the others are 0. Refuses a number of places below 0
/// or above 4, and an order that nothing can be played with: one that begins with no stage, one with a code
/// that is no stage's, one with the same stage twice (it would begin again for ever).
void lire_ordre(Lecteur_de_cases &cases, int places, Ordre_de_jeu &ordre);
void écrire_ordre(Scripteur_de_cases &cases, const Ordre_de_jeu &ordre);

/// Reads `nombre` scores, or all there are to the end of the file. Refuses a number that no list has, a level
/// outside 0..4 and an eleventh score of a level. The scores above a fault are kept.
void lire_liste(Lecteur_de_cases &cases, std::optional<int> nombre,
                std::vector<Enregistrement_score> &scores);
void écrire_liste(Scripteur_de_cases &cases, const std::vector<Enregistrement_score> &scores);

}  // namespace ardane
