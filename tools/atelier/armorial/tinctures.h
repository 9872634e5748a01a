// Tinctures: their names, and their classes in the rule of tincture.
#pragma once

#include <optional>
#include <string_view>

namespace atelier {

enum class Émail { or_, argent, gueules, azur, sable, sinople, pourpre, hermine, vair, naturel };

enum class Classe_d_émail { métal, couleur, libre };
Classe_d_émail classe(Émail émail);
/// "or", "gueules" ... as blazons write it.
std::string_view nom(Émail émail);
/// The tincture of this name.
std::optional<Émail> émail_nommé(std::string_view nom);

}  // namespace atelier
