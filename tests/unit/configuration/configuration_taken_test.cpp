// How an edited configuration is taken, kept and given up, and how another one is loaded.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "configuration/configuration_mode.h"
#include "core/chooser_modes.h"
#include "platform/window_layout.h"
#include "play/stage_sequencer.h"
#include "support/configuration_world.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

class ConfigurationTaken : public AvecPanneau {
 protected:
  /// The player gives the file that name when he is asked for one; its path.
  std::string nommer_au_choix(const std::string &nom) {
    m.façade.joueur = [nom](Fenêtre &f) {
      saisir(contrôle(f, "Nom_fichier"), nom);
      cliquer(f, contrôle(f, "Bouton_OK"));
    };
    return m.dossier.fichier(nom + ".SCI");
  }
};

// --- OK: what cannot be played

TEST_F(ConfigurationTaken, AConfigurationWithoutProvincesIsRefusedAndNothingChanges) {
  définir();
  cocher(1, 4);
  for (int p = 1; p <= nombre_provinces; ++p) g().TableProvinces(p).trouvée = true;
  const Photo avant = photographier(g());
  ok();
  EXPECT_THAT(boîtes(), ElementsAre("exclamation | Erreur | Il est indispensable de jouer avec au moins un "
                                    "pays et une région !"));
  EXPECT_THAT(variables_changées(avant, photographier(g())), IsEmpty());
  attendre_mode(étape_paramétrage_défini);
}

TEST_F(ConfigurationTaken, ProvincesOfNoRegionAreNotEnough) {
  g().TableProvinces(5).région = 0;
  définir();
  for (int p = 1; p <= nombre_provinces; ++p) g().TableProvinces(p).trouvée = p != 5;
  ok();
  EXPECT_EQ(boîtes().size(), 1U);
  attendre_mode(étape_paramétrage_défini);
  g().TableProvinces(110).trouvée = false;
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_THAT(boîtes(), ElementsAre(question_sans_sauvegarde));
  attendre_repos();
}

// --- OK without saving

TEST_F(ConfigurationTaken, ThePlayerMayThinkBetterOfNotSaving) {
  utiliser(défaut);
  donner_scores();
  définir();
  cliquer_province(57);
  cocher(1, 4);
  mettre(e().BTN_Sauvegarde, false);
  const Photo avant = photographier(g());
  m.boîtes.réponses = {Réponse::non};
  ok();
  EXPECT_THAT(boîtes(), ElementsAre(question_sans_sauvegarde));
  EXPECT_THAT(variables_changées(avant, photographier(g())),
              ElementsAre("Configuration_acceptée", "Ordre_jeux"));
  EXPECT_FALSE(fichier_existe(m.dossier.fichier("~tmp.~ci")));
  attendre_mode(étape_paramétrage_défini);
  annuler();
  EXPECT_THAT(ordre(), ElementsAre(1, 4, 2, 3)) << "nothing of the editing survives";
  EXPECT_THAT(exclues(), IsEmpty());
}

TEST_F(ConfigurationTaken, WithOtherProvincesTheTemporaryConfigurationStartsWithoutScores) {
  donner_scores();
  utiliser(défaut);
  const std::string nommé = lire_fichier(défaut);
  écrire_fichier(m.dossier.fichier("~tmp.~ci"), std::string(100000, 'x'));
  définir();
  cliquer_province(57);
  cocher(2, 3);
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_THAT(boîtes(), ElementsAre(question_sans_sauvegarde));
  EXPECT_EQ(g().Fichier_lancement, "~tmp.~ci");
  EXPECT_THAT(exclues(), ElementsAre(57));
  EXPECT_THAT(ordre(), ElementsAre(1, 2, 0, 0));
  EXPECT_THAT(scores(), IsEmpty());
  const Fichier temporaire = lire(m.dossier.fichier("~tmp.~ci"));
  EXPECT_THAT(temporaire.ordre, ElementsAre(1, 2, 0, 0));
  EXPECT_THAT(temporaire.exclues, ElementsAre(57));
  EXPECT_THAT(temporaire.scores, IsEmpty());
  EXPECT_EQ(lire_fichier(défaut), nommé);
  EXPECT_EQ(réglage("fichier de lancement"), défaut);
  EXPECT_TRUE(g().TableProvinces(57).trouvée);
  attendre_repos();
}

