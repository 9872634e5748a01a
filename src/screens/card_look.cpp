#include "screens/card_look.h"

namespace ardane {
namespace {

constexpr Couleur rouge_foncé{64, 0, 0};

}  // namespace

void Habiller_fiche(Fenêtre &fenêtre, Contrôle &titre, Contrôle &texte) {
  fenêtre.fond = rouge_foncé;
  for (Contrôle *contrôle : {&titre, &texte}) {
    contrôle->fond = rouge_foncé;
    contrôle->couleur = blanc;
    contrôle->police = {Famille_police::times, 12, false};
    contrôle->bord = Bord::sans;
  }
  titre.alignement = Alignement::centre;
  texte.lignes_crlf = true;
}

}  // namespace ardane
