// What the program asks of the world around it: one small interface each. Every interface has a real
// implementation and a scripted one; files are not among them, files are always real.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace ardane {

enum class Icône : std::uint8_t { aucune, information, exclamation, stop, question };
enum class Boutons : std::uint8_t { ok, oui_non };
enum class Réponse : std::uint8_t { ok, oui, non };

struct Boîte {
  Icône icône = Icône::information;
  std::string titre;
  std::string texte;
  Boutons boutons = Boutons::ok;
  bool non_par_défaut = false;  ///< Oui throws something away: Enter answers Non
  bool oui_si_fermée = false;   ///< Non throws something away: closing the box otherwise answers Oui
};

/// Message boxes.
class Boîtes {
 public:
  virtual ~Boîtes() = default;
  /// Shows the box over all windows and returns when the player has answered.
  virtual Réponse montrer(const Boîte &boîte) = 0;
};

/// The store of settings: keys like "HKEY_CURRENT_USER\Software\...", named text values under each. Key and
/// value names are compared without regard to case and kept as first written. The empty name is a key's
/// default value. All text is UTF-8.
class Registre {
 public:
  virtual ~Registre() = default;
  virtual bool existe(std::string_view clé) const = 0;
  /// Makes a key and those above it; false if the store cannot keep it.
  virtual bool créer(std::string_view clé) = 0;
  virtual std::optional<std::string> lire(std::string_view clé, std::string_view nom) const = 0;
  /// False if the key does not exist or the store cannot keep the value.
  virtual bool écrire(std::string_view clé, std::string_view nom, std::string_view texte) = 0;
  /// Names of a key's values and of the keys right under it, in the order of their making.
  virtual std::vector<std::string> valeurs(std::string_view clé) const = 0;
  virtual std::vector<std::string> sous_clés(std::string_view clé) const = 0;
  /// Runs `changements`, many at a time, which the store may keep in one go: of what `créer` and `écrire`
  /// return meanwhile it is not known yet whether it can be kept.
  virtual void ensemble(const std::function<void()> &changements) { changements(); }
};

struct Point {
  int x = 0, y = 0;
  friend bool operator==(const Point &, const Point &) = default;
};

struct Rect {
  int gauche = 0, haut = 0, droite = 0, bas = 0;
  friend bool operator==(const Rect &, const Rect &) = default;
};

struct Mode_écran {
  int largeur = 0, hauteur = 0, couleurs = 0;
};

/// What the program takes for its screen, and the mouse cursor on it; all measures in pixels of that screen.
/// A front end may give it less than the whole monitor, and pixels of its own size.
class Ecran {
 public:
  virtual ~Ecran() = default;
  virtual int largeur() const = 0;
  virtual int hauteur() const = 0;
  virtual int bits_par_pixel() const = 0;
  virtual Rect zone_de_travail() const = 0;
  /// The mode of the monitor that it lies on.
  virtual Mode_écran moniteur() const { return {largeur(), hauteur(), bits_par_pixel()}; }
  virtual std::vector<Mode_écran> modes() const = 0;
  virtual Point curseur() const = 0;
  /// The hourglass in place of the arrow, or the arrow again.
  virtual void sablier(bool actif) = 0;
};

class Son {
 public:
  virtual ~Son() = default;
  /// Starts a sound file and returns at once; what was playing stops. Nothing is told on failure.
  virtual void jouer(const std::string &chemin) = 0;
};

class Horloge {
 public:
  virtual ~Horloge() = default;
  virtual std::chrono::year_month_day aujourd_hui() const = 0;
  /// Time of day, seconds since midnight.
  virtual std::chrono::seconds heure() const = 0;
};

class Hasard {
 public:
  virtual ~Hasard() = default;
  /// Seeds the source from the clock, unless it was given a seed.
  virtual void semer() = 0;
  /// A uniform draw in [0, 1).
  virtual float tirer() = 0;
};

class Web {
 public:
  virtual ~Web() = default;
  /// The bytes of a page of the publisher's site, or nothing if it could not be fetched. Blocks.
  virtual std::optional<std::string> lire_page(const std::string &page) = 0;
};

class Aide {
 public:
  virtual ~Aide() = default;
  /// Opens the help file at a context number.
  virtual void ouvrir(const std::string &fichier, int contexte) = 0;
};

/// What a front end does with windows.
class Façade {
 public:
  virtual ~Façade() = default;
  /// Shows a window and returns at once.
  virtual void montrer(Fenêtre &fenêtre) = 0;
  /// Shows a window above the others and returns when it has closed.
  virtual void montrer_modale(Fenêtre &fenêtre) = 0;
  /// Takes a window off the screen.
  virtual void retirer(Fenêtre &fenêtre) = 0;
  /// Draws what has changed, at once.
  virtual void repeindre(Fenêtre &fenêtre) = 0;
  /// Where a control stands on the screen, outer edges.
  virtual Rect rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const = 0;
};

/// The windows that rules open by name: what lies above them in the house.
class Ouvreur {
 public:
  virtual ~Ouvreur() = default;
  /// Builds the window, shows it and returns when it has closed.
  virtual void ouvrir_modale(std::string_view nom) = 0;
};

/// The world of one run, as its front end makes it.
struct Monde {
  Boîtes &boîtes;
  Registre &registre;
  Ecran &écran;
  Son &son;
  Horloge &horloge;
  Hasard &hasard;
  Web &web;
  Aide &aide;
  Façade &façade;
};

/// All that the rules can ask for.
struct Plateforme : Monde {
  Ouvreur &fenêtres;
};

}  // namespace ardane
