#include "persistence/saved_game_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <random>
#include <sstream>

#include "support/failing_device.h"
#include "support/saved_game_bytes.h"
#include "support/table_values.h"

namespace ardane {
namespace {

using Cause = Défaut_de_case::Cause;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int fixes_avant = 8, bilans = 1800;
constexpr int dernier_entier = std::numeric_limits<std::int32_t>::max();

Lecture_partie lire(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_partie(flux);
}

Lecture_partie lire(const OctetsPartie &fichier) {
  return lire(fichier.octets());
}

std::optional<Défaut_de_case> défaut(const OctetsPartie &fichier) {
  return lire(fichier).défaut;
}

std::string écrire(const Contenu_partie &contenu) {
  std::ostringstream flux;
  EXPECT_FALSE(écrire_partie(flux, contenu));
  return flux.str();
}

/// An unsaved configuration in which the cities come first, and what has been scored under it.
OctetsPartie en_ligne(int étape = 2) {
  return OctetsPartie(étape, {2, 1, 0, 0}, {{"Zo\xE9", 999000, 1}, {"Ann", 12, 1}, {"", -5, 4}});
}

// --- The layout

struct Forme {
  const char *jeu;
  int étape, paires;
};

void PrintTo(const Forme &forme, std::ostream *flux) {
  *flux << "stage " << forme.étape;
}

class SavedGameOfAStage : public testing::TestWithParam<Forme> {};

INSTANTIATE_TEST_SUITE_P(Stages, SavedGameOfAStage,
                         testing::Values(Forme{"Provinces", 1, 110}, Forme{"Villes", 2, 330},
                                         Forme{"Drapeaux", 3, 0}, Forme{"Regions", 4, 110}),
                         [](const auto &forme) { return forme.param.jeu; });

TEST_P(SavedGameOfAStage, HasThreeSlotsAndFiveAndOneAPairAndOneAStatistic) {
  const OctetsPartie fichier(GetParam().étape);
  EXPECT_EQ(nombre_de_paires(GetParam().étape, false), GetParam().paires);
  EXPECT_EQ(écrire(lire(fichier).contenu).size(),
            static_cast<std::size_t>(fixes_avant + GetParam().paires + bilans) * taille_de_case);
}

TEST_P(SavedGameOfAStage, IsReadInItsOrder) {
  const OctetsPartie fichier(GetParam().étape);
  const Lecture_partie lecture = lire(fichier);
  ASSERT_FALSE(lecture.défaut);
  const Contenu_partie &partie = lecture.contenu;
  EXPECT_EQ(partie.version, "Version 1.00 du 24/02/2007");
  EXPECT_EQ(partie.langue, 1);
  EXPECT_EQ(partie.fichier_lancement, "/jeux/Le nord.SCI");
  EXPECT_EQ(partie.étape, GetParam().étape);
  EXPECT_EQ(partie.nom_joueur, "Ann");
  EXPECT_EQ(partie.niveau, 2);
  EXPECT_FALSE(partie.apprentissage);
  EXPECT_EQ(partie.score, 987'654);
  ASSERT_THAT(partie.trouvées, SizeIs(static_cast<std::size_t>(GetParam().paires)));
  std::int16_t indice = 0;
  for (const Paire &paire : partie.trouvées) {
    ++indice;
    EXPECT_EQ(paire, (Paire{indice, static_cast<std::int16_t>(indice % 5 == 0 ? -1 : 0)}));
  }
}

TEST_P(SavedGameOfAStage, HasTheStatisticsOfProvincesThenOfRegionsThenOfTowns) {
  const Contenu_partie partie = lire(OctetsPartie(GetParam().étape)).contenu;
  for (int p = 1; p <= nombre_provinces; ++p)
    for (int k = 0; k <= nombre_jeux; ++k)
      EXPECT_EQ(partie.provinces(p, k),
                (Bilan{MotifBilans::points_province(p, k), MotifBilans::province_trouvée(p, k)}))
          << p << ", " << k;
  for (int r = 1; r <= nombre_régions; ++r)
    EXPECT_EQ(partie.régions(r), (Bilan{MotifBilans::points_région(r), MotifBilans::région_trouvée(r)})) << r;
  for (int v = 1; v <= nombre_villes; ++v)
    EXPECT_EQ(partie.villes(v), (Bilan{MotifBilans::points_ville(v), MotifBilans::ville_trouvée(v)})) << v;
}

TEST_P(SavedGameOfAStage, IsWrittenByteByByte) {
  const auto [jeu, étape, paires] = GetParam();
  OctetsPartie attendu(étape, "/jeux/Été.SCI");
  attendu.changer_texte(OctetsPartie::case_fichier, "/jeux/\xC9t\xE9.SCI");
  attendu.changer(OctetsPartie::case_langue, 2);
  attendu.changer(attendu.case_niveau, 1);
  attendu.changer(attendu.case_apprentissage, -1);
  Contenu_partie partie;
  partie.version = "Version 1.00 du 24/02/2007";
  partie.langue = 2;
  partie.fichier_lancement = "/jeux/Été.SCI";
  partie.en_ligne.scores = {{"unheeded", 1, 1}};
  partie.étape = static_cast<std::int16_t>(étape);
  partie.nom_joueur = "Ann";
  partie.niveau = 1;
  partie.apprentissage = true;
  partie.score = 987'654;
  for (int i = 1; i <= paires; ++i)
    partie.trouvées.push_back({static_cast<std::int16_t>(i), static_cast<std::int16_t>(i % 5 == 0 ? -1 : 0)});
  for (int p = 1; p <= nombre_provinces; ++p)
    for (int k = 0; k <= nombre_jeux; ++k)
      partie.provinces(p, k) = {MotifBilans::points_province(p, k), MotifBilans::province_trouvée(p, k)};
  for (int r = 1; r <= nombre_régions; ++r)
    partie.régions(r) = {MotifBilans::points_région(r), MotifBilans::région_trouvée(r)};
  for (int v = 1; v <= nombre_villes; ++v)
    partie.villes(v) = {MotifBilans::points_ville(v), MotifBilans::ville_trouvée(v)};
  EXPECT_EQ(écrire(partie), attendu.octets());
}

TEST_P(SavedGameOfAStage, WritesBackWhatWasRead) {
  const std::string octets = OctetsPartie(GetParam().étape).octets();
  EXPECT_EQ(écrire(lire(octets).contenu), octets);
}

TEST_P(SavedGameOfAStage, CutInAnyOfItsSlotsIsAFault) {
  const OctetsPartie fichier(GetParam().étape);
  const std::string octets = fichier.octets();
  for (std::size_t place = 0; place < fichier.cases.size(); ++place) {
    // Its item has at least two bytes.
    for (const std::size_t reste : {std::size_t{0}, std::size_t{1}})
      EXPECT_EQ(lire(octets.substr(0, place * taille_de_case + reste)).défaut,
                (Défaut_de_case{static_cast<int>(place) + 1, Cause::fin_du_fichier}))
          << place + 1 << " + " << reste;
  }
}

// --- The configuration in the file itself

TEST(SavedGameWithItsConfiguration, IsReadInItsOrder) {
  const OctetsPartie fichier = en_ligne();
  const Lecture_partie lecture = lire(fichier);
  ASSERT_FALSE(lecture.défaut);
  const Contenu_partie &partie = lecture.contenu;
  EXPECT_EQ(partie.fichier_lancement, "~tmp.~ci");
  EXPECT_THAT(valeurs(partie.en_ligne.ordre), ElementsAre(2, 1, 0, 0));
  EXPECT_THAT(partie.en_ligne.scores,
              ElementsAre(Enregistrement_score{"Zoé", 999000, 1}, Enregistrement_score{"Ann", 12, 1},
                          Enregistrement_score{"", -5, 4}));
  EXPECT_EQ(partie.étape, 2);
  EXPECT_EQ(partie.nom_joueur, "Ann");
  EXPECT_EQ(partie.score, 987'654);
  EXPECT_THAT(partie.trouvées, SizeIs(330));
  EXPECT_EQ(partie.villes(330).points_perdus, MotifBilans::points_ville(330));
}

TEST(SavedGameWithItsConfiguration, IsWrittenByteByByte) {
  const OctetsPartie attendu = en_ligne();
  Contenu_partie partie = lire(OctetsPartie(2)).contenu;
  partie.fichier_lancement = "~tmp.~ci";
  partie.en_ligne.ordre(1) = 2;
  partie.en_ligne.ordre(2) = 1;
  partie.en_ligne.scores = {{"Zoé", 999000, 1}, {"Ann", 12, 1}, {"", -5, 4}};
  EXPECT_EQ(écrire(partie), attendu.octets());
}

TEST(SavedGameWithItsConfiguration, HasFiveSlotsMoreAndOneAScore) {
  EXPECT_THAT(en_ligne().cases, SizeIs(fixes_avant + 5 + 3 + 330 + bilans));
  EXPECT_EQ(écrire(lire(en_ligne()).contenu), en_ligne().octets());
  const OctetsPartie sans_score(1, {1, 4, 2, 3}, {});
  EXPECT_EQ(écrire(lire(sans_score).contenu), sans_score.octets());
}

TEST(SavedGameWithItsConfiguration, CutInAnyOfItsFirstSlotsIsAFault) {
  const std::string octets = en_ligne().octets();
  for (std::size_t place = 0; place < static_cast<std::size_t>(en_ligne().case_paires); ++place)
    for (const std::size_t reste : {std::size_t{0}, std::size_t{1}})
      EXPECT_EQ(lire(octets.substr(0, place * taille_de_case + reste)).défaut,
                (Défaut_de_case{static_cast<int>(place) + 1, Cause::fin_du_fichier}))
          << place + 1 << " + " << reste;
}

TEST(SavedGameWithItsConfiguration, MustHaveItsStageInItsOrder) {
  for (const int étape : {1, 2}) EXPECT_EQ(défaut(en_ligne(étape)), std::nullopt) << étape;
  for (const int étape : {3, 4}) {
    const OctetsPartie fichier = en_ligne(étape);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{fichier.case_étape, Cause::valeur})) << étape;
  }
}

TEST(SavedGameWithItsConfiguration, MustHaveAnOrderThatCanBePlayed) {
  struct Cas {
    std::vector<int> ordre;
  };
  for (const auto &[ordre] : {Cas{{1, 2, 1, 0}},
                              {{4, 4, 4, 4}},
                              {{0, 1, 2, 3}},
                              {{0, 0, 0, 0}},
                              {{1, 5, 0, 0}},
                              {{1, -1, 0, 0}},
                              {{1, 2, 3, 32767}}}) {
    const OctetsPartie fichier(1, ordre, {});
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{OctetsPartie::case_nombre - 1, Cause::valeur}))
        << testing::PrintToString(ordre);
  }
  EXPECT_EQ(défaut(OctetsPartie(1, {1, 0, 2, 0}, {})), std::nullopt);
}

