#include "core/dates.h"

#include <cstdio>

#include "platform/text.h"

namespace ardane {
namespace {

/// Takes a number of `min` to `max` digits off the head of `reste`.
std::optional<int> prendre_nombre(std::string_view &reste, std::size_t min, std::size_t max) {
  int nombre = 0;
  std::size_t chiffres = 0;
  while (chiffres < max && chiffres < reste.size() && reste[chiffres] >= '0' && reste[chiffres] <= '9')
    nombre = nombre * 10 + (reste[chiffres++] - '0');
  if (chiffres < min) return std::nullopt;
  reste.remove_prefix(chiffres);
  return nombre;
}

bool prendre(std::string_view &reste, char signe) {
  if (reste.empty() || reste.front() != signe) return false;
  reste.remove_prefix(1);
  return true;
}

bool est_heure(std::string_view texte) {
  const auto heures = prendre_nombre(texte, 1, 2);
  if (!heures || *heures > 23 || !prendre(texte, ':')) return false;
  const auto minutes = prendre_nombre(texte, 2, 2);
  if (!minutes || *minutes > 59 || !prendre(texte, ':')) return false;
  const auto secondes = prendre_nombre(texte, 2, 2);
  return secondes && *secondes <= 59 && texte.empty();
}

}  // namespace

std::optional<std::chrono::year_month_day> lire_date(std::string_view texte) {
  texte = sans_blancs(texte);
  const auto jour = prendre_nombre(texte, 1, 2);
  if (!jour || !prendre(texte, '/')) return std::nullopt;
  const auto mois = prendre_nombre(texte, 1, 2);
  if (!mois || !prendre(texte, '/')) return std::nullopt;
  const auto année = prendre_nombre(texte, 4, 4);
  if (!année) return std::nullopt;
  if (!texte.empty() && !(prendre(texte, ' ') && est_heure(sans_blancs(texte)))) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(*année),
                                         std::chrono::month(static_cast<unsigned>(*mois)),
                                         std::chrono::day(static_cast<unsigned>(*jour))};
  return date.ok() ? std::optional(date) : std::nullopt;
}

std::string date_courte(std::chrono::year_month_day date) {
  char texte[32];
  const int longueur = std::snprintf(texte, sizeof texte, "%02u/%02u/%04d", static_cast<unsigned>(date.day()),
                                     static_cast<unsigned>(date.month()), static_cast<int>(date.year()));
  return {texte, static_cast<std::size_t>(longueur)};
}

std::string date_et_heure(std::chrono::year_month_day date, std::chrono::seconds heure) {
  const std::chrono::hh_mm_ss détail(heure);
  char texte[32];
  const int longueur =
      std::snprintf(texte, sizeof texte, " %02d:%02d:%02d", static_cast<int>(détail.hours().count()),
                    static_cast<int>(détail.minutes().count()), static_cast<int>(détail.seconds().count()));
  return date_courte(date).append(texte, static_cast<std::size_t>(longueur));
}

int jours_entre(std::chrono::year_month_day début, std::chrono::year_month_day fin) {
  return static_cast<int>((std::chrono::sys_days(fin) - std::chrono::sys_days(début)).count());
}

}  // namespace ardane
