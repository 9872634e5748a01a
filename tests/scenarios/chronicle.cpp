#include "chronicle.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <optional>
#include <string_view>

#include "front/pilote/journal.h"

namespace ardane {
namespace {

struct Membre {
  std::string famille;
  int indice = 0;
};

/// The parts of "Pays(12)".
std::optional<Membre> membre(const std::string &nom) {
  const auto début = nom.find('(');
  int indice = 0;
  if (début == std::string::npos || !nom.ends_with(')')) return {};
  const char *fin = nom.data() + nom.size() - 1;
  if (std::from_chars(nom.data() + début + 1, fin, indice).ptr != fin) return {};
  return Membre{nom.substr(0, début), indice};
}

std::string suite(const std::string &famille, int premier, int dernier) {
  const std::string fin = premier == dernier ? "" : "-" + std::to_string(dernier);
  return famille + "(" + std::to_string(premier) + fin + ")";
}

std::string oui_ou_non(bool vrai) {
  return vrai ? "oui" : "non";
}

std::string couleur(const std::optional<Teinte> &teinte) {
  if (!teinte) return "aucune";
  const auto *propre = std::get_if<Couleur>(&*teinte);
  if (propre == nullptr) return "celle du bureau";
  return std::to_string(propre->rouge) + " " + std::to_string(propre->vert) + " " +
         std::to_string(propre->bleu);
}

std::string place(const Contrôle &c) {
  std::string texte;
  for (const double nombre : {c.gauche, c.haut, c.largeur, c.hauteur})
    texte += (texte.empty() ? "" : " ") + nombre_json(nombre).dump();
  return texte;
}

constexpr std::array<std::string_view, 16> propriétés = {
    "actif", "place", "texte",  "bulle",  "dit",      "image", "fond",    "couleur",
    "coché", "focus", "valeur", "bornes", "éléments", "choix", "lettres", "traits"};

std::string lettres(const Contrôle &c) {
  constexpr std::array familles = {"système", "Times", "sans empattement"};
  constexpr std::array côtés = {"à gauche", "au centre", "à droite"};
  return std::string(familles.at(static_cast<std::size_t>(c.police.famille))) + " " +
         nombre_json(c.police.points).dump() + (c.police.gras ? " gras " : " ") +
         côtés.at(static_cast<std::size_t>(c.alignement));
}

/// What else makes it look or behave as it does.
std::string traits(const Contrôle &c) {
  std::string texte(nom_genre(c.genre));
  const auto ajouter = [&](bool vrai, const std::string &trait) {
    if (vrai) texte += ", " + trait;
  };
  ajouter(est_bordé(c), "bordé");
  ajouter(c.cellule, "cellule");
  ajouter(c.étirée, "étirée");
  ajouter(c.déborde, "déborde");
  ajouter(c.multiligne, "plusieurs lignes");
  ajouter(c.lignes_crlf, "lignes de fichier");
  ajouter(c.lecture_seule, "lecture seule");
  ajouter(c.pour_fichier, "pour un fichier");
  ajouter(c.muet, "muet");
  ajouter(c.mnémonique != 0, "mnémonique " + std::to_string(static_cast<unsigned>(c.mnémonique)));
  ajouter(c.étiquette != nullptr, c.étiquette == nullptr ? "" : "étiquette " + c.étiquette->nom);
  ajouter(c.ordre_tabulation >= 0, "rang " + std::to_string(c.ordre_tabulation));
  ajouter(!c.raccourci.empty(), "raccourci " + c.raccourci);
  ajouter(static_cast<bool>(c.clic), "se clique");
  return texte;
}

/// So many of a family that change each in its own way are told one by one.
constexpr std::size_t dits_un_par_un = 8;

/// The value as it would stand for any member of the control's family.
std::string sans_indice(std::string valeur, const std::string &nom) {
  const auto indice = nom.find('(');
  if (indice == std::string::npos) return valeur;
  const auto place = valeur.find(nom.substr(indice));
  return place == std::string::npos ? valeur : valeur.replace(place, nom.size() - indice, "(i)");
}

/// One property of some controls: what it was and has become, and whose.
class Changements {
 public:
  void ajouter(const std::string &nom, const std::string &avant, const std::string &après) {
    const auto m = membre(nom);
    familles_[m ? m->famille : nom][sans_indice(avant, nom) + " → " + sans_indice(après, nom)].push_back(nom);
  }
  /// Adds what is to be told of them.
  template <class Nouvelles>
  void dire(std::string_view propriété, Nouvelles &nouvelles) const {
    for (const auto &[famille, changements] : familles_) {
      std::string tous;
      for (const auto &[changement, noms] : changements) tous += changement + énumérer(noms);
      const bool en_bloc = changements.size() > dits_un_par_un;
      for (const auto &[changement, noms] : changements) {
        auto &concernés =
            nouvelles[std::string(propriété) + " " +
                      (en_bloc ? "changé, somme " + std::to_string(somme_de(tous)) : changement)];
        concernés.insert(concernés.end(), noms.begin(), noms.end());
      }
    }
  }

