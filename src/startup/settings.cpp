#include "startup/settings.h"

#include <algorithm>
#include <exception>

#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/current_folder.h"
#include "core/dates.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/resources.h"
#include "persistence/folders.h"
#include "persistence/registry.h"
#include "persistence/score_file.h"
#include "platform/file_replacement.h"
#include "services/system_sounds.h"
#include "services/update_list.h"

namespace ardane {
namespace {

constexpr int jours_entre_rappels = 60;

void écrire_réglage(Contexte &c, std::string_view nom, const std::string &texte) {
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, nom, texte);
}

void lire_réglage(Contexte &c, std::string_view nom, std::string &variable) {
  Lire_registre(c.plateforme.registre, clé_du_jeu, nom, variable);
}

void dater(Contexte &c) {
  const Horloge &horloge = c.plateforme.horloge;
  Ecrire_registre(c.plateforme.registre, clé_de_famille, réglage_date,
                  date_et_heure(horloge.aujourd_hui(), horloge.heure()));
}

void faire_choisir_dossier(Contexte &c) {
  annoncer(c, Message::choix_du_répertoire, Message::sélectionner_le_répertoire_par_défaut);
  Faire_choisir_dossier(c, choix_dossier_sauvegarde);
}

/// The folders go back to the program's own; without leave to write there the player chooses one. The
/// registry takes the full path of the score file, the variable its bare name.
void revenir_au_dossier_du_programme(Contexte &c) {
  GameState &g = c.état;
  if (!est_installé(g) && Tester_ecriture(c.dossier.complet(g.Répertoire_programme))) {
    écrire_réglage(c, réglage_répertoire, g.Répertoire_programme);
    g.Répertoire_sauvegarde = g.Répertoire_programme;
    écrire_réglage(c, réglage_fichier_lancement, Joindre_chemin(g.Répertoire_sauvegarde, nom_fichier_scores));
    g.Fichier_lancement = nom_fichier_scores;
  } else {
    faire_choisir_dossier(c);
  }
  g.Répertoire_info = Dossier_à_côté_du_programme(g);
  écrire_réglage(c, réglage_répertoire_info, g.Répertoire_info);
}

void Première_utilisation(Contexte &c) {
  GameState &g = c.état;
  c.plateforme.registre.ensemble([&] {
    dater(c);
    écrire_réglage(c, réglage_version, g.Version_programme);
    écrire_réglage(c, réglage_joueur, "");
    écrire_réglage(c, réglage_langue, "1");
  });
  g.Langue = 1;
  Charger_textes(c);
  revenir_au_dossier_du_programme(c);
  Lire_versions_locales(c);
  Annoncer_mises_à_jour(c);
}

void Nouvelle_version(Contexte &c) {
  dater(c);
  écrire_réglage(c, réglage_version, c.état.Version_programme);
  revenir_au_dossier_du_programme(c);
}

/// The reminder comes every 60 days; a date that cannot be read brings none.
void rappeler_mises_à_jour(Contexte &c) {
  std::string texte;
  Lire_registre(c.plateforme.registre, clé_de_famille, réglage_date, texte);
  const auto date = lire_date(texte);
  if (!date) return;
  Lire_versions_locales(c);
  if (jours_entre(*date, c.plateforme.horloge.aujourd_hui()) < jours_entre_rappels) return;
  Annoncer_mises_à_jour(c);
  dater(c);
}

int lire_langue(Contexte &c) {
  std::string texte;
  lire_réglage(c, réglage_langue, texte);
  return std::max(1, nombre_en_tête(texte));
}

void reprendre_réglages(Contexte &c) {
  GameState &g = c.état;
  lire_réglage(c, réglage_joueur, g.Nom_joueur);
  lire_réglage(c, réglage_répertoire, g.Répertoire_sauvegarde);
  if (Tester_ecriture(c.dossier.complet(g.Répertoire_sauvegarde)))
    c.dossier.changer(g.Répertoire_sauvegarde);
  else
    faire_choisir_dossier(c);
  lire_réglage(c, réglage_fichier_lancement, g.Fichier_lancement);
  lire_réglage(c, réglage_répertoire_info, g.Répertoire_info);
}

void reprendre(Contexte &c, const std::string &version) {
  GameState &g = c.état;
  g.Langue = static_cast<std::int16_t>(lire_langue(c));
  Charger_textes(c);
  if (version != g.Version_programme)
    Nouvelle_version(c);
  else
    rappeler_mises_à_jour(c);
  reprendre_réglages(c);
}

}  // namespace

void Lire_réglages(Contexte &c) {
  GameState &g = c.état;
  g.Version_programme = c.ressources.chaînes.chaîne(id_messages);
  Fusionner_catalogue(c);
  std::string version;
  const int résultat = Lire_registre(c.plateforme.registre, clé_du_jeu, réglage_version, version);
  if (résultat == registre_sans_clé) {
    if (Créer_clé(c.plateforme.registre, clé_du_jeu) == 0) Première_utilisation(c);
  } else if (résultat == registre_sans_valeur || version.empty()) {
    Première_utilisation(c);
  } else {
    reprendre(c, version);
  }
  Sauver_sons_système(c);
  for (const std::string &dossier :
       {c.dossier.complet(g.Répertoire_sauvegarde), c.dossier.complet(g.Répertoire_info)})
    balayer_provisoires(chemin_natif(dossier));
}

}  // namespace ardane
