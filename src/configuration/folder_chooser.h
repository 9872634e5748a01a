// The window `Paramétrage_répertoires`: the player picks a folder or makes one. It closes on a folder that
// can be written and has no other way out.
#pragma once

#include "configuration/folder_lists.h"
#include "core/context.h"
#include "core/messages.h"
#include "platform/controls.h"

namespace ardane {

/// `Mode_sélection` says what for: `choix_dossier_information` or `choix_dossier_sauvegarde`.
/// `Répertoire` lists the folders of the one that is open, ".." first; a double click or the Enter key opens
/// the selected one. `Nom_fichier` shows the open folder, `Fichier` its files of the kind in question.
/// `Lecteur` stays hidden: there are no drives.
class Paramétrage_répertoires : public Fenêtre {
 public:
  explicit Paramétrage_répertoires(Contexte &c);

  /// Makes the folder that `Sous_répertoire` names in the open one. False, after a box that tells why, if it
  /// is there already or cannot be made; also if no name is given.
  bool Créer_sous_répertoire();

 private:
  void poser_textes();
  void montrer_saisie();
  void créer_puis_ouvrir();
  void accepter();
  void retenir_dossier_info();
  void retenir_dossier_sauvegarde();
  void refuser(Message pourquoi);

  Contexte &c_;
  Listes_de_dossier listes_;
};

}  // namespace ardane
