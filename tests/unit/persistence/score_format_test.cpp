#include "persistence/score_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/failing_device.h"
#include "support/score_bytes.h"
#include "support/table_values.h"

namespace ardane {
namespace {

using Cause = Défaut_de_case::Cause;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

Lecture_scores lire_octets(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_scores(flux);
}

Lecture_scores lire_octets(const OctetsScores &fichier) {
  return lire_octets(fichier.octets());
}

Défaut_de_case défaut(const OctetsScores &fichier) {
  return lire_octets(fichier).défaut.value_or(Défaut_de_case{});
}

TEST(ScoreFormat, AWholeFileIsReadInItsOrder) {
  OctetsScores fichier;
  fichier.changer(case_inhibée + 11, -1);
  fichier.changer(case_langue, 2);
  fichier.score("Ann", 999000, 1);
  fichier.score("Zo\xE9", 5, 4);
  fichier.score("", -7, 0);
  const Lecture_scores lecture = lire_octets(fichier);
  ASSERT_FALSE(lecture.défaut);
  EXPECT_EQ(lecture.contenu.version, "Version 1.00 du 24/02/2007");
  EXPECT_THAT(valeurs(lecture.contenu.ordre), ElementsAre(1, 4, 2, 3));
  for (int p = 1; p <= nombre_provinces; ++p) EXPECT_EQ(lecture.contenu.inhibée(p), p == 12) << p;
  EXPECT_EQ(lecture.contenu.langue, 2);
  EXPECT_THAT(lecture.contenu.scores,
              ElementsAre(Enregistrement_score{"Ann", 999000, 1}, Enregistrement_score{"Zoé", 5, 4},
                          Enregistrement_score{"", -7, 0}));
}

TEST(ScoreFormat, AFileWithoutScoresHas117Slots) {
  const Lecture_scores lecture = lire_octets(OctetsScores());
  EXPECT_FALSE(lecture.défaut);
  EXPECT_THAT(lecture.contenu.scores, IsEmpty());
}

TEST(ScoreFormat, AFileCutBeforeTheEndOfItsFixedPartIsAFault) {
  const OctetsScores fichier;
  const std::string octets = fichier.octets();
  for (std::size_t place = 0; place < static_cast<std::size_t>(case_langue); ++place) {
    // The item of every slot is a number but the first, a text of 26 bytes.
    const std::size_t item = place == 0 ? 28 : 2;
    for (const std::size_t reste : {std::size_t{0}, std::size_t{1}, item - 1}) {
      const auto lecture = lire_octets(octets.substr(0, place * taille_de_case + reste));
      EXPECT_EQ(lecture.défaut, (Défaut_de_case{static_cast<int>(place) + 1, Cause::fin_du_fichier}))
          << place + 1 << " + " << reste;
    }
  }
}

TEST(ScoreFormat, TheLastFixedSlotMayBeCutBehindItsItem) {
  const std::string octets = OctetsScores().octets();
  EXPECT_FALSE(lire_octets(octets.substr(0, octets.size() - taille_de_case + 2)).défaut);
}

TEST(ScoreFormat, AmongTheScoresTheEndOfTheFileEndsTheList) {
  OctetsScores fichier;
  fichier.score("Ann", 3, 1);
  fichier.score("Zoé", 2, 1);
  const std::string octets = fichier.octets();
  const std::size_t début = (case_premier_score - 1) * taille_de_case;
  const std::size_t premier = 2 + 3 + 6, second = 2 + 4 + 6;
  for (std::size_t longueur = début; longueur <= octets.size(); ++longueur) {
    const Lecture_scores lecture = lire_octets(octets.substr(0, longueur));
    EXPECT_FALSE(lecture.défaut) << longueur;
    const std::size_t attendus =
        (longueur >= début + premier ? 1U : 0U) + (longueur >= début + taille_de_case + second ? 1U : 0U);
    EXPECT_THAT(lecture.contenu.scores, SizeIs(attendus)) << longueur;
  }
}

TEST(ScoreFormat, FewerPlacesLeaveTheRestUnused) {
  OctetsScores fichier;
  fichier.changer(case_nombre, 3);
  fichier.cases.erase(fichier.cases.begin() + case_ordre + 2);
  fichier.changer(case_inhibée - 1, -1);
  const Lecture_scores lecture = lire_octets(fichier);
  ASSERT_FALSE(lecture.défaut);
  EXPECT_THAT(valeurs(lecture.contenu.ordre), ElementsAre(1, 4, 2, 0));
  EXPECT_TRUE(lecture.contenu.inhibée(1));
  EXPECT_FALSE(lecture.contenu.inhibée(2));
}

TEST(ScoreFormat, MoreThanFourPlacesOrFewerThanNoneAreAFault) {
  for (const int places : {5, -1, 32767, -32768}) {
    OctetsScores fichier;
    fichier.changer(case_nombre, places);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{case_nombre, Cause::valeur})) << places;
  }
}

