#pragma once

#include <string>

#include "core/context.h"

namespace ardane {

/// A number of six digits as the file has it: its leading zeros are blanks, and so are all but the last of
/// "000000".
std::string Sans_zéros(const std::string &texte);

/// Writes the three tables to "ARDA_STA.TXT" beside the program, and tells where they lie.
/// `OrdreTableau` holds the order of the towns afterwards.
void Ecrire_statistiques(Contexte &c);

}  // namespace ardane
