// The captions of a window's controls: a row a control, in a table at the head of the window's file.
#pragma once

#include <span>
#include <string_view>

#include "core/messages.h"

namespace ardane {

struct GameState;
class Fenêtre;

struct Légende {
  std::string_view contrôle;
  Message message;
};

/// Gives every control of the table its text.
void Poser_légendes(const GameState &g, Fenêtre &fenêtre, std::span<const Légende> légendes);

}  // namespace ardane
