// What comes of a file that the player has named or picked.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "configuration/file_chooser.h"
#include "play/saved_game.h"
#include "support/file_chooser_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using FileChooserJobs = AvecChoixDeFichier;

constexpr const char *question_du_défaut =
    "question ? | Chargement du fichier de paramétrage | Voulez-vous que ce paramétrage soit utilisé par "
    "défaut lors des prochains lancements du jeu ?";
constexpr const char *partie_non_écrite =
    "information | Erreur | Impossible d'écrire dans le répertoire spécifié !";

// --- A game is saved

TEST_F(FileChooserJobs, ASavedGameEndsOnTheScreen) {
  commencer_une_partie();
  const int score = g().Score;
  const std::string lancement = g().Fichier_lancement;
  ouvrir(choix_nouveau_nom, fichier_partie);
  g().Répertoire_sauvegarde = jeux;
  nommer("souper");
  ok();
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(fenêtre->ouverte);
  EXPECT_TRUE(fichier_existe(jeux + "/souper.CAI"));
  EXPECT_EQ(g().Etape, étape_repos);
  EXPECT_TRUE(g().PartieVierge);
  EXPECT_TRUE(g().PartieClose);
  EXPECT_TRUE(g().Configuration_acceptée);
  EXPECT_EQ(g().Score, score);
  EXPECT_EQ(g().Fichier_lancement, lancement);
  EXPECT_EQ(g().ProvinceCourante, 0);
  EXPECT_FALSE(e().que_faire.visible);
  EXPECT_FALSE(e().BoutonPasse.visible);
  EXPECT_FALSE(e().Pays(1).visible || e().Inv(1).visible);
}

TEST_F(FileChooserJobs, TheNameOfAGameMayBeAnyThatTheDiskTakes) {
  for (const auto &[saisi, nom] :
       {std::pair("partie.txt", "partie.CAI"), std::pair("à  table !", "à  table !.CAI"),
        std::pair("  blancs ", "  blancs .CAI"), std::pair("晩ご飯", "晩ご飯.CAI"),
        std::pair("nord.SCI", "nord.CAI"), std::pair("~tmp", "~tmp.CAI"), std::pair("a\\b", "a\\b.CAI")}) {
    commencer_une_partie();
    ouvrir(choix_nouveau_nom, fichier_partie);
    g().Répertoire_sauvegarde = jeux;
    nommer(saisi);
    ok();
    EXPECT_FALSE(fenêtre->ouverte) << saisi;
    EXPECT_TRUE(fichier_existe(jeux + "/" + nom)) << saisi;
    EXPECT_THAT(boîtes(), IsEmpty());
  }
}

TEST_F(FileChooserJobs, AGameSavedInAnotherFolderProposesThatFolder) {
  for (const Réponse réponse : {Réponse::non, Réponse::oui}) {
    commencer_une_partie();
    ouvrir(choix_nouveau_nom, fichier_partie);
    nommer(réponse == Réponse::oui ? "oui" : "non");
    m.boîtes.réponses = {réponse};
    m.boîtes.pendant = [&](const Boîte &) {
      EXPECT_TRUE(fichier_existe(jeux + "/" + k("Nom_fichier").texte)) << "the game is safe already";
    };
    ok();
    m.boîtes.pendant = {};
    EXPECT_THAT(boîtes(), ElementsAre(proposition(jeux)));
    const std::string choisi = réponse == Réponse::oui ? jeux : m.dossier.chemin();
    EXPECT_EQ(g().Répertoire_sauvegarde, choisi);
    EXPECT_EQ(réglage("répertoire"), choisi);
    EXPECT_FALSE(fenêtre->ouverte);
  }
}

TEST_F(FileChooserJobs, AGameThatCannotBeWrittenGoesOn) {
  commencer_une_partie();
  fs::create_directory(chemin_natif(jeux + "/dossier.CAI"));
  ouvrir(choix_nouveau_nom, fichier_partie);
  const Tout avant = tout();
  for (const std::string &nom : {std::string("dossier"), std::string(300, 'n')}) {
    nommer(nom);
    ok();
    attendre_refus(avant, partie_non_écrite);
    EXPECT_TRUE(e().que_faire.visible);
  }
  nommer("souper");
  {
    const DisquePlein disque(0);
    ok();
  }
  attendre_refus(avant, partie_non_écrite);
  nommer("souper");
  ok();
  EXPECT_FALSE(fenêtre->ouverte);
}

