// What the map picture shows at a place, as it is read from its file.
#include "core/expanses.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(Expanses, EachRunGoesOnWhereTheLastEnded) {
  const Etendues étendues("m2l1p3\nv4i1\n");
  EXPECT_EQ(étendues.en(0, 0), Etendue::mer);
  EXPECT_EQ(étendues.en(1, 0), Etendue::mer);
  EXPECT_EQ(étendues.en(2, 0), Etendue::lac);
  EXPECT_EQ(étendues.en(3, 0), Etendue::province);
  EXPECT_EQ(étendues.en(5, 0), Etendue::province);
  EXPECT_EQ(étendues.en(3, 1), Etendue::pays_voisin);
  EXPECT_EQ(étendues.en(4, 1), Etendue::îlot);
}

TEST(Expanses, BeyondTheMapThereIsSea) {
  const Etendues étendues("v4\n");
  EXPECT_EQ(étendues.en(-1, 0), Etendue::mer);
  EXPECT_EQ(étendues.en(4, 0), Etendue::mer);
  EXPECT_EQ(étendues.en(0, -1), Etendue::mer);
  EXPECT_EQ(étendues.en(0, 1), Etendue::mer);
  EXPECT_EQ(Etendues().en(0, 0), Etendue::mer);
}

TEST(Expanses, WhatHasAnotherFormEndsItsRow) {
  for (const char *ligne : {"v4x3v2", "v4v", "v4v0v2", "v4v-3", "v4 v2"}) {
    const Etendues étendues(std::string(ligne) + "\nv9");
    EXPECT_EQ(étendues.en(3, 0), Etendue::pays_voisin) << ligne;
    EXPECT_EQ(étendues.en(4, 0), Etendue::mer) << ligne;
    EXPECT_EQ(étendues.en(8, 1), Etendue::pays_voisin) << ligne;
  }
}

}  // namespace
}  // namespace ardane
