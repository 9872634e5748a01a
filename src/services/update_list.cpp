#include "services/update_list.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <unordered_map>

#include "core/dates.h"
#include "core/game_state.h"
#include "core/resources.h"
#include "core/string_table.h"
#include "core/text_encoding.h"
#include "persistence/registry.h"
#include "platform/registry_key.h"
#include "platform/text.h"

namespace ardane {
namespace {

constexpr int id_catalogue = 6000;
constexpr std::string_view date_inconnue = "01/01/1900";
constexpr std::string_view page_des_jeux = "jeux/listejeux.htm";
constexpr std::string_view sous_clé_des_mises_à_jour = "Updates";
constexpr std::string_view version_absente = "0.00";
constexpr std::size_t début_de_version = 8;

/// A row of the catalogue or of the page.
struct Ligne_jeu {
  std::string clé, version, date, titre;
};

/// A date as the list keeps it.
std::string date_de_la_liste(std::string_view texte) {
  const auto date = lire_date(texte);
  return date ? date_courte(*date) : std::string(date_inconnue);
}

std::chrono::sys_days jour(std::string_view date) {
  using namespace std::chrono;
  return lire_date(date).value_or(year_month_day{year(1900), month(1), day(1)});
}

bool plus_récente(std::string_view date, std::string_view que) {
  return jour(date) > jour(que);
}

/// A new record at the end of the list; none if the list is full.
Fiche_jeu *ajouter_jeu(GameState &g) {
  if (g.NombreJeux == std::numeric_limits<std::int16_t>::max()) return nullptr;
  g.TableJeux.redimensionner(++g.NombreJeux);
  Fiche_jeu &jeu = g.TableJeux(g.NombreJeux);
  jeu.date_locale = jeu.date_site = date_inconnue;
  return &jeu;
}

void ajouter_ligne(GameState &g, const Ligne_jeu &ligne) {
  if (Fiche_jeu *jeu = ajouter_jeu(g)) {
    jeu->clé = ligne.clé;
    jeu->libellé = ligne.titre;
    jeu->version_site = ligne.version;
    jeu->date_site = ligne.date;
  }
}

/// The records by the forms of their keys; of those of one form the first counts.
template <class Forme>
class Index_des_jeux {
 public:
  Index_des_jeux(GameState &g, Forme forme) : g_(g), forme_(forme) { compléter(); }
  Fiche_jeu *chercher(std::string_view clé) {
    compléter();
    const auto trouvé = rangs_.find(forme_(clé));
    return trouvé == rangs_.end() ? nullptr : &g_.TableJeux(trouvé->second);
  }

 private:
  /// Records come at the end of the list, with their keys.
  void compléter() {
    while (connus_ < g_.NombreJeux) {
      ++connus_;
      rangs_.emplace(forme_(g_.TableJeux(connus_).clé), connus_);
    }
  }