TEST_F(FileChooserJobs, InAFolderThatTakesNoFilesAGameGoesOn) {
  commencer_une_partie();
  ouvrir(choix_nouveau_nom, fichier_partie);
  const Tout avant = tout();
  nommer("souper");
  {
    const Protégé sans_écriture(chemin_natif(jeux), Protégé::Contre::écriture);
    ok();
  }
  attendre_refus(avant, partie_non_écrite);
  fs::remove_all(chemin_natif(jeux));
  ok();
  attendre_refus(avant, partie_non_écrite);
}

// --- A game is taken up

class SavedGameChooser : public AvecChoixDeFichier {
 protected:
  SavedGameChooser() {
    g().Répertoire_sauvegarde = jeux;
    m.nouvelle_partie(1, "Zoé");
    m.répondre_juste();
    m.répondre_faux();
    EXPECT_TRUE(Enregistrer_partie(m.c(), partie));
    g().PartieVierge = true;
    m.oublier();
  }
  /// The file as another version wrote it, or with a stage that there is not.
  void changer(std::size_t place, char octet) {
    std::string octets = lire_fichier(partie);
    octets.at(place) = octet;
    écrire_fichier(partie, octets);
  }
  static constexpr std::size_t place_de_la_version = 2, place_de_l_étape = 3 * 128;

  const std::string partie = jeux + "/souper.CAI";
};

TEST_F(SavedGameChooser, AChosenGameGoesOnAndItsFileIsGone) {
  const int score = g().Score;
  menu("menu_définir");
  g().ConseilFicheVu = true;
  g().Score = 0;
  ouvrir(choix_fichier, fichier_partie);
  élargir_carte();
  charger("souper.CAI");
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(fenêtre->ouverte);
  EXPECT_FALSE(fichier_existe(partie));
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_EQ(g().Nom_joueur, "Zoé");
  EXPECT_EQ(g().Score, score);
  EXPECT_FALSE(g().PartieVierge);
  EXPECT_FALSE(g().PartieClose);
  attendre_carte_et_panneau();
  EXPECT_NE(g().ProvinceCourante, 0);
  EXPECT_FALSE(e().LBL_param(1).visible);
  EXPECT_TRUE(e().menu("menu_fichier").actif);
  EXPECT_TRUE(e().que_faire.visible);
  EXPECT_EQ(e().Reste(3).texte + e().Reste(2).texte + e().Reste(1).texte, "109");
  EXPECT_EQ(e().Boîte_restants.texte, "Provinces à placer");
}

struct Reste_repris {
  Etapes étape;
  std::string légende, chiffres;
};

TEST_F(SavedGameChooser, TheCounterIsThatOfTheStageAndLeftAsItIsInTheStageOfFlags) {
  const std::vector<Reste_repris> cas = {
      {étape_provinces, "Provinces à placer", "110"},
      {étape_villes, "Villes à placer", "330"},
      {étape_drapeaux, "Drapeaux à placer", "777"},
      {étape_régions, "Régions à placer", "020"},
  };
  for (const auto &[étape, légende, chiffres] : cas) {
    g().Ordre_jeux = Ordre_de_jeu({étape, 0, 0, 0});
    utiliser(g().Fichier_lancement);
    m.nouvelle_partie(1);
    fs::remove(chemin_natif(partie));
    ASSERT_TRUE(Enregistrer_partie(m.c(), partie));
    for (int i = 1; i <= 3; ++i) e().Reste(i).texte = "7";
    e().Boîte_restants.texte.clear();
    ouvrir(choix_fichier, fichier_partie);
    charger("souper.CAI");
    EXPECT_EQ(e().Boîte_restants.texte, légende);
    EXPECT_EQ(e().Reste(3).texte + e().Reste(2).texte + e().Reste(1).texte, chiffres) << légende;
    g().PartieVierge = true;
  }
}

TEST_F(SavedGameChooser, TheFileIsThereUntilTheGameStands) {
  g().Répertoire_sauvegarde = m.dossier.chemin();
  ouvrir(choix_fichier, fichier_partie);
  m.boîtes.pendant = [&](const Boîte &) { EXPECT_TRUE(fichier_existe(partie)); };
  charger("souper.CAI");
  EXPECT_THAT(boîtes(), ElementsAre(proposition(jeux)));
  EXPECT_EQ(réglage("répertoire"), jeux);
  EXPECT_FALSE(fichier_existe(partie));
}

