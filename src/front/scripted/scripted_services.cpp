#include "front/scripted/scripted_services.h"

#include <utility>

#include "core/paths.h"

namespace ardane {
EcranScripté::EcranScripté(const OptionsMonde &options, Témoin &témoin)
    : taille{options.écran.largeur, options.écran.hauteur},
      bits(options.écran.couleurs),
      zone(options.zone),
      modes_listés(options.modes),
      témoin_(témoin) {}

std::vector<Mode_écran> EcranScripté::modes() const {
  if (!modes_listés.empty()) return modes_listés;
  return {{taille.x, taille.y, bits}};
}

void SonScripté::jouer(const std::string &chemin) {
  témoin_.son_joué(texte_du_chemin(chemin_natif(chemin).filename()));
}

std::chrono::year_month_day HorlogeScriptée::aujourd_hui() const {
  return date_ ? *date_ : HorlogeSystème::aujourd_hui();
}

std::chrono::seconds HorlogeScriptée::heure() const {
  return date_ ? std::chrono::seconds(0) : HorlogeSystème::heure();
}

void HasardScripté::semer() {
  ++semailles;
  HasardSemé::semer();
}

float HasardScripté::tirer() {
  ++tirages;
  if (suite.empty()) return nul_ ? 0 : HasardSemé::tirer();
  const float tirage = suite.front();
  suite.pop_front();
  return tirage;
}

std::optional<std::string> WebScripté::lire_page(const std::string &page) {
  témoin_.page_demandée(page);
  return std::exchange(prochaine_, std::nullopt);
}

void AideScriptée::ouvrir(const std::string &fichier, int contexte) {
  témoin_.aide_ouverte(fichier, contexte);
}

}  // namespace ardane