TEST_F(ConfigurationTaken, AnUnchangedConfigurationTakesItsScoresAlong) {
  donner_scores();
  utiliser(défaut);
  const std::string nommé = lire_fichier(défaut);
  définir();
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_EQ(g().Fichier_lancement, "~tmp.~ci");
  EXPECT_EQ(scores(), scores_donnés);
  EXPECT_EQ(lire(m.dossier.fichier("~tmp.~ci")).scores, scores_donnés);
  EXPECT_EQ(lire_fichier(défaut), nommé);
  attendre_repos();
}

TEST_F(ConfigurationTaken, AnotherOrderAloneTakesTheScoresAlongWhereNothingIsSaved) {
  for (const std::string &fichier : {défaut, std::string("~tmp.~ci")}) {
    donner_scores();
    utiliser(fichier);
    définir();
    cocher(1, 3);
    mettre(e().BTN_Sauvegarde, false);
    ok();
    EXPECT_THAT(ordre(), ElementsAre(2, 4, 0, 0)) << fichier;
    EXPECT_EQ(scores(), scores_donnés) << fichier;
    EXPECT_EQ(lire(m.dossier.fichier("~tmp.~ci")).scores, scores_donnés) << fichier;
    g().Ordre_jeux = Ordre_de_jeu({1, 4, 2, 3});
  }
}

TEST_F(ConfigurationTaken, AProvinceSwitchedOffAndOnAgainIsNoChange) {
  donner_scores();
  définir();
  cliquer_province(57);
  cliquer_province(57);
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_EQ(scores(), scores_donnés);
}

TEST_F(ConfigurationTaken, WhatWasLeftOutBeforeIsNoChangeUntilItIsTakenInAgain) {
  g().TableProvinces(57).inhibée = true;
  définir();
  ok();
  EXPECT_THAT(choix, IsEmpty());
  attendre_repos();
  définir();
  cliquer_province(57);
  ok();
  EXPECT_THAT(choix, ElementsAre(choix_nouveau_nom, fichier_paramétrage, 1));
}

TEST_F(ConfigurationTaken, WhereTheTemporaryFileCannotBeWrittenTheModeIsLeftAndTheNextPassAsksForAFile) {
  donner_scores();
  fs::create_directory(chemin_natif(m.dossier.fichier("~tmp.~ci")));
  définir();
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_THAT(boîtes(), ElementsAre(question_sans_sauvegarde,
                                    "information | Erreur | Impossible d'écrire le fichier ~tmp.~ci ! \r\n" +
                                        message(g(), Message::fichier_peut_être_protégé)));
  EXPECT_TRUE(g().Scores_non_sauvés);
  EXPECT_TRUE(g().Configuration_acceptée);
  EXPECT_EQ(scores(), scores_donnés);
  attendre_repos();

  définir();
  mettre(e().BTN_Sauvegarde, true);
  ok();
  EXPECT_THAT(choix, ElementsAre(choix_nom_gardant_les_scores, fichier_paramétrage, 0));
}

// --- OK with saving

TEST_F(ConfigurationTaken, OtherProvincesOrAnotherOrderAskForANewName) {
  for (const bool démarrage : {false, true}) {
    for (const bool provinces : {false, true}) {
      choix.clear();
      définir();
      if (provinces)
        cliquer_province(57);
      else
        cocher(4, 4);
      mettre(e().BTN_Démarrage, démarrage);
      ok();
      EXPECT_THAT(choix, ElementsAre(choix_nouveau_nom, fichier_paramétrage, démarrage ? 1 : 0));
      attendre_mode(étape_paramétrage_défini);
      annuler();
    }
  }
  EXPECT_THAT(boîtes(), IsEmpty());
}

