// What an error costs. Nothing is ever added to the score during play.
#pragma once

#include <cstdint>

#include "core/context.h"

namespace ardane {

/// Charges the object asked with 2 to the power `exposant`, whatever the mode, and returns `score` less that
/// cost; in learning mode `score` itself.
std::int32_t PénalitéErreur(Contexte &c, std::int32_t score, int exposant);

/// Pays what the present question still owes: once a first error was made, all that ten errors cost. Shows
/// and returns the score left.
std::int32_t SoldeQuestion(Contexte &c);

}  // namespace ardane