TEST(SavedGameWithItsConfiguration, MustNotAnnounceMoreScoresThanThereArePlacesNorFewerThanNone) {
  for (const int nombre : {-1, -32768, 51, 32767}) {
    OctetsPartie fichier = en_ligne();
    fichier.changer(OctetsPartie::case_nombre, nombre);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{OctetsPartie::case_nombre, Cause::valeur})) << nombre;
  }
}

TEST(SavedGameWithItsConfiguration, TakesTenScoresOfEachLevel) {
  std::vector<OctetsPartie::Score> scores;
  for (int niveau = 0; niveau <= plus_haut_niveau; ++niveau)
    for (int rang = 1; rang <= nombre_rangs; ++rang) scores.push_back({"Ann", 100 - rang, niveau});
  const Lecture_partie lecture = lire(OctetsPartie(1, {1, 0, 0, 0}, scores));
  EXPECT_EQ(lecture.défaut, std::nullopt);
  EXPECT_THAT(lecture.contenu.en_ligne.scores, SizeIs(50));
}

TEST(SavedGameWithItsConfiguration, RefusesAnEleventhScoreOfALevel) {
  for (const int niveau : {0, 1, 4}) {
    const std::vector<OctetsPartie::Score> scores(11, {"Ann", 5, niveau});
    EXPECT_EQ(défaut(OctetsPartie(1, {1, 0, 0, 0}, scores)),
              (Défaut_de_case{OctetsPartie::case_premier_score + 10, Cause::valeur}))
        << niveau;
  }
}

