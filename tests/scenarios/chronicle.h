// A chronicle: what a player sees of the windows, from one step to the next.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/resources.h"
#include "platform/controls.h"

namespace ardane {

/// Tells what differs from the last time it looked. Of a control that nobody sees nothing is told; of one
/// that is seen again, what is no longer as it was last seen.
class Chronique {
 public:
  /// `passés` are words that differ from run to run: they are told as `pour`.
  Chronique(const CatalogueImages &images, std::string passés, std::string pour)
      : images_(images), passés_(std::move(passés)), pour_(std::move(pour)) {}

  /// One line a change, with the names of all controls that it befell; where many of a family changed each in
  /// its own way, a checksum stands for the changes. `fenêtres` are those that are open, the lowest first;
  /// lines on others than the last begin with the window's name.
  std::vector<std::string> noter(const std::vector<Fenêtre *> &fenêtres);

 private:
  /// Values of properties, each at its place among their names.
  using Aspect = std::vector<std::string>;
  using Pile = std::vector<const Contrôle *>;
  /// What was seen of a window.
  struct Vue {
    std::map<std::string, Aspect> aspects;  ///< of every control that has been seen, as it last was
    std::set<std::string> visibles;
    std::map<std::string, std::vector<std::string>> piles;  ///< by container, the lowest first
  };
  /// What has befallen controls: words, and who.
  using Nouvelles = std::map<std::string, std::vector<std::string>>;

  static Contrôle cadre(const Fenêtre &fenêtre);
  Aspect aspect(const Fenêtre &fenêtre, const Contrôle &contrôle) const;
  Nouvelles nouvelles(const Fenêtre &fenêtre, Vue &vue) const;
  static void noter_présence(const std::set<std::string> &visibles, Vue &vue, Nouvelles &nouvelles);
  static void noter_pile(Pile pile, std::vector<std::string> &avant, Nouvelles &nouvelles);

  std::string dit(const std::string &texte) const;

  const CatalogueImages &images_;
  const std::string passés_, pour_;
  std::map<std::string, Vue> vues_;  ///< by window
};

/// Names of controls in few words: "Pays(1-3), Pays(7), Reste(1)".
std::string énumérer(const std::vector<std::string> &noms);

/// What was moved to make one pile of another of the same things: the fewest that it takes.
std::vector<std::string> déplacés(const std::vector<std::string> &avant,
                                  const std::vector<std::string> &après);

/// The text with each `ancien` in it replaced.
std::string remplacé(std::string texte, const std::string &ancien, const std::string &nouveau);

/// A checksum (FNV-1a, 32 bits) of a text.
std::uint32_t somme_de(const std::string &texte);

}  // namespace ardane
