#include "armorial/blazon.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "armorial/charges.h"

namespace atelier {
namespace {

struct Nom_d_émail {
  std::string_view nom;
  Émail émail;
  Classe_d_émail classe;
};
constexpr std::array<Nom_d_émail, 10> émaux{{
    {"or", Émail::or_, Classe_d_émail::métal},
    {"argent", Émail::argent, Classe_d_émail::métal},
    {"gueules", Émail::gueules, Classe_d_émail::couleur},
    {"azur", Émail::azur, Classe_d_émail::couleur},
    {"sable", Émail::sable, Classe_d_émail::couleur},
    {"sinople", Émail::sinople, Classe_d_émail::couleur},
    {"pourpre", Émail::pourpre, Classe_d_émail::couleur},
    {"hermine", Émail::hermine, Classe_d_émail::libre},
    {"vair", Émail::vair, Classe_d_émail::libre},
    {"naturel", Émail::naturel, Classe_d_émail::libre},
}};

struct Nom_de_pièce {
  std::string_view nom;
  std::string_view pluriel;
  bool féminin;
  Pièce pièce;
};
constexpr std::array<Nom_de_pièce, 18> pièces{{
    {"chef", "chefs", false, Pièce::chef},
    {"champagne", "champagnes", true, Pièce::champagne},
    {"terrasse", "terrasses", true, Pièce::terrasse},
    {"bordure", "bordures", true, Pièce::bordure},
    {"franc-canton", "francs-cantons", false, Pièce::franc_canton},
    {"fasce", "fasces", true, Pièce::fasce},
    {"burelle", "burelles", true, Pièce::burelle},
    {"pal", "pals", false, Pièce::pal},
    {"vergette", "vergettes", true, Pièce::vergette},
    {"bande", "bandes", true, Pièce::bande},
    {"cotice", "cotices", true, Pièce::cotice},
    {"barre", "barres", true, Pièce::barre},
    {"chevron", "chevrons", false, Pièce::chevron},
    {"croix", "croix", true, Pièce::croix},
    {"sautoir", "sautoirs", false, Pièce::sautoir},
    {"pairle", "pairles", false, Pièce::pairle},
    {"pile", "piles", true, Pièce::pile},
    {"pointe", "pointes", true, Pièce::pointe},
}};

/// Pieces that may stand several times side by side.
constexpr std::array pièces_en_nombre{Pièce::fasce, Pièce::burelle, Pièce::pal,   Pièce::vergette,
                                      Pièce::bande, Pièce::cotice,  Pièce::barre, Pièce::chevron};
/// Pieces on the field's edge, which may be sewn on.
constexpr std::array pièces_de_bord{Pièce::chef, Pièce::champagne, Pièce::terrasse, Pièce::bordure,
                                    Pièce::franc_canton};

template <typename Range>
bool est_parmi(Pièce pièce, const Range &range) {
  return std::find(range.begin(), range.end(), pièce) != range.end();
}

struct Nom_de_partition {
  std::string_view nom;
  Partition partition;
  /// How many tinctures or quarters; 2 of a striped field alternate.
  int parts;
  /// Stripes when the blazon gives no number; 0 for a partition without number.
  int pièces;
};
constexpr std::array<Nom_de_partition, 16> partitions{{
    {"parti", Partition::parti, 2, 0},
    {"coupé", Partition::coupé, 2, 0},
    {"tranché", Partition::tranché, 2, 0},
    {"taillé", Partition::taillé, 2, 0},
    {"écartelé", Partition::écartelé, 2, 0},
    {"gironné", Partition::gironné, 2, 8},
    {"tiercé", Partition::tiercé_en_fasce, 3, 0},
    {"chapé", Partition::chapé, 2, 0},
    {"chaussé", Partition::chaussé, 2, 0},
    {"fascé", Partition::fascé, 2, 6},
    {"palé", Partition::palé, 2, 6},
    {"bandé", Partition::bandé, 2, 6},
    {"barré", Partition::barré, 2, 6},
    {"chevronné", Partition::chevronné, 2, 6},
    {"échiqueté", Partition::échiqueté, 2, 6},
    {"losangé", Partition::losangé, 2, 6},
}};

constexpr std::array<std::pair<std::string_view, Ligne>, 4> lignes{{
    {"ondé", Ligne::ondée},
    {"engrêlé", Ligne::engrêlée},
    {"crénelé", Ligne::crénelée},
    {"dentelé", Ligne::dentelée},
}};

constexpr std::array<std::pair<std::string_view, Relation>, 6> relations{{
    {"chargé", Relation::chargé},
    {"accompagné", Relation::accompagné},
    {"accosté", Relation::accosté},
    {"surmonté", Relation::surmonté},
    {"cantonné", Relation::cantonné},
    {"soutenu", Relation::soutenu},
}};

constexpr std::array<std::pair<std::string_view, Disposition>, 7> dispositions{{
    {"fasce", Disposition::en_fasce},
    {"pal", Disposition::en_pal},
    {"bande", Disposition::en_bande},
    {"barre", Disposition::en_barre},
    {"sautoir", Disposition::en_sautoir},
    {"croix", Disposition::en_croix},
    {"orle", Disposition::en_orle},
}};

constexpr std::array<std::string_view, 13> nombres{"",     "un",   "deux", "trois", "quatre", "cinq", "six",
                                                   "sept", "huit", "neuf", "dix",   "onze",   "douze"};

/// Words in lower case, with elided articles and punctuation on their own.
std::vector<std::string> mots(std::string_view texte) {
  std::vector<std::string> result;
  std::string mot;
  const auto finir = [&] {
    if (!mot.empty()) result.push_back(std::exchange(mot, {}));
  };
  for (const char c : texte) {
    if (c == ' ' || c == '\t') {
      finir();
    } else if (c == '\'') {
      mot += c;
      finir();
    } else if (c == ',' || c == ';' || c == ':') {
      finir();
      result.emplace_back(1, c);
    } else {
      mot += c;
    }
  }
  finir();
  return result;
}

/// Whether the word is the adjective in one of its four forms.
bool s_accorde(std::string_view mot, std::string_view adjectif) {
  if (!mot.starts_with(adjectif)) return false;
  const std::string_view fin = mot.substr(adjectif.size());
  return fin.empty() || fin == "e" || fin == "s" || fin == "es";
}

class Lecteur {
 public:
  Lecteur(std::string_view texte, const Meubles &meubles)
      : texte_(texte), mots_(mots(texte)), meubles_(meubles) {}