TEST(SavedGameWithItsConfiguration, RefusesAScoreOfALevelOutside0To4) {
  for (const int niveau : {5, -1, 32767, -32768})
    EXPECT_EQ(défaut(OctetsPartie(1, {1, 0, 0, 0}, {{"Ann", 5, 1}, {"Zoe", 4, niveau}})),
              (Défaut_de_case{OctetsPartie::case_premier_score + 1, Cause::valeur}))
        << niveau;
}

TEST(SavedGameWithItsConfiguration, TakesNamesOf0And120BytesInItsScoresAndNoLongerOnes) {
  const OctetsPartie court(1, {1, 0, 0, 0}, {{"", 5, 1}, {std::string(120, 'n'), 4, 1}});
  EXPECT_EQ(défaut(court), std::nullopt);
  for (const int annoncée : {121, 65535}) {
    OctetsPartie fichier(1, {1, 0, 0, 0}, {{"Ann", 5, 1}});
    fichier.changer_texte(OctetsPartie::case_premier_score, annoncée, "Ann");
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{OctetsPartie::case_premier_score, Cause::trop_long}))
        << annoncée;
  }
}

// --- What is refused

TEST(SavedGameFormat, AnEmptyFileLacksItsFirstSlotAndAFileOfOneSlotItsSecond) {
  EXPECT_EQ(lire("").défaut, (Défaut_de_case{1, Cause::fin_du_fichier}));
  const Lecture_partie version = lire(OctetsPartie().cases.front());
  EXPECT_EQ(version.défaut, (Défaut_de_case{2, Cause::fin_du_fichier}));
  EXPECT_EQ(version.contenu.version, "Version 1.00 du 24/02/2007");
}

