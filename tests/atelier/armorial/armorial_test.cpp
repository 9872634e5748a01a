// The armorial as a whole: every province and region has its arms, drawn in the size and form the game shows.
#include "armorial/armorial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <sstream>

#include "armorial/paint.h"

namespace atelier {
namespace {

const std::filesystem::path data = ATELIER_DATA;

const Meubles &meubles() {
  static const Meubles result = Meubles::lire(data / "charges.txt");
  return result;
}
const Armorial &armorial() {
  static const Armorial result = lire_armorial(data / "armorial.txt", meubles());
  return result;
}

std::string contents(const std::filesystem::path &file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

std::string refus(const std::string &texte) {
  const auto fichier =
      std::filesystem::path(testing::TempDir()) /
      (std::string("armorial_") + testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt");
  std::ofstream(fichier, std::ios::binary) << texte;
  try {
    lire_armorial(fichier, meubles());
  } catch (const std::runtime_error &failure) {
    return failure.what();
  }
  return "accepted";
}

TEST(Armorial, EveryBlazonIsReadAndNoneIsThereTwice) {
  std::set<std::string> texts;
  for (int p = 1; p <= nombre_provinces; ++p)
    EXPECT_TRUE(texts.insert(armorial().provinces[static_cast<std::size_t>(p)].texte).second) << p;
  for (int r = 1; r <= nombre_régions; ++r)
    EXPECT_TRUE(texts.insert(armorial().régions[static_cast<std::size_t>(r)].texte).second) << r;
}

TEST(Armorial, ABadFileIsRefusedWithTheLine) {
  std::string good = contents(data / "armorial.txt");
  EXPECT_EQ(refus(good), "accepted");
  EXPECT_NE(refus(good + "province|1|murale|d'azur\n").find("given twice: 1"), std::string::npos);
  EXPECT_NE(refus(good + "province|111|murale|d'azur\n").find("no such number: 111"), std::string::npos);
  EXPECT_NE(refus("pays|murale|d'azur\nville|1|d'azur\n").find("line 2: unknown line"), std::string::npos);
  EXPECT_NE(refus("pays|d'azur\n").find("line 1: a field is missing"), std::string::npos);
  EXPECT_NE(refus("pays|papale|d'azur\n").find("couronne papale"), std::string::npos);
  EXPECT_NE(refus("région|1|d'or à la tour d'argent\n").find("line 1"), std::string::npos);
  EXPECT_NE(refus("pays|murale|d'azur\n").find("has no arms"), std::string::npos);
}

TEST(Armorial, AShieldStandsUnderItsCrownOnATransparentGround) {
  for (const std::size_t p : {1U, 48U, 51U, 107U}) {
    const Image image = dessiner_armes(armorial().provinces[p], meubles());
    ASSERT_EQ(image.width(), 2 * largeur_des_armes);
    ASSERT_EQ(image.height(), 2 * hauteur_des_armes);
    for (const auto &[x, y] : {std::pair{0, 0}, {199, 0}, {0, 281}, {199, 281}})
      EXPECT_EQ(image.at(x, y).a, 0);
    EXPECT_EQ(image.at(100, 160).a, 255);
    int crown = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < image.width(); ++x) crown += image.at(x, y).a > 127;
    EXPECT_GT(crown, 1500) << p;
  }
}

/// How many pixels of the picture are nearest to each tincture, from or to pourpre.
std::array<int, 7> tinctures_seen(const Image &image) {
  std::array<int, 7> seen{};
  for (const Pixel &p : image.pixels()) {
    if (p.a < 128) continue;
    const auto difference = [&p](std::size_t i) {
      const Pixel q = couleur(static_cast<Émail>(i));
      return (p.r - q.r) * (p.r - q.r) + (p.g - q.g) * (p.g - q.g) + (p.b - q.b) * (p.b - q.b);
    };
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < seen.size(); ++i)
      if (difference(i) < difference(nearest)) nearest = i;
    ++seen[nearest];
  }
  return seen;
}

void expect_tinctures_of_the_text(const Armoiries &armoiries, const Image &image) {
  const auto seen = tinctures_seen(image);
  std::string words = armoiries.texte;
  std::replace_if(
      words.begin(), words.end(), [](char c) { return c == '\'' || c == ',' || c == ';'; }, ' ');
  std::istringstream in(words);
  for (std::string word; in >> word;)
    for (std::size_t i = 0; i < seen.size(); ++i) {
      if (word == nom(static_cast<Émail>(i))) {
        EXPECT_GT(seen[i], 60) << word << " of " << armoiries.texte;
      }
    }
}

TEST(Armorial, EveryTinctureOfABlazonIsSeenInItsDrawing) {
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Armoiries &armoiries = armorial().provinces[static_cast<std::size_t>(p)];
    expect_tinctures_of_the_text(armoiries, dessiner_armes(armoiries, meubles()));
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    const Armoiries &armoiries = armorial().régions[static_cast<std::size_t>(r)];
    expect_tinctures_of_the_text(armoiries, dessiner_drapeau(armoiries, meubles()));
  }
}

TEST(Armorial, EveryDivisionPieceAndArrangementCanBeDrawn) {
  for (const char *text : {
           "de vair au pal de gueules",
           "d'hermine à la fasce de sable",
           "bandé ondé d'or et d'azur",
           "barré d'or et d'azur",
           "chevronné d'or et de gueules",
           "losangé d'or et d'azur",
           "échiqueté d'argent et de sable",
           "gironné d'or et de gueules",
           "palé d'or et d'azur de quatre pièces",
           "écartelé, aux 1 et 4 d'azur à la tour d'or ; aux 2 et 3 d'or à trois roses de gueules",
           "tiercé en pal d'or, d'azur et de gueules",
           "tranché dentelé d'or et d'azur",
           "taillé ondé d'or et d'azur",
           "d'or, chaussé d'azur, à l'aigle de sable",
           "d'or à la pile de gueules chargée d'une étoile d'or",
           "d'or à la pointe de gueules accompagnée de deux étoiles d'azur",
           "d'or au chevron engrêlé de gueules chargé de trois étoiles d'or",
           "d'or à la croix engrêlée de gueules chargée de cinq coquilles d'argent",
           "d'or au sautoir crénelé d'azur chargé de cinq étoiles d'or",
           "d'argent à la bande d'azur chargée de trois étoiles d'or",
           "d'argent à deux pals de gueules chargés de quatre étoiles d'or",
           "d'azur à la barre d'or accompagnée de deux étoiles d'argent",
           "d'or à dix étoiles de gueules",
           "d'or à onze étoiles de gueules",
           "d'azur à l'étoile d'or, au chef d'argent",
           "d'azur à huit étoiles d'or rangées en orle",
           "d'azur à trois épées d'argent rangées en bande",
           "d'azur à l'épée d'argent posée en barre",
           "d'azur au pairle d'or accompagné de trois étoiles d'argent",
           "d'argent à la champagne d'azur chargée de trois burelles ondées d'argent, à la tour de gueules",
           "de sinople au franc-canton d'argent chargé d'une croix de gueules",
           "d'azur à l'étoile d'or, accostée d'une main d'argent",
           "d'or au cœur de gueules, surmonté d'une couronne d'azur",
       }) {
    const Armoiries armoiries{"murale", text, lire_blason(text, meubles())};
    expect_tinctures_of_the_text(armoiries, dessiner_armes(armoiries, meubles()));
    expect_tinctures_of_the_text(armoiries, dessiner_drapeau(armoiries, meubles()));
  }
}

TEST(Armorial, AFlagCoversItsPicture) {
  const Image image = dessiner_drapeau(armorial().régions[1], meubles());
  ASSERT_EQ(image.width(), 2 * largeur_du_drapeau);
  ASSERT_EQ(image.height(), 2 * hauteur_du_drapeau);
  for (const Pixel &p : image.pixels()) ASSERT_EQ(p.a, 255);
}

TEST(Armorial, TincturesAreFlat) {
  const Image arms = dessiner_armes(
      {"murale", "d'azur au chef d'or", lire_blason("d'azur au chef d'or", meubles())}, meubles());
  const Pixel blue = couleur(Émail::azur);
  const Pixel gold = couleur(Émail::or_);
  for (int x = 30; x < 170; ++x) {
    EXPECT_EQ(arms.at(x, 100), gold);
    EXPECT_EQ(arms.at(x, 200), blue);
  }
}

TEST(Armorial, AFlagIsUndistortedWhereThePanelStretchesIt) {
  const Image image = dessiner_drapeau(
      {"", "d'azur au besant d'or", lire_blason("d'azur au besant d'or", meubles())}, meubles());
  const Pixel blue = couleur(Émail::azur);
  int left = image.width(), right = 0, top = image.height(), bottom = 0;
  for (int y = 12; y < image.height() - 12; ++y)
    for (int x = 12; x < image.width() - 12; ++x) {
      if (image.at(x, y) == blue) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  const double shown_width = (right - left + 1) * 200.0 / image.width();
  const double shown_height = (bottom - top + 1) * 177.0 / image.height();
  EXPECT_NEAR(shown_width / shown_height, 1, 0.02);
}

TEST(Armorial, NoFlagShowsWhatAProvinceOfItsRegionBears) {
  for (const auto &[flag, province] : {std::pair{1, 3}, {2, 9}, {12, 68}, {16, 92}, {17, 97}, {18, 105}}) {
    std::set<std::string> charges;
    for (const Objet &o : armorial().provinces[static_cast<std::size_t>(province)].blason.objets)
      charges.insert(o.meuble);
    charges.erase("");
    for (const Objet &o : armorial().régions[static_cast<std::size_t>(flag)].blason.objets)
      EXPECT_FALSE(charges.contains(o.meuble)) << "flag " << flag;
  }
}

TEST(Armorial, AWavyBorderKeepsItsPhaseAroundTheShield) {
  const Image image = dessiner_armes(
      {"murale", "d'or à la bordure ondée d'azur", lire_blason("d'or à la bordure ondée d'azur", meubles())},
      meubles());
  const Pixel gold = couleur(Émail::or_);
  const auto crests = [&](const auto &depth_at, int from, int to) {
    std::vector<int> tops;
    for (int i = from + 3; i < to - 3; ++i) {
      bool top = true;
      for (int k = 1; k <= 3; ++k)
        top = top && depth_at(i) >= depth_at(i - k) && depth_at(i) >= depth_at(i + k);
      if (top && (tops.empty() || i - tops.back() > 6)) tops.push_back(i);
    }
    return tops;
  };
  const auto from_top = [&](int x) {
    int y = 75;
    while (image.at(x, y) != gold) ++y;
    return y;
  };
  const auto from_left = [&](int y) {
    int x = 8;
    while (image.at(x, y) != gold) ++x;
    return x;
  };
  std::vector<int> gaps;
  for (const auto &tops : {crests(from_top, 40, 160), crests(from_left, 100, 180)}) {
    ASSERT_GE(tops.size(), 3U);
    for (std::size_t i = 1; i < tops.size(); ++i) gaps.push_back(tops[i] - tops[i - 1]);
  }
  const auto [least, most] = std::minmax_element(gaps.begin(), gaps.end());
  EXPECT_LE(*most - *least, 4);
}

TEST(Armorial, AChargeWithoutRoomIsTold) {
  const Armoiries crowded{
      "", "", lire_blason("d'or à neuf burelles d'azur chargées de neuf châteaux d'argent", meubles())};
  EXPECT_THROW(dessiner_drapeau(crowded, meubles()), Erreur_de_blason);
}

TEST(Armorial, TheDocumentHasEveryProvinceWithItsBlazonAndPicture) {
  const auto text = contents(std::filesystem::path(DOCS) / "armorial.md");
  const Données données = lire_données(data);
  for (int p = 1; p <= nombre_provinces; ++p) {
    const auto i = static_cast<std::size_t>(p);
    const auto start = text.find("\n| " + std::to_string(p) + " | " + données.provinces[i].nom + " |");
    ASSERT_NE(start, std::string::npos) << p;
    const std::string row = text.substr(start + 1, text.find('\n', start + 1) - start - 1);
    EXPECT_NE(row.find(armorial().provinces[i].texte), std::string::npos) << row;
    EXPECT_NE(row.find(fichier_numéroté("drapeau", p, 3)), std::string::npos) << row;
  }
}

}  // namespace
}  // namespace atelier
