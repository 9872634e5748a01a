// Every two arms, and every two flags, can be told apart at a glance, by colour-blind players too.
//
// A glance is taken as the picture in blocks of 4 x 4 pixels of the plain drawing, 25 x 35 of them for arms;
// the distance is the mean colour difference of the blocks, in CIE Lab. A difference of 2.3 in one colour is
// just noticeable (Mahy, Van Eycken and Oosterlinck, "Evaluation of uniform color spaces developed after the
// adoption of CIELAB and CIELUV", 1994). The threshold for arms lies at five times that over the whole
// picture, most of which is the same in any two arms that have their field in common: changes that nobody
// misses stay below it, as the tests of the yardstick show. Flags fill their picture and are so few that more
// can be asked of them.
#include <gtest/gtest.h>

#include <algorithm>

#include "armorial/armorial.h"
#include "vision.h"

namespace {

using namespace atelier;
using vision::Eyes;

constexpr double least_between_arms = 12;
constexpr double least_between_flags = 20;
/// Of the 2x drawing.
constexpr int block = 8;

const std::filesystem::path data = ATELIER_DATA;

const Meubles &meubles() {
  static const Meubles result = Meubles::lire(data / "charges.txt");
  return result;
}

Image arms(const std::string &blazon) {
  return dessiner_armes({"murale", blazon, lire_blason(blazon, meubles())}, meubles());
}

double distance_of(const std::string &one, const std::string &other, Eyes eyes) {
  return vision::distance(vision::impression(arms(one), block, eyes),
                          vision::impression(arms(other), block, eyes));
}

void expect_all_apart(const std::vector<Image> &pictures, const std::vector<Armoiries> &armoiries,
                      double least) {
  for (const Eyes eyes : vision::all_eyes) {
    std::vector<vision::Impression> impressions;
    impressions.reserve(pictures.size());
    for (const Image &picture : pictures) impressions.push_back(vision::impression(picture, block, eyes));
    double closest = 1e9;
    for (std::size_t i = 0; i < impressions.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) {
        const double d = vision::distance(impressions[i], impressions[j]);
        closest = std::min(closest, d);
        EXPECT_GE(d, least) << j + 1 << " (" << armoiries[j + 1].texte << ") and " << i + 1 << " ("
                            << armoiries[i + 1].texte << ") in " << vision::name(eyes);
      }
    testing::Test::RecordProperty("closest in " + std::string(vision::name(eyes)), std::to_string(closest));
  }
}

TEST(Distance, EveryTwoArmsLookUnlike) {
  const Armorial armorial = lire_armorial(data / "armorial.txt", meubles());
  std::vector<Image> pictures;
  for (std::size_t p = 1; p < armorial.provinces.size(); ++p)
    pictures.push_back(dessiner_armes(armorial.provinces[p], meubles()));
  expect_all_apart(pictures, armorial.provinces, least_between_arms);
}

TEST(Distance, EveryTwoFlagsLookUnlike) {
  const Armorial armorial = lire_armorial(data / "armorial.txt", meubles());
  std::vector<Image> pictures;
  for (std::size_t r = 1; r < armorial.régions.size(); ++r)
    pictures.push_back(dessiner_drapeau(armorial.régions[r], meubles()));
  expect_all_apart(pictures, armorial.régions, least_between_flags);
}

TEST(Yardstick, ChangesThatNobodyMissesStayBelowTheThreshold) {
  const std::pair<const char *, const char *> changes[] = {
      {"d'azur à l'étoile d'or", "d'azur à l'étoile d'argent"},
      {"d'azur à trois étoiles d'or", "d'azur à deux étoiles d'or"},
      {"d'azur au chef d'or", "d'azur au chef d'or chargé de trois étoiles de gueules"},
  };
  for (const auto &[one, other] : changes) {
    const double d = distance_of(one, other, Eyes::normal);
    EXPECT_GT(d, 2.3) << one << " / " << other;
    EXPECT_LT(d, least_between_arms) << one << " / " << other;
  }
}

TEST(Yardstick, ATinctureAloneIsNotEnoughForAColourBlindPlayer) {
  const char *one = "d'or au lion de gueules";
  const char *other = "d'or au lion de sinople";
  EXPECT_GT(distance_of(one, other, Eyes::normal), least_between_arms);
  EXPECT_LT(distance_of(one, other, Eyes::protanopia), least_between_arms);
  EXPECT_LT(distance_of(one, other, Eyes::deuteranopia), least_between_arms);
}

TEST(Yardstick, LabOfKnownColours) {
  const auto white = vision::lab({255, 255, 255}, Eyes::normal);
  EXPECT_NEAR(white.l, 100, 0.05);
  EXPECT_NEAR(white.a, 0, 0.1);
  EXPECT_NEAR(white.b, 0, 0.1);
  const auto red = vision::lab({255, 0, 0}, Eyes::normal);
  EXPECT_NEAR(red.l, 53.2, 0.1);
  EXPECT_NEAR(red.a, 80.1, 0.2);
  EXPECT_NEAR(red.b, 67.2, 0.2);
  // Who lacks the cones for red sees it dark, and grey as it is.
  EXPECT_LT(vision::lab({255, 0, 0}, Eyes::protanopia).l, 50);
  for (const Eyes eyes : vision::all_eyes) EXPECT_NEAR(vision::lab({128, 128, 128}, eyes).l, 53.6, 0.2);
}

}  // namespace