TEST(SavedGameFormat, TheVersionIsReadWhateverItIsAndWhateverFollows) {
  OctetsPartie fichier;
  fichier.changer_texte(OctetsPartie::case_version, "Version 0.99");
  EXPECT_EQ(lire(fichier).contenu.version, "Version 0.99");
  EXPECT_EQ(défaut(fichier), std::nullopt);
  fichier.changer(fichier.case_étape, 9);
  EXPECT_EQ(lire(fichier).contenu.version, "Version 0.99");
}

TEST(SavedGameFormat, TheLastSlotMayEndBehindItsItem) {
  const OctetsPartie fichier;
  const std::string octets = fichier.octets();
  const std::size_t dernière = octets.size() - taille_de_case;
  for (const std::size_t reste : {2U, 3U, 127U}) {
    const Lecture_partie lecture = lire(octets.substr(0, dernière + reste));
    EXPECT_EQ(lecture.défaut, std::nullopt) << reste;
    EXPECT_EQ(écrire(lecture.contenu), octets) << reste;
  }
}

TEST(SavedGameFormat, WhatStandsBehindTheLastSlotIsNotLookedAt) {
  EXPECT_EQ(lire(OctetsPartie().octets() + std::string(1000, '\xFF')).défaut, std::nullopt);
}

