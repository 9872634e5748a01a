#include "persistence/revision_lists.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/game_state.h"
#include "core/gazetteer_facts.h"
#include "core/paths.h"
#include "persistence/text_file.h"

namespace ardane {
namespace {

constexpr std::string_view filet = "--------------------";

/// Lines of a text file.
class Texte {
 public:
  explicit Texte(std::string fin_de_ligne) : fin_de_ligne_(std::move(fin_de_ligne)) {}
  void ligne(std::string_view texte) { (texte_ += texte) += fin_de_ligne_; }
  const std::string &entier() const { return texte_; }

 private:
  std::string fin_de_ligne_;
  std::string texte_;
};

Texte texte_avec_en_tête(const GameState &g) {
  Texte texte(g.Fin_de_ligne);
  texte.ligne(message(g, Message::titre_du_jeu) + ", " + message(g, Message::version));
  texte.ligne("");
  texte.ligne(filet);
  return texte;
}

std::string joindre(const std::vector<std::string> &noms) {
  std::string joints;
  for (const std::string &nom : noms) joints += (joints.empty() ? "" : ", ") + nom;
  return joints;
}

std::string ligne_des_autres_villes(const GameState &g, int province) {
  const std::vector<std::string> noms = Noms_des_autres_villes(g, province);
  if (noms.empty()) return message(g, Message::pas_de_grande_ville);
  // The heading of several ends in a colon of its own.
  return message(g, noms.size() == 1 ? Message::autre_ville : Message::autres_villes) + " : " + joindre(noms);
}

std::string liste_des_provinces(const GameState &g) {
  Texte texte = texte_avec_en_tête(g);
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_province &province = g.TableProvinces(p);
    texte.ligne(province.nom);
    texte.ligne(message(g, Message::capitale) + Nom_de_capitale(g, p));
    texte.ligne(ligne_des_autres_villes(g, p));
    texte.ligne(message(g, Message::région) + g.TableRégions(province.région).nom);
    texte.ligne(filet);
  }
  return texte.entier();
}

/// The towns by their names, character by character: in UTF-8 the order of the bytes is that of the codes.
std::vector<int> villes_par_nom(const GameState &g) {
  std::vector<int> villes(nombre_villes);
  std::iota(villes.begin(), villes.end(), 1);
  std::ranges::stable_sort(villes, {}, [&](int v) -> std::string_view { return g.TableVilles(v).nom; });
  return villes;
}

std::string liste_des_villes(const GameState &g) {
  Texte texte = texte_avec_en_tête(g);
  for (const int v : villes_par_nom(g))
    texte.ligne(g.TableVilles(v).nom + " : " + g.TableProvinces(g.TableVilles(v).province).nom);
  return texte.entier();
}

void écrire_liste(Contexte &c, std::string_view nom_du_fichier, const std::string &liste) {
  const GameState &g = c.état;
  const std::string chemin = Joindre_chemin(g.Répertoire_sauvegarde, nom_du_fichier);
  if (!Ecrire_fichier_texte(c, chemin, liste)) return;
  c.plateforme.boîtes.montrer({Icône::information, message(g, Message::révision),
                               message(g, Message::liste_écrite_dans_le_fichier) + chemin});
}

}  // namespace

void Ecrire_liste_des_provinces(Contexte &c) {
  écrire_liste(c, "ARDANE.TXT", liste_des_provinces(c.état));
}

void Ecrire_liste_des_villes(Contexte &c) {
  écrire_liste(c, "ARDANE_SP.TXT", liste_des_villes(c.état));
}

}  // namespace ardane