  Blason lire() {
    Blason blason = lire_blason_entier();
    if (!fini()) échouer("expected the end of the blazon");
    return blason;
  }

 private:
  bool fini() const { return i_ >= mots_.size(); }
  std::string_view mot(std::size_t ahead = 0) const {
    return i_ + ahead < mots_.size() ? std::string_view(mots_[i_ + ahead]) : std::string_view();
  }
  bool prendre(std::string_view attendu) {
    if (mot() != attendu) return false;
    ++i_;
    return true;
  }
  bool prendre_suite(std::initializer_list<std::string_view> suite) {
    std::size_t ahead = 0;
    for (const std::string_view attendu : suite)
      if (mot(ahead++) != attendu) return false;
    i_ += suite.size();
    return true;
  }
  bool prendre_adjectif(std::string_view adjectif) {
    if (!s_accorde(mot(), adjectif)) return false;
    ++i_;
    return true;
  }
  void exiger(std::string_view attendu) {
    if (!prendre(attendu)) échouer("expected \"" + std::string(attendu) + "\"");
  }
  [[noreturn]] void échouer(const std::string &raison) const {
    const std::string place = fini() ? "at the end" : "at \"" + mots_[i_] + "\"";
    throw Erreur_de_blason("\"" + std::string(texte_) + "\": " + raison + ' ' + place);
  }

  Blason lire_blason_entier() {
    Blason blason;
    blason.champ = lire_champ();
    for (;;) {
      const std::size_t retour = i_;
      prendre(",");
      if (mot() != "à" && mot() != "au" && mot() != "aux") {
        i_ = retour;
        return blason;
      }
      // "au 1" opens the next quarter and is no piece of this one.
      if (nombre_en_chiffres(mot(1))) {
        i_ = retour;
        return blason;
      }
      blason.objets.push_back(lire_objet_posé());
    }
  }