TEST_F(ConfigurationTaken, ACancelledChooserLeavesTheEditingAsItIsAndCancelGivesTheOrderBack) {
  donner_scores();
  utiliser(défaut);
  définir();
  cliquer_province(57);
  cocher(1, 3);
  ok();
  EXPECT_FALSE(g().Configuration_acceptée);
  attendre_mode(étape_paramétrage_défini);
  EXPECT_TRUE(g().TableProvinces(57).trouvée);
  EXPECT_EQ(grille(), ".... .x.. x... ....");
  EXPECT_EQ(g().Fichier_lancement, défaut);
  EXPECT_THAT(exclues(), IsEmpty());
  EXPECT_EQ(scores(), scores_donnés);
  annuler();
  EXPECT_THAT(ordre(), ElementsAre(1, 4, 2, 3));
  EXPECT_FALSE(g().TableProvinces(57).trouvée);
  attendre_repos();
}

TEST_F(ConfigurationTaken, AfterACancelledChooserTheSameChangesAreStillChanges) {
  définir();
  cocher(1, 3);
  ok();
  choix.clear();
  ok();
  EXPECT_THAT(choix, ElementsAre(choix_nouveau_nom, fichier_paramétrage, 1));
}

TEST_F(ConfigurationTaken, ASavedConfigurationIsInForceAndTheModeIsLeft) {
  const std::string nord = nommer_au_choix("nord");
  donner_scores();
  définir();
  cliquer_province(57);
  cocher(1, 3);
  ok();
  attendre_repos();
  EXPECT_EQ(g().Fichier_lancement, nord);
  EXPECT_THAT(ordre(), ElementsAre(2, 4, 0, 0));
  EXPECT_THAT(exclues(), ElementsAre(57));
  EXPECT_THAT(scores(), IsEmpty());
  EXPECT_EQ(lire(nord).scores, scores_donnés);
}

struct Cas_sans_changement {
  const char *nom;
  bool démarrage, non_sauvés, temporaire, par_défaut;
  bool au_démarrage, nouveau_fichier;  ///< what comes of it
};

const std::vector<Cas_sans_changement> cas_sans_changement = {
    {"a file that the start does not use", false, false, false, false, false, false},
    {"the start shall use it", true, false, false, false, true, false},
    {"the start uses it already", true, false, false, true, false, false},
    {"unticking takes nothing back", false, false, false, true, false, false},
    {"scores that are on no disk", false, true, false, false, false, true},
    {"scores that are on no disk, at the start too", true, true, false, false, false, true},
    {"scores that are on no disk, of the start's file", true, true, false, true, false, true},
    {"the temporary one becomes a file", false, false, true, false, false, true},
    {"the temporary one becomes the start's file", true, false, true, false, false, true},
    {"the temporary one after the start's file was shown", true, false, true, true, false, true},
    {"the temporary one, on no disk", false, true, true, false, false, true},
};

TEST_F(ConfigurationTaken, WithoutChangesOnlyWhatIsAskedForIsDone) {
  const std::string ailleurs = m.dossier.fichier("classe.SCI");
  for (const Cas_sans_changement &c : cas_sans_changement) {
    SCOPED_TRACE(c.nom);
    choix.clear();
    donner_scores();
    utiliser(c.temporaire ? "~tmp.~ci" : ailleurs);
    const std::string avant = lire_fichier(ailleurs);
    m.registre.écrire(clé_du_jeu, "fichier de lancement", défaut);
    g().Scores_non_sauvés = c.non_sauvés;
    définir();
    g().Paramétrage_par_défaut = c.par_défaut;
    mettre(e().BTN_Sauvegarde, true);
    mettre(e().BTN_Démarrage, c.démarrage);
    ok();
    EXPECT_EQ(réglage("fichier de lancement"), c.au_démarrage ? ailleurs : défaut);
    if (c.nouveau_fichier) {
      EXPECT_THAT(choix, ElementsAre(choix_nom_gardant_les_scores, fichier_paramétrage, c.démarrage ? 1 : 0));
      attendre_mode(étape_paramétrage_défini);
      annuler();
    } else {
      EXPECT_THAT(choix, IsEmpty());
      attendre_repos();
    }
    EXPECT_THAT(boîtes(), IsEmpty());
    EXPECT_EQ(scores(), scores_donnés);
    EXPECT_EQ(lire_fichier(ailleurs), avant);
  }
}