  GameState &g_;
  Forme forme_;
  int connus_ = 0;
  std::unordered_map<std::string, int> rangs_;
};

std::string telle_quelle(std::string_view clé) {
  return std::string(clé);
}

std::string sans_casse_ni_blancs(std::string_view clé) {
  return en_majuscules(sans_blancs(clé));
}

template <class Condition>
Fiche_jeu *chercher_jeu(GameState &g, Condition condition) {
  for (int i = 1; i <= g.NombreJeux; ++i)
    if (condition(g.TableJeux(i))) return &g.TableJeux(i);
  return nullptr;
}

// --- Catalogue

Ligne_jeu ligne_du_catalogue(const TableChaînes &table, int rang) {
  const std::string &ligne = table.chaîne(id_catalogue + 2 * rang - 1);
  if (ligne.find('#') == std::string::npos)
    return {ligne, table.chaîne(id_catalogue + 2 * rang), std::string(date_inconnue), ""};
  return {std::string(Champ_page(ligne, 1)), std::string(Champ_page(ligne, 2)),
          date_de_la_liste(Champ_page(ligne, 3)), std::string(Champ_page(ligne, 4))};
}

/// The fields of a catalogue row move together.
void fusionner_ligne_du_catalogue(GameState &g, const Ligne_jeu &ligne) {
  Fiche_jeu *jeu = chercher_jeu(g, [&](const Fiche_jeu &j) { return j.clé == ligne.clé; });
  if (jeu == nullptr) return ajouter_ligne(g, ligne);
  const bool même_version = ligne.version == jeu->version_site;
  if (ligne.version > jeu->version_site || (même_version && plus_récente(ligne.date, jeu->date_site))) {
    jeu->version_site = ligne.version;
    jeu->date_site = ligne.date;
    jeu->libellé = ligne.titre;
  } else if (jeu->libellé.empty()) {
    jeu->libellé = ligne.titre;
  }
}

// --- Page

/// The row in a comment of the page; nothing for the page's ordinary comments.
std::optional<Ligne_jeu> ligne_de_la_page(std::string_view commentaire) {
  for (const int champ : {1, 2, 4})
    if (sans_blancs(Champ_page(commentaire, champ)).empty()) return std::nullopt;
  const auto date = lire_date(Champ_page(commentaire, 3));
  if (!date) return std::nullopt;
  return Ligne_jeu{std::string(Champ_page(commentaire, 1)), std::string(Champ_page(commentaire, 2)),
                   date_courte(*date), std::string(Champ_page(commentaire, 4))};
}

/// Version and date of a page row move each by itself.
void fusionner_ligne_de_la_page(GameState &g, Fiche_jeu *jeu, const Ligne_jeu &ligne) {
  if (jeu == nullptr) return ajouter_ligne(g, ligne);
  jeu->libellé = ligne.titre;
  if (plus_récente(ligne.date, jeu->date_site)) jeu->date_site = ligne.date;
  if (ligne.version > jeu->version_site) jeu->version_site = ligne.version;
}

/// The page's text: the site serves UTF-8 or, from its older pages, Windows-1252.
std::string texte_de_la_page(const std::string &octets) {
  return est_utf8(octets) ? octets : depuis_windows_1252(octets);
}

void fusionner_page(GameState &g, std::string_view page) {
  constexpr std::string_view ouverture = "<!--";
  constexpr std::string_view fermeture = "-->";
  Index_des_jeux jeux(g, sans_casse_ni_blancs);
  // The site's list begins behind the page's head: a comment at the very first character is not looked at.
  std::size_t place = 1;
  while (true) {
    const std::size_t début = page.find(ouverture, place);
    if (début == std::string_view::npos) return;
    const std::size_t contenu = début + ouverture.size();
    const std::size_t fin = page.find(fermeture, contenu);
    // Nothing behind a comment that is never closed can be a row. Searching again from the top would find
    // the same rows, change nothing more, and come back here for ever.
    if (fin == std::string_view::npos) return;
    if (const auto ligne = ligne_de_la_page(page.substr(contenu, fin - contenu)))
      fusionner_ligne_de_la_page(g, jeux.chercher(ligne->clé), *ligne);
    place = fin + fermeture.size();
  }
}

// --- What is installed

/// Version line of a game of the family; nothing if it has none.
std::optional<std::string> ligne_de_version(const Contexte &c, const std::string &nom) {
  std::string texte;
  const std::string clé = Joindre_clé(clé_de_famille, nom);
  if (Lire_registre(c.plateforme.registre, clé, réglage_version, texte) != registre_lu) return std::nullopt;
  return texte;
}

/// Fills the local fields of a record. True if that raised its latest version.
bool lire_version_locale(Fiche_jeu &jeu, const std::optional<std::string> &ligne) {
  jeu.version_locale = version_absente;
  if (!ligne) return false;
  jeu.version_locale = Extraire_version(*ligne);
  jeu.date_locale = Extraire_date(*ligne);
  if (jeu.version_locale <= sans_blancs(jeu.version_site)) return false;
  jeu.version_site = jeu.version_locale;
  return true;
}

void ajouter_jeu_installé(GameState &g, const std::string &nom, const std::optional<std::string> &ligne) {
  Fiche_jeu *jeu = ajouter_jeu(g);
  if (jeu == nullptr) return;
  jeu->clé = nom;
  lire_version_locale(*jeu, ligne);
  jeu->date_site = jeu->date_locale;
}

// --- What is remembered

void accorder_mises_à_jour(GameState &g, Registre &registre) {
  Créer_clé(registre, clé_des_mises_à_jour);
  const auto ouverte = Ouvrir_clé(registre, clé_des_mises_à_jour);
  if (!ouverte) return;
  for (int i = 1; i <= g.NombreJeux; ++i) {
    Fiche_jeu &jeu = g.TableJeux(i);
    std::string connue;
    const bool lue = Lire_clé_ouverte(registre, *ouverte, jeu.clé, connue) == registre_lu;
    if (lue && connue >= jeu.version_site)
      jeu.version_site = connue;
    else
      registre.écrire(*ouverte, jeu.clé, jeu.version_site);
  }
}

// --- News

bool à_lister(const Fiche_jeu &jeu) {
  return jeu.version_locale < jeu.version_site || plus_récente(jeu.date_site, jeu.date_locale);
}

bool a_du_nouveau(const Fiche_jeu &jeu) {
  return jeu.version_locale.empty() || à_lister(jeu);
}

std::string ligne_d_annonce(const GameState &g, const Fiche_jeu &jeu) {
  const bool sans_titre = sans_blancs(jeu.libellé).empty();
  std::string ligne = (sans_titre ? jeu.clé : jeu.libellé) + " : version " + jeu.version_site;
  if (jour(jeu.date_site) != jour(date_inconnue)) ligne += " du " + jeu.date_site;
  return ligne + g.Fin_de_ligne;
}

}  // namespace

void Lire_mises_à_jour(Contexte &c) {
  GameState &g = c.état;
  const Registre &registre = c.plateforme.registre;
  g.NombreJeux = 0;
  g.TableJeux.dimensionner(0);
  const auto ouverte = Ouvrir_clé(registre, clé_des_mises_à_jour);
  if (!ouverte) return;
  for (const std::string &nom : registre.valeurs(clé_des_mises_à_jour)) {
    if (sans_blancs(nom).empty()) continue;
    Fiche_jeu *jeu = ajouter_jeu(g);
    if (jeu == nullptr) return;
    if (Lire_clé_ouverte(registre, *ouverte, nom, jeu->version_site) == registre_lu) jeu->clé = nom;
  }
}

void Fusionner_catalogue(Contexte &c) {
  const TableChaînes &table = c.ressources.chaînes;
  const int nombre = nombre_en_tête(table.chaîne(id_catalogue));
  for (int rang = 1; rang <= nombre; ++rang)
    fusionner_ligne_du_catalogue(c.état, ligne_du_catalogue(table, rang));
  Ecrire_mises_à_jour(c);
}

void Lire_versions_locales(Contexte &c) {
  GameState &g = c.état;
  const Registre &registre = c.plateforme.registre;
  if (!Ouvrir_clé(registre, clé_de_famille)) return;
  bool changée = false;
  Index_des_jeux jeux(g, telle_quelle);
  for (const std::string &nom : registre.sous_clés(clé_de_famille)) {
    const auto ligne = ligne_de_version(c, nom);
    if (Fiche_jeu *jeu = jeux.chercher(nom)) {
      if (lire_version_locale(*jeu, ligne)) changée = true;
    } else if (nom != sous_clé_des_mises_à_jour) {
      ajouter_jeu_installé(g, nom, ligne);
      changée = true;
    }
  }
  if (changée) Ecrire_mises_à_jour(c);
}

void Ecrire_mises_à_jour(Contexte &c) {
  c.plateforme.registre.ensemble([&] { accorder_mises_à_jour(c.état, c.plateforme.registre); });
}

void Annoncer_mises_à_jour(Contexte &c) {
  GameState &g = c.état;
  std::string texte = message(g, Message::nouvelles_versions_sur_le_site);
  if (chercher_jeu(g, a_du_nouveau) != nullptr) {
    const std::string deux_lignes = g.Fin_de_ligne + g.Fin_de_ligne;
    texte += deux_lignes + message(g, Message::mises_à_jour_suivantes) + deux_lignes;
    for (int i = 1; i <= g.NombreJeux; ++i)
      if (à_lister(g.TableJeux(i))) texte += ligne_d_annonce(g, g.TableJeux(i));
  }
  c.plateforme.boîtes.montrer({Icône::information, message(g, Message::publicité_gratuite), texte});
}

void Chercher_mises_à_jour(Contexte &c) {
  const std::optional<std::string> page = c.plateforme.web.lire_page(std::string(page_des_jeux));
  fusionner_page(c.état, texte_de_la_page(page.value_or("")));
  Ecrire_mises_à_jour(c);
  Lire_versions_locales(c);
  Annoncer_mises_à_jour(c);
}

std::string Extraire_version(std::string_view texte) {
  constexpr std::string_view signes = "0123456789.";
  if (nombre_de_caractères(texte) < début_de_version) return {};
  texte.remove_prefix(premiers_caractères(texte, début_de_version - 1).size());
  texte.remove_prefix(std::min(texte.find_first_of(signes), texte.size()));
  return std::string(texte.substr(0, texte.find_first_not_of(signes)));
}

std::string Extraire_date(std::string_view texte) {
  return date_de_la_liste(texte.substr(texte.rfind(' ') + 1));
}

std::string_view Champ_page(std::string_view ligne, int n) {
  return Champ_ligne(ligne, n);
}

}  // namespace ardane
