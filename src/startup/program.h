// One run of the program: its state, its main window, the order of start and stop, and what each event of
// its windows calls. Front ends make one over their own world and hand events to its windows.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/context.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "map/main_window.h"
#include "persistence/lifeline.h"
#include "platform/services.h"

namespace ardane {

class Programme : private Ouvreur {
 public:
  /// `monde` and `ressources` must outlive the run. `dossier` is the current folder at the start: an absolute
  /// path, empty for none. `secours` is where the run is kept; no other run may be using it.
  Programme(const Monde &monde, const Ressources &ressources, std::string dossier,
            Lieu_de_secours secours = {});

  /// Starts: settings, hit-test table, main window. `répertoire` is the program's folder. False if the
  /// program ended at once, after a box that told the player why. Throws ErreurFatale.
  bool Démarrage(const std::string &répertoire);

  /// Right behind the start: opens the file that the program was started with (configuration/player_file.h),
  /// a complete path.
  void ouvrir(const std::string &fichier);

  /// True while the main window is there. Its own events end it: the close control
  /// (`principale().demande_de_fermeture`) and the menu entry `fichier_quitter`.
  bool en_cours() const { return principale_.ouverte; }

  /// Keeps the game under way as it stands now, or drops what was kept where there is none. To be called when
  /// an event of the player's is over, and no other is under way.
  void tenir_la_partie();

  /// The process is about to end, and it is not the player who wished it, wherever he stands: what leaving
  /// the program writes is written, and what was kept of the game under way is on the disk when this returns.
  void interrompre();

  /// The 500 ms timer: for the main window, and for the modal one in front.
  void battre();

  /// The screen may have another size now: the main window is laid out anew if it has.
  void écran_changé();

  /// The F1 key in a window: opens the help at the window's context.
  void aide(const Fenêtre &fenêtre);

  /// The names of all windows that rules can open.
  std::vector<std::string_view> fenêtres() const;

  GameState &état() { return état_; }
  Ecran_principal &principale() { return principale_; }
  Contexte &contexte() { return contexte_; }

 private:
  void ouvrir_modale(std::string_view nom) override;
  void décharger();
  void brancher();

  using Fabrique = std::function<std::unique_ptr<Fenêtre>(Contexte &)>;

  const Ressources &ressources_;
  GameState état_;
  Ecran_principal principale_;
  Plateforme plateforme_;
  Dossier_courant dossier_;
  Secours secours_;
  Contexte contexte_;
  std::map<std::string_view, Fabrique> fabriques_;
  std::vector<Fenêtre *> modales_;    ///< that are open, the one in front last
  std::unique_ptr<Fenêtre> accueil_;  ///< while the program loads
};

}  // namespace ardane
