// The folders that the system has for a player's things.
#pragma once

#include <filesystem>

namespace ardane {

/// Where programs keep settings, one folder each. Empty if the system names none.
std::filesystem::path dossier_des_réglages();
/// Where programs keep what is of this machine alone and outlives a run. Empty if the system names none.
std::filesystem::path dossier_des_états();
/// Where players look for what they have made. Empty where that is for them to say.
std::filesystem::path dossier_des_documents();

}  // namespace ardane
