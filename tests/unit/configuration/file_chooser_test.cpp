#include "configuration/file_chooser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/file_chooser_world.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using FileChooser = AvecChoixDeFichier;

constexpr const char *refus_du_nom =
    "exclamation | Courage | La saisie d'un nom de fichier valide est obligatoire !";
constexpr const char *refus_de_l_existant =
    "exclamation | Pas d'accord avec vous | Un peu d'imagination... ce fichier existe déjà sur le disque !";

constexpr std::array tous_les_modes = {choix_nouveau_nom, choix_fichier, choix_nom_gardant_les_scores};
constexpr std::array tous_les_types = {fichier_partie, fichier_paramétrage};

// --- The window

struct Textes {
  Types_fichier type;
  Modes_sélection mode;
  std::string titre, entête;
};

const std::vector<Textes> textes = {
    {fichier_partie, choix_nouveau_nom, "Arrêt en cours de jeu", "Nom du fichier de sauvegarde"},
    {fichier_partie, choix_fichier, "Arrêt en cours de jeu", "Sélection de la partie à charger"},
    {fichier_partie, choix_nom_gardant_les_scores, "Arrêt en cours de jeu", "Nom du fichier de sauvegarde"},
    {fichier_paramétrage, choix_nouveau_nom, "Paramétrage de la partie", "Fichier paramétrage à sauvegarder"},
    {fichier_paramétrage, choix_fichier, "Paramétrage de la partie", "Fichier paramétrage à charger"},
    {fichier_paramétrage, choix_nom_gardant_les_scores, "Paramétrage de la partie",
     "Fichier paramétrage à sauvegarder"},
};

TEST_F(FileChooser, EachJobHasItsTexts) {
  for (const Textes &t : textes) {
    ouvrir(t.mode, t.type);
    EXPECT_EQ(fenêtre->titre, t.titre);
    EXPECT_EQ(k("Entête").texte, t.entête);
    EXPECT_EQ(k("Entête").alignement, Alignement::centre);
    EXPECT_EQ(k("Bouton_OK").texte, "OK");
    EXPECT_EQ(k("Bouton_annuler").texte, "Annuler");
  }
}

TEST_F(FileChooser, EachTypeListsItsFiles) {
  for (const char *nom : {"a.CAI", "b.cai", "c.SCI", "d.Sci", "e.txt"}) fichier(nom);
  ouvrir(choix_fichier, fichier_partie);
  EXPECT_THAT(k("Fichier").éléments, ElementsAre("a.CAI", "b.cai"));
  ouvrir(choix_nouveau_nom, fichier_paramétrage);
  EXPECT_THAT(k("Fichier").éléments, ElementsAre("c.SCI", "d.Sci"));
}

TEST_F(FileChooser, ANameIsAskedWhereThereIsNoFileYetAndDrivesThereAreNone) {
  for (const Types_fichier type : tous_les_types) {
    for (const Modes_sélection mode : tous_les_modes) {
      ouvrir(mode, type);
      EXPECT_EQ(k("Nom_fichier").visible, mode != choix_fichier);
      EXPECT_EQ(k("Nom_fichier").texte, "");
      EXPECT_FALSE(k("Lecteur").visible);
    }
  }
}

TEST_F(FileChooser, WhatIsSeenStandsWithinTheWindowAndNotOverAnotherControl) {
  for (const Modes_sélection mode : tous_les_modes) {
    ouvrir(mode, fichier_partie);
    std::vector<const Contrôle *> vus;
    for (const Contrôle &c : fenêtre->contrôles())
      if (c.visible) vus.push_back(&c);
    for (const Contrôle *a : vus) {
      EXPECT_TRUE(a->gauche >= 0 && a->gauche + a->largeur <= fenêtre->largeur) << a->nom;
      EXPECT_TRUE(a->haut >= 0 && a->haut + a->hauteur <= fenêtre->hauteur) << a->nom;
      for (const Contrôle *b : vus) {
        const bool à_côté = a->gauche + a->largeur <= b->gauche || b->gauche + b->largeur <= a->gauche;
        const bool dessous = a->haut + a->hauteur <= b->haut || b->haut + b->hauteur <= a->haut;
        EXPECT_TRUE(a == b || à_côté || dessous) << a->nom << " and " << b->nom;
      }
    }
  }
}

TEST_F(FileChooser, WithoutANameTheListsReachUpToItsPlaceAndDownAsFarAsEver) {
  std::map<Modes_sélection, std::vector<double>> hauts, bas;
  for (const Modes_sélection mode : {choix_nouveau_nom, choix_fichier}) {
    ouvrir(mode, fichier_partie);
    for (const char *nom : {"Répertoire", "Fichier"}) {
      hauts[mode].push_back(k(nom).haut);
      bas[mode].push_back(k(nom).haut + k(nom).hauteur);
    }
  }
  EXPECT_LT(hauts[choix_fichier], hauts[choix_nouveau_nom]);
  EXPECT_EQ(bas[choix_fichier], bas[choix_nouveau_nom]);
}

