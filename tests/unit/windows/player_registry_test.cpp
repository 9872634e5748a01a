// The system's registry as the store of a player's settings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/registry_store.h"
#include "platform/windows_headers.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::UnorderedElementsAre;

constexpr std::string_view key = R"(HKEY_CURRENT_USER\Software\Mirabonde essai\Ardane)";
constexpr const wchar_t *family = L"Software\\Mirabonde essai";

class PlayerRegistry : public testing::Test {
 protected:
  PlayerRegistry() { RegDeleteTreeW(HKEY_CURRENT_USER, family); }
  ~PlayerRegistry() override { RegDeleteTreeW(HKEY_CURRENT_USER, family); }

  const std::unique_ptr<RegistreGardé> store = registre_du_joueur({});
};

TEST_F(PlayerRegistry, MakesAKeyAndThoseAboveIt) {
  EXPECT_FALSE(store->existe(key));
  EXPECT_TRUE(store->créer(key));
  EXPECT_TRUE(store->existe(key));
  EXPECT_TRUE(store->existe(R"(hkey_current_user\\software\Mirabonde essai)"));
  EXPECT_THAT(store->sous_clés(R"(HKEY_CURRENT_USER\Software\Mirabonde essai)"), ElementsAre("Ardane"));
}

TEST_F(PlayerRegistry, KeepsTextsOfAnyLetters) {
  store->créer(key);
  EXPECT_TRUE(store->écrire(key, "répertoire", "C:\\jeux\\été \xF0\x9F\x8E\xB2"));
  EXPECT_THAT(store->lire(key, "RÉPERTOIRE"), Optional(std::string("C:\\jeux\\été \xF0\x9F\x8E\xB2")));
  const std::string long_text(3000, 'a');
  EXPECT_TRUE(store->écrire(key, "", long_text));
  EXPECT_THAT(store->lire(key, ""), Optional(long_text));
  EXPECT_THAT(store->valeurs(key), UnorderedElementsAre("répertoire", ""));
}

TEST_F(PlayerRegistry, HasNothingUnderAKeyThatIsNotThereAndTakesNothing) {
  EXPECT_EQ(store->lire(key, "joueur"), std::nullopt);
  EXPECT_FALSE(store->écrire(key, "joueur", "Ann"));
  EXPECT_THAT(store->valeurs(key), IsEmpty());
  EXPECT_EQ(store->échec(), std::nullopt);
}

TEST_F(PlayerRegistry, RefusesWhatIsNoTextAndKeysOfNoRoot) {
  store->créer(key);
  EXPECT_FALSE(store->écrire(key, "joueur", "\xFF"));
  EXPECT_FALSE(store->créer("Software"));
  EXPECT_FALSE(store->existe(R"(HKEY_NULLE_PART\a)"));
}

TEST_F(PlayerRegistry, ReadsNoNumberAsAText) {
  store->créer(key);
  const DWORD number = 7;
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Mirabonde essai\\Ardane", L"n", REG_DWORD, &number,
                  sizeof number);
  EXPECT_EQ(store->lire(key, "n"), std::nullopt);
}

TEST_F(PlayerRegistry, LeavesATextThatNamesAVariableOne) {
  store->créer(key);
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Mirabonde essai\\Ardane", L"son", REG_EXPAND_SZ,
                  L"%windir%\\a.wav", 15 * sizeof(wchar_t));
  EXPECT_THAT(store->lire(key, "son"), Optional(std::string("%windir%\\a.wav")));
  EXPECT_TRUE(store->écrire(key, "son", ""));
  EXPECT_TRUE(store->écrire(key, "son", "%windir%\\b.wav"));
  DWORD type = 0;
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Mirabonde essai\\Ardane", L"son", RRF_RT_ANY | RRF_NOEXPAND,
               &type, nullptr, nullptr);
  EXPECT_EQ(type, static_cast<DWORD>(REG_EXPAND_SZ));
}

TEST_F(PlayerRegistry, TellsOnceWhatTheSystemRefusesAndTheWayOut) {
  int told = 0;
  store->à_l_échec = [&] { ++told; };
  const std::string longer_than_a_name = std::string(key) + '\\' + std::string(300, 'a');
  EXPECT_FALSE(store->créer(longer_than_a_name));
  EXPECT_FALSE(store->créer(longer_than_a_name));
  EXPECT_EQ(told, 1);
  EXPECT_NE(store->échec(), std::nullopt);
  EXPECT_NE(store->remède().find("--registre"), std::string::npos);
}

}  // namespace
}  // namespace ardane
