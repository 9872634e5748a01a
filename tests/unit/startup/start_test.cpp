#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "core/chooser_modes.h"
#include "persistence/registry.h"
#include "persistence/score_file.h"
#include "platform/registry_store.h"
#include "platform/window_layout.h"
#include "screens/statistics_file.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using namespace std::chrono_literals;

class Start : public testing::Test {
 protected:
  bool démarrer() { return m.programme.Démarrage(m.dossier.chemin()); }
  std::string réglage(std::string_view nom, std::string_view clé = clé_du_jeu) {
    return m.registre.lire(clé, nom).value_or("absent");
  }
  void poser(std::string_view nom, std::string_view texte, std::string_view clé = clé_du_jeu) {
    m.registre.créer(clé);
    m.registre.écrire(clé, nom, texte);
  }
  /// Settings as an earlier run of this version left them.
  void réglages_d_une_partie_passée() {
    poser("version", ressources_du_programme().chaînes.chaîne(1000));
    poser("langue", "1");
    poser("joueur", "Ann");
    poser("répertoire", m.dossier.chemin());
    poser("fichier de lancement", m.dossier.fichier("ARDANE.SCI"));
    poser("répertoire information", m.dossier.chemin());
    poser("date", "20/11/2026 10:00:00", clé_de_famille);
    écrire_fichier(m.dossier.fichier("ARDANE.INF"), "");
  }
  std::vector<std::string> titres() {
    std::vector<std::string> titres;
    for (const Boîte &boîte : m.boîtes.montrées) titres.push_back(boîte.titre);
    return titres;
  }
  /// Makes the write probe fail in a folder, for any user.
  static void refuser_écriture(const std::string &dossier) {
    std::filesystem::create_directories(chemin_natif(Joindre_chemin(dossier, "~zut.tmp/occupé")));
  }

  MondeFactice m;
};

TEST_F(Start, AFirstRunWritesEverySettingAndShowsTheReminder) {
  m.registre.créer(clé_du_jeu);
  ASSERT_TRUE(démarrer());
  const std::string dossier = m.dossier.chemin();
  EXPECT_EQ(réglage("version"), m.g().Version_programme);
  EXPECT_EQ(réglage("joueur"), "");
  EXPECT_EQ(réglage("langue"), "1");
  EXPECT_EQ(réglage("répertoire"), dossier);
  EXPECT_EQ(réglage("fichier de lancement"), Joindre_chemin(dossier, "ARDANE.SCI"));
  EXPECT_EQ(réglage("répertoire information"), dossier);
  EXPECT_EQ(réglage("date", clé_de_famille), "21/11/2026 00:00:00");
  EXPECT_THAT(titres(), ElementsAre("Publicité gratuite...", "Création du fichier Info"));
}

TEST_F(Start, AFirstRunOnAnEmptyRegistryMakesTheKey) {
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(réglage("langue"), "1");
}

TEST_F(Start, AnEmptyVersionIsAFirstRun) {
  poser("version", "");
  poser("joueur", "Ann");
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(réglage("joueur"), "");
}

TEST_F(Start, ALanguageOfZeroOrOfNoNumberIsTheFirst) {
  for (const char *texte : {"0", "beaucoup", "", "2", "-1", "99999", "99999999999999999999"}) {
    réglages_d_une_partie_passée();
    poser("langue", texte);
    ASSERT_TRUE(démarrer());
    EXPECT_EQ(m.g().Langue, 1) << texte;
    EXPECT_EQ(message(m.g(), Message::erreur), "Erreur");
  }
}

TEST_F(Start, After59DaysThereIsNoReminderAndTheDateStays) {
  réglages_d_une_partie_passée();
  poser("date", "23/09/2026 18:00:00", clé_de_famille);
  ASSERT_TRUE(démarrer());
  EXPECT_THAT(titres(), IsEmpty());
  EXPECT_EQ(réglage("date", clé_de_famille), "23/09/2026 18:00:00");
}

TEST_F(Start, After60DaysTheReminderShowsAndTheDateBecomesToday) {
  réglages_d_une_partie_passée();
  poser("date", "22/09/2026", clé_de_famille);
  ASSERT_TRUE(démarrer());
  EXPECT_THAT(titres(), ElementsAre("Publicité gratuite..."));
  EXPECT_EQ(réglage("date", clé_de_famille), "21/11/2026 00:00:00");
}

TEST_F(Start, ADateThatCannotBeReadBringsNoReminderAndTheStartGoesOn) {
  réglages_d_une_partie_passée();
  poser("date", "hier", clé_de_famille);
  ASSERT_TRUE(démarrer());
  EXPECT_THAT(titres(), IsEmpty());
  for (int i = 1; i <= m.g().NombreJeux; ++i)
    EXPECT_EQ(m.g().TableJeux(i).version_locale, "") << "nor are the versions looked at";
  EXPECT_EQ(m.g().Nom_joueur, "Ann");
}

