#include "front/pilote/headless_services.h"

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

EcranScripté::EcranScripté(const Options &options)
    : mode_(options.écran),
      zone_(options.zone.value_or(Rect{0, 0, options.écran.largeur, options.écran.hauteur})),
      modes_(options.modes.empty() ? std::vector<Mode_écran>{options.écran} : options.modes) {}

void SonÉcrit::jouer(const std::string &chemin) {
  journal_.écrire({{"son", texte_du_chemin(chemin_natif(chemin).filename())}});
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

float HasardScripté::tirer() {
  if (prévus_.empty()) return HasardSemé::tirer();
  const float tirage = prévus_.front();
  prévus_.pop_front();
  return tirage;
}

std::optional<std::string> WebScripté::lire_page(const std::string &page) {
  journal_.écrire({{"page", page}});
  return std::exchange(prochaine_, std::nullopt);
}

void AideÉcrite::ouvrir(const std::string &fichier, int contexte) {
  journal_.écrire({{"aide", {{"fichier", fichier}, {"contexte", contexte}}}});
}

}  // namespace ardane