  static std::optional<int> nombre_en_chiffres(std::string_view mot) {
    if (mot.size() != 1 || mot[0] < '1' || mot[0] > '9') return {};
    return mot[0] - '0';
  }

  std::optional<int> prendre_nombre() {
    if (const auto chiffre = nombre_en_chiffres(mot())) {
      ++i_;
      return chiffre;
    }
    if (prendre("une")) return 1;
    const auto found = std::find(nombres.begin() + 1, nombres.end(), mot());
    if (found == nombres.end()) return {};
    ++i_;
    return static_cast<int>(found - nombres.begin());
  }

  Ligne prendre_ligne() {
    for (const auto &[adjectif, ligne] : lignes)
      if (prendre_adjectif(adjectif)) return ligne;
    return Ligne::droite;
  }

  std::optional<Émail> prendre_émail() {
    if (prendre_suite({"au", "naturel"})) return Émail::naturel;
    if (prendre_suite({"du", "même"})) {
      if (!dernier_émail_) échouer("no tincture to repeat");
      return dernier_émail_;
    }
    if (mot() != "de" && mot() != "d'") return {};
    for (const Nom_d_émail &candidat : émaux)
      if (candidat.émail != Émail::naturel && mot(1) == candidat.nom) {
        i_ += 2;
        dernier_émail_ = candidat.émail;
        return candidat.émail;
      }
    return {};
  }
  Émail exiger_émail() {
    const auto émail = prendre_émail();
    if (!émail) échouer("expected a tincture");
    return *émail;
  }

  Champ lire_champ() {
    for (const Nom_de_partition &candidat : partitions)
      if (prendre_adjectif(candidat.nom)) return lire_partition(candidat);
    Champ champ;
    champ.émaux.push_back(exiger_émail());
    if (prendre_adjectif("semé")) {
      if (!prendre("de") && !prendre("d'")) échouer("expected \"de\"");
      champ.semé = exiger_meuble(2).nom;
      champ.émail_du_semé = exiger_émail();
    }
    return champ;
  }

  Champ lire_partition(const Nom_de_partition &nom) {
    Champ champ;
    champ.partition = nom.partition;
    champ.pièces = nom.pièces;
    champ.ligne = prendre_ligne();
    if (nom.partition == Partition::tiercé_en_fasce) {
      exiger("en");
      if (prendre("pal"))
        champ.partition = Partition::tiercé_en_pal;
      else
        exiger("fasce");
    }
    if (nom.partition == Partition::écartelé && prendre_suite({"en", "sautoir"}))
      champ.partition = Partition::écartelé_en_sautoir;
    if (nom.pièces == 0 && (prendre(":") || prendre(","))) {
      lire_quartiers(champ, champ.partition == Partition::écartelé ? 4 : nom.parts);
      return champ;
    }
    for (int part = 0; part < nom.parts; ++part) {
      if (part > 0 && !(part + 1 < nom.parts ? prendre(",") : prendre("et"))) échouer("expected \"et\"");
      champ.émaux.push_back(exiger_émail());
    }
    if (nom.pièces > 0) lire_nombre_de_pièces(champ);
    return champ;
  }

  void lire_nombre_de_pièces(Champ &champ) {
    const std::size_t retour = i_;
    if (!prendre("de")) return;
    const auto nombre = prendre_nombre();
    if (nombre && (prendre("pièces") || prendre("tires"))) {
      if (*nombre < 2) échouer("a division needs two parts at least, stopped");
      champ.pièces = *nombre;
      return;
    }
    i_ = retour;
  }