TEST_F(Start, InAReadOnlyProgramFolderTheFolderWindowComesBeforeAnythingElse) {
  refuser_écriture(m.dossier.chemin());
  DossierTemporaire autre;
  std::vector<int> modes;
  m.façade.joueur = [&](Fenêtre &f) {
    EXPECT_EQ(f.nom, "Paramétrage_répertoires");
    modes.push_back(m.g().Mode_sélection);
    m.g().Répertoire_sauvegarde = m.g().Répertoire_info = autre.chemin();
    m.g().Fichiers_info(1) = autre.fichier("ARDANE.INF");
  };
  ASSERT_TRUE(démarrer());
  ASSERT_FALSE(m.façade.ouvertes.empty());
  EXPECT_EQ(m.façade.ouvertes.front(), "Paramétrage_répertoires");
  EXPECT_THAT(modes, ElementsAre(choix_dossier_sauvegarde, choix_dossier_information));
  EXPECT_EQ(m.boîtes.montrées[0].titre, message(m.g(), Message::choix_du_répertoire));
  EXPECT_EQ(m.boîtes.montrées[0].texte, message(m.g(), Message::sélectionner_le_répertoire_par_défaut));
}

TEST_F(Start, AnInstalledProgramWritesNothingIntoItsFolderEvenWhereItCould) {
  écrire_fichier(m.dossier.fichier("installation.txt"), "");
  const auto fichiers = [&] {
    std::set<std::filesystem::path> noms;
    for (const auto &entrée : std::filesystem::directory_iterator(chemin_natif(m.dossier.chemin())))
      noms.insert(entrée.path());
    return noms;
  };
  const auto livrés = fichiers();
  DossierTemporaire autre;
  std::vector<int> modes;
  m.façade.joueur = [&](Fenêtre &) {
    modes.push_back(m.g().Mode_sélection);
    m.c().dossier.changer(autre.chemin());
    m.g().Répertoire_sauvegarde = autre.chemin();
  };
  ASSERT_TRUE(démarrer());
  EXPECT_THAT(modes, ElementsAre(choix_dossier_sauvegarde));
  EXPECT_EQ(réglage("répertoire information"), autre.chemin());
  EXPECT_TRUE(fichier_existe(autre.fichier("ARDANE.INF")));
  Ecrire_statistiques(m.c());
  EXPECT_TRUE(fichier_existe(autre.fichier("ARDA_STA.TXT")));
  EXPECT_EQ(fichiers(), livrés);
}

TEST_F(Start, ASaveFolderThatCannotBeWrittenOpensTheFolderWindowAndTheStartGoesOn) {
  réglages_d_une_partie_passée();
  poser("répertoire", m.dossier.fichier("nulle part"));
  ASSERT_TRUE(démarrer());
  EXPECT_THAT(m.façade.ouvertes, ElementsAre("Paramétrage_répertoires", "Patience", "Ecran_principal"));
}

TEST_F(Start, TheFolderOfTheCardsIsThatOfTheSettings) {
  réglages_d_une_partie_passée();
  DossierTemporaire autre;
  écrire_fichier(autre.fichier("ARDANE.INF"), "");
  poser("répertoire information", autre.chemin());
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(m.g().Fichiers_info(1), autre.fichier("ARDANE.INF"));
}

TEST_F(Start, ANewVersionKeepsNameAndLanguageAndResetsTheFolders) {
  réglages_d_une_partie_passée();
  poser("version", "Version 0.90 du 01/01/2006");
  poser("répertoire", "/ailleurs");
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(réglage("version"), m.g().Version_programme);
  EXPECT_EQ(réglage("date", clé_de_famille), "21/11/2026 00:00:00");
  EXPECT_EQ(réglage("répertoire"), m.dossier.chemin());
  EXPECT_EQ(réglage("joueur"), "Ann");
  EXPECT_EQ(m.g().Nom_joueur, "Ann");
  EXPECT_EQ(m.g().Fichier_lancement, m.dossier.fichier("ARDANE.SCI"));
  EXPECT_THAT(titres(), IsEmpty());
}

TEST_F(Start, TheFirstRunLeavesTheBareNameOfTheScoreFileInMemory) {
  m.registre.créer(clé_du_jeu);
  écrire_fichier(m.dossier.fichier("ARDANE.SCI"), "");
  std::string nom;
  m.boîtes.pendant = [&](const Boîte &) {
    if (nom.empty()) nom = m.g().Fichier_lancement;
  };
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(nom, "ARDANE.SCI");
}

