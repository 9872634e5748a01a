#include "configuration/configuration_mode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/resources.h"
#include "platform/window_layout.h"
#include "support/configuration_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ConfigurationMode = AvecPanneau;

// --- Coming in

TEST_F(ConfigurationMode, BothModesShowThePanelOverTheMapAtOnceWhereNothingIsPlayed) {
  for (const auto &[entrée, mode] : {std::pair("Menu_affiche_paramètres", étape_paramétrage_affiché),
                                     std::pair("menu_définir", étape_paramétrage_défini)}) {
    élargir_carte();
    menu(entrée);
    EXPECT_THAT(boîtes(), IsEmpty());
    attendre_mode(mode);
    attendre_carte_et_panneau();
    EXPECT_EQ(e().contexte_aide, 65);
    EXPECT_TRUE(g().PartieVierge);
    EXPECT_TRUE(g().PartieClose);
    EXPECT_TRUE(e().Pays(1).visible);
    EXPECT_FALSE(e().Inv(1).visible);
    EXPECT_EQ(e().Région(1).visible, mode == étape_paramétrage_défini);
  }
}

TEST_F(ConfigurationMode, ARunningGameIsKeptIfThePlayerWantsItAndNothingChanges) {
  commencer_une_partie();
  const Photo avant = photographier(g());
  for (const char *entrée : {"Menu_affiche_paramètres", "menu_définir"}) {
    m.boîtes.réponses = {Réponse::non};
    menu(entrée);
    EXPECT_THAT(boîtes(), ElementsAre(question_d_abandon));
    EXPECT_THAT(variables_changées(avant, photographier(g())), IsEmpty());
    EXPECT_FALSE(panneau_visible());
    EXPECT_TRUE(e().que_faire.visible);
    EXPECT_TRUE(menus_ouverts());
    EXPECT_EQ(e().contexte_aide, 10);
  }
}

TEST_F(ConfigurationMode, ARunningGameIsDroppedAndScoredIfThePlayerAgrees) {
  m.nouvelle_partie(1);
  m.répondre_juste();
  m.répondre_faux();
  m.oublier();
  définir();
  EXPECT_EQ(boîtes().front(), question_d_abandon);
  EXPECT_EQ(scores().size(), 1U);
  attendre_mode(étape_paramétrage_défini);
  EXPECT_EQ(g().ProvincesRestantes, nombre_provinces);
}

TEST_F(ConfigurationMode, NothingOfTheGameStaysOnTheScreen) {
  for (const char *entrée : {"Menu_affiche_paramètres", "menu_définir"}) {
    commencer_une_partie();
    EXPECT_TRUE(e().BoutonPasse.visible);
    menu(entrée);
    for (Contrôle *c :
         {&e().que_faire, &e().Boîte_score, &e().Boîte_restants, &e().Texte_à_chercher,
          &e().Elément_recherché, &e().Image_recherchée, &e().NombreProvinces, &e().BoîteProvinces,
          &e().EtiquetteProvinces, &e().Bouton_gruge, &e().BoutonPasse, &e().Digit(1), &e().Reste(1)})
      EXPECT_FALSE(c->visible) << c->nom;
    if (g().Etape == étape_paramétrage_défini) annuler();
  }
}

TEST_F(ConfigurationMode, FromTheShownConfigurationNothingHasToBeConfirmed) {
  afficher();
  cliquer_province(1);
  définir();
  EXPECT_THAT(boîtes(), IsEmpty());
  attendre_mode(étape_paramétrage_défini);
  EXPECT_TRUE(g().PartieVierge);
}

TEST_F(ConfigurationMode, ThePanelIsBuiltInItsOwnModesAlone) {
  const Photo avant = photographier(g());
  ConstruirePanneauParamétrage(m.c());
  EXPECT_THAT(variables_changées(avant, photographier(g())), IsEmpty());
  EXPECT_FALSE(panneau_visible());
}

// --- The texts

struct Texte_du_panneau {
  int label;
  std::string texte;
};

