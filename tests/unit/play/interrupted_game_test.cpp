// Runs that end without a word, and the next start over what they have left.
#include "play/interrupted_game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "configuration/configuration_mode.h"
#include "map/panel.h"
#include "persistence/lifeline.h"
#include "persistence/score_file.h"
#include "platform/window_layout.h"
#include "play/assistance.h"
#include "play/map_clicks.h"
#include "play/stage_sequencer.h"
#include "support/fake_world.h"
#include "support/saving_player.h"
#include "support/state_snapshot.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// What the player sees of the window, control by control, but for the pictures that stages leave behind.
std::vector<std::string> vue_de_la_partie(Fenêtre &fenêtre) {
  std::vector<std::string> lignes;
  for (const Contrôle &c : fenêtre.contrôles())
    lignes.push_back(c.nom + (c.visible ? " visible " : " hidden ") + (c.actif ? "enabled " : "disabled ") +
                     c.texte + " " + c.infobulle + " " + c.nom_parlé);
  return lignes;
}

/// The lines of one that the other does not have in the same place.
std::vector<std::string> différence(const std::vector<std::string> &une,
                                    const std::vector<std::string> &autre) {
  std::vector<std::string> lignes;
  for (std::size_t i = 0; i < une.size(); ++i)
    if (une[i] != autre.at(i)) lignes.push_back(une[i] + " / " + autre[i]);
  return lignes;
}

class InterruptedRun : public testing::Test {
 protected:
  InterruptedRun() { m.démarrer(); }

  static Lieu_de_secours lieu(const DossierTemporaire &dossier) {
    return {chemin_natif(dossier.fichier("secours"))};
  }
  bool partie_gardée() const { return fs::exists(chemin_natif(secours.fichier("secours/partie"))); }

  /// A game of these stages, some provinces left out.
  void jouer(const std::vector<std::int16_t> &jeux, int niveau) {
    m.g().Ordre_jeux.remplir(0);
    int rang = 0;
    for (const std::int16_t code : jeux) m.g().Ordre_jeux(++rang) = code;
    for (int p = 3; p <= nombre_provinces; p += 5) m.g().TableProvinces(p).inhibée = true;
    m.nouvelle_partie(niveau, "Zoé");
    m.oublier();
  }
  void répondre(MondeFactice &monde, bool juste) {
    if (monde.g().Etape == étape_régions) return cliquer_dans_la_région(monde);
    juste ? monde.répondre_juste() : monde.répondre_faux();
  }
  /// A member of the region asked that is not yet selected.
  static void cliquer_dans_la_région(MondeFactice &monde) {
    const GameState &g = monde.g();
    for (int p = 1; p <= nombre_provinces; ++p) {
      const Fiche_province &province = g.TableProvinces(p);
      bool choisie = false;
      for (int k = g.ResteRégion + 1; k <= g.TailleRégion; ++k)
        choisie = choisie || g.SélectionRégion(k) == p;
      if (province.région == g.RégionCourante && !province.trouvée && !province.inhibée && !choisie)
        return ClicProvince(monde.c(), p);
    }
  }

  DossierTemporaire secours;
  MondeFactice m{lieu(secours)};
};

/// The next start over what `m` has left. The score file in use is the one that stood in the killed run's
/// folder.
struct Suivante {
  explicit Suivante(const Lieu_de_secours &lieu, Réponse réponse = Réponse::oui) : m(lieu) {
    // A first start has its own boxes.
    m.boîtes.pendant = [this, réponse](const Boîte &boîte) {
      if (boîte.boutons != Boutons::oui_non) return;
      questions.push_back(boîte);
      m.boîtes.réponses = {réponse};
    };
    m.démarrer();
    m.boîtes.pendant = {};
  }
  std::vector<Boîte> questions;
  MondeFactice m;
};

// --- The very question

struct Cas_de_reprise {
  std::int16_t étape;
  int niveau;  ///< 0 for learning mode
  int justes, fausses;
};

class InterruptedAnywhere : public InterruptedRun, public testing::WithParamInterface<Cas_de_reprise> {};

