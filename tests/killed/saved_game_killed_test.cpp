// A game is saved, and taken up, by runs that are killed at every moment.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "deadly_calls.h"
#include "persistence/score_file.h"
#include "platform/registry_store.h"
#include "support/saving_player.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using Fichiers = std::map<std::string, std::string>;

class KilledRun : public testing::Test {
 protected:
  void SetUp() override {
    m.démarrer();
    m.g().Fichier_lancement = m.dossier.fichier("Le nord.SCI");
    m.g().Nombre_scores(1) = 1;
    m.g().Meilleurs_scores(1, 1) = {"Zoé", 999000};
    Ecrire_scores(m.c(), true);
    écrire_fichier(m.dossier.fichier("hier.CAI"), "yesterday's game");
    m.nouvelle_partie(1);
    for (int i = 0; i < 5; ++i) m.répondre_juste();
  }

  /// What lies in the folder but what a killed run may leave half done.
  Fichiers fichiers() const {
    Fichiers trouvés;
    for (const auto &entrée : fs::directory_iterator(chemin_natif(m.dossier.chemin()))) {
      const std::string nom = texte_du_chemin(entrée.path().filename());
      if (nom != "~zut.tmp" && !nom.ends_with(".tmp")) trouvés[nom] = lire_fichier(m.dossier.fichier(nom));
    }
    return trouvés;
  }
  void poser(const Fichiers &voulus) const {
    for (const auto &entrée : fs::directory_iterator(chemin_natif(m.dossier.chemin())))
      fs::remove(entrée.path());
    for (const auto &[nom, octets] : voulus) écrire_fichier(m.dossier.fichier(nom), octets);
  }
  /// Kills one run after the other, each a call later than the last, until one is not: its number of calls.
  int tuer_à_tout_moment(const std::function<int()> &action, const std::function<void(int)> &vérifier) {
    const Fichiers avant = fichiers();
    for (int n = 1; n < 1000; ++n) {
      poser(avant);
      const Fin fin = tuer_à_l_appel(n, action);
      if (!fin.tué) {
        EXPECT_EQ(fin.code, 0);
        return n - 1;
      }
      vérifier(n);
    }
    return 0;
  }

  MondeFactice m;
};

TEST_F(KilledRun, SavingAGamePutsItOnTheDiskWholeAndNothingElseIsLost) {
  const auto enregistrer = [&] { return enregistrer_la_partie(m, "souper") ? 0 : 1; };
  const Fichiers avant = fichiers();
  ASSERT_EQ(tuer_à_l_appel(0, enregistrer).code, 0);
  // The new name is the last that comes, but for the disk's learning of it.
  const auto appels = appels_du_dernier();
  const auto nommée = std::ranges::find(appels, "rename") - appels.begin() + 1;
  ASSERT_LE(nommée, std::ssize(appels));
  const Fichiers après = fichiers();
  ASSERT_EQ(après.at("souper.CAI").size(), 1918U * 128U);
  ASSERT_EQ(après.size(), avant.size() + 1);

  poser(avant);
  const int moments = tuer_à_tout_moment(enregistrer, [&](int n) {
    const std::string appel = appels_du_dernier().back();
    EXPECT_EQ(fichiers(), n <= nommée ? avant : après) << "call " << n << ", " << appel;
    fs::remove(chemin_natif(m.dossier.fichier("souper.CAI")));
    // What is left half done is in nobody's way.
    EXPECT_EQ(tuer_à_l_appel(0, enregistrer).code, 0) << n << ", " << appel;
    EXPECT_EQ(fichiers(), après) << n << ", " << appel;
  });
  EXPECT_GE(moments, 5);
}

TEST_F(KilledRun, TakingUpAGameLeavesItOnTheDiskUntilItStandsOnTheScreen) {
  ASSERT_TRUE(enregistrer_la_partie(m, "souper"));
  const auto reprendre = [&] {
    if (!reprendre_la_partie(m, "souper.CAI")) return 1;
    return m.g().ProvincesRestantes == 105 && !m.g().PartieVierge ? 0 : 2;
  };
  const Fichiers avant = fichiers();
  ASSERT_EQ(tuer_à_l_appel(0, reprendre).code, 0);
  EXPECT_EQ(appels_du_dernier().back(), "remove");
  EXPECT_FALSE(fichier_existe(m.dossier.fichier("souper.CAI")));

  poser(avant);
  const int moments = tuer_à_tout_moment(reprendre, [&](int n) {
    EXPECT_EQ(fichiers(), avant) << "call " << n << ", " << appels_du_dernier().back();
  });
  EXPECT_GE(moments, 5);
  EXPECT_FALSE(fichier_existe(m.dossier.fichier("souper.CAI")));
}

TEST_F(KilledRun, TheNextStartSweepsWhatWasLeftHalfDone) {
  const auto provisoires = [&] {
    int nombre = 0;
    for (const auto &entrée : fs::directory_iterator(chemin_natif(m.dossier.chemin())))
      if (entrée.path().extension() == ".tmp") ++nombre;
    return nombre;
  };
  const auto enregistrer = [&] { return enregistrer_la_partie(m, "souper") ? 0 : 1; };
  ASSERT_EQ(tuer_à_l_appel(0, enregistrer).code, 0);
  fs::remove(chemin_natif(m.dossier.fichier("souper.CAI")));
  const auto appels = appels_du_dernier();
  const auto nommée = std::ranges::find(appels, "rename") - appels.begin() + 1;
  EXPECT_TRUE(tuer_à_l_appel(static_cast<int>(nommée), enregistrer).tué);
  EXPECT_EQ(provisoires(), 1);
  MondeScripté monde(options_factices(), m, m);
  Programme(monde.monde(), ressources_du_programme(), m.dossier.chemin()).Démarrage(m.dossier.chemin());
  EXPECT_EQ(provisoires(), 0);

  RegistreFichier registre(chemin_natif(m.dossier.fichier("registre")));
  const auto régler = [&] { return registre.créer("R") ? 0 : 1; };
  ASSERT_EQ(tuer_à_l_appel(0, régler).code, 0);
  fs::remove(chemin_natif(m.dossier.fichier("registre")));
  const auto derniers = appels_du_dernier();
  tuer_à_l_appel(static_cast<int>(std::ranges::find(derniers, "rename") - derniers.begin() + 1), régler);
  EXPECT_EQ(provisoires(), 1);
  const RegistreFichier suivant(chemin_natif(m.dossier.fichier("registre")));
  EXPECT_EQ(provisoires(), 0);
}

}  // namespace
}  // namespace ardane