  void lire_quartiers(Champ &champ, int parts) {
    champ.quartiers.resize(static_cast<std::size_t>(parts));
    std::vector<bool> lus(static_cast<std::size_t>(parts), false);
    do {
      std::vector<int> numéros;
      if (!prendre("au") && !prendre("aux")) échouer("expected \"au\" and the number of a part");
      do {
        const auto numéro = nombre_en_chiffres(mot());
        if (!numéro || *numéro > parts) échouer("expected the number of a part");
        ++i_;
        numéros.push_back(*numéro);
      } while (prendre("et"));
      const Blason quartier = lire_blason_entier();
      for (const int numéro : numéros) {
        champ.quartiers[static_cast<std::size_t>(numéro - 1)] = quartier;
        lus[static_cast<std::size_t>(numéro - 1)] = true;
      }
    } while (prendre(";"));
    if (std::find(lus.begin(), lus.end(), false) != lus.end()) échouer("a part of the field is missing");
  }

  /// The object after "à la", "au", "à l'", "à trois" ...
  Objet lire_objet_posé() {
    if (prendre("au")) return lire_objet(1, false);
    if (prendre("aux")) {
      const auto nombre = prendre_nombre();
      return lire_objet(nombre ? *nombre : 2, {});
    }
    exiger("à");
    if (prendre("la")) return lire_objet(1, true);
    if (prendre("l'")) return lire_objet(1, {});
    return lire_objet_compté();
  }

  /// The object after "de" or "d'".
  Objet lire_objet_annexe() {
    if (!prendre("de") && !prendre("d'")) échouer("expected \"de\"");
    return lire_objet_compté();
  }

  Objet lire_objet_compté() {
    const bool une = mot() == "une";
    const bool un = mot() == "un";
    const auto nombre = prendre_nombre();
    if (!nombre) échouer("expected a number");
    std::optional<bool> féminin;
    if (un || une) féminin = une;
    return lire_objet(*nombre, féminin);
  }

  /// The charge whose name stands here, the longest one: "fleur de lys" before "fleur". Its words are
  /// counted.
  std::pair<const Meuble *, std::size_t> meuble_ici(int nombre) const {
    const Meuble *meilleur = nullptr;
    std::size_t longueur = 0;
    for (const Meuble &meuble : meubles_.tous()) {
      const auto noms = mots(nombre > 1 ? meuble.pluriel : meuble.nom);
      if (noms.size() <= longueur || i_ + noms.size() > mots_.size()) continue;
      if (std::equal(noms.begin(), noms.end(), mots_.begin() + static_cast<std::ptrdiff_t>(i_))) {
        meilleur = &meuble;
        longueur = noms.size();
      }
    }
    return {meilleur, longueur};
  }

  const Meuble &exiger_meuble(int nombre, std::optional<bool> féminin = {}) {
    const auto [meuble, longueur] = meuble_ici(nombre);
    if (!meuble) échouer("no charge of this name");
    if (féminin && *féminin != meuble->féminin) échouer("the article has the wrong gender");
    i_ += longueur;
    return *meuble;
  }

  Objet lire_objet(int nombre, std::optional<bool> féminin) {
    Objet objet;
    objet.nombre = nombre;
    const Meuble *meuble = nullptr;
    const auto pièce = std::find_if(pièces.begin(), pièces.end(), [&](const Nom_de_pièce &candidat) {
      return mot() == (nombre > 1 ? candidat.pluriel : candidat.nom);
    });
    // "Croix pattée" is a charge, "croix" alone an ordinary.
    if (pièce != pièces.end() && meuble_ici(nombre).second < 2) {
      if (féminin && *féminin != pièce->féminin) échouer("the article has the wrong gender");
      if (nombre > 1 && !est_parmi(pièce->pièce, pièces_en_nombre)) échouer("there can be only one");
      objet.pièce = pièce->pièce;
      ++i_;
    } else {
      meuble = &exiger_meuble(nombre, féminin);
      objet.meuble = meuble->nom;
    }
    lire_adjectifs(objet, meuble);
    objet.émail = exiger_émail();
    for (bool encore = true; encore;)
      encore = lire_détails(objet, meuble) || lire_disposition(objet) || lire_annexes(objet);
    return objet;
  }

