#include "core/gazetteer.h"

#include "core/context.h"
#include "core/game_state.h"
#include "core/resources.h"
#include "core/string_table.h"

namespace ardane {
namespace {

// Where each kind of row begins in the string table.
constexpr int id_nombre_messages = 1;
constexpr int id_nombre_langues = 2;
constexpr int id_fichiers_aide = 10;
constexpr int id_fichiers_info = 20;
constexpr int messages_par_langue = 250;
constexpr int id_provinces = 2000;
constexpr int id_capitales = 4000;
constexpr int id_régions = 5000;
constexpr int id_villes = 6990;

// Rows give the centre of a town's dot; the tables hold its top-left corner.
constexpr int centre_du_repère = 4;

std::int16_t champ_nombre(const std::string &ligne, int n) {
  return static_cast<std::int16_t>(nombre_en_tête(Champ_ligne(ligne, n)));
}

std::string champ_texte(const std::string &ligne, int n) {
  return std::string(Champ_ligne(ligne, n));
}

}  // namespace

void Villes_par_province::relever(const Villes &villes) {
  débuts_.remplir(0);
  for (int v = 1; v <= nombre_villes; ++v) ++débuts_(villes(v).province + 1);
  for (int p = 1; p <= nombre_provinces + 1; ++p)
    débuts_(p) = static_cast<std::int16_t>(débuts_(p) + débuts_(p - 1));
  auto places = débuts_;
  for (int v = 1; v <= nombre_villes; ++v)
    villes_[static_cast<std::size_t>(places(villes(v).province)++)] = static_cast<std::int16_t>(v);
}

std::span<const std::int16_t> Villes_par_province::operator()(int province) const {
  return std::span(villes_).subspan(static_cast<std::size_t>(débuts_(province)),
                                    static_cast<std::size_t>(débuts_(province + 1) - débuts_(province)));
}

void Charger_textes(Contexte &c) {
  const TableChaînes &table = c.ressources.chaînes;
  GameState &g = c.état;
  g.Nombre_messages = static_cast<std::int16_t>(nombre_en_tête(table.chaîne(id_nombre_messages)));
  g.Messages.dimensionner(g.Nombre_messages);
  g.Nombre_langues = static_cast<std::uint8_t>(nombre_en_tête(table.chaîne(id_nombre_langues)));
  if (g.Langue == 0 || g.Langue > g.Nombre_langues) g.Langue = 1;
  g.Fichiers_aide.dimensionner(g.Nombre_langues);
  g.Fichiers_info_noms.dimensionner(g.Nombre_langues);
  g.Fichiers_info.dimensionner(g.Nombre_langues);
  for (int i = 0; i <= g.Nombre_messages; ++i)
    g.Messages(i) = table.chaîne(id_messages + i + (g.Langue - 1) * messages_par_langue);
  for (int i = 1; i <= g.Nombre_langues; ++i) {
    g.Fichiers_aide(i) = table.chaîne(id_fichiers_aide + i);
    g.Fichiers_info_noms(i) = table.chaîne(id_fichiers_info + i);
  }
}

void Lire_régions(Contexte &c) {
  for (int i = 1; i <= nombre_régions; ++i) {
    const std::string &ligne = c.ressources.chaînes.chaîne(id_régions + i);
    Fiche_région &région = c.état.TableRégions(i);
    région.nom = champ_texte(ligne, 1);
    région.encart = static_cast<std::uint8_t>(champ_nombre(ligne, 2));
    région.gauche = champ_nombre(ligne, 3);
    région.haut = champ_nombre(ligne, 4);
  }
}

void Lire_provinces(Contexte &c) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    const std::string &ligne = c.ressources.chaînes.chaîne(id_provinces + i);
    Fiche_province &province = c.état.TableProvinces(i);
    province.nom = champ_texte(ligne, 1);
    province.encart = champ_nombre(ligne, 2);
    province.gauche = champ_nombre(ligne, 3);
    province.haut = champ_nombre(ligne, 4);
    province.région = champ_nombre(ligne, 5);
  }
}

void Lire_capitales(Contexte &c) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    const std::string &ligne = c.ressources.chaînes.chaîne(id_capitales + i);
    Fiche_ville &ville = c.état.TableVilles(i);
    ville.nom = champ_texte(ligne, 1);
    ville.x = static_cast<std::int16_t>(champ_nombre(ligne, 2) - centre_du_repère);
    ville.y = static_cast<std::int16_t>(champ_nombre(ligne, 3) - centre_du_repère);
    ville.capitale = true;
    ville.province = static_cast<std::int16_t>(i);
  }
  c.état.VillesParProvince.relever(c.état.TableVilles);
}

void Lire_villes(Contexte &c) {
  for (int i = nombre_provinces + 1; i <= nombre_villes; ++i) {
    const std::string &ligne = c.ressources.chaînes.chaîne(id_villes + i);
    Fiche_ville &ville = c.état.TableVilles(i);
    ville.nom = champ_texte(ligne, 1);
    ville.province = champ_nombre(ligne, 2);
    ville.x = static_cast<std::int16_t>(champ_nombre(ligne, 3) - centre_du_repère);
    ville.y = static_cast<std::int16_t>(champ_nombre(ligne, 4) - centre_du_repère);
    ville.capitale = false;
  }
  c.état.VillesParProvince.relever(c.état.TableVilles);
}

}  // namespace ardane