TEST(ScoreFormat, AnOrderThatBeginsWithNoStageIsAFault) {
  OctetsScores sans_place;
  sans_place.changer(case_nombre, 0);
  EXPECT_EQ(défaut(sans_place), (Défaut_de_case{case_nombre, Cause::valeur}));
  OctetsScores vide;
  for (int i = 0; i < nombre_jeux; ++i) vide.changer(case_ordre + i, 0);
  EXPECT_EQ(défaut(vide), (Défaut_de_case{case_ordre + 3, Cause::valeur}));
}

TEST(ScoreFormat, AnOrderMayEndEarly) {
  OctetsScores fichier;
  for (int i = 1; i < nombre_jeux; ++i) fichier.changer(case_ordre + i, 0);
  EXPECT_THAT(valeurs(lire_octets(fichier).contenu.ordre), ElementsAre(1, 0, 0, 0));
  EXPECT_FALSE(lire_octets(fichier).défaut);
}

TEST(ScoreFormat, AnOrderWithACodeThatIsNoStagesIsAFault) {
  for (const int code : {5, -1, 6, 7, 32767}) {
    OctetsScores fichier;
    fichier.changer(case_ordre + 1, code);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{case_ordre + 3, Cause::valeur})) << code;
  }
}

TEST(ScoreFormat, AnOrderWithAStageTwiceIsAFault) {
  OctetsScores fichier;
  fichier.changer(case_ordre + 2, 1);
  EXPECT_EQ(défaut(fichier), (Défaut_de_case{case_ordre + 3, Cause::valeur}));
}

TEST(ScoreFormat, AnyNumberButZeroLeavesAProvinceOut) {
  OctetsScores fichier;
  fichier.changer(case_inhibée, 1);
  fichier.changer(case_inhibée + 1, -2);
  fichier.changer(case_inhibée + 2, 256);
  const Lecture_scores lecture = lire_octets(fichier);
  EXPECT_FALSE(lecture.défaut);
  EXPECT_TRUE(lecture.contenu.inhibée(1));
  EXPECT_TRUE(lecture.contenu.inhibée(2));
  EXPECT_TRUE(lecture.contenu.inhibée(3));
  EXPECT_FALSE(lecture.contenu.inhibée(4));
}

TEST(ScoreFormat, AllProvincesLeftOutAreAFault) {
  OctetsScores fichier;
  for (int p = 0; p < nombre_provinces; ++p) fichier.changer(case_inhibée + p, -1);
  EXPECT_EQ(défaut(fichier), (Défaut_de_case{case_langue - 1, Cause::valeur}));
  fichier.changer(case_inhibée + 50, 0);
  EXPECT_FALSE(lire_octets(fichier).défaut);
}

TEST(ScoreFormat, ALevelOutside0To4IsAFault) {
  for (const int niveau : {-1, 5, 32767}) {
    OctetsScores fichier;
    fichier.score("Ann", 2, 1);
    fichier.score("Zoé", 1, niveau);
    const Lecture_scores lecture = lire_octets(fichier);
    EXPECT_EQ(lecture.défaut, (Défaut_de_case{case_premier_score + 1, Cause::valeur})) << niveau;
    EXPECT_THAT(lecture.contenu.scores, SizeIs(1)) << niveau;
  }
  for (const int niveau : {0, 1, 4}) {
    OctetsScores fichier;
    fichier.score("Ann", 2, niveau);
    EXPECT_FALSE(lire_octets(fichier).défaut) << niveau;
  }
}

