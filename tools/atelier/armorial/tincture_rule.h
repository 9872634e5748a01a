// The rule of tincture.
#pragma once

#include <string_view>

#include "armorial/blazon.h"

namespace atelier {

/// Throws Erreur_de_blason, which names the two tinctures, where metal lies on metal or colour on colour.
/// `texte` is the blazon as it was written.
void vérifier_les_émaux(const Blason &blason, std::string_view texte);

}  // namespace atelier
