// The letters and shortcuts of the menus.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "platform/text.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

std::string en_texte(char32_t lettre) {
  std::string texte;
  ajouter_caractère(texte, lettre);
  return en_majuscules(texte);
}

void attendre_des_lettres(MondeFactice &m) {
  std::map<const Contrôle *, std::set<std::string>> prises;
  for (const Contrôle &entrée : m.e().contrôles()) {
    if (entrée.genre != Genre::menu) continue;
    const std::string lettre = en_texte(entrée.mnémonique);
    EXPECT_NE(en_majuscules(entrée.texte).find(lettre), std::string::npos)
        << lettre << " is no letter of " << entrée.texte;
    EXPECT_TRUE(prises[entrée.conteneur].insert(lettre).second) << lettre << " twice: " << entrée.texte;
  }
  EXPECT_EQ(prises.size(), 5U) << "the bar and its four menus";
}

TEST(MenuKeys, EveryEntryHasALetterOfItsCaptionThatNoOtherOfItsMenuHas) {
  MondeFactice m;
  m.démarrer();
  attendre_des_lettres(m);
  for (int fois = 0; fois < 2; ++fois) {
    m.e().menu("MenuSon").clic();
    attendre_des_lettres(m);
  }
}

TEST(MenuKeys, TheUsualActionsHaveTheirUsualShortcutsAndNoneIsGivenTwice) {
  MondeFactice m;
  std::map<std::string, std::string> raccourcis;
  for (const Contrôle &entrée : m.e().contrôles())
    if (!entrée.raccourci.empty()) EXPECT_TRUE(raccourcis.emplace(entrée.raccourci, entrée.nom).second);
  EXPECT_EQ(raccourcis, (std::map<std::string, std::string>{{"Ctrl+N", "fichier_nouveau"},
                                                            {"Ctrl+S", "Fichier_enregistrer"},
                                                            {"Ctrl+O", "Fichier_lire"},
                                                            {"Ctrl+Q", "fichier_quitter"},
                                                            {"F1", "Menu_aide"}}));
}

}  // namespace
}  // namespace ardane