TEST_F(ConfigurationTaken, TheTemporaryConfigurationBecomesAFileWithItsScores) {
  const std::string nord = nommer_au_choix("nord");
  donner_scores();
  utiliser("~tmp.~ci");
  définir();
  mettre(e().BTN_Sauvegarde, true);
  mettre(e().BTN_Démarrage, true);
  ok();
  attendre_repos();
  EXPECT_EQ(g().Fichier_lancement, nord);
  EXPECT_EQ(réglage("fichier de lancement"), nord);
  EXPECT_EQ(scores(), scores_donnés);
  EXPECT_EQ(lire(nord).scores, scores_donnés);
}

TEST_F(ConfigurationTaken, AFileForTheStartInAnotherFolderProposesThatFolder) {
  const std::string classe = m.dossier.fichier("classe");
  fs::create_directory(chemin_natif(classe));
  utiliser(classe + "/nord.SCI");
  for (const Réponse réponse : {Réponse::non, Réponse::oui}) {
    définir();
    mettre(e().BTN_Démarrage, true);
    m.boîtes.réponses = {réponse};
    ok();
    EXPECT_THAT(boîtes(), ElementsAre("question ? | Choix du répertoire | Souhaitez-vous utiliser comme "
                                      "répertoire par défaut " +
                                      classe));
    EXPECT_EQ(g().Répertoire_sauvegarde, réponse == Réponse::oui ? classe : m.dossier.chemin());
    EXPECT_EQ(réglage("fichier de lancement"), classe + "/nord.SCI");
    attendre_repos();
  }
}

TEST_F(ConfigurationTaken, ABareNameForTheStartMeansTheCurrentFolder) {
  utiliser("nord.SCI");
  définir();
  mettre(e().BTN_Démarrage, true);
  ok();
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_EQ(réglage("fichier de lancement"), "nord.SCI");
}

// --- Cancel

TEST_F(ConfigurationTaken, CancelBringsBackWhatWas) {
  g().TableProvinces(3).inhibée = true;
  donner_scores();
  utiliser(défaut);
  const std::string nommé = lire_fichier(défaut);
  m.registre.écrire(clé_du_jeu, "fichier de lancement", "/ailleurs/x.SCI");
  RevenirAuRepos(m.c());
  const Photo avant = photographier(g());
  définir();
  cliquer_province(3);
  cliquer_province(57);
  cocher(1, 3);
  mettre(e().BTN_Démarrage, true);
  annuler();
  attendre_repos();
  EXPECT_THAT(variables_changées(avant, photographier(g())),
              ElementsAre("Boutons_actifs", "Ordre_initial", "Paramétrage_permanent"));
  EXPECT_TRUE(g().TableProvinces(3).trouvée);
  EXPECT_EQ(lire_fichier(défaut), nommé);
  EXPECT_EQ(réglage("fichier de lancement"), "/ailleurs/x.SCI");
  EXPECT_THAT(boîtes(), IsEmpty());
}

TEST_F(ConfigurationTaken, CancelLeavesRoomForThePanel) {
  définir();
  élargir_carte();
  annuler();
  attendre_carte_et_panneau();
}

TEST_F(ConfigurationTaken, ThePlayerMayCloseTheProgramInTheMiddleOfEditing) {
  définir();
  cliquer_province(57);
  demander_fermeture(e());
  EXPECT_FALSE(e().ouverte);
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(fichier_existe(défaut));
}

// --- Another configuration

