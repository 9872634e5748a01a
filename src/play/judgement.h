// What a right and a wrong answer bring about, in every stage.
#pragma once

#include "core/context.h"

namespace ardane {

/// The object asked has been found.
void BonneRéponse(Contexte &c);
/// It has not: the error is paid, help is offered at the first, the question is given up at the tenth.
void MauvaiseRéponse(Contexte &c);
/// After an error: the help that the level has, if it has one.
void Offrir_aide(Contexte &c);

}  // namespace ardane
