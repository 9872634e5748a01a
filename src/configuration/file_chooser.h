// The window `Sélection_partie`: the player names or picks the file of a saved game or of a configuration,
// and the window does the whole job, to the return to the game.
#pragma once

#include <string>

#include "configuration/folder_lists.h"
#include "core/context.h"
#include "core/messages.h"
#include "platform/controls.h"

namespace ardane {

/// `Mode_sélection` and `Type_fichier` say what for: `choix_nouveau_nom`, `choix_fichier` or
/// `choix_nom_gardant_les_scores`, for `fichier_partie` or `fichier_paramétrage`.
///
/// A refusal leaves the window open and changes nothing. `Configuration_acceptée` is true after a file has
/// been written and false after a cancel, which the window's own close control is too.
class Sélection_partie : public Fenêtre {
 public:
  explicit Sélection_partie(Contexte &c);

 private:
  bool choisit_un_fichier() const;
  void cacher_nom();
  void poser_textes();
  void montrer_dossier();
  void prendre_nom_de_la_liste();
  void annuler();

  void enregistrer();
  bool enregistrer_partie(const std::string &chemin);
  bool enregistrer_paramétrage(const std::string &chemin);
  void charger();
  void reprendre_partie(const std::string &chemin);
  void charger_paramétrage(const std::string &chemin);
  void refuser(Message titre_boîte, Message texte);

  Contexte &c_;
  Listes_de_dossier listes_;
};

}  // namespace ardane
