// "blasons.txt": the flags told in words, which give away no more than the drawings.
#include <gtest/gtest.h>

#include "content.h"
#include "files/data.h"

namespace content {
namespace {

const std::map<int, std::string> &blazons() {
  static const auto table = atelier::lire_textes(resources() / "blasons.txt");
  return table;
}

constexpr int before_regions = 200;

TEST(Blazons, EveryProvinceAndRegionHasOneOfItsOwn) {
  std::map<std::string, int> first;
  for (int i = 1; i <= provinces; ++i) EXPECT_TRUE(blazons().contains(i)) << i;
  for (int i = 1; i <= regions; ++i) EXPECT_TRUE(blazons().contains(before_regions + i)) << i;
  EXPECT_EQ(blazons().size(), provinces + regions);
  for (const auto &[number, text] : blazons())
    EXPECT_TRUE(first.emplace(text, number).second) << number << " is told as " << first[text];
}

TEST(Blazons, NoneHoldsANameOfTheCountry) {
  const auto names = [] {
    std::vector<std::string> result;
    for (int i = 1; i <= provinces; ++i) result.push_back(fields(text(2000 + i)).at(0));
    for (int i = 1; i <= regions; ++i) result.push_back(fields(text(5000 + i)).at(0));
    for (int i = 1; i <= towns; ++i) result.push_back(all_towns().at(static_cast<std::size_t>(i)).name);
    return result;
  }();
  for (const auto &[number, text] : blazons())
    for (const std::string &name : names) EXPECT_EQ(text.find(name), text.npos) << number << ": " << name;
}

}  // namespace
}  // namespace content
