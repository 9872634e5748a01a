#include "core/messages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "core/game_state.h"
#include "core/resources.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// The names that the header gives each number.
std::map<int, std::set<std::string>> noms_par_numéro() {
  static const std::regex énumérateur("^  (\\S+) = ([0-9]+),$");
  std::ifstream source(std::string(ARDANE_SOURCES) + "/core/messages.h");
  std::map<int, std::set<std::string>> noms;
  std::smatch trouvé;
  for (std::string ligne; std::getline(source, ligne);)
    if (std::regex_match(ligne, trouvé, énumérateur)) noms[std::stoi(trouvé[2])].insert(trouvé[1]);
  return noms;
}

TEST(Messages, EveryIndexOfTheTableHasOneNameAndNoOtherIndexHasAny) {
  const auto noms = noms_par_numéro();
  for (int i = 0; i <= dernier_message; ++i) {
    ASSERT_TRUE(noms.contains(i)) << "no name for message " << i;
    EXPECT_EQ(noms.at(i).size(), 1U) << i;
  }
  EXPECT_EQ(noms.size(), static_cast<std::size_t>(dernier_message) + 1);
}

TEST(Messages, TheNamesReachAsFarAsTheTextsOfTheProgram) {
  EXPECT_EQ(ressources_du_programme().chaînes.chaîne(1), std::to_string(dernier_message));
}

TEST(Messages, ANameGivesTheTextThatItSays) {
  MondeFactice m;
  m.démarrer();
  const struct {
    Message message;
    const char *début;
  } cas[] = {
      {Message::version, "Version 1.00"},
      {Message::choisir_un_fichier_de_partie, "Il faut sélectionner un fichier de partie"},
      {Message::à_propos, "A propos..."},
      {Message::après_les_drapeaux, "Après les drapeaux nous allons passer "},
      {Message::aux_drapeaux, "aux drapeaux ;"},
      {Message::confirmer_abandon, "Confirmez-vous l'abandon"},
      {Message::erreur, "Erreur"},
      {Message::niveau_difficile, "Niveau difficile"},
      {Message::annuler, "Annuler"},
      {Message::difficulté, "Difficulté"},
      {Message::titre_du_jeu, "L'Ardane et ses provinces "},
      {Message::choix_du_répertoire, "Choix du répertoire"},
      {Message::besoin_d_aide, "I need your help !"},
      {Message::fichier_pts_absent, "Le fichier PTS est absent"},
      {Message::conseil_fiches_des_provinces, "En cliquant sur le territoire d'une province"},
      {Message::menu_niveau_expert, "Niveau expert"},
      {Message::quatrième, "4ème"},
      {Message::provinces_à_placer, "Provinces à placer"},
      {Message::statistiques, "Statistiques"},
      {Message::après_les_régions, "Après les régions nous allons passer "},
      {Message::mettre_le_son, "Mettre le son"},
      {Message::couleur_des_autres_villes, "Choisir la couleur du repère des autres villes"},
  };
  for (const auto &c : cas) {
    const std::string &texte = message(m.g(), c.message);
    EXPECT_EQ(texte.substr(0, std::string(c.début).size()), c.début);
  }
}

}  // namespace
}  // namespace ardane
