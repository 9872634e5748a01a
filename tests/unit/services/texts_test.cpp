#include "services/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persistence/registry.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class Texts : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  void choisir(std::string_view entrée) { cliquer(m.e(), m.e().menu(entrée)); }
  MondeFactice m;
};

TEST_F(Texts, EveryMenuEntryHasItsCaption) {
  for (const Contrôle &entrée : m.e().contrôles())
    EXPECT_FALSE(entrée.genre == Genre::menu && entrée.texte.empty()) << entrée.nom;
  EXPECT_EQ(m.e().menu("MenuFicheur").texte, "Editer les fiches d'information");
  EXPECT_EQ(m.e().menu("fichier_nouveau").texte, "Nouvelle partie");
  EXPECT_EQ(m.e().titre, "L'Ardane et ses provinces ");
}

TEST_F(Texts, WithOneLanguageTheChangeAsksForHelpAndWritesNothing) {
  m.registre.écrire(clé_du_jeu, "langue", "témoin");
  choisir("Menu_langue");
  EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
  EXPECT_EQ(m.dernière_boîte().titre, "I need your help !");
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::jeu_en_français_seulement));
  EXPECT_EQ(m.g().Langue, 1);
  EXPECT_EQ(m.monde.registre->lire(clé_du_jeu, "langue"), "témoin");
}

TEST_F(Texts, WithTwoLanguagesTheChangeTogglesBetweenThemAndIsRemembered) {
  std::string source = "1\t184\n2\t2\n11\tARDANE.HLP\n12\tARDANE2.HLP\n";
  for (int i = 0; i <= 184; ++i) {
    source += std::to_string(1000 + i) + "\tun " + std::to_string(i) + "\n";
    source += std::to_string(1250 + i) + "\tdeux " + std::to_string(i) + "\n";
  }
  const Ressources deux_langues{TableChaînes(source), ressources_du_programme().images};
  MondeScripté monde(options_factices(), m, m);
  Programme p(monde.monde(), deux_langues, m.dossier.chemin());
  ASSERT_TRUE(p.Démarrage(m.dossier.chemin()));
  EXPECT_EQ(p.principale().titre, "un 110");
  cliquer(p.principale(), p.principale().menu("Menu_langue"));
  EXPECT_EQ(p.état().Langue, 2);
  EXPECT_EQ(p.principale().titre, "deux 110");
  EXPECT_EQ(monde.registre->lire(clé_du_jeu, "langue"), "2");
  cliquer(p.principale(), p.principale().menu("Menu_langue"));
  EXPECT_EQ(p.principale().titre, "un 110");
}

TEST_F(Texts, TheHelpOpensAtThePlaceOfPlayFromTheMenuAndAtTheWindowsOwnByItsKey) {
  m.e().contexte_aide = 65;
  m.programme.aide(m.e());
  choisir("Menu_aide");
  const std::string fichier = m.dossier.fichier("ARDANE.HLP");
  EXPECT_THAT(m.aide.ouvertures, testing::ElementsAre(std::pair(fichier, 65), std::pair(fichier, 10)));
  EXPECT_EQ(m.e().contexte_aide, 10);
}

TEST_F(Texts, AboutTellsNameVersionAndPublisher) {
  choisir("Menu_à_propos");
  EXPECT_EQ(m.dernière_boîte().titre, "A propos...");
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::titre_du_jeu) +
                                          message(m.g(), Message::version) + "\n" +
                                          message(m.g(), Message::auteur_et_site));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
}

TEST_F(Texts, TheSoundSwitchSwapsItsCaptionAndLeavesTheSoundPlayingAlone) {
  choisir("MenuSon");
  EXPECT_EQ(m.e().menu("MenuSon").texte, message(m.g(), Message::mettre_le_son));
  choisir("MenuSon");
  EXPECT_EQ(m.e().menu("MenuSon").texte, message(m.g(), Message::couper_le_son));
  EXPECT_TRUE(m.son.joués.empty());
}

}  // namespace
}  // namespace ardane