TEST_F(Start, WithoutAPointsFileTheProgramTellsSoAndEndsWithTheSystemSoundsSilenced) {
  constexpr std::string_view clé = R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemHand\.current)";
  poser("", "ding.wav", clé);
  std::filesystem::remove(chemin_natif(m.dossier.fichier("ardane.pts")));
  EXPECT_FALSE(démarrer());
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::fichier_pts_absent));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_THAT(m.façade.ouvertes, Not(Contains("Ecran_principal")));
  EXPECT_EQ(réglage("", clé), "");
}

class RegistreFermé : public RegistreMémoire {
 public:
  bool créer(std::string_view) override { return false; }
};

TEST_F(Start, ARegistryKeyThatCannotBeMadeStopsTheProgramAtTheFirstText) {
  MondeScripté monde(options_factices(), m, m);
  monde.registre = std::make_unique<RegistreFermé>();
  Programme autre(monde.monde(), ressources_du_programme(), m.dossier.chemin());
  EXPECT_THROW(autre.Démarrage(m.dossier.chemin()), ErreurFatale);
}

TEST_F(Start, TheSystemSoundsAreSilencedWhileTheProgramRunsAndGivenBackAtItsEnd) {
  constexpr std::string_view présent =
      R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemAsterisk\.current)";
  constexpr std::string_view sans_valeur =
      R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemQuestion\.current)";
  constexpr std::string_view absent =
      R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemHand\.current)";
  poser("", "chimes.wav", présent);
  m.registre.créer(sans_valeur);
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(réglage("", présent), "");
  EXPECT_EQ(réglage("", sans_valeur), "absent");
  m.e().demande_de_fermeture();
  EXPECT_EQ(réglage("", présent), "chimes.wav");
  EXPECT_EQ(réglage("", sans_valeur), "");
  EXPECT_FALSE(m.registre.existe(absent));
}

TEST_F(Start, TheSystemSoundsAreGivenBackWhereTheProcessIsEnded) {
  constexpr std::string_view clé =
      R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemAsterisk\.current)";
  poser("", "chimes.wav", clé);
  ASSERT_TRUE(démarrer());
  ASSERT_EQ(réglage("", clé), "");
  m.programme.interrompre();
  EXPECT_EQ(réglage("", clé), "chimes.wav");
}

TEST_F(Start, ARefusedClosingLeavesTheSystemSoundsSilentAndPlayGoesOn) {
  constexpr std::string_view clé =
      R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\SystemAsterisk\.current)";
  poser("", "chimes.wav", clé);
  m.démarrer();
  m.nouvelle_partie(1);
  m.répondre_juste();
  m.boîtes.réponses = {Réponse::non};
  m.e().demande_de_fermeture();
  EXPECT_TRUE(m.programme.en_cours());
  EXPECT_EQ(réglage("", clé), "");
  EXPECT_EQ(m.g().Etape, étape_provinces);
}

class RegistreSourd : public RegistreMémoire {
 public:
  bool écrire(std::string_view, std::string_view, std::string_view) override { return false; }
};

TEST_F(Start, ARegistryThatKeepsNothingIsNoHindranceFromStartToEnd) {
  MondeScripté monde(options_factices(), m, m);
  monde.registre = std::make_unique<RegistreSourd>();
  for (const char *clé : {"SystemExclamation", "SystemAsterisk", "SystemHand", "SystemQuestion"})
    monde.registre->créer(std::string(R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\.Default\)") + clé +
                          R"(\.current)");
  Programme autre(monde.monde(), ressources_du_programme(), m.dossier.chemin());
  ASSERT_TRUE(autre.Démarrage(m.dossier.chemin()));
  autre.principale().demande_de_fermeture();
  EXPECT_FALSE(autre.en_cours());
}

TEST_F(Start, EveryStartHasTheSoundOn) {
  m.démarrer();
  cliquer(m.e(), m.e().menu("MenuSon"));
  EXPECT_FALSE(m.g().SonActif);
  EXPECT_EQ(m.e().menu("MenuSon").texte, "Mettre le son");
  m.démarrer();
  EXPECT_TRUE(m.g().SonActif);
  EXPECT_EQ(m.e().menu("MenuSon").texte, "Couper le son");
}

TEST_F(Start, TheProgramFolderLosesOneTrailingSeparator) {
  ASSERT_TRUE(m.programme.Démarrage(m.dossier.chemin() + "/"));
  EXPECT_EQ(m.g().Répertoire_programme, m.dossier.chemin());
}

