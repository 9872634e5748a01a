#include "configuration/folder_chooser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/chooser_modes.h"
#include "core/resources.h"
#include "persistence/folders.h"
#include "persistence/information_file.h"
#include "persistence/registry.h"
#include "platform/window_layout.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FolderChooser : public testing::Test {
 protected:
  FolderChooser() {
    m.démarrer();
    for (const char *nom : {"jeux", "jeux/Été", "jeux/zoo", "jeux/Ardane", "jeux/.caché", "jeux/Ardane/fond"})
      fs::create_directory(chemin_natif(m.dossier.fichier(nom)));
    for (const char *nom : {"jeux/b.SCI", "jeux/A.sci", "jeux/x.INF", "jeux/y.txt", "jeux/.z.SCI"})
      écrire_fichier(m.dossier.fichier(nom), "");
    m.c().dossier.changer(jeux);
    m.g().Mode_sélection = choix_dossier_sauvegarde;
  }

  Paramétrage_répertoires &f() {
    if (!fenêtre) {
      fenêtre = std::make_unique<Paramétrage_répertoires>(m.c());
      fenêtre->ouverte = true;
    }
    return *fenêtre;
  }
  Contrôle &k(std::string_view nom) { return contrôle(f(), nom); }
  void ouvrir_dossier(std::string_view nom) {
    Contrôle &liste = k("Répertoire");
    const auto place = std::find(liste.éléments.begin(), liste.éléments.end(), nom);
    ASSERT_NE(place, liste.éléments.end()) << nom;
    choisir(liste, static_cast<int>(place - liste.éléments.begin()) + 1);
    liste.double_clic();
  }
  void nommer(const std::string &nom) {
    cliquer(f(), k("Command1"));
    saisir(k("Sous_répertoire"), nom);
  }
  void ok() { cliquer(f(), k("Bouton_OK")); }
  std::string réglage(std::string_view nom) { return m.registre.lire(clé_du_jeu, nom).value_or("absent"); }
  void attendre_boîte(const std::string &texte) {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
    EXPECT_EQ(m.dernière_boîte().titre, "Erreur");
    EXPECT_EQ(m.dernière_boîte().texte, texte);
  }

  MondeFactice m;
  std::string jeux = m.dossier.fichier("jeux");
  std::unique_ptr<Paramétrage_répertoires> fenêtre;
};

TEST_F(FolderChooser, ItOpensOnTheCurrentFolderForGames) {
  EXPECT_EQ(f().titre, "Paramétrage des répertoires de sauvegarde");
  EXPECT_EQ(k("Entête").texte, "Sélectionnez ou créez le répertoire de sauvegarde des parties");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
  EXPECT_THAT(k("Répertoire").éléments, ElementsAre("..", "Ardane", "zoo", "Été"));
  EXPECT_THAT(k("Fichier").éléments, ElementsAre("A.sci", "b.SCI"));
}

TEST_F(FolderChooser, ItsHeadingIsCentredAndItsBoxesHaveNamesForWhoListens) {
  EXPECT_EQ(k("Entête").police, (Police{Famille_police::times, 12, true}));
  EXPECT_EQ(k("Entête").alignement, Alignement::centre);
  EXPECT_EQ(k("Nom_fichier").nom_parlé, "Dossier ouvert");
  EXPECT_EQ(k("Lecteur").nom_parlé, "Lecteurs");
  EXPECT_EQ(k("Fichier").nom_parlé, "Fichiers du dossier");
  EXPECT_EQ(k("Sous_répertoire").nom_parlé, "Nom du nouveau dossier");
}

TEST_F(FolderChooser, ItOpensOnTheFolderOfTheInformationFile) {
  m.g().Mode_sélection = choix_dossier_information;
  m.g().Répertoire_info = jeux;
  m.c().dossier.changer("/");
  EXPECT_EQ(k("Entête").texte, "Sélectionnez ou créez le répertoire de sauvegarde du fichier d'information");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
  EXPECT_THAT(k("Fichier").éléments, ElementsAre("x.INF"));
}

TEST_F(FolderChooser, WhereTheInformationFolderIsGoneItOpensOnTheCurrentOne) {
  m.g().Mode_sélection = choix_dossier_information;
  m.g().Répertoire_info = m.dossier.fichier("absent");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
}

TEST_F(FolderChooser, ItStandsInTheMiddleOfTheScreenToTheWholePixel) {
  m.écran.taille = {1281, 1023};
  EXPECT_EQ(f().gauche, 430);
  EXPECT_EQ(f().haut, 321);
  EXPECT_EQ(m.g().Largeur_écran, 1281);
  EXPECT_EQ(m.g().Hauteur_écran, 1023);
}

TEST_F(FolderChooser, ItHasNoCloseControlAndNoDrives) {
  EXPECT_FALSE(f().fermable);
  EXPECT_FALSE(k("Lecteur").visible);
  EXPECT_TRUE(k("Nom_fichier").lecture_seule);
}

