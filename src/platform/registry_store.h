// The store of settings: in memory for scripts and tests, in a text file for players.
//
// The file is UTF-8, one setting a line under the key it belongs to:
//
//     [HKEY_CURRENT_USER\Software\Mirabonde\Ardane]
//     "joueur"="Ann"
//
// In names and texts \\ stands for a backslash, \" for a quotation mark, \n and \r for the line ends; a key
// stands as it is. A line of another form is passed over and stays where it is when the file is rewritten.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/services.h"

namespace ardane {

/// Keys and values for one run. The empty key is the root of all keys: its `sous_clés` are the topmost ones.
/// Empty parts of a key are passed over. A name or text that is not UTF-8, and a key that holds a line end
/// or more parts than 32, are refused.
class RegistreMémoire : public Registre {
 public:
  bool existe(std::string_view clé) const override;
  bool créer(std::string_view clé) override;
  std::optional<std::string> lire(std::string_view clé, std::string_view nom) const override;
  bool écrire(std::string_view clé, std::string_view nom, std::string_view texte) override;
  std::vector<std::string> valeurs(std::string_view clé) const override;
  std::vector<std::string> sous_clés(std::string_view clé) const override;

 private:
  struct Valeur {
    std::string nom;
    std::string texte;
  };
  struct Clé {
    std::string chemin;
    std::vector<Valeur> valeurs;
    std::unordered_map<std::string, std::size_t> rangs;  ///< of the values, by their names in capitals
  };
  std::optional<std::size_t> rang(std::string_view clé) const;

  std::vector<Clé> clés_;
  std::unordered_map<std::string, std::size_t> rangs_;  ///< of the keys, by their paths in capitals
  mutable std::string dernière_demandée_;               ///< as `rang` was asked for it, if it is there
  mutable std::optional<std::size_t> dernier_rang_;
};

/// A player's own store, which may refuse to keep what it is given.
class RegistreGardé : public Registre {
 public:
  /// Where they stand: a file's path, or a few words.
  virtual std::string lieu() const = 0;
  /// Why the settings are not kept at present, and where; nothing if they are.
  const std::optional<std::string> &échec() const { return échec_; }
  /// What the player can do about it, in a sentence.
  virtual std::string remède() const = 0;
  /// Called when what was kept until then is kept no more.
  std::function<void()> à_l_échec;

 protected:
  /// Takes down what a change has come to, and tells the log and `à_l_échec` of the first failure in a row: a
  /// start writes a dozen settings, and what hinders the first hinders all.
  void retenir(std::optional<std::string> échec);

 private:
  std::optional<std::string> échec_;
};

/// The same, kept in a file that is read once, at the making, and rewritten whole at each change: what stands
/// in it then, other instances' changes included, with the change in it, goes to a new file beside it, which
/// takes its name. So the file is always whole, before or after the change.
///
/// A file that cannot be read or written, or whose folder cannot be made, makes `créer` and `écrire` return
/// false, the first of them in a row with a line in the log; what was to be kept is still there for the rest
/// of the run, and goes along with the next change that can be kept. A file that exists and cannot be read,
/// though it were only at the making, is never replaced.
class RegistreFichier : public RegistreGardé {
 public:
  static constexpr std::chrono::milliseconds patience_ordinaire = std::chrono::seconds(2);

  /// For `patience` it waits for another instance that is writing; then it goes on without the lock, which
  /// the log tells, and waits no more.
  explicit RegistreFichier(const std::filesystem::path &fichier,
                           std::chrono::milliseconds patience = RegistreFichier::patience_ordinaire);

  bool existe(std::string_view clé) const override { return mémoire_.existe(clé); }
  bool créer(std::string_view clé) override;
  std::optional<std::string> lire(std::string_view clé, std::string_view nom) const override;
  bool écrire(std::string_view clé, std::string_view nom, std::string_view texte) override;
  std::vector<std::string> valeurs(std::string_view clé) const override { return mémoire_.valeurs(clé); }
  std::vector<std::string> sous_clés(std::string_view clé) const override { return mémoire_.sous_clés(clé); }

  /// The file is rewritten once, behind the last change.
  void ensemble(const std::function<void()> &changements) override;

  std::string lieu() const override;
  std::string remède() const override;

 private:
  struct Changement {
    std::string clé;
    std::optional<std::string> nom;  ///< none for a key to make
    std::string texte;
    bool nouveau;  ///< this run did not know it yet
  };
  bool garder(Changement changement);
  bool garder_ce_qui_attend();
  /// Nothing if what waits is kept now, otherwise why not.
  std::optional<std::string_view> enregistrer();

  std::filesystem::path fichier_;
  std::chrono::milliseconds patience_;
  std::optional<std::string> lus_;  ///< the bytes of the file that `mémoire_` stands for
  RegistreMémoire mémoire_;
  std::vector<Changement> en_attente_;  ///< not kept yet, oldest first
  int ensembles_ = 0;                   ///< under way, one in the other
};

/// Where a player's settings lie, or would lie: "mirabonde/registre" in the folder of settings. Empty if the
/// system names no such folder.
std::filesystem::path fichier_registre_par_défaut();

/// The player's own settings: in the system's store of settings where it has one, in that file elsewhere.
std::unique_ptr<RegistreGardé> registre_du_joueur(const std::filesystem::path &fichier);
/// The same, or those of a file that the player has named.
std::unique_ptr<RegistreGardé> ouvrir_registre(const std::filesystem::path &fichier, bool nommé);

}  // namespace ardane