TEST_F(Start, AfterItTheProgramWaitsIdleWithTheMapEmpty) {
  ASSERT_TRUE(démarrer());
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_EQ(m.g().Niveau, 0);
  EXPECT_TRUE(m.g().PartieVierge);
  EXPECT_FALSE(m.e().que_faire.visible);
  EXPECT_FALSE(m.e().LBL_param(1).visible);
  for (int i = 1; i <= nombre_provinces; ++i) EXPECT_FALSE(m.e().Pays(i).visible || m.e().Inv(i).visible);
  EXPECT_EQ(m.hasard.semailles, 1);
  EXPECT_EQ(m.sabliers.back(), false);
}

TEST_F(Start, NoMenuEntryIsADeadEnd) {
  ASSERT_TRUE(démarrer());
  for (const Contrôle &entrée : m.e().contrôles()) {
    if (entrée.genre != Genre::menu || entrée.conteneur == nullptr) continue;
    EXPECT_EQ(entrée.actif, static_cast<bool>(entrée.clic)) << entrée.nom;
  }
  EXPECT_TRUE(m.e().menu("fichier_nouveau").actif);
}

TEST_F(Start, AMenuEntryForAWindowOpensItsOwn) {
  m.démarrer();
  const std::pair<const char *, const char *> fenêtres[] = {{"fichier_nouveau", "nouvelle_partie"},
                                                            {"Fichier_lire", "Sélection_partie"},
                                                            {"MenuCouleurPréfectures", "Palette"},
                                                            {"MenuCouleurSousPréfectures", "Palette"},
                                                            {"MenuFicheur", "Edition"},
                                                            {"menu_inf", "Paramétrage_répertoires"}};
  for (const auto &[entrée, fenêtre] : fenêtres) {
    m.façade.ouvertes.clear();
    cliquer(m.e(), m.e().menu(entrée));
    EXPECT_THAT(m.façade.ouvertes, ElementsAre(fenêtre)) << entrée;
  }
  EXPECT_EQ(m.g().Mode_sélection, choix_dossier_information);
  const std::pair<const char *, int> niveaux[] = {
      {"score_facile", 1}, {"score_moyen", 2}, {"score_difficile", 3}, {"score_expert", 4}};
  for (const auto &[entrée, niveau] : niveaux) {
    m.façade.ouvertes.clear();
    cliquer(m.e(), m.e().menu(entrée));
    EXPECT_THAT(m.façade.ouvertes, ElementsAre("Affichage_scores")) << entrée;
    EXPECT_EQ(m.g().Niveau_affiché, niveau);
  }
}

TEST_F(Start, AWindowThatDoesNotExistIsAFatalErrorToldInFrench) {
  m.démarrer();
  try {
    m.c().plateforme.fenêtres.ouvrir_modale("zut");
    FAIL() << "there is no such window";
  } catch (const ErreurFatale &erreur) {
    EXPECT_THAT(erreur.what(), testing::StartsWith("Fenêtre inconnue : zut"));
  }
}

TEST_F(Start, TwoRunsLiveInOneProcessWithoutKnowingOfEachOther) {
  MondeFactice autre;
  m.démarrer();
  autre.démarrer();
  m.nouvelle_partie(1);
  EXPECT_EQ(m.g().Etape, étape_provinces);
  EXPECT_EQ(autre.g().Etape, étape_repos);
}

TEST_F(Start, TwoRunsKeepTheScoresOfOneBareNameInTwoFolders) {
  MondeFactice autre;
  const auto gagner = [](MondeFactice &monde, const char *nom) {
    monde.g().Fichier_lancement = "ARDANE.SCI";
    monde.g().Meilleurs_scores(1, 1) = {nom, 500};
    monde.g().Nombre_scores(1) = 1;
  };
  m.démarrer();
  autre.démarrer();
  gagner(m, "Ann");
  gagner(autre, "Bob");
  ASSERT_TRUE(Ecrire_scores(m.c(), true));
  ASSERT_TRUE(Ecrire_scores(autre.c(), true));
  EXPECT_TRUE(fichier_existe(m.dossier.fichier("ARDANE.SCI")));
  EXPECT_TRUE(fichier_existe(autre.dossier.fichier("ARDANE.SCI")));
  Charger_scores(m.c());
  Charger_scores(autre.c());
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).nom, "Ann");
  EXPECT_EQ(autre.g().Meilleurs_scores(1, 1).nom, "Bob");
}

TEST_F(Start, ARunGoesToTheFolderOfItsSettingsAndTakesNoOtherAlong) {
  MondeFactice autre;
  std::filesystem::create_directory(chemin_natif(m.dossier.fichier("parties")));
  réglages_d_une_partie_passée();
  poser("répertoire", m.dossier.fichier("parties"));
  autre.démarrer();
  m.démarrer();
  EXPECT_EQ(m.c().dossier.chemin(), m.dossier.fichier("parties"));
  EXPECT_EQ(autre.c().dossier.chemin(), autre.dossier.chemin());
}

}  // namespace
}  // namespace ardane