const std::vector<Texte_du_panneau> textes_du_panneau = {
    {1, "Jeux utilisés, et ordre"},
    {4, "Provinces"},
    {12, "Régions"},
    {5, "Villes"},
    {6, "Drapeaux"},
    {7, "1er"},
    {8, "2ème"},
    {9, "3ème"},
    {13, "4ème"},
    {10, "Ce paramétrage et les scores associés doivent être sauvegardés sur disque"},
    {11, "Ce paramétrage doit être utilisé lors des prochains démarrages du jeu"},
};

TEST_F(ConfigurationMode, ThePanelSaysWhatItsBoxesMean) {
  for (const char *entrée : {"Menu_affiche_paramètres", "menu_définir"}) {
    for (int i = 1; i <= 13; ++i) e().LBL_param(i).texte.clear();
    menu(entrée);
    for (const auto &[label, texte] : textes_du_panneau) EXPECT_EQ(e().LBL_param(label).texte, texte);
  }
  EXPECT_EQ(e().BTN(1).texte, "OK");
  EXPECT_EQ(e().BTN(2).texte, "Annuler");
}

TEST_F(ConfigurationMode, EachModeHasItsInstructions) {
  afficher();
  EXPECT_EQ(e().LBL_param(2).texte, message(g(), Message::provinces_surlignées_en_jeu));
  définir();
  EXPECT_EQ(e().LBL_param(2).texte, message(g(), Message::cliquer_les_provinces_à_jouer));
}

TEST_F(ConfigurationMode, TheFileIsNamedAndItsToolTipHasTheWholePath) {
  afficher();
  EXPECT_EQ(e().LBL_param(3).texte, "Nom du fichier paramétrage :\n" + défaut);
  EXPECT_EQ(e().LBL_param(3).infobulle, défaut);
}

TEST_F(ConfigurationMode, TheTemporaryConfigurationIsNotNamed) {
  afficher();
  utiliser("~tmp.~ci");
  afficher();
  EXPECT_EQ(e().LBL_param(3).texte, "Paramétrage non sauvegardé");
  EXPECT_EQ(e().LBL_param(3).infobulle, "");
}

TEST_F(ConfigurationMode, ABoxOfTheGridIsSpokenOfByItsPlaceAndItsStage) {
  définir();
  int i = 0;
  for (const std::string place : {"1er", "2ème", "3ème", "4ème"})
    for (const char *jeu : {"Provinces", "Régions", "Villes", "Drapeaux"})
      EXPECT_EQ(nom_à_dire(e().Bouton(++i)), place + ", " + jeu);
  EXPECT_EQ(nom_à_dire(e().BTN_Sauvegarde), e().LBL_param(10).texte);
  EXPECT_EQ(nom_à_dire(e().BTN_Démarrage), e().LBL_param(11).texte);
}

TEST(ConfigurationModeInTwoLanguages, TheOpenPanelSpeaksTheNewOneAndKeepsItsTicks) {
  std::string source = lire_fichier(std::string(ARDANE_RESOURCES) + "/textes.txt") +
                       "\n2\t2\n12\tARDANE2.HLP\n22\tARDANE2.INF\n";
  for (int i = 0; i <= dernier_message; ++i)
    source += std::to_string(id_messages + 250 + i) + "\tdeux " + std::to_string(i) + "\n";
  const Ressources deux_langues{TableChaînes(source), ressources_du_programme().images};
  MondeFactice m;
  MondeScripté monde(options_factices(), m, m);
  Programme p(monde.monde(), deux_langues, m.dossier.chemin());
  ASSERT_TRUE(p.Démarrage(m.dossier.chemin()));
  Ecran_principal &e = p.principale();
  const auto langue = [&] { cliquer(e, e.menu("Menu_langue")); };

  cliquer(e, e.menu("Menu_affiche_paramètres"));
  EXPECT_EQ(e.LBL_param(12).texte, "Régions");
  langue();
  EXPECT_EQ(e.LBL_param(2).texte, "deux 70");

  cliquer(e, e.menu("menu_définir"));
  cliquer(e, e.Bouton(16));
  EXPECT_EQ(e.LBL_param(2).texte, "deux 69");
  langue();
  EXPECT_EQ(e.LBL_param(1).texte, "Jeux utilisés, et ordre");
  EXPECT_EQ(e.LBL_param(2).texte, message(p.état(), Message::cliquer_les_provinces_à_jouer));
  EXPECT_EQ(e.LBL_param(3).texte, "Nom du fichier paramétrage :\n" + m.dossier.fichier("ARDANE.SCI"));
  EXPECT_EQ(e.LBL_param(13).texte, "4ème");
  EXPECT_EQ(e.BTN(2).texte, "Annuler");
  EXPECT_EQ(nom_à_dire(e.Bouton(16)), "4ème, Drapeaux");
  EXPECT_FALSE(e.Bouton(16).coché);
  EXPECT_TRUE(e.Bouton(11).coché);
  EXPECT_FALSE(e.que_faire.visible);
  EXPECT_TRUE(e.BTN(1).visible);
  EXPECT_FALSE(e.menu("menu_fichier").actif);
  EXPECT_EQ(p.état().Etape, étape_paramétrage_défini);
}

