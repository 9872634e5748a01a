#pragma once

#include "core/context.h"
#include "core/messages.h"
#include "platform/services.h"

namespace ardane {

/// A box with one OK button whose title and text are messages.
void annoncer(Contexte &c, Message titre, Message texte, Icône icône = Icône::information);

}  // namespace ardane