TEST(SavedGameFormat, AnItemThatIsHalfThereIsTheEndOfTheFile) {
  const OctetsPartie fichier;
  const std::string octets = fichier.octets();
  // The name "Ann", the score, a pair and the points of a statistic, each without its last byte.
  for (const auto &[numéro, taille] : {std::pair{fichier.case_nom, 5},
                                       {fichier.case_score, 4},
                                       {fichier.case_paires, 4},
                                       {fichier.case_bilans, 4}}) {
    const auto début = static_cast<std::size_t>(numéro - 1) * taille_de_case;
    EXPECT_EQ(lire(octets.substr(0, début + static_cast<std::size_t>(taille) - 1)).défaut,
              (Défaut_de_case{numéro, Cause::fin_du_fichier}));
    EXPECT_EQ(lire(octets.substr(0, début + static_cast<std::size_t>(taille))).défaut,
              (Défaut_de_case{numéro + 1, Cause::fin_du_fichier}));
  }
}

TEST(SavedGameFormat, AStageThatIsNoneIsAFault) {
  for (const int étape : {0, 5, 6, 7, -1, 32767, -32768}) {
    OctetsPartie fichier;
    fichier.changer(fichier.case_étape, étape);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{4, Cause::valeur})) << étape;
  }
}

TEST(SavedGameFormat, ALevelThatCannotBePlayedIsAFault) {
  OctetsPartie fichier;
  for (const int niveau : {0, 5, -1, 32767, -32768}) {
    fichier.changer(fichier.case_niveau, niveau);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{6, Cause::valeur})) << niveau;
  }
  for (const int niveau : {1, 2, 3, 4}) {
    fichier.changer(fichier.case_niveau, niveau);
    EXPECT_EQ(lire(fichier).contenu.niveau, niveau);
    EXPECT_EQ(défaut(fichier), std::nullopt) << niveau;
  }
}

TEST(SavedGameFormat, LearningModeAtAnotherLevelThanFacileIsAFault) {
  OctetsPartie fichier;
  fichier.changer(fichier.case_apprentissage, -1);
  for (const int niveau : {2, 3, 4}) {
    fichier.changer(fichier.case_niveau, niveau);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{7, Cause::valeur})) << niveau;
  }
  fichier.changer(fichier.case_niveau, 1);
  EXPECT_EQ(défaut(fichier), std::nullopt);
}

TEST(SavedGameFormat, AScoreThatNoGameUnderWayHasIsAFault) {
  OctetsPartie fichier;
  for (const int score : {0, -1, -999'999, 1'000'000, dernier_entier}) {
    fichier.changer32(fichier.case_score, score);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{8, Cause::valeur})) << score;
  }
  for (const int score : {1, 999'999}) {
    fichier.changer32(fichier.case_score, score);
    EXPECT_EQ(défaut(fichier), std::nullopt) << score;
    EXPECT_EQ(lire(fichier).contenu.score, score);
  }
}

TEST(SavedGameFormat, NamesOf0And120BytesAreReadAndLongerOnesAreAFault) {
  OctetsPartie fichier;
  for (const std::size_t longueur : {0U, 120U}) {
    fichier.changer_texte(fichier.case_nom, std::string(longueur, 'n'));
    EXPECT_EQ(défaut(fichier), std::nullopt) << longueur;
    EXPECT_EQ(lire(fichier).contenu.nom_joueur, std::string(longueur, 'n'));
  }
  for (const int annoncée : {121, 126, 127, 65535}) {
    fichier.changer_texte(fichier.case_nom, annoncée, std::string(126, 'n'));
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{5, Cause::trop_long})) << annoncée;
  }
}