std::vector<Cas_de_reprise> tous_les_cas() {
  std::vector<Cas_de_reprise> cas;
  for (const std::int16_t étape : {étape_provinces, étape_villes, étape_drapeaux, étape_régions})
    for (int niveau = 0; niveau <= 4; ++niveau)
      for (const auto &[justes, fausses] : {std::pair{0, 1}, {1, 0}, {13, 0}, {14, 3}})
        cas.push_back({étape, niveau, justes, fausses});
  return cas;
}

INSTANTIATE_TEST_SUITE_P(StagesAndLevels, InterruptedAnywhere, testing::ValuesIn(tous_les_cas()),
                         [](const auto &info) {
                           const Cas_de_reprise &c = info.param;
                           return "Stage" + std::to_string(c.étape) + "Level" + std::to_string(c.niveau) +
                                  "After" + std::to_string(c.justes) + "And" + std::to_string(c.fausses);
                         });

TEST_P(InterruptedAnywhere, TheGameGoesOnAtTheVeryQuestion) {
  const Cas_de_reprise &cas = GetParam();
  jouer({cas.étape}, cas.niveau);
  for (int i = 0; i < cas.justes; ++i) répondre(m, true);
  for (int i = 0; i < cas.fausses; ++i) répondre(m, false);
  if (cas.niveau == 0 && cas.fausses == 3 && cas.étape != étape_régions) AideClignotante(m.c());
  Tenir_partie(m.c());

  Suivante suivante(lieu(secours));
  ASSERT_THAT(suivante.questions, SizeIs(1));
  const auto sauf = [&](std::string_view chemin) {
    for (const char *dossier : {"Répertoire_", "Chemin_points", "Son", "Fichiers_info"})
      if (chemin.starts_with(dossier)) return true;
    return false;
  };
  EXPECT_THAT(différences(photographier(m.g()), photographier(suivante.m.g()), sauf), IsEmpty());
  EXPECT_THAT(différence(vue_de_la_partie(m.e()), vue_de_la_partie(suivante.m.e())), IsEmpty());
  EXPECT_EQ(m.e().Image_recherchée.visible, suivante.m.e().Image_recherchée.visible);
  // And it goes on alike.
  for (int i = 0; i < 5; ++i) {
    répondre(m, i != 2);
    répondre(suivante.m, i != 2);
  }
  EXPECT_THAT(différences(photographier(m.g()), photographier(suivante.m.g()), sauf), IsEmpty());
}

// --- The box

TEST_F(InterruptedRun, TheBoxTellsWhoseGameItWasWhenAndWithHowManyPoints) {
  jouer({étape_provinces}, 2);
  m.répondre_faux();
  m.répondre_faux();
  Tenir_partie(m.c());
  const Suivante suivante(lieu(secours));
  ASSERT_THAT(suivante.questions, SizeIs(1));
  const Boîte &boîte = suivante.questions[0];
  EXPECT_EQ(boîte.texte, "La partie de Zoé s'est interrompue à 00:00, avec 999996 points. La reprendre ?");
  EXPECT_EQ(boîte.icône, Icône::question);
  EXPECT_FALSE(boîte.non_par_défaut);
}

TEST_F(InterruptedRun, NoDropsTheGame) {
  jouer({étape_provinces}, 2);
  m.répondre_juste();
  Tenir_partie(m.c());
  Suivante suivante(lieu(secours), Réponse::non);
  EXPECT_FALSE(partie_gardée());
  EXPECT_EQ(suivante.m.g().Etape, étape_repos);
  EXPECT_TRUE(suivante.m.g().PartieVierge);
  EXPECT_THAT(Suivante(lieu(secours)).questions, IsEmpty());
}

TEST_F(InterruptedRun, AStartWithNothingLeftIsTheStartWithoutALifeline) {
  MondeFactice sans;
  sans.démarrer();
  const auto sauf = [](std::string_view chemin) {
    return chemin.starts_with("Répertoire_") || chemin.starts_with("Chemin_points") ||
           chemin.starts_with("Son") || chemin.starts_with("Fichier");
  };
  EXPECT_THAT(différences(photographier(sans.g()), photographier(m.g()), sauf), IsEmpty());
  EXPECT_THAT(différence(vue_de_la_partie(sans.e()), vue_de_la_partie(m.e())), IsEmpty());
  EXPECT_TRUE(fs::is_empty(chemin_natif(secours.chemin())));
}

