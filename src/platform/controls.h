// Windows as data. A window is a plain structure of named controls; the rules write their properties, a front
// end draws them and sends the player's events back by control. Nothing here knows a toolkit.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/picture.h"

namespace ardane {

enum class Genre : std::uint8_t {
  image,
  étiquette,
  cadre,
  texte,
  bouton,
  case_à_cocher,
  option,
  liste,
  barre,
  menu,
  boîte_image,
  vue,
};

/// The word for a kind of control, as scripts and reports write it ("image", "case", ...).
std::string_view nom_genre(Genre genre);

struct Couleur {
  std::uint8_t rouge = 0, vert = 0, bleu = 0;
  friend bool operator==(const Couleur &, const Couleur &) = default;
};

enum class Famille_police : std::uint8_t { système, times, sans_serif };

struct Police {
  Famille_police famille = Famille_police::système;
  double points = 8.25;  ///< size in typographic points
  bool gras = false;
  friend bool operator==(const Police &, const Police &) = default;
};

enum class Alignement : std::uint8_t { gauche, centre, droite };

/// One control of a window. Places and sizes are pixels, relative to `conteneur`, or to the window's client
/// area where there is none. An unset colour is the system's.
struct Contrôle {
  std::string nom;
  Genre genre = Genre::étiquette;
  double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
  bool visible = true;
  bool actif = true;
  bool encadré = false;
  bool étirée = false;  ///< the picture takes the control's size; otherwise the control takes the picture's
  bool multiligne = false;
  bool lecture_seule = false;  ///< a text box that only shows
  bool coché = false;
  std::uint64_t plan = 0;  ///< stacking key: the higher lies above the lower
  Contrôle *conteneur = nullptr;
  Image image;
  std::string texte;
  std::string infobulle;
  std::optional<Couleur> fond;
  std::optional<Couleur> couleur;
  Police police;
  Alignement alignement = Alignement::gauche;
  int ordre_tabulation = -1;  ///< place in the order of the Tab key; -1 for none of its own
  int valeur = 0, min = 0, max = 0, petit_pas = 1, grand_pas = 1;
  std::vector<std::string> éléments;
  int choix = 0;  ///< selected item of a list, from 1; 0 for none

  std::function<void()> clic;
  std::function<void()> double_clic;
  std::function<void()> entrée;      ///< the Enter key in this control
  std::function<void()> changement;  ///< a bar's value, a list's choice
  std::function<void()> perte_du_focus;
};

/// A window: its own properties, its controls in the order of their making, and what its events call.
class Fenêtre {
 public:
  explicit Fenêtre(std::string nom_fenêtre) : nom(std::move(nom_fenêtre)) {}
  virtual ~Fenêtre() = default;
  Fenêtre(const Fenêtre &) = delete;
  Fenêtre &operator=(const Fenêtre &) = delete;

  std::string nom;
  std::string titre;
  double gauche = 0, haut = 0, largeur = 0, hauteur = 0;  ///< client area, pixels of the screen
  int contexte_aide = 0;
  bool fermable = true;    ///< has a close control of the window manager's
  bool avec_titre = true;  ///< has a title bar; without it the window has no border either
  bool redimensionnable = false;
  bool ouverte = false;
  std::optional<Couleur> fond;
  Contrôle *focus = nullptr;

  std::function<void()> activation;            ///< the window has just become the active one
  std::function<void()> demande_de_fermeture;  ///< the close control; without it the window just closes

  /// Adds a control on top of the stack. References stay valid as long as the window lives.
  Contrôle &ajouter(Contrôle contrôle);
  void au_premier_plan(Contrôle &contrôle) { contrôle.plan = ++plan_du_dessus_; }
  void fermer() { ouverte = false; }
  /// The control of that name, or null.
  Contrôle *chercher(std::string_view nom_contrôle);

  std::deque<Contrôle> &contrôles() { return contrôles_; }
  const std::deque<Contrôle> &contrôles() const { return contrôles_; }

 private:
  std::deque<Contrôle> contrôles_;
  std::uint64_t plan_du_dessus_ = 0;
};

/// True when the player can see the control: it and what contains it are visible.
bool est_visible(const Contrôle &contrôle);
/// True when the player can use the control: seen, and it and what contains it are enabled.
bool est_utilisable(const Contrôle &contrôle);

/// Moves a bar to `valeur`, cut to its range; its change event runs if the value changed.
void fixer_valeur(Contrôle &barre, int valeur);
/// Gives a bar its range; a value left outside moves in, with its change event.
void fixer_bornes(Contrôle &barre, int min, int max);
/// Gives a control a picture; the control takes its size unless it stretches it.
void poser_image(Contrôle &contrôle, Image image);

/// A click of the player's: a check box or an option takes its new state, then the click handler runs.
void cliquer(Fenêtre &fenêtre, Contrôle &contrôle);
/// Replaces what stands in a text box, as typing would.
void saisir(Contrôle &contrôle, std::string texte);
/// Selects an item of a list, from 1, with its change event; 0 for none.
void choisir(Contrôle &liste, int choix);
/// The selected item of a list. A choice that the list does not have is a fatal error.
const std::string &élément_choisi(const Contrôle &liste);

}  // namespace ardane