TEST_F(FileChooser, ItStandsInTheMiddleOfTheScreenToTheWholePixel) {
  g().Largeur_écran = 1281;
  g().Hauteur_écran = 1023;
  ouvrir(choix_nouveau_nom, fichier_partie);
  EXPECT_EQ(fenêtre->gauche, 430);
  EXPECT_EQ(fenêtre->haut, 321);
}

TEST_F(FileChooser, ItOpensOnTheCurrentFolderAndNamesIt) {
  ouvrir(choix_fichier, fichier_partie);
  EXPECT_EQ(k("Dossier_ouvert").texte, jeux);
  EXPECT_EQ(k("Dossier_ouvert").infobulle, jeux);
  choisir_nom("Répertoire", "..");
  k("Répertoire").double_clic();
  EXPECT_EQ(k("Dossier_ouvert").texte, m.dossier.chemin());
}

TEST_F(FileChooser, OfALongPathTheLastFiftySixBytesAreReadAndTheToolTipHasTheWhole) {
  const std::string juste_assez(55 - std::string("/été").size(), 'n');
  const std::string un_de_trop(56, 'x');
  for (const auto &[nom, montré] : {std::pair(juste_assez + "/été", "…/" + juste_assez + "/été"),
                                    std::pair(un_de_trop, m.dossier.fichier(un_de_trop))}) {
    const std::string profond = m.dossier.fichier(nom);
    fs::create_directories(chemin_natif(profond));
    m.c().dossier.changer(profond);
    ouvrir(choix_fichier, fichier_partie);
    EXPECT_EQ(k("Dossier_ouvert").texte, montré) << "it is cut at a separator, or nowhere";
    EXPECT_EQ(k("Dossier_ouvert").infobulle, profond);
  }
}

TEST_F(FileChooser, WhereTheCurrentFolderIsGoneItOpensOnTheRoot) {
  fs::remove(chemin_natif(jeux));
  ouvrir(choix_fichier, fichier_partie);
  EXPECT_EQ(k("Dossier_ouvert").texte, "/");
}

TEST_F(FileChooser, WhenItBecomesActiveOnlyANewNameTakesTheFocus) {
  for (const Modes_sélection mode : tous_les_modes) {
    ouvrir(mode, fichier_paramétrage);
    EXPECT_EQ(fenêtre->focus->nom, mode == choix_fichier ? "Répertoire" : "Nom_fichier");
    fenêtre->focus = &k("Fichier");
    fenêtre->activation();
    EXPECT_EQ(fenêtre->focus->nom, mode == choix_nouveau_nom ? "Nom_fichier" : "Fichier");
  }
}

TEST_F(FileChooser, TwiceASecondItListsTheFolderAsItIsThen) {
  fichier("b.SCI");
  ouvrir(choix_fichier, fichier_paramétrage);
  choisir_nom("Fichier", "b.SCI");
  fichier("a.SCI");
  fs::create_directory(chemin_natif(jeux + "/zoo"));
  fenêtre->tic();
  EXPECT_THAT(k("Fichier").éléments, ElementsAre("a.SCI", "b.SCI"));
  EXPECT_THAT(k("Répertoire").éléments, ElementsAre("..", "zoo"));
  EXPECT_EQ(élément_choisi(k("Fichier")), "b.SCI");
}

TEST_F(FileChooser, WithoutAJobItCannotOpen) {
  EXPECT_THROW(ouvrir(choix_fichier, Types_fichier{}), ErreurFatale);
}

// --- The player's hand

TEST_F(FileChooser, ADoubleClickOrEnterOnAFileTakesItsNameOrLoadsIt) {
  fichier("nord.SCI");
  for (const auto agir : {&Contrôle::double_clic, &Contrôle::entrée}) {
    for (const Modes_sélection mode : tous_les_modes) {
      ouvrir(mode, fichier_paramétrage);
      (k("Fichier").*agir)();
      if (mode == choix_fichier)
        EXPECT_THAT(boîtes(), SizeIs(1)) << "nothing is selected";
      else
        EXPECT_EQ(k("Nom_fichier").texte, "") << mode;

      choisir_nom("Fichier", "nord.SCI");
      (k("Fichier").*agir)();
      EXPECT_EQ(fenêtre->ouverte, mode != choix_fichier);
      EXPECT_EQ(k("Nom_fichier").texte, mode == choix_fichier ? "" : "nord.SCI");
      EXPECT_EQ(boîtes().empty(), mode != choix_fichier);
      fichier("nord.SCI");
    }
  }
}

