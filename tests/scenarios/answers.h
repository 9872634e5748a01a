// Where on the map the answers to the game's question lie.
#pragma once

#include <string>
#include <string_view>

#include "conversation.h"

namespace ardane {

/// Map pixel "X Y" of a right answer to the question of the moment: the middle of a dot that belongs to it.
/// In stage Régions a province of the region that is still to be chosen. Throws std::runtime_error without a
/// question.
std::string bonne_réponse(Conversation &pilote);
/// The same for an answer that is wrong, on something still to be found; the first in the order of the
/// tables.
std::string mauvaise_réponse(Conversation &pilote);
/// The same for a province of the region of that name: the first that is neither found nor left out. Throws
/// std::runtime_error where there is none.
std::string province_de(Conversation &pilote, std::string_view région);

}  // namespace ardane