TEST_F(InterruptedRun, TheGameIsThereUntilItIsKeptAnewOrEnds) {
  jouer({étape_provinces}, 2);
  m.répondre_juste();
  Tenir_partie(m.c());
  { const Suivante tuée(lieu(secours)); }
  EXPECT_TRUE(partie_gardée()) << "killed before its first answer";
  EXPECT_THAT(Suivante(lieu(secours)).questions, SizeIs(1));
}

// --- When nothing is left

TEST_F(InterruptedRun, AGameThatNobodyHasClickedInIsNotKept) {
  jouer({étape_provinces}, 2);
  m.programme.tenir_la_partie();
  EXPECT_FALSE(partie_gardée());
  for (const auto mode : {Révision, AfficherParamétrage}) {
    mode(m.c());
    m.programme.tenir_la_partie();
    EXPECT_FALSE(partie_gardée());
  }
}

TEST_F(InterruptedRun, NothingIsLeftOfAGameThatThePlayerHasEnded) {
  const std::pair<const char *, std::function<void()>> fins[] = {
      {"abandoned for a new one", [&] { m.nouvelle_partie(2); }},
      {"saved", [&] { ASSERT_TRUE(enregistrer_la_partie(m, "souper")); }},
      {"lost",
       [&] {
         m.g().Score = 1;
         m.répondre_faux();
       }},
      {"finished",
       [&] {
         while (m.g().Etape != étape_repos) m.répondre_juste();
       }},
      {"left with the program", [&] { cliquer(m.e(), m.e().menu("fichier_quitter")); }},
  };
  for (const auto &[comment, finir] : fins) {
    jouer({étape_provinces}, 1);
    m.répondre_juste();
    m.programme.tenir_la_partie();
    ASSERT_TRUE(partie_gardée()) << comment;
    finir();
    m.programme.tenir_la_partie();
    EXPECT_FALSE(partie_gardée()) << comment;
  }
  EXPECT_FALSE(fs::exists(chemin_natif(secours.fichier("secours/ecriture"))));
}

TEST_F(InterruptedRun, WhileTheTopTenIsUpTheGameIsOverAlready) {
  jouer({étape_provinces}, 1);
  m.répondre_juste();
  Tenir_partie(m.c());
  bool regardé = false;
  m.façade.joueur = [&](Fenêtre &f) {
    if (f.nom != "Affichage_scores") return;
    regardé = true;
    EXPECT_FALSE(partie_gardée());
  };
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_TRUE(regardé);
}

TEST_F(InterruptedRun, AGameTakenUpIsKeptBeforeItsFileGoes) {
  jouer({étape_drapeaux}, 1);
  m.répondre_juste();
  ASSERT_TRUE(enregistrer_la_partie(m, "souper"));
  ASSERT_FALSE(partie_gardée());
  dans_le_choix_de_fichier(m, "Fichier_lire", [&](Fenêtre &f) {
    ASSERT_TRUE(choisir_le_fichier(f, "souper.CAI"));
    EXPECT_TRUE(partie_gardée());
  });
}

// --- Scores

