// What the player believes saved outlasts a power cut: the disk has the file and its name when he is told.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "deadly_calls.h"
#include "persistence/information_file.h"
#include "persistence/revision_lists.h"
#include "persistence/score_file.h"
#include "platform/registry_store.h"
#include "support/saving_player.h"

namespace ardane {
namespace {

using testing::ElementsAre;

class PowerCut : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  /// The calls by which a run brings something to the disk, from its last new file on.
  static std::vector<std::string> appels_de(const std::function<bool()> &enregistrer) {
    EXPECT_EQ(tuer_à_l_appel(0, [&] { return enregistrer() ? 0 : 1; }).code, 0);
    const std::set<std::string> gardés = {"write", "writev", "fsync", "fsync of a folder", "rename"};
    std::vector<std::string> appels;
    for (const std::string &appel : appels_du_dernier())
      if (gardés.contains(appel)) appels.push_back(appel);
    return appels;
  }

  MondeFactice m;
};

TEST_F(PowerCut, AFileIsOnTheDiskBeforeItTakesItsNameAndThenTheNameIs) {
  m.nouvelle_partie(1);
  m.répondre_juste();
  RegistreFichier registre(chemin_natif(m.dossier.fichier("registre")));
  registre.créer("R");
  const std::vector<std::pair<const char *, std::function<bool()>>> cas = {
      {"settings", [&] { return registre.écrire("R", "joueur", "Ann"); }},
      {"card",
       [&] {
         return Ecrire_fiche_information(m.c(), 1, {"a", "b"});
       }},
      {"list", [&] { return Ecrire_liste_des_villes(m.c()), true; }},
  };
  for (const auto &[nom, enregistrer] : cas)
    EXPECT_THAT(appels_de(enregistrer), ElementsAre("write", "fsync", "rename", "fsync of a folder")) << nom;
  // Before it comes the folder's probe.
  EXPECT_THAT(appels_de([&] { return enregistrer_la_partie(m, "souper"); }),
              testing::IsSupersetOf({"write", "fsync", "rename", "fsync of a folder"}));
  EXPECT_EQ(appels_du_dernier().back(), "fsync of a folder");
}

TEST_F(PowerCut, TheScoreFileIsWrittenInOnePieceAndIsOnTheDisk) {
  m.g().Fichier_lancement = m.dossier.fichier("ARDANE.SCI");
  EXPECT_THAT(appels_de([&] { return Ecrire_scores(m.c(), true); }),
              ElementsAre("write", "fsync", "fsync of a folder"));
}

}  // namespace
}  // namespace ardane
