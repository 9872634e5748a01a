#pragma once

#include <string>

#include "core/context.h"

namespace ardane {

/// Plays a sound file unless the player has cut the sound. Returns at once; a failure is silent.
void Jouer_son(Contexte &c, const std::string &son);

}  // namespace ardane
