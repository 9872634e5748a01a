#include "platform/registry_key.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RegistryKey, ItsPartsStandBetweenBackslashes) {
  EXPECT_THAT(parties_de_clé(R"(\R\\été\)"), ElementsAre("R", "été"));
  EXPECT_THAT(parties_de_clé("R"), ElementsAre("R"));
  EXPECT_THAT(parties_de_clé(R"(\\)"), IsEmpty());
  EXPECT_THAT(parties_de_clé(""), IsEmpty());
}

TEST(RegistryKey, PartsMakeAPathFromTheRootOn) {
  EXPECT_EQ(clé_de({"R", "a", "b"}), R"(R\a\b)");
  EXPECT_EQ(clé_de({}), "");
  EXPECT_EQ(Joindre_clé("", "R"), "R");
  EXPECT_EQ(Joindre_clé("R", "a"), R"(R\a)");
}

}  // namespace
}  // namespace ardane
