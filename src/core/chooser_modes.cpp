#include "core/chooser_modes.h"

#include "core/game_state.h"
#include "platform/services.h"

namespace ardane {

void Faire_choisir_fichier(Contexte &c, Modes_sélection mode, Types_fichier type) {
  c.état.Mode_sélection = mode;
  c.état.Type_fichier = type;
  c.plateforme.fenêtres.ouvrir_modale("Sélection_partie");
}

void Faire_choisir_dossier(Contexte &c, Modes_sélection mode) {
  c.état.Mode_sélection = mode;
  c.plateforme.fenêtres.ouvrir_modale("Paramétrage_répertoires");
}

}  // namespace ardane