TEST(ScoreFormat, AnEleventhScoreOfALevelIsAFault) {
  for (const int niveau : {0, 2, 4}) {
    OctetsScores fichier;
    fichier.score("autre", 1, 1);
    for (int i = 0; i < nombre_rangs; ++i) fichier.score("Ann", 100 - i, niveau);
    EXPECT_FALSE(lire_octets(fichier).défaut) << niveau;
    fichier.score("Ann", 1, niveau);
    EXPECT_EQ(défaut(fichier), (Défaut_de_case{case_premier_score + 11, Cause::valeur})) << niveau;
  }
}

TEST(ScoreFormat, NamesOf0And120BytesAreReadAndLongerOnesAreAFault) {
  OctetsScores fichier;
  fichier.score("", 2, 1);
  fichier.score(std::string(120, 'n'), 1, 1);
  EXPECT_FALSE(lire_octets(fichier).défaut);
  for (const int annoncée : {121, 65535}) {
    OctetsScores long_nom;
    long_nom.score(annoncée, "Ann", 1, 1);
    EXPECT_EQ(défaut(long_nom), (Défaut_de_case{case_premier_score, Cause::trop_long})) << annoncée;
  }
}

TEST(ScoreFormat, TheVersionIsReadWhateverFollows) {
  OctetsScores fichier;
  fichier.changer(case_nombre, 5);
  EXPECT_EQ(lire_octets(fichier).contenu.version, "Version 1.00 du 24/02/2007");
  EXPECT_EQ(lire_octets("").contenu.version, "");
  EXPECT_EQ(lire_octets("").défaut, (Défaut_de_case{1, Cause::fin_du_fichier}));
}

TEST(ScoreFormat, TheFileIsWrittenByteByByte) {
  OctetsScores attendu;
  attendu.changer(case_inhibée + 109, -1);
  attendu.score("Zo\xE9", 999999, 1);
  attendu.score("Ann", 0, 4);
  Contenu_scores contenu;
  contenu.version = "Version 1.00 du 24/02/2007";
  contenu.ordre(1) = 1, contenu.ordre(2) = 4, contenu.ordre(3) = 2, contenu.ordre(4) = 3;
  contenu.inhibée(110) = true;
  contenu.langue = 1;
  contenu.scores = {{"Zoé", 999999, 1}, {"Ann", 0, 4}};
  std::ostringstream flux;
  EXPECT_FALSE(écrire_scores(flux, contenu));
  EXPECT_EQ(flux.str(), attendu.octets());
}

TEST(ScoreFormat, ADeviceThatFailsAfterAnyNumberOfBytesIsFoundOut) {
  Contenu_scores contenu;
  contenu.version = "Version";
  contenu.scores.assign(3, {"Ann", 1, 1});
  const std::size_t tout = (case_langue + 3) * taille_de_case;
  for (std::size_t n = 0; n < tout; n += 61) {
    AppareilDéfaillant appareil(n);
    std::ostream flux(&appareil);
    const auto échec = écrire_scores(flux, contenu);
    ASSERT_TRUE(échec) << n;
    EXPECT_EQ(*échec, (Défaut_de_case{static_cast<int>(n / taille_de_case) + 1, Cause::écriture})) << n;
  }
  AppareilDéfaillant assez(tout);
  std::ostream flux(&assez);
  EXPECT_FALSE(écrire_scores(flux, contenu));
}

TEST(ScoreFormat, AFullDeviceIsFoundOut) {
  std::ofstream flux("/dev/full", std::ios::binary);
  ASSERT_TRUE(flux.is_open());
  EXPECT_TRUE(écrire_scores(flux, {}));
}

TEST(ScoreFormat, ATextTooLongForItsSlotIsNotWritten) {
  Contenu_scores contenu;
  contenu.scores = {{std::string(121, 'n'), 1, 1}};
  std::ostringstream flux;
  EXPECT_EQ(écrire_scores(flux, contenu), (Défaut_de_case{case_premier_score, Cause::trop_long}));
}

}  // namespace
}  // namespace ardane
