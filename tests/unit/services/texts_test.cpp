#include "services/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

TEST_F(Texts, TheMenuBarSaysWhatItDoesInTheOrderInWhichItIsRead) {
  std::vector<std::pair<std::string, std::string>> barre;
  for (const Contrôle &entrée : m.e().contrôles())
    if (entrée.genre == Genre::menu)
      barre.emplace_back(entrée.conteneur == nullptr ? "" : entrée.conteneur->texte, entrée.texte);
  const std::vector<std::pair<std::string, std::string>> attendue = {
      {"", "Fichier"},
      {"Fichier", "Nouvelle partie"},
      {"Fichier", "Enregistrer la partie en cours"},
      {"Fichier", "Reprendre une partie interrompue"},
      {"Fichier", "Rechercher sur Internet les dernières versions des jeux"},
      {"Fichier", "Quitter"},
      {"", "Paramétrer"},
      {"Paramétrer", "Afficher le paramétrage courant"},
      {"Paramétrer", "Utiliser le paramétrage par défaut"},
      {"Paramétrer", "Recharger un paramétrage existant"},
      {"Paramétrer", "Paramétrer le jeu"},
      {"Paramétrer", "Couper le son"},
      {"Paramétrer", "Choisir la couleur du repère des capitales"},
      {"Paramétrer", "Choisir la couleur du repère des autres villes"},
      {"Paramétrer", "Définir le dossier du fichier d'information"},
      {"Paramétrer", "Editer les fiches d'information"},
      {"", "Score"},
      {"Score", "Niveau en cours"},
      {"Score", "Niveau facile"},
      {"Score", "Niveau moyen"},
      {"Score", "Niveau difficile"},
      {"Score", "Niveau expert"},
      {"Score", "Remise à zéro"},
      {"", "Révision"},
      {"Révision", "Création d'une liste classée par provinces"},
      {"Révision", "Création d'une liste classée par nom de villes"},
      {"Révision", "Révision"},
      {"", "Langue"},
      {"", "Aide"},
      {"", "A propos..."},
  };
  EXPECT_EQ(barre, attendue);
}

TEST_F(Texts, ThePanelAndTheWindowHaveTheirCaptions) {
  EXPECT_EQ(m.e().titre, "L'Ardane et ses provinces ");
  EXPECT_EQ(m.e().Boîte_restants.texte, "Reste à placer");
  EXPECT_EQ(m.e().Boîte_score.texte, "Score");
  EXPECT_EQ(m.e().que_faire.texte, "Trouvez moi...");
  EXPECT_EQ(m.e().BoutonPasse.infobulle, "Je passe !");
}

TEST_F(Texts, WithTheSoundOffItsEntryOffersIt) {
  m.g().SonActif = false;
  Poser_textes(m.c());
  EXPECT_EQ(m.e().menu("MenuSon").texte, "Mettre le son");
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
  p.état().Etape = étape_provinces;
  cliquer(p.principale(), p.principale().menu("Menu_langue"));
  EXPECT_EQ(p.état().Langue, 2);
  EXPECT_EQ(p.principale().Boîte_restants.texte, message(p.état(), Message::provinces_à_placer));
  EXPECT_EQ(p.principale().titre, "deux 110");
  EXPECT_EQ(monde.registre->lire(clé_du_jeu, "langue"), "2");
  Programme suivant(monde.monde(), deux_langues, m.dossier.chemin());
  ASSERT_TRUE(suivant.Démarrage(m.dossier.chemin()));
  EXPECT_EQ(suivant.principale().titre, "deux 110");
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