TEST_F(InterruptedRun, AScoreThatThePlayerHasReadOfIsInTheFileAtTheNextStart) {
  jouer({étape_provinces}, 1);
  const std::string fichier = m.dossier.fichier("ARDANE.SCI");
  m.g().Fichier_lancement = fichier;
  m.g().Nombre_scores(1) = 1;
  m.g().Meilleurs_scores(1, 1) = {"Lou", 12};
  ASSERT_TRUE(Ecrire_scores(m.c(), true));
  m.répondre_juste();
  Tenir_partie(m.c());
  // Killed while the box stands: what a second run finds then is what counts.
  std::string annonce, partie;
  m.boîtes.pendant = [&](const Boîte &boîte) {
    if (boîte.texte != message(m.g(), Message::bravo_top_ten)) return;
    EXPECT_FALSE(partie_gardée());
    annonce = lire_fichier(secours.fichier("secours/ecriture"));
  };
  const std::string avant = lire_fichier(fichier);
  while (m.g().Etape != étape_repos) m.répondre_juste();
  ASSERT_FALSE(annonce.empty());
  écrire_fichier(fichier, avant);
  écrire_fichier(secours.fichier("secours/ecriture"), annonce);

  Suivante suivante(lieu(secours));
  EXPECT_THAT(suivante.questions, IsEmpty());
  suivante.m.g().Fichier_lancement = fichier;
  Charger_scores(suivante.m.c());
  EXPECT_EQ(suivante.m.g().Nombre_scores(1), 2);
  EXPECT_EQ(suivante.m.g().Meilleurs_scores(1, 1).nom, "Zoé");
  EXPECT_EQ(suivante.m.g().Meilleurs_scores(1, 1).score, score_de_départ);
  EXPECT_EQ(suivante.m.g().Meilleurs_scores(1, 2).nom, "Lou");
}

TEST_F(InterruptedRun, ScoresThatDoNotFitTheirFileAreNotAnnounced) {
  m.g().Version_programme = std::string(127, 'V');
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  EXPECT_FALSE(fs::exists(chemin_natif(secours.fichier("secours/ecriture"))));
}

TEST_F(InterruptedRun, TheListTakesTheScoreWhenThePlayerHasReadOfItAndNotBefore) {
  jouer({étape_provinces}, 1);
  int vus = -1;
  m.boîtes.pendant = [&](const Boîte &boîte) {
    if (boîte.texte == message(m.g(), Message::bravo_top_ten)) vus = m.g().Meilleurs_scores(1, 1).score;
  };
  while (m.g().Etape != étape_repos) m.répondre_juste();
  EXPECT_EQ(vus, 0);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, score_de_départ);
}

TEST_F(InterruptedRun, WhatAScoreFileHeldIsKeptWhereverItGoes) {
  const auto gardés = [&] {
    std::vector<std::string> contenus;
    for (const auto &s : Lister_scores_anciens(m.c().secours.dossier_des_scores()))
      contenus.push_back(lire_fichier(texte_du_chemin(s.copie)));
    return contenus;
  };
  const std::string fichier = m.dossier.fichier("Le nord.SCI");
  m.g().Fichier_lancement = fichier;
  écrire_fichier(fichier, "rewritten");
  Ecrire_scores(m.c(), true);
  EXPECT_THAT(gardés(), ElementsAre("rewritten"));
  écrire_fichier(fichier, "refused");
  Charger_scores(m.c());
  EXPECT_FALSE(fichier_existe(fichier));
  EXPECT_THAT(gardés(), ElementsAre("refused", "rewritten"));
  m.g().Fichier_lancement = fichier;
  écrire_fichier(fichier, "reset");
  Remise_à_zéro(m.c());
  EXPECT_THAT(gardés(), ElementsAre("reset", "refused", "rewritten"));
}

TEST_F(InterruptedRun, AGameGoesOnUnderItsOwnConfigurationWhateverTheStartHasLoaded) {
  jouer({étape_villes, étape_drapeaux}, 3);
  m.g().Fichier_lancement = nom_fichier_temporaire;
  m.g().Nombre_scores(3) = 1;
  m.g().Meilleurs_scores(3, 1) = {"Lou", 77};
  m.répondre_juste();
  Tenir_partie(m.c());
  Suivante suivante(lieu(secours));
  const GameState &g = suivante.m.g();
  EXPECT_EQ(g.Fichier_lancement, nom_fichier_temporaire);
  EXPECT_EQ(g.Ordre_jeux(1), étape_villes);
  EXPECT_EQ(g.Ordre_jeux(2), étape_drapeaux);
  EXPECT_TRUE(g.TableProvinces(3).inhibée);
  EXPECT_EQ(g.Meilleurs_scores(3, 1).nom, "Lou");
}

// --- What cannot go on