TEST_F(FileChooser, ADoubleClickOrEnterOnAFolderGoesInAndKeepsTheName) {
  fs::create_directory(chemin_natif(jeux + "/zoo"));
  fichier("zoo/z.CAI");
  for (const auto agir : {&Contrôle::double_clic, &Contrôle::entrée}) {
    for (const Modes_sélection mode : tous_les_modes) {
      ouvrir(mode, fichier_partie);
      nommer("souper");
      choisir_nom("Répertoire", "zoo");
      EXPECT_THAT(k("Fichier").éléments, IsEmpty());
      (k("Répertoire").*agir)();
      EXPECT_THAT(k("Fichier").éléments, ElementsAre("z.CAI"));
      EXPECT_EQ(k("Dossier_ouvert").texte, jeux + "/zoo");
      EXPECT_EQ(k("Nom_fichier").texte, "souper");
      EXPECT_TRUE(fenêtre->ouverte);
    }
  }
  EXPECT_EQ(m.c().dossier.chemin(), jeux) << "to look around is no choice";
}

TEST_F(FileChooser, EnterInTheNameIsOk) {
  for (const Modes_sélection mode : {choix_nouveau_nom, choix_nom_gardant_les_scores}) {
    ouvrir(mode, fichier_paramétrage);
    nommer("nord " + std::to_string(mode));
    entrer(*fenêtre, k("Nom_fichier"));
    EXPECT_FALSE(fenêtre->ouverte);
    EXPECT_TRUE(fichier_existe(jeux + "/nord " + std::to_string(mode) + ".SCI"));
  }
}

TEST_F(FileChooser, CancelAndTheCloseControlOnlySayNo) {
  for (const bool bouton : {true, false}) {
    for (const Types_fichier type : tous_les_types) {
      for (const Modes_sélection mode : tous_les_modes) {
        ouvrir(mode, type);
        nommer("souper");
        g().Configuration_acceptée = true;
        const Tout avant = tout();
        if (bouton)
          cliquer(*fenêtre, k("Bouton_annuler"));
        else
          demander_fermeture(*fenêtre);
        EXPECT_FALSE(fenêtre->ouverte);
        const Tout après = tout();
        EXPECT_THAT(variables_changées(avant.variables, après.variables),
                    ElementsAre("Configuration_acceptée"));
        EXPECT_EQ(après.fichiers, avant.fichiers);
        EXPECT_EQ(après.réglages, avant.réglages);
      }
    }
  }
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_TRUE(fenêtre->fermable);
}

// --- Refusals

TEST_F(FileChooser, WithoutAFileSelectedNothingIsLoaded) {
  fichier("a.CAI");
  fichier("a.SCI");
  commencer_une_partie();
  for (const auto &[type, texte] :
       {std::pair(fichier_partie, "Il faut sélectionner un fichier de partie"),
        std::pair(fichier_paramétrage, "Veuillez sélectionner un fichier descriptif de paramétrisation")}) {
    ouvrir(choix_fichier, type);
    const Tout avant = tout();
    ok();
    attendre_refus(avant, std::string("exclamation | M'enffffin | ") + texte);
  }
}

TEST_F(FileChooser, WhatIsNoNameIsRefusedWhateverIsSaved) {
  commencer_une_partie();
  for (const Types_fichier type : tous_les_types) {
    for (const Modes_sélection mode : {choix_nouveau_nom, choix_nom_gardant_les_scores}) {
      ouvrir(mode, type);
      const Tout avant = tout();
      for (const char *nom : {"", "   ", ".", ".x", ".SCI", "  .x", "/", "a/b", "/tmp/a", "../a", "zoo/"}) {
        nommer(nom);
        ok();
        attendre_refus(avant, refus_du_nom);
      }
    }
  }
}

TEST_F(FileChooser, AFileThatIsThereIsNotWrittenOver) {
  commencer_une_partie();
  fichier("nord.SCI");
  fichier("nord.CAI");
  for (const Types_fichier type : tous_les_types) {
    for (const Modes_sélection mode : {choix_nouveau_nom, choix_nom_gardant_les_scores}) {
      ouvrir(mode, type);
      const Tout avant = tout();
      for (const char *nom : {"nord", "nord.SCI", "nord.CAI", "nord.txt.x", "nord."}) {
        nommer(nom);
        ok();
        attendre_refus(avant, refus_de_l_existant);
      }
    }
  }
}

TEST_F(FileChooser, TheBoxShowsTheNameThatWasTakenEvenIfItIsRefused) {
  fichier("nord.SCI");
  for (const auto &[saisi, montré] :
       {std::pair("nord.txt", "nord.SCI"), std::pair(".x", ".SCI"), std::pair("a/b.c", "a/b.SCI"),
        std::pair("nord", "nord.SCI"), std::pair("", ".SCI")}) {
    ouvrir(choix_nouveau_nom, fichier_paramétrage);
    nommer(saisi);
    ok();
    EXPECT_EQ(k("Nom_fichier").texte, montré) << saisi;
  }
}

}  // namespace
}  // namespace ardane
