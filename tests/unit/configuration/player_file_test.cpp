// A saved game or a configuration that the program is started with.
#include "configuration/player_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "play/saved_game.h"
#include "support/configuration_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class PlayerFile : public AvecParamétrage {
 protected:
  PlayerFile() {
    m.nouvelle_partie(1, "Zoé");
    m.répondre_juste();
    m.répondre_faux();
    score = g().Score;
    EXPECT_TRUE(Enregistrer_partie(m.c(), partie));
    g().PartieVierge = true;
    menu("menu_définir");
    cliquer(e(), e().BTN(2));
    g().TableProvinces(57).inhibée = true;
    g().Ordre_jeux = Ordre_de_jeu({2, 3, 0, 0});
    utiliser(nord);
    g().TableProvinces(57).inhibée = false;
    g().Ordre_jeux = Ordre_de_jeu({1, 4, 2, 3});
    utiliser(m.dossier.fichier("ARDANE.SCI"));
    m.oublier();
  }
  void attendre_partie() {
    EXPECT_EQ(g().Etape, étape_provinces);
    EXPECT_EQ(g().Nom_joueur, "Zoé");
    EXPECT_EQ(g().Score, score);
    EXPECT_FALSE(g().PartieVierge);
    EXPECT_NE(g().ProvinceCourante, 0);
    EXPECT_TRUE(e().que_faire.visible);
    EXPECT_FALSE(fichier_existe(partie));
  }
  void attendre_refus(const std::string &chemin) {
    EXPECT_THAT(boîtes(), ElementsAre("exclamation | Erreur de format | " + chemin +
                                      " : Le fichier sélectionné n'est pas interprétable !"));
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_FALSE(e().que_faire.visible);
    EXPECT_THAT(ordre(), ElementsAre(1, 4, 2, 3));
  }

  const std::string partie = m.dossier.fichier("souper.CAI"), nord = m.dossier.fichier("nord.SCI");
  int score = 0;
};

TEST_F(PlayerFile, ASavedGameIsTakenUpAndItsFileIsGone) {
  m.programme.ouvrir(partie);
  EXPECT_THAT(boîtes(), IsEmpty());
  attendre_partie();
}

TEST_F(PlayerFile, BeforeTheGameUnderWayGivesWayThePlayerIsAsked) {
  commencer_une_partie();
  m.boîtes.réponses = {Réponse::non};
  m.programme.ouvrir(partie);
  EXPECT_THAT(boîtes(), ElementsAre(question_d_abandon));
  EXPECT_EQ(g().Nom_joueur, "Ann");
  EXPECT_TRUE(fichier_existe(partie));
  m.boîtes.réponses = {Réponse::oui};
  m.programme.ouvrir(partie);
  EXPECT_EQ(boîtes().front(), question_d_abandon);
  attendre_partie();
}

TEST_F(PlayerFile, ASavedGameOfAnotherFolderProposesThatFolder) {
  const DossierTemporaire ailleurs;
  const std::string chemin = ailleurs.fichier("souper.cai");
  std::filesystem::rename(chemin_natif(partie), chemin_natif(chemin));
  m.boîtes.réponses = {Réponse::oui};
  m.programme.ouvrir(chemin);
  EXPECT_THAT(boîtes(), ElementsAre("question ? | Choix du répertoire | Souhaitez-vous utiliser comme "
                                    "répertoire par défaut " +
                                    ailleurs.chemin()));
  EXPECT_EQ(g().Répertoire_sauvegarde, ailleurs.chemin());
  EXPECT_FALSE(fichier_existe(chemin));
  attendre_partie();
}

TEST_F(PlayerFile, ADamagedGameIsToldAndKeptAndTheProgramIsIdle) {
  écrire_fichier(partie, lire_fichier(partie).substr(0, 10'000));
  m.programme.ouvrir(partie);
  attendre_refus(partie);
  EXPECT_TRUE(fichier_existe(partie));
}

TEST_F(PlayerFile, AConfigurationIsPlayedByFromNowOnAndAtTheNextStartsIfThePlayerWishesIt) {
  for (const Réponse réponse : {Réponse::non, Réponse::oui}) {
    const std::string avant = réglage("fichier de lancement");
    m.boîtes.réponses = {réponse};
    m.programme.ouvrir(nord);
    EXPECT_THAT(boîtes(),
                ElementsAre("question ? | Chargement du fichier de paramétrage | Voulez-vous que ce "
                            "paramétrage soit utilisé par défaut lors des prochains lancements du jeu ?"));
    EXPECT_EQ(réglage("fichier de lancement"), réponse == Réponse::oui ? nord : avant);
    EXPECT_EQ(g().Fichier_lancement, nord);
    EXPECT_THAT(ordre(), ElementsAre(2, 3, 0, 0));
    EXPECT_THAT(exclues(), ElementsAre(57));
    EXPECT_EQ(g().Etape, étape_repos);
  }
}

TEST_F(PlayerFile, WhatIsNoConfigurationOfThisGameIsToldAndStaysAsItIs) {
  std::string autre_version = lire_fichier(nord);
  autre_version.at(10) = '9';
  for (const std::string &octets : {std::string("// calcul d'un autre programme\n"), std::string(),
                                    autre_version, lire_fichier(nord).substr(0, 5000)}) {
    const std::string chemin = m.dossier.fichier("calcul.sci");
    écrire_fichier(chemin, octets);
    m.programme.ouvrir(chemin);
    attendre_refus(chemin);
    EXPECT_EQ(lire_fichier(chemin), octets);
  }
}

TEST_F(PlayerFile, OneThatIsNotThereIsToldAndNothingElseTakesItsPlace) {
  const std::pair<const char *, const char *> absents[] = {
      {"absent.SCI", "est refusé : il n'y en a pas\n"},
      {"absent.CAI", "est refusée : case 1 : fin du fichier\n"}};
  for (const auto &[nom, raison] : absents) {
    const std::string chemin = m.dossier.fichier(nom);
    testing::internal::CaptureStderr();
    m.programme.ouvrir(chemin);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), EndsWith(raison));
    attendre_refus(chemin);
    EXPECT_EQ(g().Fichier_lancement, m.dossier.fichier("ARDANE.SCI"));
  }
}

TEST_F(PlayerFile, IsToldFromOtherFilesByTheEndOfItsName) {
  for (const char *nom : {"a.CAI", "/b/c.cai", "ARDANE.SCI", "é à.Sci"})
    EXPECT_TRUE(est_nom_de_fichier_du_jeu(nom)) << nom;
  for (const char *nom : {"", "CAI", "17", "a.CAI.txt", "ARDANE.INF", "a.CAI/"})
    EXPECT_FALSE(est_nom_de_fichier_du_jeu(nom)) << nom;
}

}  // namespace
}  // namespace ardane