TEST_F(SavedGameChooser, AGameOfAnotherVersionIsRefusedAndKept) {
  changer(place_de_la_version, 'v');
  ouvrir(choix_fichier, fichier_partie);
  const Tout avant = tout();
  charger("souper.CAI");
  attendre_refus(avant, "stop | Pas possible | Impossible de reprendre avec le jeu " + g().Version_programme +
                            " une partie interrompue avec une version antérieure !");
}

TEST_F(SavedGameChooser, ADamagedGameIsRefusedAndKept) {
  changer(place_de_l_étape, 5);
  ouvrir(choix_fichier, fichier_partie);
  const Tout avant = tout();
  charger("souper.CAI");
  attendre_refus(avant, "exclamation | Erreur de format | " + partie +
                            " : Le fichier sélectionné n'est pas interprétable !");
}

TEST_F(SavedGameChooser, AGameThatMayNotBeReadIsRefused) {
  ouvrir(choix_fichier, fichier_partie);
  const Tout avant = tout();
  {
    const Protégé sans_lecture(chemin_natif(partie), Protégé::Contre::lecture);
    charger("souper.CAI");
  }
  attendre_refus(avant, "exclamation | Erreur de format | " + partie +
                            " : Le fichier sélectionné n'est pas interprétable !");
}

TEST_F(SavedGameChooser, AGameThatHasGoneMeanwhileIsToldAndListedNoMore) {
  ouvrir(choix_fichier, fichier_partie);
  fs::remove(chemin_natif(partie));
  const Tout avant = tout();
  charger("souper.CAI");
  attendre_refus(avant, "exclamation | Erreur de format | " + partie +
                            " : Le fichier sélectionné n'est pas interprétable !");
  EXPECT_THAT(k("Fichier").éléments, IsEmpty());
  EXPECT_EQ(k("Fichier").choix, 0);
}

TEST_F(SavedGameChooser, AFileThatCannotBeDeletedIsLeftAndTheGameGoesOn) {
  ouvrir(choix_fichier, fichier_partie);
  {
    const Protégé sans_écriture(chemin_natif(partie), Protégé::Contre::écriture);
    charger("souper.CAI");
  }
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(fenêtre->ouverte);
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_TRUE(fichier_existe(partie));
}

TEST_F(SavedGameChooser, OfTwoHundredGamesTheLastOneIsTaken) {
  const std::string octets = lire_fichier(partie);
  for (int i = 1; i < 200; ++i) écrire_fichier(jeux + "/partie " + std::to_string(i) + ".CAI", octets);
  ouvrir(choix_fichier, fichier_partie);
  ASSERT_THAT(k("Fichier").éléments, SizeIs(200));
  charger("souper.CAI");
  EXPECT_FALSE(fichier_existe(partie));
  EXPECT_TRUE(fichier_existe(jeux + "/partie 199.CAI"));
}

// --- A configuration is saved

TEST_F(FileChooserJobs, ANewConfigurationHasTheScoresMadeSoFarInItsFileAndStartsWithNone) {
  g().Répertoire_sauvegarde = jeux;
  for (const bool garde : {false, true}) {
    const std::string nom = garde ? "garde" : "neuf";
    donner_scores();
    menu("menu_définir");
    cliquer_province(57);
    g().Ordre_jeux = Ordre_de_jeu({2, 3, 0, 0});
    ouvrir(garde ? choix_nom_gardant_les_scores : choix_nouveau_nom, fichier_paramétrage);
    const std::string lancement = réglage("fichier de lancement");
    g().Démarrage_demandé = false;
    nommer(nom);
    ok();
    EXPECT_THAT(boîtes(), IsEmpty());
    EXPECT_FALSE(fenêtre->ouverte);
    EXPECT_EQ(g().Fichier_lancement, jeux + "/" + nom + ".SCI");
    const Fichier écrit = lire(g().Fichier_lancement);
    EXPECT_THAT(écrit.ordre, ElementsAre(2, 3, 0, 0));
    EXPECT_EQ(écrit.exclues, exclues());
    EXPECT_EQ(écrit.scores, scores_donnés);
    EXPECT_EQ(scores(), garde ? scores_donnés : std::vector<std::string>{});
    EXPECT_EQ(réglage("fichier de lancement"), lancement);
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_TRUE(g().PartieVierge);
    EXPECT_TRUE(g().PartieClose);
    EXPECT_TRUE(g().Configuration_acceptée);
    EXPECT_FALSE(e().LBL_param(1).visible);
    EXPECT_FALSE(e().Pays(1).visible);
    EXPECT_TRUE(e().menu("menu_fichier").actif);
  }
  EXPECT_THAT(exclues(), IsEmpty()) << "the second click has switched the province on again";
}

