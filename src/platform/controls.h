// Windows as data. A window is a plain structure of named controls; the rules write their properties, a front
// end draws them and sends the player's events back by control. Nothing here knows a toolkit.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/items.h"
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

inline constexpr Couleur noir{0, 0, 0};
inline constexpr Couleur blanc{255, 255, 255};
inline constexpr Couleur rouge{255, 0, 0};

/// A colour that the player's desktop decides.
enum class Couleur_système : std::uint8_t { barre_de_défilement };

/// What a control is coloured with. Where none is set, the front end's default for its kind stands.
using Teinte = std::variant<Couleur, Couleur_système>;

/// A border around a control. By its kind a text box has one, a label and a box of pictures have none.
enum class Bord : std::uint8_t { selon_genre, avec, sans };

enum class Famille_police : std::uint8_t { système, times, sans_serif };

struct Police {
  Famille_police famille = Famille_police::système;
  double points = 8.25;  ///< size in typographic points
  bool gras = false;
  friend bool operator==(const Police &, const Police &) = default;
};

enum class Alignement : std::uint8_t { gauche, centre, droite };

/// One control of a window. Places and sizes are pixels, relative to `conteneur`, or to the window's client
/// area where there is none. All properties may change while the window is shown, but for name, kind,
/// container, `multiligne` of a text box, `étiquette` and `ordre_tabulation`.
struct Contrôle {
  std::string nom;
  Genre genre = Genre::étiquette;
  double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
  bool visible = true;
  bool actif = true;
  bool retiré = false;  ///< taken off its window: only those who still hold it can tell
  Bord bord = Bord::selon_genre;
  bool cellule = false;  ///< a label of a table, which takes neither click nor tip
  bool étirée = false;   ///< the picture takes the control's size; otherwise the control takes the picture's
  bool déborde = false;  ///< a label of one line that runs on beyond its right edge rather than shrink
  bool multiligne = false;
  bool lignes_crlf = false;    ///< lines of the text end in CR LF, as in a file; otherwise in LF
  bool lecture_seule = false;  ///< a text box that only shows
  bool pour_fichier = false;   ///< a text box of one line whose text must stand in the game's files as typed
  bool coché = false;
  char32_t mnémonique = 0;  ///< letter of the caption that the Alt key presses; 0 for none
  std::uint64_t plan = 0;   ///< stacking key: the higher lies above the lower
  Contrôle *conteneur = nullptr;
  Contrôle *étiquette = nullptr;  ///< the label that names this control, and whose mnemonic leads to it
  Image image;
  std::string texte;      ///< caption or text, as the player reads it: no character of it is a mark
  bool muet = false;      ///< a screen reader passes it over: what stands around it says it
  std::string nom_parlé;  ///< what a screen reader says; empty for what `nom_à_dire` finds
  std::string infobulle;
  std::string
      raccourci;  ///< of a menu entry: the keys that choose it, as "Ctrl+N"; of one in the bar, to be told
  std::optional<Teinte> fond;
  std::optional<Teinte> couleur;
  Police police;
  Alignement alignement = Alignement::gauche;
  int ordre_tabulation = -1;  ///< place in the order of the Tab key; -1 for after those that have one
  int valeur = 0, min = 0, max = 0, petit_pas = 1, grand_pas = 1;
  Eléments éléments;
  int choix = 0;  ///< selected item of a list, from 1; 0 for none

  std::function<void()> clic;  ///< not of a text box or a bar, which only take the focus
  std::function<void()> double_clic;
  std::function<void()> entrée;      ///< the Enter key in this control, in place of what `entrer` does
  std::function<void()> changement;  ///< a bar's value, a list's choice, a text that the player has edited
  std::function<void()> perte_du_focus;  ///< to another control of the window, by the player or the program
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
  std::string nom_parlé;  ///< what a screen reader says of a window without a title
  double gauche = 0, haut = 0, largeur = 0, hauteur = 0;  ///< client area, pixels of the screen
  int contexte_aide = 0;
  bool fermable = true;                 ///< has a close control of the window manager's
  bool avec_titre = true;               ///< has a title bar; without it nobody can move the window
  bool placée_sur_le_moniteur = false;  ///< its place is the monitor's, not that of the program's screen
  bool est_principale = false;          ///< the program's own window, which the others stand above
  bool redimensionnable = false;
  bool ouverte = false;
  std::optional<Teinte> fond;
  Contrôle *focus = nullptr;
  Contrôle *bouton_défaut = nullptr;  ///< what Enter presses where the focus has no use for it; mostly none
  Contrôle *bouton_annulation = nullptr;  ///< what Escape presses; mostly none

  std::function<void()> activation;            ///< the window has just become the active one
  std::function<void()> tic;                   ///< twice a second, in the main window and in the one in front
  std::function<void()> demande_de_fermeture;  ///< the close control; without it the window just closes

