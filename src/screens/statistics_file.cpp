#include "screens/statistics_file.h"

#include <algorithm>
#include <cstdio>

#include "core/game_state.h"
#include "core/paths.h"
#include "persistence/folders.h"
#include "persistence/text_file.h"
#include "platform/text.h"
#include "screens/statistics_tables.h"

namespace ardane {
namespace {

constexpr std::size_t écart_minimal = 5;

/// A file line tells what was never played from what was found at no cost.
std::string cellule(const Coût &coût) {
  if (coût.points == 0 && !coût.trouvée) return "------";
  char chiffres[16];
  std::snprintf(chiffres, sizeof chiffres, "%06d", static_cast<int>(coût.points));
  return Sans_zéros(chiffres);
}

template <class Fiches>
std::size_t plus_long_nom(const Fiches &table) {
  std::size_t longueur = 0;
  for (int i = 1; i <= Fiches::dernier; ++i)
    longueur = std::max(longueur, nombre_de_caractères(table(i).nom));
  return longueur;
}

/// What stands between a name and its first cell.
std::string blancs(std::size_t plus_long, const std::string &nom) {
  return std::string(plus_long - nombre_de_caractères(nom) + écart_minimal, ' ') + "\t";
}

std::string table_des_provinces(GameState &g) {
  Trier_provinces(g);
  const std::size_t plus_long = plus_long_nom(g.TableProvinces);
  std::string texte;
  for (int i = 1; i <= nombre_de_lignes(g, Tableau::provinces); ++i) {
    const int p = g.OrdreTableau(i);
    const std::string &nom = g.TableProvinces(p).nom;
    texte += nom + blancs(plus_long, nom) + cellule(coût_de_province(g, p, étape_provinces)) + "\t" +
             cellule(coût_de_province(g, p, étape_drapeaux)) + "\t" +
             cellule(coût_de_province(g, p, étape_villes)) + g.Fin_de_ligne;
  }
  return texte;
}

std::string table_des_régions(GameState &g) {
  Trier_régions(g);
  const std::size_t plus_long = plus_long_nom(g.TableRégions);
  std::string texte;
  for (int i = 1; i <= nombre_de_lignes(g, Tableau::régions); ++i) {
    const int r = g.OrdreTableau(i);
    const std::string &nom = g.TableRégions(r).nom;
    texte += nom + blancs(plus_long, nom) + cellule(coût_de_région(g, r)) + g.Fin_de_ligne;
  }
  return texte;
}

/// The province's name is not counted, so that the column of points does not line up.
std::string table_des_villes(GameState &g) {
  Trier_villes(g);
  const std::size_t plus_long = plus_long_nom(g.TableVilles);
  std::string texte;
  for (int i = 1; i <= nombre_de_lignes(g, Tableau::villes); ++i) {
    const int v = g.OrdreTableau(i);
    const Fiche_ville &ville = g.TableVilles(v);
    texte += ville.nom + " (" + g.TableProvinces(ville.province).nom + ")" + blancs(plus_long, ville.nom) +
             cellule(coût_de_ville(g, v)) + g.Fin_de_ligne;
  }
  return texte;
}

std::string titre_après_deux_lignes(const GameState &g, Message titre) {
  return g.Fin_de_ligne + g.Fin_de_ligne + message(g, titre) + g.Fin_de_ligne;
}

}  // namespace

std::string Sans_zéros(const std::string &texte) {
  const std::size_t premier = std::min(texte.find_first_not_of('0'), texte.size() - 1);
  return std::string(premier, ' ') + texte.substr(premier);
}

void Ecrire_statistiques(Contexte &c) {
  GameState &g = c.état;
  std::string texte = message(g, Message::recherche_des_provinces) + "/" +
                      message(g, Message::recherche_des_drapeaux) + "/" +
                      message(g, Message::recherche_des_villes) + g.Fin_de_ligne;
  texte += table_des_provinces(g);
  texte += titre_après_deux_lignes(g, Message::régions) + table_des_régions(g);
  texte += titre_après_deux_lignes(g, Message::recherche_des_villes) + table_des_villes(g);
  const std::string chemin = Joindre_chemin(Dossier_à_côté_du_programme(g), "ARDA_STA.TXT");
  if (!Ecrire_fichier_texte(c, chemin, texte)) return;
  c.plateforme.boîtes.montrer({Icône::information, message(g, Message::statistiques),
                               message(g, Message::statistiques_enregistrées_dans) + chemin});
}

}  // namespace ardane
