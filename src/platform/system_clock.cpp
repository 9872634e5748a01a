#include "platform/system_clock.h"

#include <ctime>

namespace ardane {
namespace {

std::tm heure_locale() {
  const std::time_t maintenant = std::time(nullptr);
  return *std::localtime(&maintenant);
}

}  // namespace

std::chrono::year_month_day HorlogeSystème::aujourd_hui() const {
  const std::tm t = heure_locale();
  return {std::chrono::year(t.tm_year + 1900), std::chrono::month(static_cast<unsigned>(t.tm_mon + 1)),
          std::chrono::day(static_cast<unsigned>(t.tm_mday))};
}

std::chrono::seconds HorlogeSystème::heure() const {
  const std::tm t = heure_locale();
  return std::chrono::hours(t.tm_hour) + std::chrono::minutes(t.tm_min) + std::chrono::seconds(t.tm_sec);
}

}  // namespace ardane
