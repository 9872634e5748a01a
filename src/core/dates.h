// Dates as the settings and the list of games write them: "JJ/MM/AAAA", with or without "HH:MM:SS" behind.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ardane {

/// Day of a text of either form; a day or month of one digit and blanks around are allowed. Nothing for any
/// other text and for a day that the calendar does not have.
std::optional<std::chrono::year_month_day> lire_date(std::string_view texte);

/// "JJ/MM/AAAA".
std::string date_courte(std::chrono::year_month_day date);

/// "JJ/MM/AAAA HH:MM:SS"; `heure` counts from midnight.
std::string date_et_heure(std::chrono::year_month_day date, std::chrono::seconds heure);

/// Whole days from `début` to `fin`, below 0 if `fin` is the earlier.
int jours_entre(std::chrono::year_month_day début, std::chrono::year_month_day fin);

}  // namespace ardane
