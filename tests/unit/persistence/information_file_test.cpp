#include "persistence/information_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/chooser_modes.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class InformationFile : public testing::Test {
 protected:
  InformationFile() {
    m.démarrer();
    fs::create_directory(chemin_natif(dossier_info));
    m.g().Répertoire_info = dossier_info;
  }
  void préparer() { Préparer_fichiers_info(m.c()); }
  /// A folder that refuses every file, for any user.
  static void refuser_écriture(const std::string &dossier) {
    fs::create_directories(chemin_natif(Joindre_chemin(dossier, "~zut.tmp/occupé")));
  }
  std::vector<std::string> titres() {
    std::vector<std::string> titres;
    for (const Boîte &boîte : m.boîtes.montrées) titres.push_back(boîte.titre);
    return titres;
  }
  void attendre_échec_d_écriture() {
    EXPECT_THAT(titres(), ElementsAre("Création du fichier Info", "Erreur"));
    EXPECT_EQ(m.dernière_boîte().texte, "Impossible d'écrire le fichier " + fichier);
  }

  MondeFactice m;
  std::string dossier_info = m.dossier.fichier("fiches");
  std::string fichier = dossier_info + "/ARDANE.INF";
};

TEST_F(InformationFile, OneThatIsAbsentIsMadeAndTold) {
  préparer();
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_EQ(m.dernière_boîte().titre, "Création du fichier Info");
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::fichier_d_information_recréé));
  EXPECT_EQ(m.g().Fichiers_info(1), fichier);
  EXPECT_EQ(lire_fichier(fichier).size(), 110U * 650);
}

TEST_F(InformationFile, ACardHoldsWhatTheGazetteerKnowsByteByByte) {
  Fiche_ville &capitale = m.g().TableVilles(1);
  const std::string région = m.g().TableRégions(m.g().TableProvinces(1).région).nom;
  std::string villes;
  for (int v = 1; v <= nombre_villes; ++v)
    if (m.g().TableVilles(v).province == 1) villes += "* " + m.g().TableVilles(v).nom + "\r\n";
  préparer();
  const auto fiche = Lire_fiche_information(m.c(), 1);
  ASSERT_TRUE(fiche);
  EXPECT_EQ(fiche->titre, "Département : " + m.g().TableProvinces(1).nom);
  EXPECT_EQ(fiche->texte, "\r\n\r\n\r\nPréfecture : \r\n* " + capitale.nom +
                              "\r\n\r\nVille principale :\r\n" + villes + "\r\nRégion : " + région +
                              "\r\n\r\n");
}

TEST_F(InformationFile, AProvinceWithNoTownSaysSo) {
  for (int v = 1; v <= nombre_villes; ++v)
    if (m.g().TableVilles(v).province == 7) m.g().TableVilles(v).province = 8;
  m.g().VillesParProvince.relever(m.g().TableVilles);
  préparer();
  const std::string région = m.g().TableRégions(m.g().TableProvinces(7).région).nom;
  EXPECT_EQ(
      Lire_fiche_information(m.c(), 7)->texte,
      "\r\n\r\n\r\nPréfecture : \r\n* \r\n\r\nPas de sous préfecture dans ce département\r\n\r\nRégion : " +
          région + "\r\n\r\n");
}

TEST_F(InformationFile, OneThatIsThereIsNeverTouchedWhateverItHolds) {
  for (const std::string &contenu : {std::string(), std::string("x"), std::string(650 * 111, 'z')}) {
    écrire_fichier(fichier, contenu);
    préparer();
    EXPECT_EQ(lire_fichier(fichier), contenu);
    EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  }
}

