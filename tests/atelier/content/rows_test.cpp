// The rows of the gazetteer in the string table: numbers, forms and names.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

#include "content.h"

namespace content {
namespace {

TEST(Rows, ProvinceRowsHaveTheirFormAndTheirRegionsInOrder) {
  const std::regex form("[^#]+#0#[0-9]{1,3}#[0-9]{1,3}#([1-9]|1[0-9]|20)");
  for (int p = 1; p <= provinces; ++p) {
    EXPECT_TRUE(std::regex_match(text(2000 + p), form)) << text(2000 + p);
    EXPECT_GE(region_of(p), p > 1 ? region_of(p - 1) : 1) << text(2000 + p);
  }
  EXPECT_FALSE(texts().contains(2000));
  EXPECT_FALSE(texts().contains(2111));
}

TEST(Rows, RegionsHaveOneToTwelveProvinces) {
  std::vector<int> count(regions + 1, 0);
  for (int p = 1; p <= provinces; ++p) ++count.at(static_cast<std::size_t>(region_of(p)));
  for (std::size_t r = 1; r < count.size(); ++r) {
    EXPECT_GE(count[r], 1) << "region " << r;
    EXPECT_LE(count[r], 12) << "region " << r;
  }
}

TEST(Rows, RegionRowsHaveTheirForm) {
  const std::regex form("[^#]+#0#[0-9]{1,3}#[0-9]{1,3}");
  for (int r = 1; r <= regions; ++r) EXPECT_TRUE(std::regex_match(text(5000 + r), form)) << text(5000 + r);
  EXPECT_FALSE(texts().contains(5021));
}

TEST(Rows, CapitalRowsHaveTheirFormSomeWithLeadingZeros) {
  const std::regex form("[^#]+#[0-9]{3}#[0-9]{3}");
  int with_zero = 0;
  for (int p = 1; p <= provinces; ++p) {
    EXPECT_TRUE(std::regex_match(text(4000 + p), form)) << text(4000 + p);
    with_zero += text(4000 + p).find("#0") != std::string::npos ? 1 : 0;
  }
  EXPECT_GT(with_zero, 0);
  EXPECT_FALSE(texts().contains(4111));
}

TEST(Rows, OtherCityRowsHaveTheirFormAndElevenTheirLetter) {
  const std::regex form("[^#]+#([0-9]{2}|1[01][0-9])#[0-9]{1,3}#[0-9]{1,3}");
  const std::regex odd_form("[^#]+#[0-9]{2}o#[0-9]{1,3}#[0-9]{1,3}");
  int odd = 0;
  for (int id = 7101; id <= 7320; ++id) {
    const bool is_odd = id >= 7263 && id <= 7283 && id % 2 == 1;
    EXPECT_TRUE(std::regex_match(text(id), is_odd ? odd_form : form)) << id << ": " << text(id);
    odd += std::regex_match(text(id), odd_form) ? 1 : 0;
  }
  EXPECT_EQ(odd, 11);
  EXPECT_FALSE(texts().contains(7321));
}

TEST(Rows, EveryProvinceHasTwoOtherCities) {
  std::vector<int> count(provinces + 1, 0);
  for (std::size_t i = provinces + 1; i <= towns; ++i)
    ++count.at(static_cast<std::size_t>(all_towns()[i].province));
  for (std::size_t p = 1; p < count.size(); ++p) EXPECT_EQ(count[p], 2) << "province " << p;
}

TEST(Rows, FourteenCapitalsBearAnotherNameThanTheirProvince) {
  int other = 0;
  for (int p = 1; p <= provinces; ++p)
    other += fields(text(2000 + p))[0] != fields(text(4000 + p))[0] ? 1 : 0;
  EXPECT_EQ(other, 14);
}

/// Lower case without accents, for the letters of French names in UTF-8.
std::string plain(std::string name) {
  const std::vector<std::pair<std::string, std::string>> letters = {
      {"é", "e"}, {"è", "e"}, {"ê", "e"}, {"ë", "e"}, {"É", "e"}, {"È", "e"},
      {"à", "a"}, {"â", "a"}, {"î", "i"}, {"ï", "i"}, {"ô", "o"}, {"û", "u"},
      {"ù", "u"}, {"ü", "u"}, {"ç", "c"}, {"Î", "i"}, {"Â", "a"}, {"œ", "oe"}};
  for (const auto &[accented, bare] : letters)
    for (std::size_t at = name.find(accented); at != std::string::npos; at = name.find(accented))
      name.replace(at, accented.size(), bare);
  std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : static_cast<char>(c);
  });
  return name;
}

TEST(Rows, NamesDifferEvenWithoutAccents) {
  const auto expect_different = [](const std::vector<std::string> &names) {
    std::set<std::string> seen;
    for (const std::string &name : names) {
      EXPECT_FALSE(name.empty());
      EXPECT_TRUE(seen.insert(plain(name)).second) << name;
    }
  };
  std::vector<std::string> names;
  for (int p = 1; p <= provinces; ++p) names.push_back(fields(text(2000 + p))[0]);
  expect_different(names);
  names.clear();
  for (std::size_t i = 1; i <= towns; ++i) names.push_back(all_towns()[i].name);
  expect_different(names);
  names.clear();
  for (int r = 1; r <= regions; ++r) names.push_back(fields(text(5000 + r))[0]);
  expect_different(names);
}

}  // namespace
}  // namespace content
