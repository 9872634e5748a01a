#include "front/scripted/scripted_facade.h"

#include <algorithm>
#include <utility>

namespace ardane {

Réponse BoîtesScriptées::montrer(const Boîte &boîte) {
  affichée_ = &boîte;
  témoin_.boîte_montrée(boîte);
  const Réponse réponse = attente_.attendre_réponse(boîte);
  affichée_ = nullptr;
  return réponse;
}

void FaçadeScriptée::ouvrir(Fenêtre &fenêtre, bool modale) {
  fenêtre.ouverte = true;
  pile_.push_back({&fenêtre, modale, nullptr});
  témoin_.fenêtre_ouverte(fenêtre, modale);
  active_ = &fenêtre;
  premier_focus(fenêtre);
  pile_.back().focus = fenêtre.focus;
  déclencher(fenêtre.activation);
  suivre_focus(fenêtre);
}

void FaçadeScriptée::montrer(Fenêtre &fenêtre) {
  ouvrir(fenêtre, false);
}

void FaçadeScriptée::montrer_modale(Fenêtre &fenêtre) {
  ouvrir(fenêtre, true);
  attente_.attendre_fermeture(fenêtre);
  retirer(fenêtre);
}

void FaçadeScriptée::retirer(Fenêtre &fenêtre) {
  const auto place =
      std::find_if(pile_.begin(), pile_.end(), [&](const Ouverte &o) { return o.fenêtre == &fenêtre; });
  if (place == pile_.end()) return;
  fenêtre.ouverte = false;
  if (active_ == &fenêtre) active_ = nullptr;
  const bool modale = place->modale;
  pile_.erase(place);
  témoin_.fenêtre_fermée(fenêtre, modale);
}

Rect FaçadeScriptée::rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const {
  double gauche = fenêtre.gauche;
  double haut = fenêtre.haut;
  for (const Contrôle *c = &contrôle; c != nullptr; c = c->conteneur) {
    gauche += c->gauche;
    haut += c->haut;
  }
  const auto pixel = [](double place) { return static_cast<int>(place); };
  return {pixel(gauche), pixel(haut), pixel(gauche + contrôle.largeur), pixel(haut + contrôle.hauteur)};
}

std::vector<Fenêtre *> FaçadeScriptée::fenêtres() const {
  std::vector<Fenêtre *> fenêtres;
  for (const Ouverte &ouverte : pile_) fenêtres.push_back(ouverte.fenêtre);
  return fenêtres;
}

void FaçadeScriptée::porter_focus(Fenêtre &fenêtre, Contrôle &contrôle) {
  fenêtre.focus = &contrôle;
  suivre_focus(fenêtre);
}

void FaçadeScriptée::suivre_focus(Fenêtre &fenêtre) {
  rectifier_focus(fenêtre);
  const auto place =
      std::find_if(pile_.begin(), pile_.end(), [&](const Ouverte &o) { return o.fenêtre == &fenêtre; });
  if (place == pile_.end() || place->focus == fenêtre.focus) return;
  const Contrôle *ancien = std::exchange(place->focus, fenêtre.focus);
  if (ancien != nullptr) déclencher(ancien->perte_du_focus);
}

void FaçadeScriptée::suivre() {
  const std::deque<Ouverte> pile = pile_;
  for (const Ouverte &ouverte : pile) {
    if (ouverte.fenêtre->ouverte)
      suivre_focus(*ouverte.fenêtre);
    else if (!ouverte.modale)
      retirer(*ouverte.fenêtre);
  }
  for (Ouverte &ouverte : pile_) {
    if (ouverte.focus != nullptr && ouverte.focus->retiré) ouverte.focus = nullptr;
    ouverte.fenêtre->oublier_retirés();
  }
  activer_dessus();
}

void FaçadeScriptée::activer_dessus() {
  if (active_ != nullptr || pile_.empty() || !pile_.back().fenêtre->ouverte) return;
  active_ = pile_.back().fenêtre;
  déclencher(active_->activation);
  suivre_focus(*active_);
}

}  // namespace ardane