TEST_F(ConfigurationTaken, AnotherFileIsChosenInTheChooser) {
  m.façade.joueur = [&](Fenêtre &f) {
    EXPECT_EQ(f.nom, "Sélection_partie");
    choix = {g().Mode_sélection, g().Type_fichier};
    EXPECT_FALSE(contrôle(f, "Nom_fichier").visible);
  };
  menu("menu_recharger");
  EXPECT_THAT(choix, ElementsAre(choix_fichier, fichier_paramétrage));
}

TEST_F(ConfigurationTaken, ARunningGameIsKeptFromAnotherConfigurationIfThePlayerWantsIt) {
  commencer_une_partie();
  const Photo avant = photographier(g());
  const std::string lancement = réglage("fichier de lancement");
  for (const char *entrée : {"menu_recharger", "Menu_défaut"}) {
    m.boîtes.réponses = {Réponse::non};
    menu(entrée);
    EXPECT_THAT(boîtes(), ElementsAre(question_d_abandon));
    EXPECT_THAT(variables_changées(avant, photographier(g())), IsEmpty());
    EXPECT_TRUE(e().que_faire.visible);
    EXPECT_THAT(choix, IsEmpty());
  }
  EXPECT_EQ(réglage("fichier de lancement"), lancement);
}

TEST_F(ConfigurationTaken, AfterACancelledChoiceTheOldConfigurationStandsAndNothingIsPlayed) {
  g().TableProvinces(3).inhibée = true;
  for (const bool en_jeu : {false, true}) {
    if (en_jeu)
      commencer_une_partie();
    else
      afficher();
    élargir_carte();
    menu("menu_recharger");
    attendre_repos();
    attendre_carte_et_panneau();
    EXPECT_THAT(exclues(), ElementsAre(3));
    EXPECT_EQ(g().Fichier_lancement, défaut);
    EXPECT_EQ(g().ProvincesEnJeu, nombre_provinces - 1);
  }
}

TEST_F(ConfigurationTaken, TheDefaultFileIsTakenWithItsScoresAndTheStartUsesIt) {
  g().TableProvinces(9).inhibée = true;
  donner_scores();
  utiliser(défaut);
  Vider_scores(m.c());
  g().TableProvinces(9).inhibée = false;
  g().Ordre_jeux = Ordre_de_jeu({3, 0, 0, 0});
  utiliser(m.dossier.fichier("classe.SCI"));
  m.registre.écrire(clé_du_jeu, "fichier de lancement", m.dossier.fichier("classe.SCI"));
  for (const bool en_jeu : {false, true}) {
    if (en_jeu)
      commencer_une_partie();
    else
      afficher();
    menu("Menu_défaut");
    attendre_repos();
    EXPECT_EQ(g().Fichier_lancement, défaut);
    EXPECT_EQ(réglage("fichier de lancement"), défaut);
    EXPECT_THAT(ordre(), ElementsAre(1, 4, 2, 3));
    EXPECT_THAT(exclues(), ElementsAre(9));
    EXPECT_THAT(scores(), IsSupersetOf(scores_donnés));
    EXPECT_EQ(g().ProvincesEnJeu, nombre_provinces - 1);
  }
}

TEST_F(ConfigurationTaken, WithoutADefaultFileTheDefaultConfigurationIsTakenSilently) {
  g().TableProvinces(9).inhibée = true;
  utiliser("~tmp.~ci");
  menu("Menu_défaut");
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_EQ(g().Fichier_lancement, défaut);
  EXPECT_THAT(exclues(), IsEmpty());
  EXPECT_FALSE(fichier_existe(défaut));
}

TEST_F(ConfigurationTaken, TheDefaultFileIsThatOfTheFolderForGames) {
  const std::string jeux = m.dossier.fichier("jeux");
  fs::create_directory(chemin_natif(jeux));
  g().Répertoire_sauvegarde = jeux;
  menu("Menu_défaut");
  EXPECT_EQ(g().Fichier_lancement, jeux + "/ARDANE.SCI");
  EXPECT_EQ(réglage("fichier de lancement"), jeux + "/ARDANE.SCI");
}

}  // namespace
}  // namespace ardane
