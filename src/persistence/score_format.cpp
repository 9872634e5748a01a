#include "persistence/score_format.h"

#include <algorithm>

namespace ardane {
namespace {

void lire_exclusions(Lecteur_de_cases &cases, Contenu_scores &contenu) {
  for (bool &inhibée : contenu.inhibée) inhibée = cases.booléen().value_or(false);
  if (std::count(contenu.inhibée.begin(), contenu.inhibée.end(), false) == 0) cases.refuser();
}

}  // namespace

Lecture_scores lire_scores(std::istream &flux) {
  Lecture_scores lecture;
  Lecteur_de_cases cases(flux);
  lecture.contenu.version = cases.texte().value_or("");
  lire_ordre(cases, cases.entier16().value_or(0), lecture.contenu.ordre);
  lire_exclusions(cases, lecture.contenu);
  lecture.contenu.langue = cases.entier16().value_or(0);
  const bool partie_fixe_lue = !cases.défaut();
  lire_liste(cases, std::nullopt, lecture.contenu.scores);
  lecture.défaut = cases.défaut();
  const bool fin_de_liste = lecture.défaut && lecture.défaut->cause == Défaut_de_case::Cause::fin_du_fichier;
  if (partie_fixe_lue && fin_de_liste) lecture.défaut.reset();
  return lecture;
}

std::optional<Défaut_de_case> écrire_scores(std::ostream &flux, const Contenu_scores &contenu) {
  Scripteur_de_cases cases(flux);
  cases.texte(contenu.version);
  cases.entier16(nombre_jeux);
  écrire_ordre(cases, contenu.ordre);
  for (const bool inhibée : contenu.inhibée) cases.booléen(inhibée);
  cases.entier16(contenu.langue);
  écrire_liste(cases, contenu.scores);
  cases.terminer();
  return cases.défaut();
}

}  // namespace ardane
