#include "services/system_sounds.h"

#include <array>

#include "core/game_state.h"
#include "persistence/registry.h"

namespace ardane {
namespace {

struct Son_système {
  const char *clé;
  std::string GameState::*variable;
};

constexpr std::array sons_système = std::to_array<Son_système>({
    {R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemExclamation\.current)",
     &GameState::Son_système_exclamation},
    {R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemAsterisk\.current)",
     &GameState::Son_système_astérisque},
    {R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemHand\.current)",
     &GameState::Son_système_main},
    {R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemQuestion\.current)",
     &GameState::Son_système_question},
});

}  // namespace

void Sauver_sons_système(Contexte &c) {
  for (const Son_système &son : sons_système)
    if (Lire_registre(c.plateforme.registre, son.clé, "", c.état.*son.variable) == 0)
      Ecrire_registre(c.plateforme.registre, son.clé, "", "");
}

void Rendre_sons_système(Contexte &c) {
  for (const Son_système &son : sons_système)
    Ecrire_registre(c.plateforme.registre, son.clé, "", c.état.*son.variable);
}

}  // namespace ardane
