#include "persistence/score_format.h"

#include <algorithm>

namespace ardane {
namespace {

constexpr std::int16_t vrai = -1;
constexpr std::int16_t faux = 0;

bool ordre_jouable(const Table<std::int16_t, 1, nombre_jeux> &ordre) {
  if (ordre(1) == 0) return false;
  for (const std::int16_t code : ordre) {
    if (code < 0 || code > nombre_jeux) return false;
    if (code != 0 && std::count(ordre.begin(), ordre.end(), code) > 1) return false;
  }
  return true;
}

void lire_ordre(Lecteur_de_cases &cases, Contenu_scores &contenu) {
  const int places = cases.entier16().value_or(0);
  if (places < 0 || places > nombre_jeux) return cases.refuser();
  for (int i = 1; i <= places; ++i) contenu.ordre(i) = cases.entier16().value_or(0);
  if (!ordre_jouable(contenu.ordre)) cases.refuser();
}

void lire_exclusions(Lecteur_de_cases &cases, Contenu_scores &contenu) {
  for (bool &inhibée : contenu.inhibée) inhibée = cases.entier16().value_or(faux) != faux;
  if (std::count(contenu.inhibée.begin(), contenu.inhibée.end(), false) == 0) cases.refuser();
}

void lire_liste(Lecteur_de_cases &cases, Contenu_scores &contenu) {
  Table<int, 0, plus_haut_niveau> rangs;
  while (const auto score = cases.score()) {
    const bool permis = score->niveau >= 0 && score->niveau <= plus_haut_niveau;
    if (!permis || ++rangs(score->niveau) > nombre_rangs) return cases.refuser();
    contenu.scores.push_back(*score);
  }
}

}  // namespace

Lecture_scores lire_scores(std::istream &flux) {
  Lecture_scores lecture;
  Lecteur_de_cases cases(flux);
  lecture.contenu.version = cases.texte().value_or("");
  lire_ordre(cases, lecture.contenu);
  lire_exclusions(cases, lecture.contenu);
  lecture.contenu.langue = cases.entier16().value_or(0);
  const bool partie_fixe_lue = !cases.défaut();
  lire_liste(cases, lecture.contenu);
  lecture.défaut = cases.défaut();
  const bool fin_de_liste = lecture.défaut && lecture.défaut->cause == Défaut_de_case::Cause::fin_du_fichier;
  if (partie_fixe_lue && fin_de_liste) lecture.défaut.reset();
  return lecture;
}

std::optional<Défaut_de_case> écrire_scores(std::ostream &flux, const Contenu_scores &contenu) {
  Scripteur_de_cases cases(flux);
  cases.texte(contenu.version);
  cases.entier16(nombre_jeux);
  for (const std::int16_t code : contenu.ordre) cases.entier16(code);
  for (const bool inhibée : contenu.inhibée) cases.entier16(inhibée ? vrai : faux);
  cases.entier16(contenu.langue);
  for (const Enregistrement_score &score : contenu.scores) cases.score(score);
  cases.terminer();
  return cases.défaut();
}

}  // namespace ardane