TEST_F(FileChooserJobs, TheNextScoreReplacesThoseOfTheNewFileByItsOwnTable) {
  g().Répertoire_sauvegarde = jeux;
  donner_scores();
  ouvrir(choix_nouveau_nom, fichier_paramétrage);
  nommer("classe");
  ok();
  Ajouter_scores(g(), {{"Ida", 77, 2}});
  Ecrire_scores(m.c(), true);
  EXPECT_THAT(lire(jeux + "/classe.SCI").scores, ElementsAre("2 Ida 77"));
}

TEST_F(FileChooserJobs, AConfigurationForTheStartIsRememberedAndItsFolderProposed) {
  for (const Modes_sélection mode : {choix_nouveau_nom, choix_nom_gardant_les_scores}) {
    const std::string chemin = jeux + "/classe " + std::to_string(mode) + ".SCI";
    donner_scores();
    ouvrir(mode, fichier_paramétrage);
    g().Démarrage_demandé = true;
    g().Répertoire_sauvegarde = m.dossier.chemin();
    nommer("classe " + std::to_string(mode));
    m.boîtes.pendant = [&](const Boîte &) {
      EXPECT_EQ(réglage("fichier de lancement"), chemin);
      EXPECT_EQ(lire(chemin).scores, scores_donnés);
      EXPECT_EQ(scores().empty(), mode == choix_nouveau_nom);
      EXPECT_TRUE(fenêtre->ouverte);
    };
    ok();
    m.boîtes.pendant = {};
    EXPECT_THAT(boîtes(), ElementsAre(proposition(jeux)));
    EXPECT_EQ(g().Répertoire_sauvegarde, jeux);
    EXPECT_FALSE(fenêtre->ouverte);
  }
}

TEST_F(FileChooserJobs, AConfigurationInAnotherFolderThatNoStartUsesProposesNothing) {
  ouvrir(choix_nouveau_nom, fichier_paramétrage);
  g().Démarrage_demandé = false;
  nommer("classe");
  ok();
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_EQ(g().Répertoire_sauvegarde, m.dossier.chemin());
}

TEST_F(FileChooserJobs, AConfigurationThatCannotBeWrittenIsToldAndWhatWasSetStays) {
  fs::create_directory(chemin_natif(jeux + "/dossier.SCI"));
  donner_scores();
  menu("menu_définir");
  cliquer_province(57);
  const std::string lancement = réglage("fichier de lancement");
  for (const Modes_sélection mode : {choix_nouveau_nom, choix_nom_gardant_les_scores}) {
    for (const std::string &nom : {std::string("dossier"), std::string(300, 'n')}) {
      ouvrir(mode, fichier_paramétrage);
      g().Démarrage_demandé = true;
      g().Fichier_lancement = "ancien";
      g().Scores_non_sauvés = false;
      g().TableProvinces(57).inhibée = false;
      const Photo avant = photographier(g());
      nommer(nom);
      ok();
      const std::string chemin = jeux + "/" + nom + ".SCI";
      EXPECT_THAT(boîtes(), ElementsAre("information | Erreur | Impossible d'écrire le fichier " + chemin +
                                        " ! \r\n" + message(g(), Message::fichier_peut_être_protégé)));
      EXPECT_TRUE(fenêtre->ouverte);
      EXPECT_THAT(variables_changées(avant, photographier(g())),
                  ElementsAre("Fichier_lancement", "Scores_non_sauvés", "TableProvinces"));
      EXPECT_EQ(g().Fichier_lancement, chemin);
      EXPECT_THAT(exclues(), ElementsAre(57));
      EXPECT_EQ(scores(), scores_donnés);
      EXPECT_EQ(réglage("fichier de lancement"), lancement);
      EXPECT_TRUE(e().LBL_param(1).visible);
    }
  }
  nommer("classe");
  ok();
  EXPECT_FALSE(fenêtre->ouverte);
  EXPECT_FALSE(g().Scores_non_sauvés);
  EXPECT_THAT(lire(jeux + "/classe.SCI").exclues, ElementsAre(57));
}

