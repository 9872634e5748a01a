// Resources and registry, read before any window.
#pragma once

#include "core/context.h"

namespace ardane {

/// Reads texts, registry and folders; settles the folders at a first run and at a new version; silences the
/// system's sounds.
void Lire_réglages(Contexte &c);

}  // namespace ardane