class LeftBehind : public InterruptedRun {
 protected:
  /// The file of a game in that stage, changed by the test, at a next start: nothing is asked, and the file
  /// stays.
  void attendre_refus(const char *quoi, std::int16_t étape,
                      const std::function<void(Contenu_partie &)> &changer) {
    jouer({étape}, 1);
    répondre(m, true);
    Tenir_partie(m.c());
    auto partie = Secours(lieu(secours)).partie_interrompue();
    ASSERT_TRUE(partie) << quoi;
    changer(*partie);
    Secours autre(lieu(secours));
    autre.garder(*partie, {});
    testing::internal::CaptureStderr();
    Suivante suivante(lieu(secours));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("ne peut pas être reprise")) << quoi;
    EXPECT_THAT(suivante.questions, IsEmpty()) << quoi;
    EXPECT_EQ(suivante.m.g().Etape, étape_repos) << quoi;
    suivante.m.programme.tenir_la_partie();
    EXPECT_TRUE(partie_gardée()) << quoi;
    m.g().PartieVierge = true;
  }
};

TEST_F(LeftBehind, IsNotOffered) {
  attendre_refus("another version's", étape_provinces, [](auto &p) { p.version = "Version 0.99"; });
  attendre_refus("a question that is answered", étape_provinces, [](auto &p) {
    p.trouvées.at(static_cast<std::size_t>(p.interruption->question - 1)).valeur = -1;
  });
  attendre_refus("a province left out", étape_drapeaux,
                 [](auto &p) { p.interruption->inhibée(p.interruption->question) = true; });
  attendre_refus("a town whose province is left out", étape_villes, [](auto &p) {
    p.interruption->question = 3;  // the capital of province 3
  });
  attendre_refus("a region with nothing left", étape_régions, [&](auto &p) {
    for (int i = 1; i <= nombre_provinces; ++i)
      if (m.g().TableProvinces(i).région == p.interruption->question) p.interruption->inhibée(i) = true;
    p.interruption->sélection.clear();
  });
  attendre_refus("a selection that is complete", étape_régions, [&](auto &p) {
    p.interruption->sélection.clear();
    for (std::int16_t i = 1; i <= nombre_provinces; ++i)
      if (m.g().TableProvinces(i).région == p.interruption->question && !p.interruption->inhibée(i))
        p.interruption->sélection.push_back(i);
  });
  attendre_refus("a selection of what is left out", étape_régions,
                 [](auto &p) { p.interruption->sélection = {3}; });
}

/// Nearly all of a slot is padding; this hits what is read.
std::string avec_un_bit_retourné(std::string octets, std::mt19937 &hasard) {
  const std::size_t place = hasard() % (octets.size() / taille_de_case) * taille_de_case + hasard() % 4;
  octets[place] = static_cast<char>(octets[place] ^ (1 << hasard() % 8));
  return octets;
}

TEST_F(LeftBehind, WithABitTurnedIsRefusedOrGoesOn) {
  std::mt19937 hasard(2211);
  Suivante suivante(lieu(secours));
  int reprises = 0, refus = 0;
  testing::internal::CaptureStderr();
  for (const std::int16_t étape : {étape_provinces, étape_villes, étape_drapeaux, étape_régions}) {
    jouer({étape}, 0);
    for (int i = 0; i < 8; ++i) répondre(m, true);
    m.g().ConseilFicheVu = true;
    Tenir_partie(m.c());
    const std::string octets = lire_fichier(secours.fichier("secours/partie"));
    for (int fois = 0; fois < 60; ++fois) {
      écrire_fichier(secours.fichier("secours/partie"), avec_un_bit_retourné(octets, hasard));
      suivante.m.g().PartieVierge = true;
      ASSERT_NO_THROW(Proposer_reprise(suivante.m.c())) << étape << ", " << fois;
      const bool reprise = partie_en_cours(suivante.m.g());
      ++(reprise ? reprises : refus);
      for (int i = 0; reprise && i < 3; ++i)
        ASSERT_NO_THROW(répondre(suivante.m, true)) << étape << ", " << fois;
    }
    m.g().PartieVierge = true;
    Tenir_partie(m.c());
  }
  testing::internal::GetCapturedStderr();
  EXPECT_GT(reprises, 100);
  EXPECT_GT(refus, 5);
}

}  // namespace
}  // namespace ardane
