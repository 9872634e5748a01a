// The program's start over settings that lie in a real file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "persistence/registry.h"
#include "platform/registry_store.h"
#include "platform/window_layout.h"
#include "services/update_list.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

class StartWithASettingsFile : public testing::Test {
 protected:
  /// One run of the program, from its start to just before the player's first click.
  bool démarrer(const std::function<void(Programme &, MondeScripté &)> &jouer = nullptr) {
    m.boîtes.montrées.clear();
    OptionsMonde options = options_factices();
    options.registre = fichier;
    MondeScripté monde(options, m, m);
    Programme programme(monde.monde(), ressources_du_programme(), m.dossier.chemin());
    const bool démarré = programme.Démarrage(m.dossier.chemin());
    joueur = programme.état().Nom_joueur;
    if (jouer) jouer(programme, monde);
    return démarré;
  }
  void poser(std::string_view texte) {
    fs::create_directory(chemin_natif(m.dossier.fichier("mirabonde")));
    écrire_fichier(fichier, texte);
  }

  MondeFactice m;
  std::string fichier = m.dossier.fichier("mirabonde/registre");
  std::string joueur;
};

TEST_F(StartWithASettingsFile, TheSecondStartFindsWhatTheFirstWrote) {
  EXPECT_TRUE(démarrer());
  EXPECT_THAT(m.boîtes.montrées, testing::SizeIs(2));
  RegistreFichier(chemin_natif(fichier)).écrire(clé_du_jeu, "joueur", "Ann");
  EXPECT_TRUE(démarrer());
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(joueur, "Ann");
}

/// Processor time of the least of three runs, in milliseconds.
double durée(const std::function<void()> &action) {
  double moindre = 1e9;
  for (int essai = 0; essai < 3; ++essai) {
    const std::clock_t début = std::clock();
    action();
    moindre = std::min(moindre, 1000.0 * static_cast<double>(std::clock() - début) / CLOCKS_PER_SEC);
  }
  return moindre;
}

TEST_F(StartWithASettingsFile, APageOfTheSiteCostsInProportionToItsRowsNowAndAtEveryLaterStart) {
  struct Coût {
    double page, démarrage;
  };
  const auto coût = [&](std::size_t lignes) {
    std::string page = "<html>";
    for (std::size_t i = 0; i < lignes; ++i)
      page += "<!--jeu" + std::to_string(i) + "#1.0#01/02/2007#Un jeu-->";
    Coût mesuré{};
    mesuré.page = durée([&] {
      fs::remove(chemin_natif(fichier));
      démarrer([&](Programme &programme, MondeScripté &monde) {
        monde.web.prévoir(page);
        Chercher_mises_à_jour(programme.contexte());
      });
    });
    mesuré.démarrage = durée([&] { démarrer(); });
    EXPECT_EQ(RegistreFichier(chemin_natif(fichier)).valeurs(clé_des_mises_à_jour).size(), lignes + 12);
    return mesuré;
  };
  const Coût peu = coût(0), assez = coût(1500), beaucoup = coût(6000);
  // Four times the rows: four times the cost, not sixteen times.
  EXPECT_LT(beaucoup.page - peu.page, 9 * (assez.page - peu.page));
  EXPECT_LT(beaucoup.démarrage - peu.démarrage, 9 * (assez.démarrage - peu.démarrage));
}

TEST_F(StartWithASettingsFile, AFolderThatCannotBeWrittenIsToldAtEachStartUntilAGoodOneIsSet) {
  démarrer();
  const std::string lecteur = m.dossier.fichier("lecteur");
  fs::create_directories(chemin_natif(Joindre_chemin(lecteur, "~zut.tmp/occupé")));
  RegistreFichier(chemin_natif(fichier)).écrire(clé_du_jeu, "répertoire", lecteur);
  for (std::size_t fois = 1; fois <= 2; ++fois) {
    EXPECT_TRUE(démarrer());
    ASSERT_THAT(m.boîtes.montrées, testing::SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().titre, "Choix du répertoire");
    EXPECT_THAT(m.façade.ouvertes, testing::Contains("Paramétrage_répertoires").Times(fois));
  }
  m.façade.joueur = [](Fenêtre &f) {
    if (f.nom == "Paramétrage_répertoires") cliquer(f, contrôle(f, "Bouton_OK"));
  };
  EXPECT_TRUE(démarrer());
  m.façade.joueur = nullptr;
  EXPECT_TRUE(démarrer());
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(StartWithASettingsFile, AnEmptyFileIsAFirstRun) {
  poser("");
  EXPECT_TRUE(démarrer());
  EXPECT_THAT(lire_fichier(fichier), HasSubstr("\"langue\"=\"1\""));
}

TEST_F(StartWithASettingsFile, AFileCutAnywhereStillStarts) {
  démarrer();
  const std::string entier = lire_fichier(fichier);
  for (std::size_t longueur = 0; longueur < entier.size(); longueur += entier.size() / 5 + 1) {
    poser(entier.substr(0, longueur));
    EXPECT_TRUE(démarrer()) << longueur;
  }
}

TEST_F(StartWithASettingsFile, AFileOfForeignBytesStillStartsAndKeepsThem) {
  std::string octets;
  for (int i = 0; i < 2000; ++i) octets.push_back(static_cast<char>(i * 89 + i / 7));
  poser(octets);
  EXPECT_TRUE(démarrer());
  EXPECT_EQ(lire_fichier(fichier).substr(0, octets.size()), octets);
}

TEST_F(StartWithASettingsFile, AReadOnlyFileStillStartsAndStaysAsItIs) {
  démarrer();
  const std::string avant = lire_fichier(fichier);
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(m.dossier.fichier("mirabonde")), fs::perms::all);
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const SansPrivilège ordinaire;
  EXPECT_TRUE(démarrer());
  EXPECT_EQ(lire_fichier(fichier), avant);
}

TEST_F(StartWithASettingsFile, WithoutAnyPlaceForTheKeyTheProgramEnds) {
  écrire_fichier(m.dossier.fichier("mirabonde"), "a file where the folder should be");
  EXPECT_THROW(démarrer(), ErreurFatale);
}

}  // namespace
}  // namespace ardane
