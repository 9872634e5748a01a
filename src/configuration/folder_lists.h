// The coupled lists of a chooser: the drives where there are any, the folders of the one that is open, and
// its files of one kind.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/drives.h"

namespace ardane {

/// Lists ".." first, unless a root is open, then the folders, and the files whose names end in the
/// extension; sorted as in capitals, without those whose names begin with a point. A folder that cannot be
/// read has nothing. A double click or the Enter key opens the selected folder, a drive's choice its topmost
/// one.
class Listes_de_dossier {
 public:
  /// Takes the lists `Lecteur`, `Répertoire` and `Fichier` of a window that outlives this. `extension` with
  /// its point, in capitals; a file's may be in any letters. Where there are no drives their list is not
  /// seen.
  Listes_de_dossier(Fenêtre &fenêtre, std::string_view extension,
                    std::vector<std::string> lecteurs = lecteurs_du_système());

  /// Opens a folder by its complete path; the first root for an empty one.
  void ouvrir(const std::string &dossier);
  /// Lists the folder as it is now; what is selected stays so where it is still there.
  void actualiser();
  /// The same if the folder's list of names has changed since.
  void suivre();
  /// The open folder, without a separator at its end unless it is the root.
  const std::string &dossier() const { return dossier_; }

  std::function<void()> changement;  ///< another folder has been opened

 private:
  void montrer_lecteurs();
  void ouvrir_choix();
  std::string lecteur_de(const std::string &dossier) const;

  Contrôle &lecteurs_;
  Contrôle &dossiers_;
  Contrôle &fichiers_;
  std::string_view extension_;
  std::string dossier_;
  std::optional<std::filesystem::file_time_type> date_;  ///< of the folder when it was listed, if it tells
};

}  // namespace ardane