TEST_F(FileChooserJobs, OnAFullDiskAConfigurationIsNotWrittenAndAnotherNameMayFollow) {
  donner_scores();
  g().Répertoire_sauvegarde = jeux;
  ouvrir(choix_nouveau_nom, fichier_paramétrage);
  nommer("classe");
  {
    const DisquePlein disque(1000);
    ok();
  }
  EXPECT_THAT(boîtes(), SizeIs(1));
  EXPECT_TRUE(fenêtre->ouverte);
  EXPECT_TRUE(g().Scores_non_sauvés);
  EXPECT_EQ(scores(), scores_donnés);
  nommer("la classe");
  ok();
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(fenêtre->ouverte);
  EXPECT_EQ(lire(jeux + "/la classe.SCI").scores, scores_donnés);
}

TEST_F(FileChooserJobs, InAFolderThatTakesNoFilesAConfigurationIsNotWritten) {
  ouvrir(choix_nouveau_nom, fichier_paramétrage);
  nommer("classe");
  {
    const Protégé sans_écriture(chemin_natif(jeux), Protégé::Contre::écriture);
    ok();
  }
  EXPECT_THAT(boîtes(), SizeIs(1));
  EXPECT_TRUE(fenêtre->ouverte);
  fs::remove_all(chemin_natif(jeux));
  ok();
  EXPECT_THAT(boîtes(), SizeIs(1));
  EXPECT_TRUE(fenêtre->ouverte);
  EXPECT_TRUE(g().Scores_non_sauvés);
}

TEST_F(FileChooserJobs, AnyNameThatTheDiskTakesNamesAConfiguration) {
  g().Répertoire_sauvegarde = jeux;
  g().Démarrage_demandé = true;
  for (const char *nom : {"Le nord seulement, villes puis drapeaux", "北", "œuf à 3 €"}) {
    ouvrir(choix_nouveau_nom, fichier_paramétrage);
    nommer(nom);
    ok();
    const std::string chemin = jeux + "/" + nom + ".SCI";
    EXPECT_EQ(réglage("fichier de lancement"), chemin);
    ouvrir(choix_fichier, fichier_paramétrage);
    charger(std::string(nom) + ".SCI");
    EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut));
    EXPECT_EQ(g().Fichier_lancement, chemin);
  }
}

// --- A configuration is loaded

class ConfigurationChooser : public AvecChoixDeFichier {
 protected:
  ConfigurationChooser() {
    g().TableProvinces(57).inhibée = true;
    g().Ordre_jeux = Ordre_de_jeu({2, 3, 0, 0});
    donner_scores();
    utiliser(nord);
    g().TableProvinces(57).inhibée = false;
    g().Ordre_jeux = Ordre_de_jeu({1, 4, 2, 3});
    Vider_scores(m.c());
    g().Fichier_lancement = défaut;
  }
  void attendre_nord() {
    EXPECT_FALSE(fenêtre->ouverte);
    EXPECT_EQ(g().Fichier_lancement, nord);
    EXPECT_THAT(ordre(), ElementsAre(2, 3, 0, 0));
    EXPECT_THAT(exclues(), ElementsAre(57));
    EXPECT_EQ(scores(), scores_donnés);
    EXPECT_TRUE(fichier_existe(nord));
    attendre_repos();
    EXPECT_EQ(g().ProvincesEnJeu, nombre_provinces - 1);
  }
  void attendre_défaut() {
    EXPECT_FALSE(fenêtre->ouverte);
    EXPECT_EQ(g().Fichier_lancement, défaut_du_dossier());
    EXPECT_EQ(réglage("fichier de lancement"), défaut_du_dossier());
    EXPECT_THAT(ordre(), ElementsAre(1, 4, 2, 3));
    EXPECT_THAT(exclues(), IsEmpty());
    attendre_repos();
  }
  void attendre_repos() {
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_TRUE(g().PartieVierge);
    EXPECT_FALSE(e().que_faire.visible);
    EXPECT_FALSE(e().LBL_param(1).visible);
    EXPECT_FALSE(e().Pays(1).visible);
  }
  std::string défaut_du_dossier() { return g().Répertoire_sauvegarde + "/ARDANE.SCI"; }
  std::string illisible() {
    return "exclamation | Erreur de format | " + nord + " : Le fichier sélectionné n'est pas interprétable !";
  }

