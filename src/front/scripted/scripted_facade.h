// Windows and boxes without a screen: each tells the witness that it is up, and waits until whoever plays has
// answered or closed it.
#pragma once

#include <deque>
#include <vector>

#include "front/scripted/witness.h"
#include "platform/services.h"

namespace ardane {

/// The player's part while the program waits for it.
class Attente {
 public:
  virtual ~Attente() = default;
  /// Returns the answer to a box that has come up: one that it offers.
  virtual Réponse attendre_réponse(const Boîte &boîte) = 0;
  /// Plays in a modal window that has come up; one that is still open afterwards is closed.
  virtual void attendre_fermeture(Fenêtre &fenêtre) = 0;
};

class BoîtesScriptées : public Boîtes {
 public:
  BoîtesScriptées(Témoin &témoin, Attente &attente) : témoin_(témoin), attente_(attente) {}
  Réponse montrer(const Boîte &boîte) override;

  /// The box that is up, or null.
  const Boîte *affichée() const { return affichée_; }

 private:
  Témoin &témoin_;
  Attente &attente_;
  const Boîte *affichée_ = nullptr;
};

class FaçadeScriptée : public Façade {
 public:
  FaçadeScriptée(Témoin &témoin, Attente &attente) : témoin_(témoin), attente_(attente) {}

  void montrer(Fenêtre &fenêtre) override;
  void montrer_modale(Fenêtre &fenêtre) override;
  void retirer(Fenêtre &fenêtre) override;
  void repeindre(Fenêtre &) override {}
  /// The menu bar counts for nothing: the client area begins at the window's own place.
  Rect rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const override;

  /// The window that takes the next command, or null.
  Fenêtre *dessus() const { return pile_.empty() ? nullptr : pile_.back().fenêtre; }
  /// Open windows, the lowest first.
  std::vector<Fenêtre *> fenêtres() const;

  /// Gives a control of an open window the focus, as the player's mouse does; the control that had it is
  /// told.
  void porter_focus(Fenêtre &fenêtre, Contrôle &contrôle);
  /// Follows what handlers did to the windows: the focus that they moved, windows that they closed.
  void suivre();

 private:
  struct Ouverte {
    Fenêtre *fenêtre;
    bool modale;
    Contrôle *focus;  ///< that the front end knows of
  };
  void ouvrir(Fenêtre &fenêtre, bool modale);
  void suivre_focus(Fenêtre &fenêtre);
  /// The window that another one has uncovered becomes active again.
  void activer_dessus();

  Témoin &témoin_;
  Attente &attente_;
  std::deque<Ouverte> pile_;  ///< the lowest first
  Fenêtre *active_ = nullptr;
};

}  // namespace ardane