TEST(SavedGameFormat, TheNameOfTheScoreFileHas126BytesAtMost) {
  for (const std::size_t longueur : {0U, 126U}) {
    const Lecture_partie lecture = lire(OctetsPartie(1, std::string(longueur, 'f')));
    EXPECT_EQ(lecture.défaut, std::nullopt) << longueur;
    EXPECT_EQ(lecture.contenu.fichier_lancement, std::string(longueur, 'f'));
  }
  for (const int annoncée : {127, 128, 65535}) {
    OctetsPartie fichier;
    fichier.changer_texte(OctetsPartie::case_fichier, annoncée, "f");
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{3, Cause::trop_long})) << annoncée;
  }
}

TEST(SavedGameFormat, AVersionTooLongForItsSlotIsAFaultOfTheFirst) {
  OctetsPartie fichier;
  fichier.changer_texte(OctetsPartie::case_version, 127, "V");
  EXPECT_EQ(défaut(fichier), (Défaut_de_case{1, Cause::trop_long}));
}

TEST(SavedGameFormat, AnIndexIsOneOfTheTable) {
  for (const auto &[étape, dernier] : {std::pair{1, 110}, {2, 330}, {4, 110}}) {
    OctetsPartie fichier(étape);
    const int numéro = fichier.case_paires + 4;
    for (const int indice : {0, 1, dernier}) {
      fichier.changer_paire(numéro, indice, -1);
      EXPECT_EQ(défaut(fichier), std::nullopt) << étape << ", " << indice;
    }
    for (const int indice : {-1, dernier + 1, 32767, -32768}) {
      fichier.changer_paire(numéro, indice, -1);
      EXPECT_EQ(défaut(fichier), (Défaut_de_case{numéro, Cause::valeur})) << étape << ", " << indice;
    }
  }
}

TEST(SavedGameFormat, TheSameObjectMayComeTwice) {
  OctetsPartie fichier;
  fichier.changer_paire(fichier.case_paires + 1, 1, -1);
  const Lecture_partie lecture = lire(fichier);
  EXPECT_EQ(lecture.défaut, std::nullopt);
  EXPECT_EQ(lecture.contenu.trouvées[0], (Paire{1, 0}));
  EXPECT_EQ(lecture.contenu.trouvées[1], (Paire{1, -1}));
}

TEST(SavedGameFormat, AnyNumberButZeroIsTrue) {
  for (const int vrai : {1, 2, -7, 256, 32767, -32768}) {
    OctetsPartie fichier;
    fichier.changer(fichier.case_niveau, 1);
    fichier.changer(fichier.case_apprentissage, vrai);
    fichier.changer_paire(fichier.case_paires, 1, vrai);
    fichier.changer(fichier.case_bilans + 1, vrai);
    const Lecture_partie lecture = lire(fichier);
    EXPECT_EQ(lecture.défaut, std::nullopt) << vrai;
    EXPECT_TRUE(lecture.contenu.apprentissage) << vrai;
    EXPECT_NE(lecture.contenu.trouvées[0].valeur, 0) << vrai;
    EXPECT_TRUE(lecture.contenu.provinces(1, 0).trouvée_étape) << vrai;
  }
}

