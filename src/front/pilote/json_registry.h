// The settings as scripts read them.
#pragma once

#include "front/pilote/journal.h"
#include "platform/services.h"

namespace ardane {

/// Texts by key and name. A key without values is told only if no other key stands under it: the path of
/// those tells it already.
Json registre_json(const Registre &registre);

}  // namespace ardane