  void lire_adjectifs(Objet &objet, const Meuble *meuble) {
    for (;;) {
      if (!meuble) {
        if (objet.ligne == Ligne::droite && (objet.ligne = prendre_ligne()) != Ligne::droite) continue;
        if (est_parmi(objet.pièce, pièces_de_bord) && prendre_adjectif("cousu")) {
          objet.cousu = true;
          continue;
        }
        return;
      }
      const auto attitude =
          std::find_if(meuble->attitudes.begin(), meuble->attitudes.end(),
                       [&](const std::string &candidat) { return s_accorde(mot(), candidat); });
      if (attitude != meuble->attitudes.end())
        ++i_;
      else if (prendre_adjectif("contourné"))
        objet.contourné = true;
      else if (prendre_adjectif("renversé"))
        objet.renversé = true;
      else
        return;
    }
  }

  /// ", armé et lampassé de gueules"
  bool lire_détails(Objet &objet, const Meuble *meuble) {
    if (!meuble) return false;
    const std::size_t retour = i_;
    prendre(",");
    std::vector<std::string> noms;
    do {
      const auto détail =
          std::find_if(meuble->détails.begin(), meuble->détails.end(),
                       [&](const auto &candidat) { return s_accorde(mot(), candidat.first); });
      if (détail == meuble->détails.end()) break;
      noms.push_back(détail->first);
      ++i_;
    } while (prendre("et"));
    if (noms.empty()) {
      i_ = retour;
      return false;
    }
    // "Du même" goes back to the body's tincture.
    if (prendre_suite({"du", "même"})) {
      for (const std::string &détail : noms) objet.détails[détail] = objet.émail;
      return true;
    }
    const auto avant = dernier_émail_;
    const Émail émail = exiger_émail();
    dernier_émail_ = avant;
    for (const std::string &détail : noms) objet.détails[détail] = émail;
    return true;
  }

  bool lire_disposition(Objet &objet) {
    const std::size_t retour = i_;
    prendre(",");
    if (prendre_adjectif("mouvant")) {
      if (!prendre_suite({"de", "la", "pointe"})) échouer("expected \"de la pointe\"");
      objet.disposition = Disposition::mouvant_de_la_pointe;
      return true;
    }
    if (prendre_adjectif("mal")) {
      if (!prendre_adjectif("ordonné")) échouer("expected \"ordonnés\"");
      if (objet.nombre != 3) échouer("only three can stand one and two");
      objet.disposition = Disposition::en_rangs;
      objet.rangs = {1, 2};
      return true;
    }
    const bool posé = prendre_adjectif("posé") || prendre_adjectif("rangé") || prendre_adjectif("passé") ||
                      prendre_adjectif("ordonné");
    if (posé && lire_rangs(objet)) return true;
    if (prendre("en"))
      for (const auto &[nom, disposition] : dispositions)
        if (prendre(nom)) {
          objet.disposition = disposition;
          return true;
        }
    if (posé) échouer("unknown arrangement");
    i_ = retour;
    return false;
  }

  /// "deux et un", "3, 2 et 1"
  bool lire_rangs(Objet &objet) {
    const std::size_t retour = i_;
    std::vector<int> rangs;
    int somme = 0;
    do {
      const auto rang = prendre_nombre();
      if (!rang) {
        i_ = retour;
        return false;
      }
      rangs.push_back(*rang);
      somme += *rang;
    } while (prendre(",") || prendre("et"));
    if (somme != objet.nombre) échouer("the rows do not add up to the number of charges");
    objet.disposition = Disposition::en_rangs;
    objet.rangs = std::move(rangs);
    return true;
  }

  static std::optional<Lieu> lieu(std::string_view mot) {
    if (mot == "chef") return Lieu::en_chef;
    if (mot == "pointe") return Lieu::en_pointe;
    return {};
  }

  Lieu prendre_lieu() {
    if (mot() != "en") return Lieu::partout;
    const auto found = lieu(mot(1));
    if (!found) échouer("expected \"en chef\" or \"en pointe\"");
    i_ += 2;
    return *found;
  }

