#include "core/dates.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

using namespace std::chrono_literals;
using std::chrono::day;
using std::chrono::month;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr year_month_day sortie = year(2007) / month(2) / day(24);

TEST(Dates, ADateIsReadWithAndWithoutItsTime) {
  EXPECT_EQ(lire_date("24/02/2007"), sortie);
  EXPECT_EQ(lire_date("24/02/2007 23:59:59"), sortie);
  EXPECT_EQ(lire_date("24/02/2007 00:00:00"), sortie);
}

TEST(Dates, BlanksAroundAndSingleDigitsAreAllowed) {
  EXPECT_EQ(lire_date("  24/2/2007 "), sortie);
  EXPECT_EQ(lire_date("1/3/2007 9:05:00"), year(2007) / month(3) / day(1));
}

TEST(Dates, ATextThatIsNoDateGivesNone) {
  for (const char *texte : {"",
                            " ",
                            "24",
                            "24/02",
                            "24/02/",
                            "24/02/07",
                            "24/02/20077",
                            "24/022007",
                            "24-02-2007",
                            "2007/02/24",
                            "a/b/cccc",
                            "24/02/2007x",
                            "24/02/2007 ",
                            "24/02/2007 12",
                            "24/02/2007 12:00",
                            "24/02/2007 24:00:00",
                            "24/02/2007 2400:00",
                            "24/02/2007 1200:00",
                            "24/02/2007 12:6000",
                            "24/02/2007 12:0000",
                            "24/02/2007 12:60:00",
                            "24/02/2007 12:00:60",
                            "24/02/2007 12:00:00x",
                            "+4/02/2007",
                            "-1/02/2007"}) {
    const bool bon = std::string_view(texte) == "24/02/2007 ";
    EXPECT_EQ(lire_date(texte).has_value(), bon) << texte;
  }
}

TEST(Dates, ADayThatTheCalendarDoesNotHaveGivesNone) {
  for (const char *texte :
       {"00/01/2007", "32/01/2007", "31/04/2007", "29/02/2007", "15/00/2007", "15/13/2007"})
    EXPECT_FALSE(lire_date(texte)) << texte;
  EXPECT_TRUE(lire_date("29/02/2008"));
}

TEST(Dates, ADateIsWrittenInFullWidth) {
  EXPECT_EQ(date_courte(year(2007) / month(3) / day(1)), "01/03/2007");
  EXPECT_EQ(date_et_heure(sortie, 9h + 5min + 7s), "24/02/2007 09:05:07");
}

TEST(Dates, WhatIsWrittenIsReadBack) {
  EXPECT_EQ(lire_date(date_et_heure(sortie, 23h + 59min + 59s)), sortie);
  EXPECT_EQ(lire_date(date_courte(sortie)), sortie);
}

TEST(Dates, DaysAreCountedAcrossMonthsAndLeapYears) {
  EXPECT_EQ(jours_entre(sortie, sortie), 0);
  EXPECT_EQ(jours_entre(year(2008) / month(2) / day(28), year(2008) / month(3) / day(1)), 2);
  EXPECT_EQ(jours_entre(year(2006) / month(12) / day(31), year(2008) / month(1) / day(1)), 366);
  EXPECT_EQ(jours_entre(year(2007) / month(3) / day(1), sortie), -5);
}

}  // namespace
}  // namespace ardane