  /// Adds a control on top of the stack. References stay valid until it is taken off.
  Contrôle &ajouter(Contrôle &&contrôle);
  /// Takes a control off, and what lies in it, no menu entry: no event reaches it any more, and no property
  /// of the window or of another control points at it. Its memory stays until `oublier_retirés`.
  void retirer(Contrôle &contrôle);
  /// The same for many at once, which takes one walk over the window and not one for each.
  void retirer(std::span<Contrôle *const> partants);
  /// For the front end, once it has let go of every control that is `retiré`.
  void oublier_retirés() { retirés_.clear(); }
  /// Counts the controls that came and went: as long as it stands, so does `contrôles()`.
  std::uint64_t révision() const { return révision_; }
  void au_premier_plan(Contrôle &contrôle) { contrôle.plan = ++plan_du_dessus_; }
  void fermer() { ouverte = false; }
  /// The control of that name, or null.
  Contrôle *chercher(std::string_view nom_contrôle);

  std::list<Contrôle> &contrôles() { return contrôles_; }
  const std::list<Contrôle> &contrôles() const { return contrôles_; }

 private:
  void oublier_liens_aux_retirés();

  std::list<Contrôle> contrôles_;
  std::list<Contrôle> retirés_;
  std::uint64_t plan_du_dessus_ = 0;
  std::uint64_t révision_ = 0;
};

/// True when the player can see the control: it and what contains it are visible.
bool est_visible(const Contrôle &contrôle);
/// True when the player can use the control: seen, and it and what contains it are enabled.
bool est_utilisable(const Contrôle &contrôle);
/// True if the control is shown with a border.
bool est_bordé(const Contrôle &contrôle);
/// What a screen reader says of a control: its spoken name, else the text of its label, its caption or its
/// tool tip, the first that is not empty. What stands in a box to type in is no name of it, nor is the name
/// that the program has for it.
const std::string &nom_à_dire(const Contrôle &contrôle);

/// True if a screen reader passes the control over: it is told to, or it is a picture that says nothing.
bool est_muet(const Contrôle &contrôle);

/// True for the kinds that can have the keyboard's focus.
bool prend_le_clavier(const Contrôle &contrôle);
/// The controls that the Tab key visits, in its order, whether they can be seen or not: those with a place in
/// it, then the others as they were made; what stands in a frame with a place comes there. A box that only
/// shows text is among them if it has a place.
std::vector<Contrôle *> ordre_du_clavier(Fenêtre &fenêtre);
/// Gives the focus of a window that comes up to the first in the keyboard's order, unless it has it already.
void premier_focus(Fenêtre &fenêtre);
/// Gives the focus where it can be: a control that cannot be used hands it to the next in the keyboard's
/// order.
void rectifier_focus(Fenêtre &fenêtre);

/// The text with line ends of LF alone, as the player's text boxes have them.
std::string lignes_simples(std::string_view texte);
/// The text with the line ends of the control's data.
std::string lignes_du_contrôle(const Contrôle &contrôle, std::string_view texte);

/// Runs what an event calls, which may take off the very control that it belongs to.
void déclencher(const std::function<void()> &événement);
/// Moves a bar to `valeur`, cut to its range; its change event runs if the value changed.
void fixer_valeur(Contrôle &barre, int valeur);
/// Gives a bar its range; a value left outside moves in, with its change event.
void fixer_bornes(Contrôle &barre, int min, int max);
/// Gives a control a picture; the control takes its size unless it stretches it.
void poser_image(Contrôle &contrôle, Image image);

/// The close control of a window that has one.
void demander_fermeture(Fenêtre &fenêtre);
/// A click of the player's: a check box or an option takes its new state, then the click handler runs.
void cliquer(Fenêtre &fenêtre, Contrôle &contrôle);
/// True where the Enter key ends a line.
bool entrée_finit_la_ligne(const Contrôle &contrôle);
/// The Enter key in a control that has the focus: a line end at the end of a text of several lines; else the
/// control's own handler; else it presses the control if it is a button or a picture; else the window's
/// default button.
void entrer(Fenêtre &fenêtre, Contrôle &contrôle);
/// Presses a default or cancel button, which need not have the focus and does not get it. Nothing happens if
/// it is null or cannot be used.
void presser(Contrôle *bouton);
/// Replaces what stands in a text box, as typing would. The data gets the control's line ends.
void saisir(Contrôle &contrôle, std::string_view texte);
/// Selects an item of a list, from 1, with its change event; 0 for none.
void choisir(Contrôle &liste, int choix);
/// The selected item of a list. A choice that the list does not have is a fatal error.
const std::string &élément_choisi(const Contrôle &liste);

}  // namespace ardane