  const std::string nord = jeux + "/nord.SCI";
  const std::string défaut = m.dossier.fichier("ARDANE.SCI");
};

TEST_F(ConfigurationChooser, AConfigurationIsTakenForNow) {
  menu("Menu_affiche_paramètres");
  ouvrir(choix_fichier, fichier_paramétrage);
  élargir_carte();
  m.boîtes.réponses = {Réponse::non};
  charger("nord.SCI");
  EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut));
  EXPECT_EQ(réglage("fichier de lancement"), défaut);
  EXPECT_EQ(g().Répertoire_sauvegarde, m.dossier.chemin());
  attendre_nord();
  attendre_carte_et_panneau();
}

TEST_F(ConfigurationChooser, OrForTheNextStartsToo) {
  ouvrir(choix_fichier, fichier_paramétrage);
  m.boîtes.pendant = [&](const Boîte &) {
    EXPECT_EQ(réglage("fichier de lancement"), m.boîtes.montrées.size() == 1 ? défaut : nord);
    EXPECT_EQ(g().Fichier_lancement, défaut) << "nothing is loaded before all is asked";
  };
  charger("nord.SCI");
  EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut, proposition(jeux)));
  EXPECT_EQ(réglage("fichier de lancement"), nord);
  EXPECT_EQ(réglage("répertoire"), jeux);
  EXPECT_EQ(g().Répertoire_sauvegarde, jeux);
  attendre_nord();
}

TEST_F(ConfigurationChooser, InTheFolderForGamesNoFolderIsProposed) {
  g().Répertoire_sauvegarde = jeux;
  ouvrir(choix_fichier, fichier_paramétrage);
  charger("nord.SCI");
  EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut));
  attendre_nord();
}

TEST_F(ConfigurationChooser, AFileOfAnotherVersionIsRefusedAfterTheQuestionAndLost) {
  for (const Réponse réponse : {Réponse::oui, Réponse::non}) {
    g().Répertoire_sauvegarde = jeux;
    m.registre.écrire(clé_du_jeu, "fichier de lancement", "/ancien");
    g().TableProvinces(9).inhibée = true;
    std::string octets(117 * 128, '\0');
    octets.replace(0, 9, std::string("\7\0Version", 9));
    écrire_fichier(nord, octets);
    ouvrir(choix_fichier, fichier_paramétrage);
    m.boîtes.réponses = {réponse};
    m.boîtes.pendant = [&](const Boîte &boîte) {
      const bool écrit = boîte.icône != Icône::question && réponse == Réponse::oui;
      EXPECT_EQ(réglage("fichier de lancement"), écrit ? nord : "/ancien");
      EXPECT_TRUE(fichier_existe(nord));
    };
    charger("nord.SCI");
    m.boîtes.pendant = {};
    EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut, illisible()));
    EXPECT_FALSE(fichier_existe(nord));
    attendre_défaut();
  }
}

TEST_F(ConfigurationChooser, AFileThatHasGoneMeanwhileGivesTheDefaultWithoutAWord) {
  ouvrir(choix_fichier, fichier_paramétrage);
  fs::remove(chemin_natif(nord));
  m.boîtes.réponses = {Réponse::oui, Réponse::non};
  charger("nord.SCI");
  EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut, proposition(jeux)));
  attendre_défaut();
}

TEST_F(ConfigurationChooser, AFileThatMayNotBeReadGivesTheDefaultAndStays) {
  ouvrir(choix_fichier, fichier_paramétrage);
  m.boîtes.réponses = {Réponse::non};
  {
    const Protégé sans_lecture(chemin_natif(nord), Protégé::Contre::lecture);
    charger("nord.SCI");
  }
  EXPECT_THAT(boîtes(), ElementsAre(question_du_défaut, illisible()));
  EXPECT_TRUE(fichier_existe(nord));
  attendre_défaut();
}

}  // namespace
}  // namespace ardane
