// Windows and boxes without a screen: each writes that it is up and waits, while commands come in, until it
// has been answered or closed.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "front/pilote/journal.h"
#include "platform/services.h"

namespace ardane {

/// Whoever can carry out commands while the program waits.
class Attente {
 public:
  virtual ~Attente() = default;
  /// Takes commands until `fini`.
  virtual void attendre_que(const std::function<bool()> &fini) = 0;
};

/// The box as its event line tells it.
Json boîte_json(const Boîte &boîte);

class BoîtesScriptées : public Boîtes {
 public:
  BoîtesScriptées(Journal &journal, Attente &attente) : journal_(journal), attente_(attente) {}
  Réponse montrer(const Boîte &boîte) override;

  /// The box that is up, or null.
  const Boîte *affichée() const { return affichée_; }
  /// Answers the box that is up by a word. False if it has no such button.
  bool répondre(std::string_view mot);

 private:
  Journal &journal_;
  Attente &attente_;
  const Boîte *affichée_ = nullptr;
  std::optional<Réponse> réponse_;
};

class FaçadeScriptée : public Façade {
 public:
  FaçadeScriptée(Journal &journal, Attente &attente) : journal_(journal), attente_(attente) {}

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

  Journal &journal_;
  Attente &attente_;
  std::deque<Ouverte> pile_;  ///< the lowest first
};

}  // namespace ardane
