#include "persistence/saved_game_format.h"

#include <algorithm>

#include "core/game_state.h"

namespace ardane {
namespace {

/// No game adds up to more, and what a game still adds fits a 32-bit number then.
constexpr std::int32_t plus_de_points_perdus = 1'000'000'000;

constexpr std::string_view tête_interrompue = "Partie interrompue, forme 1";
constexpr std::int32_t secondes_du_jour = 24 * 60 * 60;

bool paramétrage_en_ligne(const Contenu_partie &contenu) {
  return contenu.fichier_lancement == nom_fichier_temporaire;
}

int dernier_indice(int étape) {
  return étape == étape_villes ? nombre_villes : nombre_provinces;
}

std::int16_t entier16_entre(Lecteur_de_cases &cases, int plus_petit, int plus_grand) {
  const std::int16_t valeur = cases.entier16().value_or(0);
  if (valeur < plus_petit || valeur > plus_grand) cases.refuser();
  return valeur;
}

std::int32_t entier32_entre(Lecteur_de_cases &cases, std::int32_t plus_petit, std::int32_t plus_grand) {
  const std::int32_t valeur = cases.entier32().value_or(0);
  if (valeur < plus_petit || valeur > plus_grand) cases.refuser();
  return valeur;
}

void lire_en_ligne(Lecteur_de_cases &cases, Paramétrage_en_ligne &en_ligne) {
  lire_ordre(cases, nombre_jeux, en_ligne.ordre);
  lire_liste(cases, cases.entier16().value_or(0), en_ligne.scores);
}

void lire_étape(Lecteur_de_cases &cases, Contenu_partie &contenu) {
  contenu.étape = entier16_entre(cases, étape_provinces, étape_régions);
  const Ordre_de_jeu &ordre = contenu.en_ligne.ordre;
  if (paramétrage_en_ligne(contenu) && std::count(ordre.begin(), ordre.end(), contenu.étape) == 0)
    cases.refuser();
}

void lire_trouvées(Lecteur_de_cases &cases, Contenu_partie &contenu) {
  const bool interrompue = contenu.interruption.has_value();
  const int paires = nombre_de_paires(contenu.étape, interrompue);
  for (int i = 1; i <= paires && !cases.défaut(); ++i) {
    const Paire paire = cases.paire().value_or(Paire{});
    if (paire.indice < 0 || paire.indice > dernier_indice(contenu.étape)) return cases.refuser();
    if (interrompue && paire.indice != i) return cases.refuser();
    contenu.trouvées.push_back(paire);
  }
}

void lire_bilan(Lecteur_de_cases &cases, Bilan &bilan) {
  bilan.points_perdus = entier32_entre(cases, 0, plus_de_points_perdus);
  bilan.trouvée_étape = cases.booléen().value_or(false);
}

void écrire_bilan(Scripteur_de_cases &cases, const Bilan &bilan) {
  cases.entier32(bilan.points_perdus);
  cases.booléen(bilan.trouvée_étape);
}

void lire_sélection(Lecteur_de_cases &cases, const Contenu_partie &contenu,
                    std::vector<std::int16_t> &sélection) {
  const int plus = contenu.étape == étape_régions ? plus_grande_région : 0;
  for (int reste = entier16_entre(cases, 0, plus); reste > 0 && !cases.défaut(); --reste) {
    const std::int16_t province = entier16_entre(cases, 1, nombre_provinces);
    if (std::count(sélection.begin(), sélection.end(), province) != 0) cases.refuser();
    sélection.push_back(province);
  }
}

void lire_interruption(Lecteur_de_cases &cases, Contenu_partie &contenu) {
  Interruption &interruption = *contenu.interruption;
  const bool régions = contenu.étape == étape_régions;
  for (bool &inhibée : interruption.inhibée) inhibée = cases.booléen().value_or(false);
  interruption.heure = entier32_entre(cases, 0, secondes_du_jour - 1);
  interruption.question = entier16_entre(cases, 1, régions ? nombre_régions : dernier_indice(contenu.étape));
  interruption.erreurs = entier16_entre(cases, 0, régions ? 0 : erreurs_permises - 1);
  interruption.assistance = cases.booléen().value_or(false);
  if (interruption.assistance && (interruption.erreurs == 0 || !contenu.apprentissage)) cases.refuser();
  interruption.conseil_vu = cases.booléen().value_or(false);
  lire_sélection(cases, contenu, interruption.sélection);
  contenu.fichier_lancement = cases.octets(longueur_de_chemin).value_or("");
}

void écrire_interruption(Scripteur_de_cases &cases, const Contenu_partie &contenu) {
  const Interruption &interruption = *contenu.interruption;
  for (const bool inhibée : interruption.inhibée) cases.booléen(inhibée);
  cases.entier32(interruption.heure);
  cases.entier16(interruption.question);
  cases.entier16(interruption.erreurs);
  cases.booléen(interruption.assistance);
  cases.booléen(interruption.conseil_vu);
  cases.entier16(static_cast<std::int16_t>(interruption.sélection.size()));
  for (const std::int16_t province : interruption.sélection) cases.entier16(province);
  cases.octets(contenu.fichier_lancement);
}

/// All that saved and interrupted games have in common.
void lire_contenu(Lecteur_de_cases &cases, Contenu_partie &contenu) {
  contenu.version = cases.texte().value_or("");
  contenu.langue = cases.entier16().value_or(0);
  contenu.fichier_lancement = cases.texte().value_or("");
  if (paramétrage_en_ligne(contenu))
    lire_en_ligne(cases, contenu.en_ligne);
  else if (contenu.interruption)
    cases.refuser();
  lire_étape(cases, contenu);
  contenu.nom_joueur = cases.texte(longueur_de_nom).value_or("");
  contenu.niveau = entier16_entre(cases, niveau_facile, niveau_expert);
  contenu.apprentissage = cases.booléen().value_or(false);
  if (contenu.apprentissage && contenu.niveau != niveau_facile) cases.refuser();
  contenu.score = entier32_entre(cases, 1, score_de_départ);
  lire_trouvées(cases, contenu);
  for (int p = 1; p <= nombre_provinces; ++p)
    for (Bilan &bilan : contenu.provinces.ligne(p)) lire_bilan(cases, bilan);
  for (Bilan &bilan : contenu.régions) lire_bilan(cases, bilan);
  for (Bilan &bilan : contenu.villes) lire_bilan(cases, bilan);
}

}  // namespace

int nombre_de_paires(int étape, bool interrompue) {
  return étape == étape_drapeaux && !interrompue ? 0 : dernier_indice(étape);
}

Lecture_partie lire_partie(std::istream &flux) {
  Lecture_partie lecture;
  Lecteur_de_cases cases(flux);
  lire_contenu(cases, lecture.contenu);
  lecture.défaut = cases.défaut();
  return lecture;
}

Lecture_partie lire_partie_interrompue(std::istream &flux) {
  Lecture_partie lecture;
  lecture.contenu.interruption.emplace();
  Lecteur_de_cases cases(flux);
  if (cases.texte() != tête_interrompue) cases.refuser();
  lire_contenu(cases, lecture.contenu);
  lire_interruption(cases, lecture.contenu);
  lecture.défaut = cases.défaut();
  return lecture;
}

std::optional<Défaut_de_case> écrire_partie(std::ostream &flux, const Contenu_partie &contenu) {
  const bool interrompue = contenu.interruption.has_value();
  const bool en_ligne = interrompue || paramétrage_en_ligne(contenu);
  Scripteur_de_cases cases(flux);
  if (interrompue) cases.texte(tête_interrompue);
  cases.texte(contenu.version);
  cases.entier16(contenu.langue);
  cases.texte(en_ligne ? nom_fichier_temporaire : std::string_view(contenu.fichier_lancement));
  if (en_ligne) {
    écrire_ordre(cases, contenu.en_ligne.ordre);
    cases.entier16(static_cast<std::int16_t>(contenu.en_ligne.scores.size()));
    écrire_liste(cases, contenu.en_ligne.scores);
  }
  cases.entier16(contenu.étape);
  cases.texte(contenu.nom_joueur);
  cases.entier16(contenu.niveau);
  cases.booléen(contenu.apprentissage);
  cases.entier32(contenu.score);
  for (const Paire &paire : contenu.trouvées) cases.paire(paire);
  for (int p = 1; p <= nombre_provinces; ++p)
    for (const Bilan &bilan : contenu.provinces.ligne(p)) écrire_bilan(cases, bilan);
  for (const Bilan &bilan : contenu.régions) écrire_bilan(cases, bilan);
  for (const Bilan &bilan : contenu.villes) écrire_bilan(cases, bilan);
  if (interrompue) écrire_interruption(cases, contenu);
  cases.terminer();
  return cases.défaut();
}

}  // namespace ardane