 private:
  std::map<std::string, std::map<std::string, std::vector<std::string>>> familles_;
};

}  // namespace

std::string énumérer(const std::vector<std::string> &noms) {
  std::map<std::string, std::set<int>> familles;
  std::string texte;
  const auto ajouter = [&](const std::string &nom) { texte += (texte.empty() ? "" : ", ") + nom; };
  for (const std::string &nom : noms) {
    const auto m = membre(nom);
    if (m)
      familles[m->famille].insert(m->indice);
    else
      ajouter(nom);
  }
  for (const auto &[famille, indices] : familles)
    for (auto i = indices.begin(); i != indices.end();) {
      const int premier = *i;
      int dernier = premier;
      while (++i != indices.end() && *i == dernier + 1) ++dernier;
      ajouter(suite(famille, premier, dernier));
    }
  return texte;
}

std::vector<std::string> déplacés(const std::vector<std::string> &avant,
                                  const std::vector<std::string> &après) {
  std::map<std::string, std::size_t> rangs;
  for (std::size_t i = 0; i < avant.size(); ++i) rangs[avant[i]] = i;
  // The longest sequence that kept its order stayed where it was.
  struct Tas {
    std::size_t rang;
    std::size_t place;
  };
  constexpr std::size_t aucun = static_cast<std::size_t>(-1);
  std::vector<Tas> tas;
  std::vector<std::size_t> précédents(après.size(), aucun);
  for (std::size_t i = 0; i < après.size(); ++i) {
    const auto connu = rangs.find(après[i]);
    if (connu == rangs.end()) continue;
    const auto où = std::ranges::lower_bound(tas, connu->second, {}, &Tas::rang);
    if (où != tas.begin()) précédents[i] = std::prev(où)->place;
    if (où == tas.end())
      tas.push_back({connu->second, i});
    else
      *où = {connu->second, i};
  }
  std::set<std::size_t> restés;
  for (std::size_t i = tas.empty() ? aucun : tas.back().place; i != aucun; i = précédents[i])
    restés.insert(i);
  std::vector<std::string> partis;
  for (std::size_t i = 0; i < après.size(); ++i)
    if (rangs.contains(après[i]) && !restés.contains(i)) partis.push_back(après[i]);
  return partis;
}

std::uint32_t somme_de(const std::string &texte) {
  std::uint32_t somme = 2166136261U;
  for (const char octet : texte) somme = (somme ^ static_cast<unsigned char>(octet)) * 16777619U;
  return somme;
}

std::string remplacé(std::string texte, const std::string &ancien, const std::string &nouveau) {
  for (auto place = texte.find(ancien); place != std::string::npos;
       place = texte.find(ancien, place + nouveau.size()))
    texte.replace(place, ancien.size(), nouveau);
  return texte;
}

std::string Chronique::dit(const std::string &texte) const {
  return Json(remplacé(texte, passés_, pour_)).dump();
}

Chronique::Aspect Chronique::aspect(const Fenêtre &fenêtre, const Contrôle &c) const {
  std::string éléments;
  for (const std::string &élément : c.éléments) éléments += dit(élément) + " ";
  return {oui_ou_non(c.actif),
          place(c),
          dit(c.texte),
          dit(c.infobulle),
          nom_à_dire(c) == c.texte ? "le texte" : dit(nom_à_dire(c)),
          c.image ? images_.nom(c.image) : "aucune",
          couleur(c.fond),
          couleur(c.couleur),
          oui_ou_non(c.coché),
          oui_ou_non(fenêtre.focus == &c),
          std::to_string(c.valeur),
          std::to_string(c.min) + " à " + std::to_string(c.max) + " par " + std::to_string(c.petit_pas) +
              " ou " + std::to_string(c.grand_pas),
          éléments,
          std::to_string(c.choix),
          lettres(c),
          traits(c)};
}

/// The window itself, as one more control.
Contrôle Chronique::cadre(const Fenêtre &fenêtre) {
  Contrôle cadre;
  cadre.nom = "(fenêtre)";
  cadre.gauche = fenêtre.gauche;
  cadre.haut = fenêtre.haut;
  cadre.largeur = fenêtre.largeur;
  cadre.hauteur = fenêtre.hauteur;
  cadre.texte = fenêtre.titre;
  cadre.nom_parlé = fenêtre.nom_parlé;
  cadre.fond = fenêtre.fond;
  cadre.valeur = fenêtre.contexte_aide;
  for (const auto &[vrai, trait] : {std::pair(fenêtre.fermable, "se ferme"),
                                    {fenêtre.avec_titre, "a un titre"},
                                    {fenêtre.placée_sur_le_moniteur, "sur le moniteur"},
                                    {fenêtre.redimensionnable, "se dimensionne"}})
    if (vrai) cadre.infobulle += (cadre.infobulle.empty() ? "" : ", ") + std::string(trait);
  std::vector<std::string> touches;
  for (const auto &[touche, bouton] :
       {std::pair("Entrée", fenêtre.bouton_défaut), {"Echap", fenêtre.bouton_annulation}})
    if (bouton != nullptr) touches.push_back(std::string(touche) + " : " + bouton->nom);
  cadre.éléments = touches;
  return cadre;
}

Chronique::Nouvelles Chronique::nouvelles(const Fenêtre &fenêtre, Vue &vue) const {
  const Aspect neuf = aspect(fenêtre, {});
  std::array<Changements, propriétés.size()> changements;
  std::set<std::string> visibles;
  const auto regarder = [&](const Contrôle &c) {
    visibles.insert(c.nom);
    Aspect &dernier = vue.aspects.try_emplace(c.nom, neuf).first->second;
    Aspect vu = aspect(fenêtre, c);
    for (std::size_t i = 0; i < vu.size(); ++i)
      if (vu[i] != dernier[i]) changements[i].ajouter(c.nom, dernier[i], vu[i]);
    dernier = std::move(vu);
  };
  regarder(cadre(fenêtre));
  std::map<std::string, Pile> piles;
  for (const Contrôle &c : fenêtre.contrôles()) {
    if (c.genre != Genre::menu) piles[c.conteneur == nullptr ? "" : c.conteneur->nom].push_back(&c);
    if (est_visible(c)) regarder(c);
  }
  Nouvelles nouvelles;
  noter_présence(visibles, vue, nouvelles);
  for (std::size_t i = 0; i < propriétés.size(); ++i) changements[i].dire(propriétés[i], nouvelles);
  for (const auto &[conteneur, pile] : piles) noter_pile(pile, vue.piles[conteneur], nouvelles);
  return nouvelles;
}

void Chronique::noter_présence(const std::set<std::string> &visibles, Vue &vue, Nouvelles &nouvelles) {
  std::ranges::set_difference(visibles, vue.visibles, std::back_inserter(nouvelles["paraît"]));
  std::ranges::set_difference(vue.visibles, visibles, std::back_inserter(nouvelles["disparaît"]));
  vue.visibles = visibles;
}

void Chronique::noter_pile(Pile pile, std::vector<std::string> &avant, Nouvelles &nouvelles) {
  std::ranges::sort(pile, {}, &Contrôle::plan);
  std::vector<std::string> noms;
  for (const Contrôle *c : pile) noms.push_back(c->nom);
  if (noms == avant) return;
  if (avant.empty()) {
    std::string ordre;
    for (const std::string &nom : noms) ordre += nom + "\n";
    nouvelles["empilés, somme " + std::to_string(somme_de(ordre))] = {noms.front()};
  }
  for (const std::string &nom : déplacés(avant, noms)) {
    const auto place = std::ranges::find(noms, nom);
    nouvelles["posé sur " + (place == noms.begin() ? "le fond" : *std::prev(place))].push_back(nom);
  }
  avant = std::move(noms);
}

std::vector<std::string> Chronique::noter(const std::vector<Fenêtre *> &fenêtres) {
  std::vector<std::string> lignes;
  std::map<std::string, Vue> restent;
  for (const Fenêtre *fenêtre : fenêtres) {
    Vue &vue = restent[fenêtre->nom] = std::move(vues_[fenêtre->nom]);
    for (const auto &[nouvelle, noms] : nouvelles(*fenêtre, vue))
      if (!noms.empty())
        lignes.push_back((fenêtre == fenêtres.back() ? "" : fenêtre->nom + " | ") + nouvelle + " : " +
                         énumérer(noms));
  }
  vues_ = std::move(restent);
  return lignes;
}

}  // namespace ardane