// --- The boxes

TEST_F(ConfigurationMode, TheGridShowsTheOrderOfPlay) {
  const std::vector<std::pair<Ordre_de_jeu, std::string>> cas = {
      {Ordre_de_jeu({1, 4, 2, 3}), "x... .x.. ..x. ...x"},
      {Ordre_de_jeu({3, 2, 4, 1}), "...x ..x. .x.. x..."},
      {Ordre_de_jeu({2, 3, 0, 0}), ".... .... x... .x.."},
      {Ordre_de_jeu({4, 0, 0, 0}), ".... x... .... ...."},
  };
  for (const auto &[ordre, dessin] : cas) {
    g().Ordre_jeux = ordre;
    g().Ordre_initial.remplir(0);
    afficher();
    EXPECT_EQ(grille(), dessin);
    définir();
    EXPECT_EQ(grille(), dessin);
    EXPECT_EQ(valeurs(g().Ordre_initial), valeurs(ordre));
    annuler();
  }
}

TEST_F(ConfigurationMode, ShownTheBoxesCannotBeClicked) {
  afficher();
  for (int i = 1; i <= 16; ++i) EXPECT_FALSE(e().Bouton(i).actif) << i;
  EXPECT_FALSE(e().BTN_Sauvegarde.actif);
  EXPECT_FALSE(e().BTN_Démarrage.actif);
  const bool coché = e().BTN_Démarrage.coché;
  cliquer(e(), e().LBL_param(11));
  EXPECT_EQ(e().BTN_Démarrage.coché, coché);
}

TEST_F(ConfigurationMode, EditedTheyCan) {
  afficher();
  définir();
  for (int i = 1; i <= 16; ++i) EXPECT_TRUE(e().Bouton(i).actif) << i;
  EXPECT_TRUE(e().BTN_Sauvegarde.actif);
  EXPECT_TRUE(e().BTN_Démarrage.actif);
}

TEST_F(ConfigurationMode, TheCaptionsOfTheTwoBoxesTakeTheirClicks) {
  définir();
  cliquer(e(), e().LBL_param(10));
  EXPECT_FALSE(e().BTN_Sauvegarde.coché);
  EXPECT_TRUE(e().BTN_Démarrage.coché);
  cliquer(e(), e().LBL_param(11));
  EXPECT_FALSE(e().BTN_Démarrage.coché);
}

TEST_F(ConfigurationMode, TheGridsRuleFollowsEveryClick) {
  définir();
  cocher(3, 3);
  EXPECT_EQ(grille(), "x... .x.. .... ....");
  cocher(3, 1);
  EXPECT_THAT(boîtes(), ElementsAre("information | Erreur | Vous avez déjà sélectionné ce jeu en rang "
                                    "inférieur..."));
  cocher(4, 3);
  EXPECT_THAT(boîtes(), ElementsAre("information | Erreur | La colonne précédente est encore vide ; "
                                    "remplissez-là d'abord !..."));
  cocher(1, 1);
  EXPECT_THAT(boîtes(), ElementsAre("information | Erreur | Par quel jeu voulez-vous démarrer ???"));
  EXPECT_EQ(grille(), "x... .x.. .... ....");
  cocher(1, 2);
  EXPECT_EQ(grille(), ".... x... .... ....");
  EXPECT_THAT(boîtes(), IsEmpty());
}

