// Message boxes as the pilot tells them, and the words that answer them.
#pragma once

#include <optional>
#include <string_view>

#include "front/pilote/journal.h"
#include "platform/services.h"

namespace ardane {

/// The box as its event line tells it.
Json boîte_json(const Boîte &boîte);
/// The answer that a word of a command gives; nothing if the box has no such button.
std::optional<Réponse> réponse_du_mot(const Boîte &boîte, std::string_view mot);

}  // namespace ardane
