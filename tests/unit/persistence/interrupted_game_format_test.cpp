// What an interrupted game has beyond a saved one: saved_game_format_test.cpp has the rest.
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "core/game_state.h"
#include "persistence/saved_game_format.h"

namespace ardane {
namespace {

Lecture_partie lire_interrompue(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_partie_interrompue(flux);
}

std::string écrire_interrompue(const Contenu_partie &partie) {
  std::ostringstream flux;
  EXPECT_EQ(écrire_partie(flux, partie), std::nullopt);
  return flux.str();
}

/// A game in which every field says something.
Contenu_partie partie_de_l_étape(std::int16_t étape) {
  Contenu_partie partie;
  partie.version = "Version 1.00 du 24/02/2007";
  partie.langue = 1;
  partie.fichier_lancement = "/jeux/Le nord.SCI";
  partie.en_ligne = {Ordre_de_jeu({4, 1, 3, 2}), {{"Zoé", 999000, 1}, {"Ann", -12, 4}}};
  partie.étape = étape;
  partie.nom_joueur = "Zoé";
  partie.niveau = 1;
  partie.apprentissage = true;
  partie.score = 987'654;
  const int paires = nombre_de_paires(étape, true);
  for (int i = 1; i <= paires; ++i)
    partie.trouvées.push_back({static_cast<std::int16_t>(i), static_cast<std::int16_t>(i % 5 == 0 ? -1 : 0)});
  for (int p = 1; p <= nombre_provinces; ++p) partie.provinces(p, p % 5) = {p, p % 2 == 0};
  for (int r = 1; r <= nombre_régions; ++r) partie.régions(r) = {r, true};
  for (int v = 1; v <= nombre_villes; ++v) partie.villes(v) = {v, v % 3 == 0};
  Interruption interruption;
  for (int p = 1; p <= nombre_provinces; p += 7) interruption.inhibée(p) = true;
  interruption.heure = 23 * 3600 + 59 * 60 + 59;
  interruption.question = 12;
  interruption.conseil_vu = true;
  if (étape == 4)
    interruption.sélection = {110, 3, 57};
  else
    interruption.erreurs = 9;
  interruption.assistance = étape != 4;
  partie.interruption = interruption;
  return partie;
}

class InterruptedGameOfAStage : public testing::TestWithParam<int> {
 protected:
  const Contenu_partie partie = partie_de_l_étape(static_cast<std::int16_t>(GetParam()));
  const std::string octets = écrire_interrompue(partie);
};

INSTANTIATE_TEST_SUITE_P(Stages, InterruptedGameOfAStage, testing::Values(1, 2, 3, 4));

TEST_P(InterruptedGameOfAStage, IsReadAsItWasWritten) {
  const Lecture_partie lecture = lire_interrompue(octets);
  EXPECT_EQ(lecture.défaut, std::nullopt);
  EXPECT_EQ(lecture.contenu, partie);
}

TEST_P(InterruptedGameOfAStage, CutAnywhereIsNoGame) {
  const std::size_t cases = octets.size() / taille_de_case;
  for (std::size_t i = 0; i < cases; ++i)
    for (const std::size_t octet : {0U, 1U}) {
      const auto défaut = lire_interrompue(octets.substr(0, i * taille_de_case + octet)).défaut;
      ASSERT_EQ(défaut, (Défaut_de_case{static_cast<int>(i) + 1, Défaut_de_case::Cause::fin_du_fichier}))
          << i << ", " << octet;
    }
}

TEST_P(InterruptedGameOfAStage, CutAtAnyByteOfItsEndsIsNoGameUnlessAllItsItemsAreThere) {
  const std::size_t dernier_octet = octets.find_last_not_of('\0');
  for (std::size_t taille = 0; taille < 2000; ++taille)
    ASSERT_TRUE(lire_interrompue(octets.substr(0, taille)).défaut) << taille;
  for (std::size_t taille = octets.size() - 2000; taille <= dernier_octet; ++taille)
    ASSERT_TRUE(lire_interrompue(octets.substr(0, taille)).défaut) << taille;
  EXPECT_EQ(lire_interrompue(octets.substr(0, dernier_octet + 1)).contenu, partie);
}

TEST(InterruptedGame, KeepsPathsThatNoSlotHolds) {
  for (const std::string &chemin :
       {std::string("~tmp.~ci"), std::string("/jeux/Ωμέγα/") + std::string(300, 'x') + ".SCI",
        std::string()}) {
    Contenu_partie partie = partie_de_l_étape(3);
    partie.fichier_lancement = chemin;
    EXPECT_EQ(lire_interrompue(écrire_interrompue(partie)).contenu, partie) << chemin;
  }
}

TEST(InterruptedGame, IsNoSavedGameAndASavedOneIsNoInterruptedOne) {
  Contenu_partie partie = partie_de_l_étape(1);
  std::istringstream interrompue(écrire_interrompue(partie));
  EXPECT_TRUE(lire_partie(interrompue).défaut);
  partie.interruption.reset();
  std::ostringstream enregistrée;
  ASSERT_EQ(écrire_partie(enregistrée, partie), std::nullopt);
  EXPECT_EQ(lire_interrompue(enregistrée.str()).défaut, (Défaut_de_case{1, Défaut_de_case::Cause::valeur}));
}

TEST(InterruptedGame, OfAnotherFormIsRefusedAtOnce) {
  std::string octets = écrire_interrompue(partie_de_l_étape(1));
  const std::size_t chiffre = octets.find("forme 1") + 6;
  octets[chiffre] = '2';
  EXPECT_EQ(lire_interrompue(octets).défaut, (Défaut_de_case{1, Défaut_de_case::Cause::valeur}));
}

TEST(InterruptedGame, WithoutAConfigurationOfItsOwnIsRefusedAtOnce) {
  std::string octets = écrire_interrompue(partie_de_l_étape(1));
  octets.at(octets.find(nom_fichier_temporaire)) = 'x';
  EXPECT_EQ(lire_interrompue(octets).défaut, (Défaut_de_case{4, Défaut_de_case::Cause::valeur}));
}

TEST(InterruptedGame, ForeignBytesAreRefusedAtOnce) {
  for (const std::string &octets :
       {std::string(), std::string(1'000'000, '\0'), std::string(1'000'000, '\xFF'),
        std::string("\x7F"
                    "ELF")})
    EXPECT_TRUE(lire_interrompue(octets).défaut) << octets.size();
}

struct Abîmée {
  const char *quoi;
  int étape;
  std::function<void(Contenu_partie &)> abîmer;
};

TEST(InterruptedGame, WhatNoGameCanHaveBeenLeftWithIsRefused) {
  const std::vector<Abîmée> cas = {
      {"no question", 1, [](auto &p) { p.interruption->question = 0; }},
      {"a province beyond the last", 1, [](auto &p) { p.interruption->question = 111; }},
      {"a town beyond the last", 2, [](auto &p) { p.interruption->question = 331; }},
      {"a flag beyond the last", 3, [](auto &p) { p.interruption->question = 111; }},
      {"a region beyond the last", 4, [](auto &p) { p.interruption->question = 21; }},
      {"errors below 0", 1, [](auto &p) { p.interruption->erreurs = -1; }},
      {"ten errors", 1, [](auto &p) { p.interruption->erreurs = 10; }},
      {"an error in the stage Régions", 4, [](auto &p) { p.interruption->erreurs = 1; }},
      {"help without an error", 1, [](auto &p) { p.interruption->erreurs = 0; }},
      {"help in a game that counts", 1, [](auto &p) { p.apprentissage = false; }},
      {"help in the stage Régions", 4, [](auto &p) { p.interruption->assistance = true; }},
      {"a selection in another stage", 2, [](auto &p) { p.interruption->sélection = {3}; }},
      {"province 0 selected", 4, [](auto &p) { p.interruption->sélection = {0}; }},
      {"province 111 selected", 4, [](auto &p) { p.interruption->sélection = {111}; }},
      {"one selected twice", 4,
       [](auto &p) {
         p.interruption->sélection = {5, 6, 5};
       }},
      {"thirteen selected", 4,
       [](auto &p) { p.interruption->sélection = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}; }},
      {"before midnight", 1, [](auto &p) { p.interruption->heure = -1; }},
      {"after midnight", 1, [](auto &p) { p.interruption->heure = 24 * 3600; }},
      {"a pair in another's place", 3, [](auto &p) { std::swap(p.trouvées[3], p.trouvées[4]); }},
      {"a stage that is not played", 1,
       [](auto &p) {
         p.en_ligne.ordre = Ordre_de_jeu({2, 0, 0, 0});
       }},
      {"no points left", 1, [](auto &p) { p.score = 0; }},
  };
  for (const auto &[quoi, étape, abîmer] : cas) {
    Contenu_partie partie = partie_de_l_étape(static_cast<std::int16_t>(étape));
    abîmer(partie);
    const auto défaut = lire_interrompue(écrire_interrompue(partie)).défaut;
    ASSERT_TRUE(défaut) << quoi;
    EXPECT_EQ(défaut->cause, Défaut_de_case::Cause::valeur) << quoi;
  }
}

}  // namespace
}  // namespace ardane
