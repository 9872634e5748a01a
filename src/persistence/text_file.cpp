#include "persistence/text_file.h"

#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/text_encoding.h"
#include "platform/file_replacement.h"
#include "platform/log.h"

namespace ardane {

bool Ecrire_fichier_texte(Contexte &c, const std::string &chemin, std::string_view texte) {
  const GameState &g = c.état;
  const auto échec =
      remplacer_fichier(chemin_natif(c.dossier.complet(chemin)), vers_windows_1252_au_mieux(texte));
  if (!échec) return true;
  consigner("Le fichier « " + chemin + " » n'est pas écrit : " + std::string(*échec));
  c.plateforme.boîtes.montrer({Icône::exclamation, message(g, Message::erreur),
                               message(g, Message::fichier_impossible_à_écrire) + chemin});
  return false;
}

}  // namespace ardane
