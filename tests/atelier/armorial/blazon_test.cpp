// The language of blazons: what is read, and what is refused with which words.
#include "armorial/blazon.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "armorial/charges.h"

namespace atelier {
namespace {

const Meubles &meubles() {
  static const Meubles result = Meubles::lire(std::filesystem::path(ATELIER_DATA) / "charges.txt");
  return result;
}

Blason lire(const std::string &texte) {
  return lire_blason(texte, meubles());
}

std::string refus(const std::string &texte) {
  try {
    lire(texte);
  } catch (const Erreur_de_blason &failure) {
    return failure.what();
  }
  return "accepted";
}

TEST(Blazon, AFieldAloneIsABlazon) {
  const Blason blason = lire("d'azur");
  EXPECT_EQ(blason.champ.partition, Partition::plein);
  EXPECT_EQ(blason.champ.émaux, std::vector{Émail::azur});
  EXPECT_TRUE(blason.objets.empty());
}

TEST(Blazon, AChargeAndAChargedChief) {
  const Blason blason = lire("d'azur à la tour d'argent, au chef d'or chargé de trois étoiles de gueules");
  ASSERT_EQ(blason.objets.size(), 2U);
  EXPECT_EQ(blason.objets[0].meuble, "tour");
  EXPECT_EQ(blason.objets[0].émail, Émail::argent);
  EXPECT_EQ(blason.objets[1].pièce, Pièce::chef);
  ASSERT_EQ(blason.objets[1].annexes.size(), 1U);
  const Annexe &annexe = blason.objets[1].annexes[0];
  EXPECT_EQ(annexe.relation, Relation::chargé);
  EXPECT_EQ(annexe.objet.meuble, "étoile");
  EXPECT_EQ(annexe.objet.nombre, 3);
  EXPECT_EQ(annexe.objet.émail, Émail::gueules);
}

TEST(Blazon, EveryDivisionOfTheField) {
  struct Row {
    const char *text;
    Partition partition;
    Ligne line;
    int pieces;
  };
  const Row rows[] = {
      {"parti d'or et d'azur", Partition::parti, Ligne::droite, 0},
      {"parti dentelé d'or et d'azur", Partition::parti, Ligne::dentelée, 0},
      {"coupé ondé d'or et d'azur", Partition::coupé, Ligne::ondée, 0},
      {"coupé crénelé d'or et d'azur", Partition::coupé, Ligne::crénelée, 0},
      {"tranché engrêlé d'or et d'azur", Partition::tranché, Ligne::engrêlée, 0},
      {"taillé d'or et d'azur", Partition::taillé, Ligne::droite, 0},
      {"écartelé d'or et d'azur", Partition::écartelé, Ligne::droite, 0},
      {"écartelé en sautoir d'or et d'azur", Partition::écartelé_en_sautoir, Ligne::droite, 0},
      {"tiercé en fasce d'or, d'azur et de gueules", Partition::tiercé_en_fasce, Ligne::droite, 0},
      {"tiercé en pal d'or, d'azur et de gueules", Partition::tiercé_en_pal, Ligne::droite, 0},
      {"d'or, chapé d'azur", Partition::chapé, Ligne::droite, 0},
      {"d'or chaussé d'azur", Partition::chaussé, Ligne::droite, 0},
      {"gironné d'or et d'azur", Partition::gironné, Ligne::droite, 8},
      {"gironné d'or et d'azur de dix pièces", Partition::gironné, Ligne::droite, 10},
      {"fascé d'or et d'azur", Partition::fascé, Ligne::droite, 6},
      {"fascé ondé d'or et d'azur de huit pièces", Partition::fascé, Ligne::ondée, 8},
      {"palé d'or et d'azur de quatre pièces", Partition::palé, Ligne::droite, 4},
      {"bandé d'or et d'azur", Partition::bandé, Ligne::droite, 6},
      {"barré d'or et d'azur", Partition::barré, Ligne::droite, 6},
      {"chevronné d'or et d'azur", Partition::chevronné, Ligne::droite, 6},
      {"échiqueté d'or et d'azur de neuf tires", Partition::échiqueté, Ligne::droite, 9},
      {"losangé d'or et d'azur", Partition::losangé, Ligne::droite, 6},
  };
  for (const Row &row : rows) {
    const Champ champ = lire(row.text).champ;
    EXPECT_EQ(champ.partition, row.partition) << row.text;
    EXPECT_EQ(champ.ligne, row.line) << row.text;
    EXPECT_EQ(champ.pièces, row.pieces) << row.text;
  }
}

TEST(Blazon, EveryOrdinaryInItsGender) {
  for (const char *text :
       {"d'or au chef de gueules", "d'or à la champagne ondée d'azur", "d'or à la terrasse de sinople",
        "d'or à la bordure engrêlée de gueules", "d'or au franc-canton de gueules",
        "d'or à la fasce crénelée d'azur", "d'or à trois burelles d'azur", "d'or au pal d'azur",
        "d'or à deux vergettes d'azur", "d'or à la bande d'azur", "d'or à trois cotices d'azur",
        "d'or à la barre d'azur", "d'or à deux chevrons d'azur", "d'or à la croix d'azur",
        "d'or au sautoir d'azur", "d'or au pairle ondé d'azur", "d'or à la pile d'azur",
        "d'or à la pointe d'azur"})
    EXPECT_EQ(refus(text), "accepted") << text;
}

TEST(Blazon, QuartersAreBlazonsOfTheirOwn) {
  const Blason blason =
      lire("écartelé, aux 1 et 4 d'azur à la tour d'or ; aux 2 et 3 de gueules au lion d'argent");
  ASSERT_EQ(blason.champ.quartiers.size(), 4U);
  EXPECT_EQ(blason.champ.quartiers[0].objets[0].meuble, "tour");
  EXPECT_EQ(blason.champ.quartiers[1].objets[0].meuble, "lion");
  EXPECT_EQ(blason.champ.quartiers[2].objets[0].meuble, "lion");
  EXPECT_EQ(blason.champ.quartiers[3].objets[0].meuble, "tour");
}

TEST(Blazon, DetailsHaveTinctures) {
  const Objet lion = lire("d'or au lion rampant de sable, armé et lampassé de gueules").objets[0];
  EXPECT_EQ(lion.détails.at("armé"), Émail::gueules);
  EXPECT_EQ(lion.détails.at("lampassé"), Émail::gueules);
  const Objet moulin = lire("d'or au moulin de sable, habillé du même").objets[0];
  EXPECT_EQ(moulin.détails.at("habillé"), Émail::sable);
}

TEST(Blazon, AnAttitudeOfSeveralWordsAgreesInItsFirst) {
  EXPECT_EQ(lire("d'or à la grenouille vue de dos d'azur").objets[0].émail, Émail::azur);
  EXPECT_EQ(lire("d'or à deux lézards vus de dos d'azur").objets[0].nombre, 2);
}

TEST(Blazon, Arrangements) {
  EXPECT_EQ(lire("d'or à trois lions d'azur rangés en fasce").objets[0].disposition, Disposition::en_fasce);
  EXPECT_EQ(lire("d'or à trois lions d'azur en pal").objets[0].disposition, Disposition::en_pal);
  EXPECT_EQ(lire("d'or à deux épées d'azur passées en sautoir").objets[0].disposition,
            Disposition::en_sautoir);
  EXPECT_EQ(lire("d'or à huit étoiles d'azur rangées en orle").objets[0].disposition, Disposition::en_orle);
  EXPECT_EQ(lire("d'or à trois lions d'azur posés deux et un").objets[0].rangs, (std::vector{2, 1}));
  EXPECT_EQ(lire("d'or à six lions d'azur posés 3, 2 et 1").objets[0].rangs, (std::vector{3, 2, 1}));
  EXPECT_EQ(lire("d'or à trois lions d'azur mal ordonnés").objets[0].rangs, (std::vector{1, 2}));
  const Objet fasce =
      lire("d'or à la fasce d'azur, accompagnée de trois tours d'azur, deux et une, au chef d'azur")
          .objets[0];
  EXPECT_EQ(fasce.annexes[0].objet.rangs, (std::vector{2, 1}));
  EXPECT_EQ(lire("d'or au rocher de sable mouvant de la pointe").objets[0].disposition,
            Disposition::mouvant_de_la_pointe);
}

TEST(Blazon, CompanyAboveAndBelow) {
  const Objet fasce = lire(
                          "d'azur à la fasce d'or, accompagnée en chef de deux étoiles d'argent et en pointe "
                          "d'un croissant du même")
                          .objets[0];
  ASSERT_EQ(fasce.annexes.size(), 2U);
  EXPECT_EQ(fasce.annexes[0].lieu, Lieu::en_chef);
  EXPECT_EQ(fasce.annexes[0].objet.nombre, 2);
  EXPECT_EQ(fasce.annexes[1].lieu, Lieu::en_pointe);
  EXPECT_EQ(fasce.annexes[1].objet.meuble, "croissant");
  EXPECT_EQ(fasce.annexes[1].objet.émail, Émail::argent);
}

TEST(Blazon, AStrewnField) {
  const Champ champ = lire("de sable semé d'abeilles d'or").champ;
  EXPECT_EQ(champ.semé, "abeille");
  EXPECT_EQ(champ.émail_du_semé, Émail::or_);
}

TEST(Blazon, TheLongestNameOfAChargeIsTaken) {
  EXPECT_EQ(lire("d'or à la roue de moulin d'azur").objets[0].meuble, "roue de moulin");
  EXPECT_EQ(lire("d'or à la roue d'azur").objets[0].meuble, "roue");
  EXPECT_EQ(lire("d'or à deux croix pattées d'azur").objets[0].meuble, "croix pattée");
  EXPECT_EQ(lire("d'or à la croix d'azur").objets[0].pièce, Pièce::croix);
}

TEST(Blazon, WhatCannotBeReadIsNamedWithItsPlace) {
  struct Row {
    const char *text;
    const char *reason;
  };
  const Row rows[] = {
      {"", "expected a tincture at the end"},
      {"azur", "expected a tincture at \"azur\""},
      {"de rouge", "expected a tincture at \"de\""},
      {"d'azur à la licorne d'or", "no charge of this name at \"licorne\""},
      {"d'azur à la tour", "expected a tincture at the end"},
      {"d'azur au tour d'or", "the article has the wrong gender at \"tour\""},
      {"d'azur à la fasce d'or au", "no charge of this name at the end"},
      {"d'azur au fasce d'or", "the article has the wrong gender at \"fasce\""},
      {"d'azur à trois tour d'or", "no charge of this name at \"tour\""},
      {"d'azur à deux chefs d'or", "there can be only one at \"chefs\""},
      {"d'azur à trois tours d'or posées deux et deux", "do not add up"},
      {"d'azur à trois tours d'or rangées en rond", "unknown arrangement at \"rond\""},
      {"d'azur à la tour d'or et", "expected the end of the blazon at \"et\""},
      {"d'azur à la tour d'or couronnée d'argent", "expected the end of the blazon at \"couronnée\""},
      {"d'azur au sanglier rampant d'or", "expected a tincture at \"rampant\""},
      {"écartelé, aux 1 et 4 d'azur ; au 2 d'or", "a part of the field is missing at the end"},
      {"parti, au 1 d'azur ; au 3 d'or", "expected the number of a part at \"3\""},
      {"d'or, chapé et d'azur", "expected a tincture at \"et\""},
      {"d'or au lézard vu d'azur", "expected a tincture at \"vu\""},
      {"parti d'azur", "expected \"et\" at the end"},
      {"d'azur au lion d'or chargé d'une étoile de gueules", "only a piece can be charged"},
      {"d'azur au lion d'or soutenu d'une fasce d'or", "only a terrasse or a champagne can bear a charge"},
      {"d'azur au lion d'or accompagné d'une fasce d'or", "only charges can accompany"},
      {"d'azur au chef d'or accompagné d'une étoile d'or", "nothing can accompany a piece on the edge"},
      {"fascé d'or et d'azur de 1 pièces", "a division needs two parts at least"},
      {"du même", "no tincture to repeat"},
  };
  for (const Row &row : rows) {
    const std::string answer = refus(row.text);
    EXPECT_NE(answer.find(row.reason), std::string::npos) << row.text << "\n" << answer;
    EXPECT_NE(answer.find('"' + std::string(row.text) + '"'), std::string::npos) << answer;
  }
}

TEST(RuleOfTincture, MetalOnMetalAndColourOnColourAreRefused) {
  struct Row {
    const char *text;
    const char *reason;
  };
  const Row rows[] = {
      {"d'or à la tour d'argent", "metal on metal, argent on or"},
      {"d'azur à la tour de gueules", "colour on colour, gueules on azur"},
      {"d'azur au chef de sable", "colour on colour, sable on azur"},
      {"d'azur au chef d'or chargé d'une étoile d'argent", "metal on metal, argent on or"},
      {"d'azur à la fasce d'or accompagnée de trois étoiles de gueules", "colour on colour, gueules on azur"},
      {"fascé d'or et d'argent", "metal on metal, argent on or"},
      {"échiqueté de gueules et d'azur", "colour on colour, azur on gueules"},
      {"de sable semé d'étoiles de gueules", "colour on colour, gueules on sable"},
      {"parti d'azur et de gueules, à la tour de sable", "colour on colour, sable on azur"},
      {"écartelé, aux 1 et 4 d'or à la tour d'argent ; aux 2 et 3 d'azur", "metal on metal, argent on or"},
  };
  for (const Row &row : rows) {
    const std::string answer = refus(row.text);
    EXPECT_NE(answer.find("the rule of tincture forbids"), std::string::npos) << row.text << "\n" << answer;
    EXPECT_NE(answer.find(row.reason), std::string::npos) << row.text << "\n" << answer;
  }
}

TEST(RuleOfTincture, WhatItLetsPass) {
  for (const char *text :
       {"d'hermine à la tour de gueules", "d'hermine à la tour d'or", "de vair au pal de gueules",
        "d'azur au castor au naturel", "parti d'or et d'azur, à la tour de gueules",
        "parti d'azur et de gueules, à la tour d'or", "parti d'azur et de gueules",
        "d'azur au chef cousu de gueules", "d'or au lion de sable, armé d'argent",
        "d'azur au chef d'or chargé de trois étoiles d'azur"})
    EXPECT_EQ(refus(text), "accepted") << text;
}

TEST(RuleOfTincture, OnlyAPieceOnTheEdgeCanBeSewn) {
  EXPECT_NE(refus("d'azur à la fasce cousue de gueules"), "accepted");
}

}  // namespace
}  // namespace atelier