TEST_F(FolderChooser, EveryControlStandsWithinTheWindow) {
  for (const Contrôle &c : f().contrôles()) {
    EXPECT_GE(c.gauche, 0) << c.nom;
    EXPECT_GE(c.haut, 0) << c.nom;
    EXPECT_LE(c.gauche + c.largeur, f().largeur) << c.nom;
    EXPECT_LE(c.haut + c.hauteur, f().hauteur) << c.nom;
  }
}

TEST_F(FolderChooser, ADoubleClickGoesInAndDotsGoUp) {
  ouvrir_dossier("Ardane");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/Ardane/");
  EXPECT_THAT(k("Répertoire").éléments, ElementsAre("..", "fond"));
  EXPECT_THAT(k("Fichier").éléments, IsEmpty());
  EXPECT_EQ(k("Répertoire").choix, 0);
  ouvrir_dossier("..");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
  EXPECT_THAT(k("Fichier").éléments, SizeIs(2));
}

TEST_F(FolderChooser, TheEnterKeyGoesInToo) {
  choisir(k("Répertoire"), 2);
  k("Répertoire").entrée();
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/Ardane/");
}

TEST_F(FolderChooser, ADoubleClickOnNothingStaysWhereItIs) {
  k("Répertoire").double_clic();
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
}

TEST_F(FolderChooser, NothingLiesAboveTheRoot) {
  m.c().dossier.changer("/");
  EXPECT_EQ(k("Nom_fichier").texte, "/");
  EXPECT_NE(k("Répertoire").éléments.at(0), "..");
}

TEST_F(FolderChooser, UpFromAFolderOfTheRootIsTheRoot) {
  m.c().dossier.changer("/usr");
  ouvrir_dossier("..");
  EXPECT_EQ(k("Nom_fichier").texte, "/");
}

TEST_F(FolderChooser, AFolderThatIsGoneListsNothingButTheWayUp) {
  fs::create_directory(chemin_natif(jeux + "/passager"));
  f();
  fs::remove(chemin_natif(jeux + "/passager"));
  ouvrir_dossier("passager");
  EXPECT_THAT(k("Répertoire").éléments, ElementsAre(".."));
}

TEST_F(FolderChooser, AFolderMadeElsewhereIsListedAtTheNextTick) {
  m.façade.joueur = [&](Fenêtre &ouverte) {
    fs::create_directory(chemin_natif(jeux + "/venu"));
    m.programme.battre();
    EXPECT_THAT(contrôle(ouverte, "Répertoire").éléments, Contains("venu"));
    m.façade.joueur = {};
  };
  m.c().plateforme.fenêtres.ouvrir_modale("Paramétrage_répertoires");
  EXPECT_FALSE(m.façade.joueur) << "it was up";
}

TEST_F(FolderChooser, TheNewFolderBoxComesAndGoesWithTheFocus) {
  EXPECT_FALSE(k("Sous_répertoire").visible);
  EXPECT_EQ(m.c().ressources.images.nom(k("Command1").image), "Paramétrage_répertoires.Command1");
  cliquer(f(), k("Command1"));
  EXPECT_TRUE(k("Sous_répertoire").visible);
  EXPECT_EQ(f().focus, &k("Sous_répertoire"));
  k("Sous_répertoire").perte_du_focus();
  EXPECT_FALSE(k("Sous_répertoire").visible);
}

TEST_F(FolderChooser, TheEnterKeyMakesTheFolderAndOpensIt) {
  nommer("Parties à moi");
  k("Sous_répertoire").entrée();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_TRUE(fs::is_directory(chemin_natif(jeux + "/Parties à moi")));
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/Parties à moi/");
  EXPECT_EQ(k("Sous_répertoire").texte, "");
  EXPECT_EQ(f().focus, &k("Répertoire"));
  EXPECT_TRUE(f().ouverte);
  EXPECT_EQ(m.c().dossier.chemin(), jeux);
}

TEST_F(FolderChooser, WithoutANameNothingIsMade) {
  nommer("");
  EXPECT_FALSE(f().Créer_sous_répertoire());
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(FolderChooser, AFolderThatExistsIsToldAndTheListedOneIsTaken) {
  nommer("zoo");
  ok();
  attendre_boîte("Ce répertoire existe déjà !");
  EXPECT_FALSE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, jeux);
  EXPECT_EQ(m.c().dossier.chemin(), jeux);
}

TEST_F(FolderChooser, AfterTheEnterKeyOnAFolderThatExistsTheCurrentFolderIsThatOne) {
  nommer("zoo");
  k("Sous_répertoire").entrée();
  attendre_boîte("Ce répertoire existe déjà !");
  EXPECT_EQ(m.c().dossier.chemin(), jeux + "/zoo");
  EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
  EXPECT_EQ(k("Sous_répertoire").texte, "zoo");
}

TEST_F(FolderChooser, ANameThatTheFileSystemForbidsIsTold) {
  for (const std::string &nom : {std::string("absent/dedans"), std::string(300, 'n'), std::string("b.SCI")}) {
    m.boîtes.montrées.clear();
    nommer(nom);
    k("Sous_répertoire").entrée();
    attendre_boîte("Impossible de créer le dossier spécifié !");
    EXPECT_EQ(k("Nom_fichier").texte, jeux + "/");
    EXPECT_EQ(m.c().dossier.chemin(), jeux);
  }
}

