// The executable itself, over its standard streams.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "conversation.h"
#include "core/paths.h"

namespace ardane {
namespace {

class Exécutable : public ::testing::Test {
 protected:
  /// Runs it with a script as its input; returns the exit code.
  int lancer(const std::string &options, const std::string &script) {
    std::ofstream(chemin_natif(dossier.chemin("script")), std::ios::binary) << script;
    const std::string commande =
        "cd '" + dossier.chemin() + "' && '" ARDANE_PILOTE "' " + options + " < script > sortie 2> erreurs";
    return WEXITSTATUS(std::system(commande.c_str()));
  }
  std::string lire(const std::string &nom) {
    std::ostringstream contenu;
    contenu << std::ifstream(chemin_natif(dossier.chemin(nom)), std::ios::binary).rdbuf();
    return contenu.str();
  }

  DossierDeJeu dossier{ARDANE_RESOURCES};
};

TEST_F(Exécutable, plays_a_script_to_its_end) {
  EXPECT_EQ(
      lancer(
          "--programme programme --registre réglages --écran 800x600x16 --zone 0,0,800,570 --date 2026-11-21",
          "démarrer\nrépondre ok\nrépondre ok\nétat Bas_zone_travail\nétat Répertoire_programme\nmenu "
          "fichier_quitter\n"),
      0);
  const std::string sortie = lire("sortie");
  EXPECT_NE(sortie.find("{\"état\":570}\n"), std::string::npos) << sortie;
  EXPECT_NE(sortie.find("{\"état\":\"" + dossier.chemin("programme") + "\"}\n"), std::string::npos) << sortie;
  EXPECT_TRUE(sortie.ends_with("{\"attend\":\"fin\",\"code\":0}\n")) << sortie;
  EXPECT_EQ(lire("erreurs"), "");
  EXPECT_NE(lire("réglages").find("\"date\"=\"21/11/2026 00:00:00\""), std::string::npos) << lire("réglages");
}

TEST_F(Exécutable, ends_with_the_end_of_its_input) {
  EXPECT_EQ(lancer("", "fenêtres"), 0);
  EXPECT_EQ(lire("sortie"), "{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n");
  EXPECT_EQ(lancer("", ""), 0);
  EXPECT_EQ(lire("sortie"), "");
}

TEST_F(Exécutable, ends_with_code_1_after_a_fatal_error) {
  EXPECT_EQ(lancer("--programme programme",
                   "démarrer\nrépondre ok\nrépondre ok\nfixer Fichiers_aide []\ntouche F1\nétat Score\n"),
            1);
  EXPECT_TRUE(lire("sortie").ends_with("{\"attend\":\"fin\",\"code\":1}\n")) << lire("sortie");
}

TEST_F(Exécutable, tells_a_bad_option_in_french_and_ends_with_code_2) {
  EXPECT_EQ(lancer("--ecran 800x600x16", "fenêtres\n"), 2);
  EXPECT_EQ(lire("erreurs"), "L'option « --ecran » est inconnue.\n");
  EXPECT_EQ(lire("sortie"), "");
  EXPECT_EQ(lancer("--dossier absent", ""), 2);
  EXPECT_EQ(lire("erreurs"), "Le dossier « absent » ne peut pas être le dossier courant.\n");
}

TEST_F(Exécutable, tells_its_release_and_the_edition_of_the_game_and_starts_nothing) {
  EXPECT_EQ(lancer("--hasard 1 --version", "démarrer\n"), 0);
  EXPECT_EQ(lire("sortie"), "ardane-pilote " ARDANE_RELEASE "\nVersion 1.00 du 24/02/2007\n");
  EXPECT_EQ(lire("erreurs"), "");
}

TEST_F(Exécutable, starts_in_the_folder_given) {
  EXPECT_EQ(lancer("--programme programme --dossier programme", "page ardane.pts\n"), 0);
  EXPECT_EQ(lire("sortie"), "{\"attend\":\"rien\"}\n");
}

// --- The lifeline

/// A first start, and a game that has cost a point.
constexpr const char *partie_entamée =
    "démarrer\nrépondre ok\nrépondre ok\nmenu fichier_nouveau\ntexte boîte_nom_joueur Ann\nclic "
    "niveau_expert\n"
    "clic bouton_sortie\nhasard\nfixer ProvinceCourante 1\nfixer NbErreurs 3\nclic_carte 301 244\n";

TEST_F(Exécutable, offers_the_game_of_a_run_that_ended_without_a_word) {
  const std::string options =
      "--programme programme --registre réglages --date 2026-11-21 --hasard 5 --secours état/jeu";
  EXPECT_EQ(lancer(options, std::string(partie_entamée) + "quitter\n"), 0);
  EXPECT_EQ(lancer(options,
                   "démarrer\nrépondre oui\nétat ProvinceCourante\nétat NbErreurs\nmenu fichier_quitter\n"
                   "répondre oui\nrépondre ok\nfermer\n"),
            0);
  const std::string sortie = lire("sortie");
  EXPECT_NE(
      sortie.find("\"texte\":\"La partie de Ann s'est interrompue à 00:00, avec 999991 points. La reprendre "
                  "?\",\"boutons\":[\"Oui\",\"Non\"]}}\n{\"attend\":\"boîte\"}\n"),
      std::string::npos)
      << sortie;
  EXPECT_NE(sortie.find("{\"état\":1}\n{\"attend\":\"Ecran_principal\"}\n{\"état\":4}\n"), std::string::npos)
      << sortie;
  EXPECT_TRUE(sortie.ends_with("{\"attend\":\"fin\",\"code\":0}\n")) << sortie;
  EXPECT_EQ(lancer(options, "démarrer\n"), 0);
  EXPECT_EQ(lire("sortie").find("boîte"), std::string::npos) << "an ordinary end";
}

TEST_F(Exécutable, keeps_nothing_without_a_lifeline) {
  const std::string options = "--programme programme --registre réglages --date 2026-11-21 --hasard 5";
  EXPECT_EQ(lancer(options, std::string(partie_entamée) + "quitter\n"), 0);
  EXPECT_EQ(lancer(options, "démarrer\n"), 0);
  EXPECT_EQ(lire("sortie").find("boîte"), std::string::npos);
}

}  // namespace
}  // namespace ardane
