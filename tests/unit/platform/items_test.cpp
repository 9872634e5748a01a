// The items of a list: a sequence of texts whose copies share them.
#include "platform/items.h"

#include <gmock/gmock.h>

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Items, AreNoneAtFirstAndThenWhatIsGiven) {
  Eléments items;
  EXPECT_THAT(items, IsEmpty());
  items = {"un", "deux"};
  EXPECT_THAT(items, ElementsAre("un", "deux"));
  EXPECT_EQ(items.size(), 2U);
  EXPECT_EQ(items[1], "deux");
  EXPECT_THROW(static_cast<void>(items.at(2)), std::out_of_range);
  items = {};
  EXPECT_TRUE(items.empty());
}

TEST(Items, AreEqualByTheirTexts) {
  const Eléments items{"un", "deux"};
  EXPECT_EQ(items, items);
  EXPECT_EQ(items, (Eléments{"un", "deux"}));
  EXPECT_EQ(items, (std::vector<std::string>{"un", "deux"}));
  EXPECT_NE(items, Eléments{"un"});
  EXPECT_NE(items, Eléments());
  EXPECT_EQ(Eléments(), Eléments(std::vector<std::string>{}));
}

TEST(Items, ACopySharesTheTextsAndKeepsThemWhenTheOriginalGetsOthers) {
  Eléments items{"un", "deux"};
  const Eléments copy = items;
  EXPECT_EQ(&copy[0], &items[0]);
  items = {"trois"};
  EXPECT_THAT(copy, ElementsAre("un", "deux"));
}

}  // namespace
}  // namespace ardane