TEST_F(ConfigurationMode, TheRuleSleepsWhileTheProgramFillsTheGrid) {
  définir();
  EXPECT_TRUE(g().Boutons_actifs);
  g().Boutons_actifs = false;
  cocher(1, 1);
  EXPECT_EQ(grille(), ".... .x.. ..x. ...x");
  EXPECT_THAT(boîtes(), IsEmpty());
}

struct Cas_du_fichier {
  std::string fichier, réglage;
  bool sauvegarde, démarrage;
};

TEST_F(ConfigurationMode, TheTwoBoxesTellWhetherTheFileIsKeptAndUsedAtTheStart) {
  const std::vector<Cas_du_fichier> cas = {
      {défaut, défaut, true, true},
      {"/ailleurs/x.SCI", défaut, true, false},
      {"~tmp.~ci", défaut, false, false},
      {"~tmp.~ci", "~tmp.~ci", false, false},
  };
  for (const Cas_du_fichier &c : cas) {
    g().Fichier_lancement = c.fichier;
    m.registre.écrire(clé_du_jeu, "fichier de lancement", c.réglage);
    for (const char *entrée : {"Menu_affiche_paramètres", "menu_définir"}) {
      e().BTN_Sauvegarde.coché = !c.sauvegarde;
      e().BTN_Démarrage.coché = !c.démarrage;
      g().Paramétrage_permanent = !c.sauvegarde;
      menu(entrée);
      EXPECT_EQ(e().BTN_Sauvegarde.coché, c.sauvegarde) << c.fichier;
      EXPECT_EQ(e().BTN_Démarrage.coché, c.démarrage) << c.fichier;
      EXPECT_EQ(g().Paramétrage_permanent, c.sauvegarde) << c.fichier;
    }
    annuler();
  }
}

TEST_F(ConfigurationMode, OnlyShowingAFileFindsOutWhetherTheStartUsesIt) {
  EXPECT_FALSE(g().Paramétrage_par_défaut);
  définir();
  EXPECT_FALSE(g().Paramétrage_par_défaut) << "never shown yet";
  annuler();
  afficher();
  EXPECT_TRUE(g().Paramétrage_par_défaut);
  m.registre.écrire(clé_du_jeu, "fichier de lancement", "/ailleurs/x.SCI");
  définir();
  EXPECT_TRUE(g().Paramétrage_par_défaut) << "what the last showing found";
  EXPECT_FALSE(e().BTN_Démarrage.coché);
  annuler();
  afficher();
  EXPECT_FALSE(g().Paramétrage_par_défaut);
}

TEST_F(ConfigurationMode, ShowingTheTemporaryConfigurationFindsOutNothing) {
  afficher();
  g().Fichier_lancement = "~tmp.~ci";
  afficher();
  EXPECT_TRUE(g().Paramétrage_par_défaut);
}

// --- The map

TEST_F(ConfigurationMode, AClickSwitchesAProvinceOffAndOnWithTheSoundOfARightAnswer) {
  définir();
  for (const bool écartée : {true, false}) {
    cliquer_province(57);
    EXPECT_EQ(g().TableProvinces(57).trouvée, écartée);
    EXPECT_FALSE(g().TableProvinces(57).inhibée);
    EXPECT_EQ(e().Pays(57).visible, !écartée);
    EXPECT_EQ(e().Inv(57).visible, écartée);
    EXPECT_THAT(std::exchange(m.son.joués, {}), ElementsAre("carte_ok.wav"));
  }
  EXPECT_TRUE(g().PartieVierge);
  EXPECT_THAT(boîtes(), IsEmpty());
}

TEST_F(ConfigurationMode, WithoutSoundItIsSilent) {
  g().SonActif = false;
  définir();
  cliquer_province(57);
  EXPECT_TRUE(g().TableProvinces(57).trouvée);
  EXPECT_THAT(m.son.joués, IsEmpty());
}

TEST_F(ConfigurationMode, WhateverLevelWasPlayedLastTheMapShowsWhatIsLeftOut) {
  g().TableProvinces(3).inhibée = true;
  for (int niveau = 0; niveau <= plus_haut_niveau; ++niveau) {
    g().Niveau = static_cast<std::int16_t>(niveau);
    définir();
    cliquer_province(57);
    for (const auto &[p, jouée] : {std::pair(3, false), std::pair(57, false), std::pair(58, true)}) {
      EXPECT_EQ(e().Pays(p).visible, jouée) << niveau << "/" << p;
      EXPECT_EQ(e().Inv(p).visible, !jouée) << niveau << "/" << p;
    }
    annuler();
  }
}