TEST_F(InformationFile, AFolderThatRefusesItLeadsToTheChoiceOfAnother) {
  refuser_écriture(dossier_info);
  DossierTemporaire autre;
  m.façade.joueur = [&](Fenêtre &fenêtre) {
    EXPECT_EQ(fenêtre.nom, "Paramétrage_répertoires");
    EXPECT_EQ(m.g().Mode_sélection, choix_dossier_information);
    m.g().Répertoire_info = autre.chemin();
    m.g().Fichiers_info(1) = autre.fichier("ARDANE.INF");
  };
  préparer();
  EXPECT_THAT(titres(), ElementsAre("Création du fichier Info", "Erreur", "Choix du répertoire"));
  EXPECT_EQ(m.boîtes.montrées[1].texte,
            "Impossible d'écrire dans le répertoire spécifié ! (" + dossier_info + ")");
  EXPECT_EQ(m.boîtes.montrées[2].texte, message(m.g(), Message::fichier_peut_être_protégé));
  EXPECT_EQ(lire_fichier(autre.fichier("ARDANE.INF")).size(), 71'500U);
  EXPECT_FALSE(fichier_existe(fichier));
}

TEST_F(InformationFile, AChosenFolderThatHoldsOneAlreadyIsTakenAsItIs) {
  refuser_écriture(dossier_info);
  DossierTemporaire autre;
  écrire_fichier(autre.fichier("ARDANE.INF"), "les miennes");
  m.façade.joueur = [&](Fenêtre &) { m.g().Fichiers_info(1) = autre.fichier("ARDANE.INF"); };
  préparer();
  EXPECT_EQ(lire_fichier(autre.fichier("ARDANE.INF")), "les miennes");
}

TEST_F(InformationFile, AFullDiskIsToldAndLeavesNothingHalfMade) {
  {
    const DisquePlein plein(10'000);
    préparer();
  }
  attendre_échec_d_écriture();
  EXPECT_TRUE(fs::is_empty(chemin_natif(dossier_info)));
}

TEST_F(InformationFile, AFolderOfItsNameIsToldAndStays) {
  fs::create_directory(chemin_natif(fichier));
  préparer();
  attendre_échec_d_écriture();
  EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
  EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  EXPECT_TRUE(fs::is_empty(chemin_natif(fichier)));
}

TEST_F(InformationFile, AProvinceWithTooManyTownsForItsCardIsToldAndNoFileIsMade) {
  for (int v = 111; v <= nombre_villes; ++v) m.g().TableVilles(v).province = 60;
  m.g().VillesParProvince.relever(m.g().TableVilles);
  testing::internal::CaptureStderr();
  préparer();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ardane : Le fichier d'information n'est pas écrit : une fiche dépasse sa case\n");
  attendre_échec_d_écriture();
  EXPECT_TRUE(fs::is_empty(chemin_natif(dossier_info)));
}

TEST_F(InformationFile, AFolderThatHasVanishedLeadsToTheChoiceOfAnother) {
  fs::remove(chemin_natif(dossier_info));
  DossierTemporaire autre;
  m.façade.joueur = [&](Fenêtre &) { m.g().Fichiers_info(1) = autre.fichier("ARDANE.INF"); };
  préparer();
  EXPECT_THAT(titres(), ElementsAre("Création du fichier Info", "Erreur", "Choix du répertoire"));
  EXPECT_EQ(lire_fichier(autre.fichier("ARDANE.INF")).size(), 71'500U);
}

TEST_F(InformationFile, InAFolderThatHasVanishedNoCardIsReadOrWritten) {
  préparer();
  fs::remove_all(chemin_natif(dossier_info));
  EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
  EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  EXPECT_FALSE(fs::exists(chemin_natif(dossier_info)));
}

TEST_F(InformationFile, AFileOf109SlotsGetsItsLastAndOneOf111KeepsWhatIsBehindIt) {
  préparer();
  const std::string entier = lire_fichier(fichier);
  for (const std::string &octets : {entier.substr(0, 109 * 650), entier + std::string(650, 'z')}) {
    écrire_fichier(fichier, octets);
    EXPECT_TRUE(Ecrire_fiche_information(m.c(), 110, {"a", "b"}));
    EXPECT_EQ(Lire_fiche_information(m.c(), 110), (Fiche_information{"a", "b"}));
    const std::string après = lire_fichier(fichier);
    EXPECT_EQ(après.substr(0, 109 * 650), entier.substr(0, 109 * 650));
    EXPECT_EQ(après.substr(110 * 650), octets.size() > entier.size() ? std::string(650, 'z') : "");
  }
}

TEST_F(InformationFile, ACardThatCannotBeReadIsNone) {
  préparer();
  const std::string entier = lire_fichier(fichier);
  EXPECT_TRUE(Lire_fiche_information(m.c(), 110));
  écrire_fichier(fichier, entier.substr(0, 109 * 650));
  EXPECT_TRUE(Lire_fiche_information(m.c(), 109));
  EXPECT_FALSE(Lire_fiche_information(m.c(), 110));
  fs::remove(chemin_natif(fichier));
  EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
  fs::create_directory(chemin_natif(fichier));
  EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
}

TEST_F(InformationFile, ACardIsWrittenAmongTheOthers) {
  préparer();
  const std::string avant = lire_fichier(fichier);
  EXPECT_TRUE(Ecrire_fiche_information(m.c(), 5, {"Titre", "Texte\r\n"}));
  EXPECT_EQ(Lire_fiche_information(m.c(), 5), (Fiche_information{"Titre", "Texte\r\n"}));
  const std::string après = lire_fichier(fichier);
  EXPECT_EQ(après.substr(0, 4 * 650), avant.substr(0, 4 * 650));
  EXPECT_EQ(après.substr(5 * 650), avant.substr(5 * 650));
}

TEST_F(InformationFile, ACardOf650BytesIsTakenAndOneOf651IsNot) {
  préparer();
  EXPECT_TRUE(Ecrire_fiche_information(m.c(), 1, {"abc", std::string(643, 'x')}));
  EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"abc", std::string(644, 'x')}));
  EXPECT_EQ(Lire_fiche_information(m.c(), 1)->texte.size(), 643U);
}

TEST_F(InformationFile, AFileThatCannotBeReadIsNotReplacedByOneCardAlone) {
  préparer();
  const std::string avant = lire_fichier(fichier);
  for (const std::string &dossier : {m.dossier.chemin(), dossier_info})
    fs::permissions(chemin_natif(dossier), fs::perms::all);
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write);
  {
    const SansPrivilège ordinaire;
    EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
    EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  }
  fs::permissions(chemin_natif(fichier), fs::perms::all);
  EXPECT_TRUE(lire_fichier(fichier) == avant);
}

TEST_F(InformationFile, AFileWhoseReadingFailsHalfWayHasNoCardAndStaysAsItIs) {
  fs::create_symlink("/proc/self/mem", chemin_natif(fichier));
  préparer();
  EXPECT_FALSE(Lire_fiche_information(m.c(), 1));
  EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  EXPECT_TRUE(fs::is_symlink(chemin_natif(fichier)));
}

TEST_F(InformationFile, AFullDiskOrAReadOnlyFileKeepsTheOldCard) {
  préparer();
  const std::string avant = lire_fichier(fichier);
  {
    const DisquePlein plein(10'000);
    EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  }
  EXPECT_EQ(lire_fichier(fichier), avant);
  {
    const Protégé lecture_seule(chemin_natif(fichier), Protégé::Contre::écriture);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                StartsWith("ardane : La fiche n'est pas écrite dans « " + fichier + " » : "));
  }
  fs::permissions(chemin_natif(fichier), fs::perms::all);
  EXPECT_TRUE(lire_fichier(fichier) == avant);
}

}  // namespace
}  // namespace ardane
