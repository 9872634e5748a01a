// Blazons: the written descriptions of arms, read into what is to be drawn.
//
// The language is the usual French blazon: the field first, then what lies on it, from the main piece
// outwards.
//
//   d'azur à la tour d'argent, au chef d'or chargé de trois étoiles de gueules
//   parti : au 1 d'or au lion de gueules ; au 2 fascé ondé d'argent et d'azur
//
// A blazon that breaks the rule of tincture (no metal on metal, no colour on colour) is refused like one that
// cannot be read. Furs and "au naturel" may meet everything, as may a field of metal and colour together; an
// edge piece may be "cousu", sewn on, against the rule; details such as claws or masonry are free.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "armorial/tinctures.h"

namespace atelier {

class Meubles;

/// How a boundary runs.
enum class Ligne { droite, ondée, engrêlée, crénelée, dentelée };

enum class Partition {
  plein,
  parti,
  coupé,
  tranché,
  taillé,
  écartelé,
  écartelé_en_sautoir,
  gironné,
  tiercé_en_fasce,
  tiercé_en_pal,
  chapé,
  chaussé,
  fascé,
  palé,
  bandé,
  barré,
  chevronné,
  échiqueté,
  losangé,
};

enum class Pièce {
  meuble,
  chef,
  champagne,
  terrasse,
  bordure,
  franc_canton,
  fasce,
  burelle,
  pal,
  vergette,
  bande,
  cotice,
  barre,
  chevron,
  croix,
  sautoir,
  pairle,
  pile,
  pointe,
};

/// Whether the piece lies on the field's edge. Such a one takes its room first, and may be sewn on.
bool est_de_bord(Pièce pièce);

enum class Disposition {
  /// What the number asks for: three stand two and one.
  usuelle,
  en_rangs,
  en_fasce,
  en_pal,
  en_bande,
  en_barre,
  /// Crossed when there are two, else on the places of a saltire.
  en_sautoir,
  en_croix,
  en_orle,
  /// Rising from the foot of the field over its full width.
  mouvant_de_la_pointe,
};

enum class Relation { chargé, accompagné, accosté, surmonté, cantonné, soutenu };
enum class Lieu { partout, en_chef, en_pointe };

struct Annexe;

/// One kind of thing on a field, `nombre` times.
struct Objet {
  Pièce pièce = Pièce::meuble;
  /// The charge's key among the `Meubles`, when `pièce` is meuble.
  std::string meuble;
  int nombre = 1;
  Ligne ligne = Ligne::droite;
  bool contourné = false;
  bool renversé = false;
  bool cousu = false;
  Émail émail = Émail::or_;
  /// Tinctures of the details that the blazon names, as "armé" or "maçonné".
  std::map<std::string, Émail> détails;
  Disposition disposition = Disposition::usuelle;
  /// Numbers in each row from the top, for `en_rangs`.
  std::vector<int> rangs;
  std::vector<Annexe> annexes;
};

/// What goes with an object: on it, beside it, under it.
struct Annexe {
  Relation relation = Relation::chargé;
  Lieu lieu = Lieu::partout;
  Objet objet;
};

struct Blason;

struct Champ {
  Partition partition = Partition::plein;
  Ligne ligne = Ligne::droite;
  /// Of the parts in turn, the dexter and upper ones first.
  std::vector<Émail> émaux;
  /// Number of stripes, rows or girons.
  int pièces = 0;
  /// Full blazons in place of tinctures, one for each part.
  std::vector<Blason> quartiers;
  /// Key of the charge that is strewn over the field, or empty.
  std::string semé;
  Émail émail_du_semé = Émail::or_;
};

struct Blason {
  Champ champ;
  std::vector<Objet> objets;
};

class Erreur_de_blason : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads a blazon whose charges are among `meubles`. Throws Erreur_de_blason, whose text names the blazon,
/// the place and what was expected there, or the two tinctures that must not meet.
Blason lire_blason(std::string_view texte, const Meubles &meubles);

}  // namespace atelier