TEST_F(ConfigurationMode, TheDotOfATownStandsForItsProvince) {
  définir();
  for (const int ville : {7, 200}) {
    const int province = g().TableVilles(ville).province;
    cliquer(e(), repère(e(), ville));
    EXPECT_TRUE(g().TableProvinces(province).trouvée) << ville;
  }
}

TEST_F(ConfigurationMode, AMarkerBeyondTheProvincesIsIgnored) {
  définir();
  const Photo avant = photographier(g());
  for (const int ville : {111, 330}) cliquer(e(), e().rond(ville));
  EXPECT_THAT(variables_changées(avant, photographier(g())), IsEmpty());
  EXPECT_THAT(m.son.joués, IsEmpty());
  cliquer(e(), e().rond(110));
  EXPECT_TRUE(g().TableProvinces(110).trouvée);
}

TEST_F(ConfigurationMode, WhereTheConfigurationIsOnlyShownTheMapTakesNoClick) {
  afficher();
  cliquer_province(57);
  cliquer(e(), repère(e(), 7));
  EXPECT_THAT(m.son.joués, IsEmpty());
  for (int p = 1; p <= nombre_provinces; ++p) EXPECT_FALSE(g().TableProvinces(p).trouvée) << p;
}

TEST_F(ConfigurationMode, TheLastProvinceOfARegionLeavesTheRegionInTheData) {
  définir();
  const Fiche_région &région = g().TableRégions(1);
  const int nombre = région.nombre_provinces;
  for (int k = 1; k <= nombre; ++k) cliquer_province(région.membres(k));
  mettre(e().BTN_Sauvegarde, false);
  ok();
  EXPECT_EQ(région.nombre_provinces, nombre);
  EXPECT_EQ(région.provinces_restantes, 0);
  EXPECT_TRUE(région.trouvée);
  EXPECT_TRUE(région.inhibée);
  EXPECT_EQ(g().RégionsEnJeu, nombre_régions - 1);
  m.nouvelle_partie(1);
  EXPECT_EQ(g().ProvincesEnJeu, nombre_provinces - nombre);
}

// --- Going out

TEST_F(ConfigurationMode, WhileAConfigurationIsEditedTheOtherMenusStayOpen) {
  définir();
  for (const char *nom : {"Menu_langue", "Menu_aide", "Menu_à_propos"})
    EXPECT_TRUE(est_utilisable(e().menu(nom))) << nom;
  for (const char *nom : {"fichier_quitter", "score_facile", "menu_définir", "Menu_affiche_paramètres"})
    EXPECT_FALSE(est_utilisable(e().menu(nom))) << nom;
}

TEST_F(ConfigurationMode, EntriesWithoutEffectStayClosedWhenTheMenusComeBack) {
  définir();
  annuler();
  EXPECT_TRUE(est_utilisable(e().menu("fichier_nouveau")));
  EXPECT_EQ(e().menu("Menu_liste").actif, static_cast<bool>(e().menu("Menu_liste").clic));
}

TEST_F(ConfigurationMode, AnotherGameLeavesTheShownConfiguration) {
  afficher();
  m.nouvelle_partie(1);
  EXPECT_THAT(boîtes(), IsEmpty());
  EXPECT_FALSE(panneau_visible());
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_TRUE(e().que_faire.visible);
}

TEST_F(ConfigurationMode, TheHelpStaysWithTheConfigurationUntilAGameOrTheHelpMenuTakesItBack) {
  définir();
  annuler();
  EXPECT_EQ(e().contexte_aide, 65);
  afficher();
  menu("Menu_défaut");
  EXPECT_EQ(e().contexte_aide, 65);
  m.nouvelle_partie(1);
  EXPECT_EQ(e().contexte_aide, 10);
  définir();
  menu("Menu_aide");
  EXPECT_EQ(e().contexte_aide, 10);
  EXPECT_THAT(m.aide.ouvertures, ElementsAre(std::pair(m.dossier.fichier("ARDANE.HLP"), 10)));
  attendre_mode(étape_paramétrage_défini);
}

}  // namespace
}  // namespace ardane