TEST_F(FolderChooser, AFolderThatCannotBeMadeIsTold) {
  f();
  const Protégé sans_écriture(chemin_natif(jeux), Protégé::Contre::écriture);
  nommer("neuf");
  k("Sous_répertoire").entrée();
  attendre_boîte("Impossible de créer le dossier spécifié !");
}

TEST_F(FolderChooser, OkTakesTheFolderForGames) {
  ouvrir_dossier("zoo");
  ok();
  const std::string zoo = jeux + "/zoo";
  EXPECT_FALSE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, zoo);
  EXPECT_EQ(réglage("répertoire"), zoo);
  EXPECT_EQ(réglage("fichier de lancement"), zoo + "/ARDANE.SCI");
  EXPECT_EQ(m.g().Fichier_lancement, "ARDANE.SCI");
  EXPECT_EQ(m.c().dossier.chemin(), zoo);
  EXPECT_TRUE(fs::is_empty(chemin_natif(zoo)));
}

TEST_F(FolderChooser, TheBareNameOfTheScoreFileMeansTheFolderJustTaken) {
  ouvrir_dossier("zoo");
  ok();
  écrire_fichier(m.c().dossier.complet(m.g().Fichier_lancement), "x");
  EXPECT_TRUE(fichier_existe(jeux + "/zoo/ARDANE.SCI"));
}

TEST_F(FolderChooser, OkTakesTheFolderOfTheInformationFile) {
  m.g().Mode_sélection = choix_dossier_information;
  m.g().Répertoire_info = jeux;
  const std::string sauvegarde = m.g().Répertoire_sauvegarde;
  m.c().dossier.changer("/");
  ouvrir_dossier("zoo");
  ok();
  const std::string zoo = jeux + "/zoo";
  EXPECT_FALSE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_info, zoo);
  EXPECT_EQ(réglage("répertoire information"), zoo);
  EXPECT_EQ(m.g().Fichiers_info(1), zoo + "/ARDANE.INF");
  EXPECT_EQ(m.g().Répertoire_sauvegarde, sauvegarde);
  EXPECT_EQ(m.c().dossier.chemin(), "/");
}

TEST_F(FolderChooser, AFolderThatHoldsCardsAlreadyIsTakenWithThem) {
  const std::string fiches = jeux + "/zoo/ARDANE.INF";
  std::string octets;
  Placer_fiche(octets, 1, {"Titre", "Un mot du zoo"});
  écrire_fichier(fiches, octets);
  m.g().Mode_sélection = choix_dossier_information;
  m.g().Répertoire_info = jeux;
  ouvrir_dossier("zoo");
  ok();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(lire_fichier(fiches), octets);
  EXPECT_EQ(Lire_fiche_information(m.c(), 1)->texte, "Un mot du zoo");
}

TEST_F(FolderChooser, OkMakesTheNamedFolderAndTakesIt) {
  nommer("neuf");
  k("Sous_répertoire").perte_du_focus();
  ok();
  EXPECT_FALSE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, jeux + "/neuf");
  EXPECT_EQ(m.c().dossier.chemin(), jeux + "/neuf");
}

TEST_F(FolderChooser, AFolderThatCannotBeWrittenKeepsTheWindowOpen) {
  fs::create_directories(chemin_natif(jeux + "/zoo/~zut.tmp/occupé"));
  const std::string avant = m.g().Répertoire_sauvegarde;
  ouvrir_dossier("zoo");
  ok();
  attendre_boîte("Impossible d'écrire dans le répertoire spécifié !");
  EXPECT_TRUE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, avant);
  EXPECT_EQ(réglage("répertoire"), avant);
  ouvrir_dossier("..");
  ok();
  EXPECT_FALSE(f().ouverte);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, jeux);
}

TEST_F(FolderChooser, WithoutAUseItCannotOpen) {
  m.g().Mode_sélection = choix_nouveau_nom;
  EXPECT_THAT([this] { f(); },
              testing::ThrowsMessage<ErreurFatale>(testing::StartsWith("Choix de dossier sans objet")));
}

TEST_F(FolderChooser, WhereTheCurrentFolderIsGoneItOpensOnTheRoot) {
  fs::create_directory(chemin_natif(m.dossier.fichier("passager")));
  m.c().dossier.changer(m.dossier.fichier("passager"));
  fs::remove(chemin_natif(m.dossier.fichier("passager")));
  EXPECT_EQ(k("Nom_fichier").texte, "/");
}

TEST_F(FolderChooser, AChoiceThatTheListDoesNotHaveIsAFatalErrorToldInFrench) {
  Contrôle &liste = k("Répertoire");
  const auto nombre = static_cast<int>(liste.éléments.size());
  liste.choix = nombre + 1;
  try {
    liste.double_clic();
    FAIL() << "there is no such item";
  } catch (const ErreurFatale &erreur) {
    EXPECT_THAT(erreur.what(), testing::StartsWith("Indice " + std::to_string(nombre + 1)));
  }
}

}  // namespace
}  // namespace ardane
