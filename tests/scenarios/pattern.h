// Comparing what the pilot wrote with what a scenario expects.
#pragma once

#include <string>
#include <vector>

#include "front/pilote/journal.h"

namespace ardane {

/// True if `reçu` has everything that `motif` tells: an object may have more keys than its pattern, the text
/// "*" stands for any value, and all else must be equal.
bool correspond(const Json &motif, const Json &reçu);

/// True if the answer to a command is the one expected. "..." stands for any number of lines; where no
/// pattern tells what waits afterwards, any may. With no pattern at all everything is welcome but a refusal
/// or a fatal error. Throws Json::parse_error for a pattern that is not JSON.
bool réponse_attendue(const std::vector<std::string> &motifs, std::vector<Json> lignes);

}  // namespace ardane
