#include "armorial/blazon.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "armorial/blazon_words.h"
#include "armorial/charges.h"
#include "armorial/tincture_rule.h"

namespace atelier {
namespace {

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
bool est_en_nombre(Pièce pièce) {
  constexpr std::array en_nombre{Pièce::fasce, Pièce::burelle, Pièce::pal,   Pièce::vergette,
                                 Pièce::bande, Pièce::cotice,  Pièce::barre, Pièce::chevron};
  return std::find(en_nombre.begin(), en_nombre.end(), pièce) != en_nombre.end();
}

struct Nom_de_partition {
  std::string_view nom;
  Partition partition;
  /// How many tinctures or quarters; 2 of a striped field alternate.
  int parts;
  /// Stripes when the blazon gives no number; 0 for a partition without number.
  int pièces;
};
constexpr std::array<Nom_de_partition, 14> partitions{{
    {"parti", Partition::parti, 2, 0},
    {"coupé", Partition::coupé, 2, 0},
    {"tranché", Partition::tranché, 2, 0},
    {"taillé", Partition::taillé, 2, 0},
    {"écartelé", Partition::écartelé, 2, 0},
    {"gironné", Partition::gironné, 2, 8},
    {"tiercé", Partition::tiercé_en_fasce, 3, 0},
    {"fascé", Partition::fascé, 2, 6},
    {"palé", Partition::palé, 2, 6},
    {"bandé", Partition::bandé, 2, 6},
    {"barré", Partition::barré, 2, 6},
    {"chevronné", Partition::chevronné, 2, 6},
    {"échiqueté", Partition::échiqueté, 2, 6},
    {"losangé", Partition::losangé, 2, 6},
}};

/// Divisions that a plain field wears, told behind its tincture: "d'argent, chapé d'azur".
constexpr std::array<std::pair<std::string_view, Partition>, 2> vêtements{{
    {"chapé", Partition::chapé},
    {"chaussé", Partition::chaussé},
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

class Lecteur : private Mots_du_blason {
 public:
  Lecteur(std::string_view texte, const Meubles &meubles) : Mots_du_blason(texte), meubles_(meubles) {}

  Blason lire() {
    Blason blason = lire_blason_entier();
    if (!fini()) échouer("expected the end of the blazon");
    return blason;
  }

 private:
  Blason lire_blason_entier() {
    Blason blason;
    blason.champ = lire_champ();
    for (;;) {
      const std::size_t retour = ici();
      prendre(",");
      if (mot() != "à" && mot() != "au" && mot() != "aux") {
        revenir(retour);
        return blason;
      }
      // "au 1" opens the next quarter and is no piece of this one.
      if (nombre_en_chiffres(mot(1))) {
        revenir(retour);
        return blason;
      }
      blason.objets.push_back(lire_objet_posé());
    }
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
    const auto émail = émail_nommé(mot(1));
    if (!émail || émail == Émail::naturel) return {};
    avancer(2);
    dernier_émail_ = émail;
    return émail;
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
    } else {
      lire_vêtement(champ);
    }
    return champ;
  }

  void lire_vêtement(Champ &champ) {
    const std::size_t retour = ici();
    prendre(",");
    for (const auto &[adjectif, partition] : vêtements)
      if (prendre_adjectif(adjectif)) {
        champ.partition = partition;
        champ.émaux.push_back(exiger_émail());
        return;
      }
    revenir(retour);
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
    const std::size_t retour = ici();
    if (!prendre("de")) return;
    const auto nombre = prendre_nombre();
    if (nombre && (prendre("pièces") || prendre("tires"))) {
      if (*nombre < 2) échouer("a division needs two parts at least, stopped");
      champ.pièces = *nombre;
      return;
    }
    revenir(retour);
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
        avancer();
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
      if (noms.size() <= longueur || !commence_par(noms)) continue;
      meilleur = &meuble;
      longueur = noms.size();
    }
    return {meilleur, longueur};
  }

  const Meuble &exiger_meuble(int nombre, std::optional<bool> féminin = {}) {
    const auto [meuble, longueur] = meuble_ici(nombre);
    if (!meuble) échouer("no charge of this name");
    if (féminin && *féminin != meuble->féminin) échouer("the article has the wrong gender");
    avancer(longueur);
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
      if (nombre > 1 && !est_en_nombre(pièce->pièce)) échouer("there can be only one");
      objet.pièce = pièce->pièce;
      avancer();
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

  /// The first word of an attitude agrees with the charge, the others stay as they are: "vue de dos".
  bool prendre_attitude(std::string_view attitude) {
    const auto suite = mots(attitude);
    if (!s_accorde(mot(), suite.front())) return false;
    for (std::size_t i = 1; i < suite.size(); ++i)
      if (mot(i) != suite[i]) return false;
    avancer(suite.size());
    return true;
  }

  void lire_adjectifs(Objet &objet, const Meuble *meuble) {
    for (;;) {
      if (!meuble) {
        if (objet.ligne == Ligne::droite && (objet.ligne = prendre_ligne()) != Ligne::droite) continue;
        if (est_de_bord(objet.pièce) && prendre_adjectif("cousu")) {
          objet.cousu = true;
          continue;
        }
        return;
      }
      if (std::any_of(meuble->attitudes.begin(), meuble->attitudes.end(),
                      [this](const std::string &candidat) { return prendre_attitude(candidat); }))
        continue;
      if (prendre_adjectif("contourné"))
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
    const std::size_t retour = ici();
    prendre(",");
    std::vector<std::string> noms;
    do {
      const auto détail =
          std::find_if(meuble->détails.begin(), meuble->détails.end(),
                       [&](const auto &candidat) { return s_accorde(mot(), candidat.first); });
      if (détail == meuble->détails.end()) break;
      noms.push_back(détail->first);
      avancer();
    } while (prendre("et"));
    if (noms.empty()) {
      revenir(retour);
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
    const std::size_t retour = ici();
    // Rows alone may stand behind a comma: "trois sapins d'or, deux et un".
    if (prendre(",") && lire_rangs(objet)) return true;
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
    revenir(retour);
    return false;
  }

  /// "deux et un", "3, 2 et 1"
  bool lire_rangs(Objet &objet) {
    const std::size_t retour = ici();
    std::vector<int> rangs;
    int somme = 0;
    std::size_t fin = retour;
    do {
      const auto rang = prendre_nombre();
      if (!rang) break;
      rangs.push_back(*rang);
      somme += *rang;
      fin = ici();
    } while (prendre(",") || prendre("et"));
    revenir(fin);
    if (rangs.empty()) return false;
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
    avancer(2);
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
      if (est_de_bord(principal.pièce)) échouer("nothing can accompany a piece on the edge, stopped");
    }
  }

  /// ", accompagné en chef de deux étoiles d'or et en pointe d'un croissant du même"
  bool lire_annexes(Objet &objet) {
    if (dans_une_annexe_) return false;
    const std::size_t retour = ici();
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
    revenir(retour);
    return false;
  }

  const Meubles &meubles_;
  std::optional<Émail> dernier_émail_;
  bool dans_une_annexe_ = false;
};

}  // namespace

bool est_de_bord(Pièce pièce) {
  return pièce == Pièce::chef || pièce == Pièce::champagne || pièce == Pièce::terrasse ||
         pièce == Pièce::bordure || pièce == Pièce::franc_canton;
}

Blason lire_blason(std::string_view texte, const Meubles &meubles) {
  Blason blason = Lecteur(texte, meubles).lire();
  vérifier_les_émaux(blason, texte);
  return blason;
}

}  // namespace atelier
