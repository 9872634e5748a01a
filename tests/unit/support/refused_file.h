// A text file that the system will not have written, for one reason after the other.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {

/// Writes the file where the disk is full, where it is protected, where its folder is, and where a folder has
/// its name. Each time the player must be told with the path, and what was there must stay as it was.
inline void attendre_refus_d_écrire(MondeFactice &m, const std::string &fichier,
                                    const std::function<void()> &écrire) {
  namespace fs = std::filesystem;
  const auto attendre_refus = [&](const char *cas) {
    SCOPED_TRACE(cas);
    m.oublier();
    testing::internal::CaptureStderr();
    écrire();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::StartsWith("ardane : Le fichier « "));
    ASSERT_EQ(m.boîtes.montrées.size(), 1U);
    EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
    EXPECT_EQ(m.dernière_boîte().titre, "Erreur");
    EXPECT_EQ(m.dernière_boîte().texte, "Impossible d'écrire le fichier " + fichier);
  };
  écrire_fichier(fichier, "ancien");
  {
    const DisquePlein plein(100);
    attendre_refus("full disk");
  }
  {
    const Protégé lecture_seule(chemin_natif(fichier), Protégé::Contre::écriture);
    attendre_refus("read-only file");
  }
  {
    const Protégé lecture_seule(chemin_natif(Dossier_de(fichier)), Protégé::Contre::écriture);
    attendre_refus("read-only folder");
  }
  EXPECT_EQ(lire_fichier(fichier), "ancien");
  fs::remove(chemin_natif(fichier));
  {
    const Protégé lecture_seule(chemin_natif(Dossier_de(fichier)), Protégé::Contre::écriture);
    attendre_refus("read-only folder without the file");
  }
  EXPECT_FALSE(fichier_existe(fichier));
  fs::create_directory(chemin_natif(fichier));
  attendre_refus("folder of that name");
  EXPECT_TRUE(fs::is_empty(chemin_natif(fichier)));
}

}  // namespace ardane