  /// Refuses company that there is no place for.
  void vérifier_annexe(const Objet &principal, const Annexe &annexe) const {
    const bool meuble = principal.pièce == Pièce::meuble;
    const Pièce autre = annexe.objet.pièce;
    if (annexe.relation == Relation::chargé) {
      if (meuble) échouer("only a piece can be charged, stopped");
    } else if (annexe.relation == Relation::soutenu) {
      if (!meuble || (autre != Pièce::terrasse && autre != Pièce::champagne))
        échouer("only a terrasse or a champagne can bear a charge, stopped");
    } else {
      if (autre != Pièce::meuble) échouer("only charges can accompany, stopped");
      if (est_parmi(principal.pièce, pièces_de_bord))
        échouer("nothing can accompany a piece on the edge, stopped");
    }
  }

  /// ", accompagné en chef de deux étoiles d'or et en pointe d'un croissant du même"
  bool lire_annexes(Objet &objet) {
    if (dans_une_annexe_) return false;
    const std::size_t retour = i_;
    prendre(",");
    for (const auto &[adjectif, relation] : relations) {
      if (!prendre_adjectif(adjectif)) continue;
      do {
        const Lieu place = prendre_lieu();
        dans_une_annexe_ = true;
        objet.annexes.push_back({relation, place, lire_objet_annexe()});
        dans_une_annexe_ = false;
        vérifier_annexe(objet, objet.annexes.back());
      } while (mot() == "et" && (mot(1) == "en" || mot(1) == "de" || mot(1) == "d'") && prendre("et"));
      return true;
    }
    i_ = retour;
    return false;
  }

  std::string_view texte_;
  std::vector<std::string> mots_;
  const Meubles &meubles_;
  std::size_t i_ = 0;
  std::optional<Émail> dernier_émail_;
  bool dans_une_annexe_ = false;
};

/// The rule of tincture over a whole blazon.
class Règle_des_émaux {
 public:
  explicit Règle_des_émaux(std::string_view texte) : texte_(texte) {}

  void vérifier(const Blason &blason) const {
    const Champ &champ = blason.champ;
    for (const Blason &quartier : champ.quartiers) vérifier(quartier);
    // Parts that lie side by side may be of one class; stripes and chequers lie on each other.
    if (champ.pièces > 0 && champ.partition != Partition::gironné)
      exiger_contraste(champ.émaux[0], champ.émaux[1]);
    if (!champ.semé.empty()) exiger_contraste(champ.émaux[0], champ.émail_du_semé);
    const auto fond = fond_commun(champ);
    for (const Objet &objet : blason.objets) vérifier(objet, fond);
  }

 private:
  /// The tincture that stands for the whole field; none when metal and colour, or blazons, lie in it.
  static std::optional<Émail> fond_commun(const Champ &champ) {
    if (champ.émaux.empty()) return {};
    const bool uni = std::all_of(champ.émaux.begin(), champ.émaux.end(),
                                 [&](Émail émail) { return classe(émail) == classe(champ.émaux.front()); });
    return uni ? std::optional(champ.émaux.front()) : std::nullopt;
  }

  void vérifier(const Objet &objet, std::optional<Émail> fond) const {
    if (fond && !objet.cousu) exiger_contraste(*fond, objet.émail);
    for (const Annexe &annexe : objet.annexes)
      vérifier(annexe.objet, annexe.relation == Relation::chargé ? std::optional(objet.émail) : fond);
  }

  void exiger_contraste(Émail dessous, Émail dessus) const {
    const Classe_d_émail c = classe(dessous);
    if (c == Classe_d_émail::libre || c != classe(dessus)) return;
    throw Erreur_de_blason("\"" + std::string(texte_) + "\": the rule of tincture forbids " +
                           (c == Classe_d_émail::métal ? "metal on metal" : "colour on colour") + ", " +
                           std::string(nom(dessus)) + " on " + std::string(nom(dessous)));
  }

  std::string_view texte_;
};

}  // namespace

Classe_d_émail classe(Émail émail) {
  return émaux[static_cast<std::size_t>(émail)].classe;
}

std::string_view nom(Émail émail) {
  return émaux[static_cast<std::size_t>(émail)].nom;
}

Blason lire_blason(std::string_view texte, const Meubles &meubles) {
  Blason blason = Lecteur(texte, meubles).lire();
  Règle_des_émaux(texte).vérifier(blason);
  return blason;
}

}  // namespace atelier
