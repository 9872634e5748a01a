#include "front/pilote/headless_windows.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ardane {
namespace {

struct Bouton_de_boîte {
  std::string_view mot;      ///< in commands
  std::string_view légende;  ///< on the box
  Réponse réponse;
};

constexpr std::array bouton_ok = std::to_array<Bouton_de_boîte>({{"ok", "OK", Réponse::ok}});
constexpr std::array boutons_oui_non =
    std::to_array<Bouton_de_boîte>({{"oui", "Oui", Réponse::oui}, {"non", "Non", Réponse::non}});

std::vector<Bouton_de_boîte> boutons_de(const Boîte &boîte) {
  if (boîte.boutons == Boutons::ok) return {bouton_ok.begin(), bouton_ok.end()};
  return {boutons_oui_non.begin(), boutons_oui_non.end()};
}

std::string_view nom_icône(Icône icône) {
  switch (icône) {
    case Icône::aucune: return "aucune";
    case Icône::information: return "information";
    case Icône::exclamation: return "exclamation";
    case Icône::stop: return "stop";
    case Icône::question: return "question";
  }
  return "";
}

}  // namespace

Json boîte_json(const Boîte &boîte) {
  Json boutons = Json::array();
  for (const Bouton_de_boîte &bouton : boutons_de(boîte)) boutons.push_back(bouton.légende);
  return {{"icône", nom_icône(boîte.icône)},
          {"titre", boîte.titre},
          {"texte", boîte.texte},
          {"boutons", boutons}};
}

Réponse BoîtesScriptées::montrer(const Boîte &boîte) {
  affichée_ = &boîte;
  réponse_.reset();
  journal_.écrire({{"boîte", boîte_json(boîte)}});
  attente_.attendre_que([this] { return réponse_.has_value(); });
  affichée_ = nullptr;
  return *réponse_;
}

bool BoîtesScriptées::répondre(std::string_view mot) {
  for (const Bouton_de_boîte &bouton : boutons_de(*affichée_))
    if (bouton.mot == mot) réponse_ = bouton.réponse;
  return réponse_.has_value();
}

void FaçadeScriptée::ouvrir(Fenêtre &fenêtre, bool modale) {
  fenêtre.ouverte = true;
  pile_.push_back({&fenêtre, modale, nullptr});
  journal_.écrire({{"fenêtre", fenêtre.nom}, {"ouverte", true}, {"modale", modale}});
  if (fenêtre.activation) fenêtre.activation();
  suivre_focus(fenêtre);
}

void FaçadeScriptée::montrer(Fenêtre &fenêtre) {
  ouvrir(fenêtre, false);
}

void FaçadeScriptée::montrer_modale(Fenêtre &fenêtre) {
  ouvrir(fenêtre, true);
  attente_.attendre_que([&] { return !fenêtre.ouverte; });
  retirer(fenêtre);
}

void FaçadeScriptée::retirer(Fenêtre &fenêtre) {
  const auto place =
      std::find_if(pile_.begin(), pile_.end(), [&](const Ouverte &o) { return o.fenêtre == &fenêtre; });
  if (place == pile_.end()) return;
  fenêtre.ouverte = false;
  const bool modale = place->modale;
  pile_.erase(place);
  journal_.écrire({{"fenêtre", fenêtre.nom}, {"ouverte", false}, {"modale", modale}});
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
  const auto place =
      std::find_if(pile_.begin(), pile_.end(), [&](const Ouverte &o) { return o.fenêtre == &fenêtre; });
  if (place == pile_.end() || place->focus == fenêtre.focus) return;
  const Contrôle *ancien = std::exchange(place->focus, fenêtre.focus);
  if (ancien != nullptr && ancien->perte_du_focus) ancien->perte_du_focus();
}

void FaçadeScriptée::suivre() {
  const std::deque<Ouverte> pile = pile_;
  for (const Ouverte &ouverte : pile) {
    if (ouverte.fenêtre->ouverte)
      suivre_focus(*ouverte.fenêtre);
    else if (!ouverte.modale)
      retirer(*ouverte.fenêtre);
  }
}

}  // namespace ardane
