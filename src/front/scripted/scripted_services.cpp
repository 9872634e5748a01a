#include "front/scripted/scripted_services.h"

#include <ctime>
#include <utility>

#include "core/paths.h"

namespace ardane {
namespace {

std::tm heure_locale() {
  const std::time_t maintenant = std::time(nullptr);
  return *std::localtime(&maintenant);
}

}  // namespace

EcranScripté::EcranScripté(const OptionsMonde &options, Témoin &témoin)
    : taille{options.écran.largeur, options.écran.hauteur},
      témoin_(témoin),
      couleurs_(options.écran.couleurs),
      zone_(options.zone),
      modes_(options.modes) {}

std::vector<Mode_écran> EcranScripté::modes() const {
  if (!modes_.empty()) return modes_;
  return {{taille.x, taille.y, couleurs_}};
}

void SonScripté::jouer(const std::string &chemin) {
  témoin_.son_joué(texte_du_chemin(chemin_natif(chemin).filename()));
}

std::chrono::year_month_day HorlogeScriptée::aujourd_hui() const {
  if (date_) return *date_;
  const std::tm t = heure_locale();
  return {std::chrono::year(t.tm_year + 1900), std::chrono::month(static_cast<unsigned>(t.tm_mon + 1)),
          std::chrono::day(static_cast<unsigned>(t.tm_mday))};
}

std::chrono::seconds HorlogeScriptée::heure() const {
  if (date_) return std::chrono::seconds(0);
  const std::tm t = heure_locale();
  return std::chrono::hours(t.tm_hour) + std::chrono::minutes(t.tm_min) + std::chrono::seconds(t.tm_sec);
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