TEST(SavedGameFormat, PointsLostBelow0OrBeyondAThousandMillionAreAFault) {
  const OctetsPartie entier;
  const int premier = entier.case_bilans, première_région = premier + 1100, première_ville = premier + 1140;
  for (const int numéro : {premier, première_région - 2, première_région, première_ville, premier + 1798}) {
    OctetsPartie fichier = entier;
    for (const int points : {-1, -1023, 1'000'000'001, dernier_entier, -dernier_entier - 1}) {
      fichier.changer32(numéro, points);
      EXPECT_EQ(défaut(fichier), (Défaut_de_case{numéro, Cause::valeur})) << numéro << ", " << points;
    }
    for (const int points : {0, 1'000'000'000}) {
      fichier.changer32(numéro, points);
      EXPECT_EQ(défaut(fichier), std::nullopt) << numéro << ", " << points;
    }
  }
}

TEST(SavedGameFormat, TheFirstFaultIsTheOneThatIsTold) {
  OctetsPartie fichier;
  fichier.changer(fichier.case_niveau, 9);
  fichier.changer32(fichier.case_score, 0);
  EXPECT_EQ(défaut(fichier), (Défaut_de_case{fichier.case_niveau, Cause::valeur}));
}

// --- Damage at random

enum class Item { texte, entier16, entier32, booléen, paire };

Item item_de_la_case(const OctetsPartie &fichier, int numéro) {
  if (numéro == 1 || numéro == OctetsPartie::case_fichier || numéro == fichier.case_nom) return Item::texte;
  if (numéro == fichier.case_score) return Item::entier32;
  if (numéro == fichier.case_apprentissage) return Item::booléen;
  if (numéro < fichier.case_paires) return Item::entier16;
  if (numéro < fichier.case_bilans) return Item::paire;
  return (numéro - fichier.case_bilans) % 2 == 0 ? Item::entier32 : Item::booléen;
}

/// What a program writes that has read this slot and found it good: the item as it is, but true as -1, and
/// behind it nothing.
std::string case_réécrite(Item item, std::string octets) {
  const auto octet = [&](std::size_t i) {
    return static_cast<std::size_t>(static_cast<unsigned char>(octets[i]));
  };
  std::size_t taille = 0;
  switch (item) {
    case Item::texte: taille = 2 + octet(0) + 256 * octet(1); break;
    case Item::entier16: taille = 2; break;
    case Item::entier32:
    case Item::paire: taille = 4; break;
    case Item::booléen:
      taille = 2;
      if (octet(0) + octet(1) != 0) octets[0] = octets[1] = '\xFF';
      break;
  }
  octets.resize(std::min(taille, taille_de_case));
  octets.resize(taille_de_case, '\0');
  return octets;
}

/// One file, of which one bit at a time is turned over.
class SavedGameWithABitTurned : public testing::Test {
 protected:
  void retourner(std::size_t bit) {
    const std::size_t place = bit / 8;
    const int numéro = static_cast<int>(place / taille_de_case) + 1;
    const std::size_t début = place - place % taille_de_case;
    std::string abîmés = octets;
    abîmés[place] = static_cast<char>(abîmés[place] ^ (1 << (bit % 8)));
    const Lecture_partie lecture = lire(abîmés);
    if (lecture.défaut) {
      EXPECT_GE(lecture.défaut->numéro, numéro) << bit;
      ++refusés;
      return;
    }
    abîmés.replace(début, taille_de_case,
                   case_réécrite(item_de_la_case(fichier, numéro), abîmés.substr(début, taille_de_case)));
    EXPECT_TRUE(écrire(lecture.contenu) == abîmés) << "bit " << bit << " of slot " << numéro;
    ++acceptés;
  }

  const OctetsPartie fichier;
  const std::string octets = fichier.octets();
  int refusés = 0, acceptés = 0;
};

TEST_F(SavedGameWithABitTurned, AmongTheFirst4000IsFoundOutOrReadAsItStands) {
  constexpr std::size_t premiers = 4000;
  for (std::size_t bit = 0; bit < premiers; ++bit) retourner(bit);
  EXPECT_GT(refusés, 0);
  EXPECT_GT(acceptés, 0);
}

TEST_F(SavedGameWithABitTurned, AnywhereIsFoundOutOrReadAsItStands) {
  std::mt19937 hasard(4082);
  for (int fois = 0; fois < 2000; ++fois) retourner(hasard() % (octets.size() * 8));
  EXPECT_GT(refusés, 0);
  EXPECT_GT(acceptés, 0);
}

TEST_F(SavedGameWithABitTurned, InAnyItemIsFoundOutOrReadAsItStands) {
  // Nearly all of a slot is padding; these hit what is read.
  std::mt19937 hasard(12);
  const std::size_t nombre = fichier.cases.size();
  for (int fois = 0; fois < 2000; ++fois) retourner(hasard() % nombre * taille_de_case * 8 + hasard() % 32);
  EXPECT_GT(refusés, 100);
  EXPECT_GT(acceptés, 100);
}

// --- Devices that fail

TEST(SavedGameWriter, ADeviceThatFailsInAnySlotIsFoundOut) {
  const Contenu_partie partie = lire(en_ligne()).contenu;
  const int cases = static_cast<int>(en_ligne().cases.size());
  for (int bonnes = 0; bonnes < cases; ++bonnes) {
    AppareilDéfaillant appareil(static_cast<std::size_t>(bonnes) * taille_de_case);
    std::ostream flux(&appareil);
    ASSERT_EQ(écrire_partie(flux, partie), (Défaut_de_case{bonnes + 1, Cause::écriture})) << bonnes;
  }
  AppareilDéfaillant assez(static_cast<std::size_t>(cases) * taille_de_case);
  std::ostream flux(&assez);
  EXPECT_EQ(écrire_partie(flux, partie), std::nullopt);
}

TEST(SavedGameWriter, ADeviceThatFailsWithinASlotIsFoundOut) {
  const Contenu_partie partie = lire(OctetsPartie()).contenu;
  for (const std::size_t octets : {1U, 127U, 129U, 10'000U, 245'503U}) {
    AppareilDéfaillant appareil(octets);
    std::ostream flux(&appareil);
    EXPECT_EQ(écrire_partie(flux, partie),
              (Défaut_de_case{static_cast<int>(octets / taille_de_case) + 1, Cause::écriture}))
        << octets;
  }
}

TEST(SavedGameWriter, AFullDeviceIsFoundOut) {
  std::ofstream flux("/dev/full", std::ios::binary);
  ASSERT_TRUE(flux.is_open());
  EXPECT_TRUE(écrire_partie(flux, lire(OctetsPartie()).contenu));
}

TEST(SavedGameWriter, ATextTooLongForItsSlotIsNotWritten) {
  const Contenu_partie partie = lire(en_ligne()).contenu;
  std::ostringstream flux;
  Contenu_partie longue = partie;
  longue.version = std::string(127, 'V');
  EXPECT_EQ(écrire_partie(flux, longue), (Défaut_de_case{1, Cause::trop_long}));
  longue = partie;
  longue.fichier_lancement = "/" + std::string(126, 'f');
  EXPECT_EQ(écrire_partie(flux, longue), (Défaut_de_case{3, Cause::trop_long}));
  longue = partie;
  longue.en_ligne.scores[1].nom = std::string(121, 'n');
  EXPECT_EQ(écrire_partie(flux, longue), (Défaut_de_case{10, Cause::trop_long}));
  longue = partie;
  longue.nom_joueur = std::string(127, 'n');
  EXPECT_EQ(écrire_partie(flux, longue), (Défaut_de_case{en_ligne().case_nom, Cause::trop_long}));
}

TEST(SavedGameReader, ADeviceThatFailsIsTold) {
  // It yields bytes of 1 until it fails: a version of 257 bytes.
  AppareilDéfaillant appareil(5);
  std::istream flux(&appareil);
  EXPECT_EQ(lire_partie(flux).défaut, (Défaut_de_case{1, Cause::lecture}));
}

TEST(SavedGameReader, AFaultLeavesNothingOfWhatStandsBehindIt) {
  OctetsPartie fichier;
  fichier.changer_paire(fichier.case_paires + 3, 111, 0);
  const Contenu_partie partie = lire(fichier).contenu;
  EXPECT_THAT(partie.trouvées, SizeIs(3));
  EXPECT_THAT(std::vector<Bilan>(partie.villes.begin(), partie.villes.end()), Each(Bilan{}));
}

}  // namespace
}  // namespace ardane
