#include "play/saved_game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "configuration/configuration_mode.h"
#include "core/chooser_modes.h"
#include "map/layers.h"
#include "map/layout.h"
#include "persistence/folders.h"
#include "persistence/saved_game_format.h"
#include "persistence/score_file.h"
#include "play/map_clicks.h"
#include "play/stage_sequencer.h"
#include "support/fake_world.h"
#include "support/limits.h"
#include "support/saved_game_bytes.h"
#include "support/saving_player.h"
#include "support/score_bytes.h"
#include "support/state_snapshot.h"
#include "support/table_values.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

std::vector<std::string> noms_du_dossier(const std::string &dossier) {
  std::vector<std::string> noms;
  for (const auto &entrée : fs::directory_iterator(chemin_natif(dossier)))
    noms.push_back(texte_du_chemin(entrée.path().filename()));
  return noms;
}

void ordonner(GameState &g, const std::vector<int> &jeux) {
  g.Ordre_jeux.remplir(0);
  int rang = 0;
  for (const int code : jeux) g.Ordre_jeux(++rang) = static_cast<std::int16_t>(code);
}

/// Selects what is left of the region asked, which places it.
void placer_la_région(MondeFactice &m) {
  const Fiche_région région = m.g().TableRégions(m.g().RégionCourante);
  for (int k = 1; k <= région.nombre_provinces; ++k) {
    const Fiche_province &province = m.g().TableProvinces(région.membres(k));
    if (!province.trouvée && !province.inhibée) ClicProvince(m.c(), région.membres(k));
  }
}

void répondre_juste(MondeFactice &m) {
  if (m.g().Etape == étape_régions)
    placer_la_région(m);
  else
    m.répondre_juste();
}

/// Plays without an error to the end of the game; the number of objects placed.
int finir_la_partie(MondeFactice &m) {
  constexpr int objets_de_toute_partie = 110 + 330 + 110 + 20;
  int placés = 0;
  while (m.g().Etape != étape_repos && placés <= objets_de_toute_partie) {
    répondre_juste(m);
    ++placés;
  }
  return placés;
}

int à_trouver(const auto &table) {
  int nombre = 0;
  for (int i = 1; i <= table.dernier; ++i) nombre += table(i).trouvée ? 0 : 1;
  return nombre;
}

/// Provinces of a region that the configuration has in play; of those, what is left to place.
int en_jeu_dans_la_région(const GameState &g, int r, bool à_placer) {
  int nombre = 0;
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_province &province = g.TableProvinces(p);
    if (province.région == r && !province.inhibée && !(à_placer && province.trouvée)) ++nombre;
  }
  return nombre;
}

/// What the main window shows, control by control.
std::vector<std::string> contrôles_affichés(Fenêtre &fenêtre) {
  std::vector<std::string> lignes;
  for (const Contrôle &c : fenêtre.contrôles())
    lignes.push_back(c.nom + (c.visible ? " visible " : " hidden ") + (c.actif ? "enabled " : "disabled ") +
                     c.texte);
  return lignes;
}

/// What the boxes of the counter show.
int compteur(MondeFactice &m) {
  std::string chiffres;
  for (int i = 3; i >= 1; --i) chiffres += m.e().Reste(i).texte;
  return std::stoi(chiffres);
}

int score_affiché(MondeFactice &m) {
  std::string chiffres;
  for (int i = 6; i >= 1; --i) chiffres += m.e().Digit(i).texte;
  return std::stoi(chiffres);
}

class SavedGame : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  GameState &g() { return m.g(); }
  std::string fichier(std::string_view nom = "souper.CAI") const { return m.dossier.fichier(nom); }
  std::vector<std::string> dans_le_dossier() const { return noms_du_dossier(m.dossier.chemin()); }

  /// A game of one stage, at a level or in learning mode (0).
  void jouer(int étape, int niveau = 2) { jouer(std::vector{étape}, niveau); }
  void jouer(const std::vector<int> &jeux, int niveau = 2) {
    ordonner(g(), jeux);
    m.nouvelle_partie(niveau);
    m.oublier();
  }
  /// The game of a file made by hand, which the program at hand has written.
  OctetsPartie de_cette_version(OctetsPartie octets) {
    octets.changer_texte(OctetsPartie::case_version, g().Version_programme);
    return octets;
  }
  void poser(const OctetsPartie &octets) { écrire_fichier(fichier(), de_cette_version(octets).octets()); }
  /// Puts down a file made by hand and takes it up.
  bool reprendre(const OctetsPartie &octets) {
    poser(octets);
    return reprendre_la_partie(m, "souper.CAI");
  }
  void attendre_question_d_abandon() {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::question);
    EXPECT_EQ(m.dernière_boîte().texte, message(g(), Message::confirmer_abandon));
  }
  void attendre_boîte(Icône icône, Message titre, const std::string &texte) {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, icône);
    EXPECT_EQ(m.dernière_boîte().titre, message(g(), titre));
    EXPECT_EQ(m.dernière_boîte().texte, texte);
    EXPECT_EQ(m.dernière_boîte().boutons, Boutons::ok);
  }

  MondeFactice m;
};

// --- Saving

TEST_F(SavedGame, WithoutAGameUnderWayNothingIsSaved) {
  const struct {
    const char *quand;
    bool vierge, close;
    int étape;
  } cas[] = {{"never clicked", true, false, étape_provinces},
             {"dealt with", false, true, étape_provinces},
             {"idle", true, true, étape_repos},
             {"configuration shown", false, false, étape_paramétrage_affiché}};
  jouer(étape_provinces);
  m.répondre_faux();
  for (const auto &[quand, vierge, close, étape] : cas) {
    g().PartieVierge = vierge;
    g().PartieClose = close;
    g().Etape = static_cast<std::int16_t>(étape);
    m.oublier();
    const auto avant = photographier(g());
    EXPECT_FALSE(enregistrer_la_partie(m, "souper")) << quand;
    EXPECT_THAT(m.façade.ouvertes, IsEmpty()) << quand;
    EXPECT_THAT(m.boîtes.montrées, IsEmpty()) << quand;
    EXPECT_THAT(différences(avant, photographier(g())), IsEmpty()) << quand;
  }
}

TEST_F(SavedGame, TheChooserComesUpForANewNameOfASavedGame) {
  jouer(étape_provinces);
  m.répondre_juste();
  EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_enregistrer", [&](Fenêtre &f) {
    EXPECT_EQ(g().Mode_sélection, choix_nouveau_nom);
    EXPECT_EQ(g().Type_fichier, fichier_partie);
    EXPECT_EQ(f.titre, message(g(), Message::arrêt_en_cours_de_jeu));
  }));
}

TEST_F(SavedGame, SavingEndsTheGameOnTheScreen) {
  jouer(étape_provinces);
  m.répondre_juste();
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(g().Etape, étape_repos);
  EXPECT_TRUE(g().PartieVierge);
  EXPECT_TRUE(g().PartieClose);
  EXPECT_TRUE(g().Configuration_acceptée);
  EXPECT_FALSE(m.e().que_faire.visible);
  EXPECT_FALSE(m.e().Reste(1).visible);
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(g().Nombre_scores(2), 0);
}

TEST_F(SavedGame, TheFileHoldsTheGameByteByByte) {
  jouer(étape_provinces);
  for (int i = 1; i <= 3; ++i) m.répondre_juste();
  g().Score = 987'654;
  for (int p = 1; p <= nombre_provinces; ++p) {
    g().TableProvinces(p).trouvée = p % 5 == 0;
    for (int k = 0; k <= nombre_jeux; ++k) {
      g().TableProvinces(p).points_perdus(k) = MotifBilans::points_province(p, k);
      g().TableProvinces(p).trouvée_étape(k) = MotifBilans::province_trouvée(p, k);
    }
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    g().TableRégions(r).points_perdus = MotifBilans::points_région(r);
    g().TableRégions(r).trouvée_étape = MotifBilans::région_trouvée(r);
  }
  for (int v = 1; v <= nombre_villes; ++v) {
    g().TableVilles(v).points_perdus = MotifBilans::points_ville(v);
    g().TableVilles(v).trouvée_étape = MotifBilans::ville_trouvée(v);
  }
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_EQ(lire_fichier(fichier()), de_cette_version(OctetsPartie(1, g().Fichier_lancement)).octets());
}

TEST_F(SavedGame, OfAnUnsavedConfigurationTheFileHoldsOrderAndScores) {
  jouer({étape_villes, étape_provinces});
  m.répondre_juste();
  g().Fichier_lancement = nom_fichier_temporaire;
  g().Nombre_scores(1) = 1;
  g().Meilleurs_scores(1, 1) = {"Zoé", 999000};
  g().Nombre_scores(4) = 2;
  g().Meilleurs_scores(4, 1) = {"Lou", 5};
  g().Meilleurs_scores(4, 2) = {"Max", -4};
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  const OctetsPartie attendu =
      de_cette_version(OctetsPartie(2, {2, 1, 0, 0}, {{"Zo\xE9", 999000, 1}, {"Lou", 5, 4}, {"Max", -4, 4}}));
  const std::size_t tête = static_cast<std::size_t>(attendu.case_score - 1) * 128;
  EXPECT_EQ(lire_fichier(fichier()).substr(0, tête), attendu.octets().substr(0, tête));
  EXPECT_THAT(dans_le_dossier(), UnorderedElementsAre("ardane.pts", "ARDANE.INF", "souper.CAI"));
}

TEST_F(SavedGame, WhatTheQuestionOwesIsPaidAtSaving) {
  jouer(étape_provinces);
  const int p = g().ProvinceCourante;
  m.répondre_faux();
  m.répondre_faux();
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_EQ(g().Score, 999'999 - 1023);
  EXPECT_EQ(g().TableProvinces(p).points_perdus(0), 1023);
  EXPECT_EQ(g().TableProvinces(p).points_perdus(étape_provinces), 1023);
}

TEST_F(SavedGame, AQuestionWithoutAnErrorOwesNothing) {
  jouer(étape_provinces);
  m.répondre_faux();
  m.répondre_juste();
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_EQ(g().Score, 999'998);
}

TEST_F(SavedGame, CancellingLeavesTheQuestionPaidAndTheGameGoingOn) {
  jouer(étape_provinces);
  m.répondre_juste();
  m.répondre_faux();
  const int p = g().ProvinceCourante;
  EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_enregistrer", [](Fenêtre &f) {
    cliquer(f, contrôle(f, "Bouton_annuler"));
    EXPECT_FALSE(f.ouverte);
  }));
  EXPECT_EQ(g().Score, 999'999 - 1023);
  EXPECT_EQ(m.e().Digit(1).texte, "6");
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_EQ(g().ProvinceCourante, p);
  EXPECT_FALSE(g().PartieVierge);
  EXPECT_FALSE(g().PartieClose);
  EXPECT_FALSE(g().Configuration_acceptée);
  EXPECT_TRUE(m.e().que_faire.visible);
  EXPECT_THAT(dans_le_dossier(), UnorderedElementsAre("ardane.pts", "ARDANE.INF"));
  EXPECT_EQ(finir_la_partie(m), 109);
}

TEST_F(SavedGame, AQuestionThatTakesTheLastPointLosesTheGameAndNothingIsSaved) {
  for (const int score : {2, 500, 1023}) {
    jouer(étape_provinces);
    g().Score = score;
    m.répondre_faux();
    m.oublier();
    EXPECT_FALSE(enregistrer_la_partie(m, "souper")) << score;
    EXPECT_THAT(m.façade.ouvertes, ElementsAre("Affichage_scores")) << score;
    EXPECT_EQ(m.boîtes.montrées.at(0).texte, message(g(), Message::partie_terminée)) << score;
    EXPECT_EQ(g().Etape, étape_repos) << score;
    EXPECT_TRUE(g().PartieClose) << score;
    EXPECT_FALSE(fichier_existe(fichier())) << score;
  }
}

TEST_F(SavedGame, AGameThatKeepsOnePointIsSaved) {
  jouer(étape_provinces);
  g().Score = 1024;
  m.répondre_faux();
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_EQ(g().Score, 1);
}

TEST_F(SavedGame, LearningModeIsSavedWithoutARefusalWhateverHelpHasBeenUsed) {
  jouer(étape_provinces, 0);
  m.répondre_faux();
  cliquer(m.e(), m.e().Bouton_gruge);
  const int p = g().ProvinceCourante;
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_TRUE(g().ModeApprentissage);
  EXPECT_EQ(g().Score, 999'999);
  EXPECT_EQ(g().TableProvinces(p).points_perdus(0), 1023);
}

TEST_F(SavedGame, ANameOutsideWindows1252IsSavedAsWellAsCanBe) {
  ordonner(g(), {étape_provinces});
  m.nouvelle_partie(2, "Ωlga Œuf");
  m.répondre_juste();
  EXPECT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_EQ(g().Nom_joueur, "?lga Œuf");
}

// --- Saving that fails

class SavedGameThatCannotBeWritten : public SavedGame {
 protected:
  void SetUp() override {
    SavedGame::SetUp();
    jouer(étape_provinces);
    m.répondre_juste();
    m.répondre_juste();
    m.oublier();
  }
  /// The player is told, the game and the folder are as they were.
  void attendre_échec(const std::string &chemin) {
    const auto avant = photographier(g());
    const auto noms = dans_le_dossier();
    m.boîtes.montrées.clear();
    EXPECT_FALSE(Enregistrer_partie(m.c(), chemin));
    attendre_boîte(Icône::information, Message::erreur, "Impossible d'écrire dans le répertoire spécifié !");
    EXPECT_THAT(différences(avant, photographier(g())), IsEmpty());
    EXPECT_THAT(dans_le_dossier(), testing::UnorderedElementsAreArray(noms));
  }
};

TEST_F(SavedGameThatCannotBeWritten, ForWantOfLeaveIsTold) {
  fs::permissions(
      chemin_natif(m.dossier.chemin()),
      fs::perms::all & ~(fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write));
  const SansPrivilège ordinaire;
  attendre_échec(fichier());
}

TEST_F(SavedGameThatCannotBeWritten, ForWantOfRoomIsTold) {
  // For the probe of the folder, for the first slot, and for the last byte.
  const std::uintmax_t taille = (3 + 5 + 110 + 1800) * 128;
  for (const rlim_t place : {rlim_t{0}, rlim_t{4096}, static_cast<rlim_t>(taille - 1)}) {
    const DisquePlein plein(place);
    attendre_échec(fichier());
  }
  const DisquePlein juste_assez(taille);
  EXPECT_TRUE(Enregistrer_partie(m.c(), fichier()));
  EXPECT_EQ(fs::file_size(chemin_natif(fichier())), taille);
}

TEST_F(SavedGameThatCannotBeWritten, OverAFolderOfThatNameIsTold) {
  fs::create_directory(chemin_natif(fichier()));
  attendre_échec(fichier());
  EXPECT_TRUE(fs::is_directory(chemin_natif(fichier())));
}

TEST_F(SavedGameThatCannotBeWritten, WhereTheFolderIsGoneIsTold) {
  attendre_échec(m.dossier.fichier("absent/souper.CAI"));
}

TEST_F(SavedGameThatCannotBeWritten, UnderANameThatTheFileSystemDoesNotTakeIsTold) {
  attendre_échec(fichier(std::string(300, 'n') + ".CAI"));
}

TEST_F(SavedGameThatCannotBeWritten, ForATextTooLongForItsSlotIsTold) {
  g().Fichier_lancement = "/" + std::string(126, 'f');
  attendre_échec(fichier());
  g().Fichier_lancement = "/" + std::string(125, 'f');
  EXPECT_TRUE(Enregistrer_partie(m.c(), fichier()));
  m.boîtes.montrées.clear();
}

TEST_F(SavedGameThatCannotBeWritten, IsLogged) {
  testing::internal::CaptureStderr();
  EXPECT_FALSE(Enregistrer_partie(m.c(), m.dossier.fichier("absent/souper.CAI")));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ardane : La partie « " + m.dossier.fichier("absent/souper.CAI") +
                " » n'est pas écrite : son dossier refuse l'écriture\n");
}

TEST_F(SavedGameThatCannotBeWritten, LeavesTheChooserOpenForAnotherName) {
  fs::create_directory(chemin_natif(fichier()));
  EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_enregistrer", [&](Fenêtre &f) {
    EXPECT_FALSE(nommer_le_fichier(f, "souper"));
    attendre_boîte(Icône::information, Message::erreur, message(g(), Message::répertoire_non_inscriptible));
    EXPECT_EQ(g().Etape, étape_provinces);
    EXPECT_FALSE(g().PartieClose);
    EXPECT_TRUE(nommer_le_fichier(f, "dessert"));
  }));
  EXPECT_TRUE(fichier_existe(fichier("dessert.CAI")));
  EXPECT_EQ(g().Etape, étape_repos);
}

// --- Taking up what was saved

struct Reprise {
  int étape;
  int niveau;  ///< 0 for learning mode
};

/// A game under a configuration of the player's own, stopped one day and taken up the next.
class SavedGameTakenUp : public SavedGame, public testing::WithParamInterface<Reprise> {
 protected:
  void SetUp() override {
    SavedGame::SetUp();
    écarter_des_provinces();
    ordonner(g(), {GetParam().étape, GetParam().étape % 4 + 1});
    g().Fichier_lancement = m.dossier.fichier("Le nord.SCI");
    g().Nombre_scores(3) = 1;
    g().Meilleurs_scores(3, 1) = {"Zoé", 1234};
    Ecrire_scores(m.c(), true);
    m.nouvelle_partie(GetParam().niveau);
    jouer_un_peu();
    dans_le_choix_de_fichier(m, "Fichier_enregistrer", [&](Fenêtre &f) {
      au_souper = photographier(g());
      nommer_le_fichier(f, "souper");
    });
    // The next day's program begins in the same folder.
    lendemain.démarrer();
    lendemain.c().dossier.changer(m.dossier.chemin());
    lendemain.g().Répertoire_sauvegarde = m.dossier.chemin();
    lendemain.g().AprèsPartie = lendemain.g().ConseilFicheVu = true;
  }

  /// A whole region and some of the others.
  void écarter_des_provinces() {
    const int région = g().TableProvinces(3).région;
    for (int p = 1; p <= nombre_provinces; ++p)
      g().TableProvinces(p).inhibée = g().TableProvinces(p).région == région || p % 9 == 0;
  }
  void jouer_un_peu() {
    if (GetParam().étape == étape_régions) {
      placer_la_région(m);
      sélectionner_à_moitié_juste();
      placer_la_région(m);
      ClicProvince(m.c(), m.autre_province());
      return;
    }
    // In the cities' stage that is enough for whole provinces.
    const int justes = GetParam().étape == étape_villes ? 200 : 5;
    for (int i = 0; i < justes; ++i) {
      if (i % 3 == 2) m.répondre_faux();
      m.répondre_juste();
    }
    m.répondre_faux();
  }
  /// One province that is not the region's, then some that are.
  void sélectionner_à_moitié_juste() {
    const int région = g().RégionCourante;
    for (int p = 1; p <= nombre_provinces; ++p) {
      if (g().TableProvinces(p).région == région || g().TableProvinces(p).inhibée ||
          g().TableProvinces(p).trouvée)
        continue;
      ClicProvince(m.c(), p);
      break;
    }
    placer_la_région(m);
  }
  /// What a stage of flags begins anew.
  static bool recommencé(std::string_view chemin) {
    return chemin == "ProvincesRestantes" ||
           (chemin.starts_with("TableProvinces(") && chemin.ends_with(").trouvée"));
  }
  /// Variables that no saved game holds: this day's folders, the question, the chooser, and of the counters
  /// those of the other stages.
  static bool hors_du_fichier(std::string_view chemin) {
    for (const std::string_view début : {"ConseilFicheVu",
                                         "Répertoire_programme",
                                         "Répertoire_info",
                                         "Chemin_points",
                                         "Fichiers_info",
                                         "SonErreur",
                                         "SonJuste",
                                         "SonGagné",
                                         "SonPerdu",
                                         "SonFiche",
                                         "SonSélection",
                                         "ProvinceCourante",
                                         "VilleCourante",
                                         "RégionCourante",
                                         "ResteRégion",
                                         "TailleRégion",
                                         "SélectionRégion",
                                         "NbErreurs",
                                         "ProvinceClignotante",
                                         "TableClignotement",
                                         "AssistanceActive",
                                         "Mode_sélection"})
      if (chemin.starts_with(début)) return true;
    switch (GetParam().étape) {
      case étape_villes: return chemin == "ProvincesRestantes";
      case étape_drapeaux: return chemin == "VillesRestantes" || recommencé(chemin);
      default: return chemin == "VillesRestantes";
    }
  }

  Photo au_souper;
  MondeFactice lendemain;
};

void PrintTo(const Reprise &reprise, std::ostream *flux) {
  *flux << "stage " << reprise.étape << ", level " << reprise.niveau;
}

std::vector<Reprise> toutes_les_reprises() {
  std::vector<Reprise> reprises;
  for (const int étape : {1, 2, 3, 4})
    for (const int niveau : {0, 1, 2, 3, 4}) reprises.push_back({étape, niveau});
  return reprises;
}

std::string nom_de_la_reprise(const testing::TestParamInfo<Reprise> &reprise) {
  const char *const jeux[] = {"", "Provinces", "Villes", "Drapeaux", "Regions"};
  const char *const niveaux[] = {"Learning", "Facile", "Moyen", "Difficile", "Expert"};
  return std::string(jeux[reprise.param.étape]) + niveaux[reprise.param.niveau];
}

INSTANTIATE_TEST_SUITE_P(StagesAndLevels, SavedGameTakenUp, testing::ValuesIn(toutes_les_reprises()),
                         nom_de_la_reprise);

TEST_P(SavedGameTakenUp, EveryVariableOfTheFileIsAsItWas) {
  ASSERT_TRUE(reprendre_la_partie(lendemain, "souper.CAI"));
  EXPECT_THAT(lendemain.boîtes.montrées, IsEmpty());
  EXPECT_THAT(différences(au_souper, photographier(lendemain.g()), hors_du_fichier), IsEmpty());
  EXPECT_FALSE(fichier_existe(fichier()));
}

TEST_P(SavedGameTakenUp, TheGameIsUnderWayAndAsksAQuestion) {
  ASSERT_TRUE(reprendre_la_partie(lendemain, "souper.CAI"));
  const GameState &g2 = lendemain.g();
  EXPECT_FALSE(g2.PartieVierge);
  EXPECT_FALSE(g2.PartieClose);
  EXPECT_FALSE(g2.AprèsPartie);
  EXPECT_FALSE(g2.ConseilFicheVu);
  EXPECT_EQ(g2.ScoreNonRetenu, GetParam().niveau == 0);
  EXPECT_EQ(g2.NbErreurs, 0);
  switch (GetParam().étape) {
    case étape_villes: EXPECT_FALSE(g2.TableVilles(g2.VilleCourante).trouvée); break;
    case étape_régions: EXPECT_FALSE(g2.TableRégions(g2.RégionCourante).trouvée); break;
    default: EXPECT_FALSE(g2.TableProvinces(g2.ProvinceCourante).trouvée); break;
  }
  EXPECT_TRUE(lendemain.e().que_faire.visible);
  EXPECT_EQ(lendemain.e().Boîte_score.visible, GetParam().niveau != 0);
  EXPECT_EQ(lendemain.e().Boîte_restants.texte, m.e().Boîte_restants.texte);
}

TEST_P(SavedGameTakenUp, TheMapIsLaidOutAndDrawnForTheGame) {
  // A screen on which the map without a panel is wider.
  lendemain.écran.taille = {800, 600};
  lendemain.g().Largeur_écran = 800;
  lendemain.g().Carte_pleine_largeur = true;
  DisposerCarte(lendemain.c());
  const double pleine_largeur = lendemain.e().Carte.largeur;
  ASSERT_TRUE(reprendre_la_partie(lendemain, "souper.CAI"));
  EXPECT_FALSE(lendemain.g().Carte_pleine_largeur);
  EXPECT_LT(lendemain.e().Carte.largeur, pleine_largeur);
  const auto contrôles = contrôles_affichés(lendemain.e());
  RedessinerCarte(lendemain.c());
  EXPECT_EQ(contrôles_affichés(lendemain.e()), contrôles);
  EXPECT_EQ(score_affiché(lendemain), lendemain.g().Score);
}

TEST_P(SavedGameTakenUp, TheCountersAreRebuiltAndShownButForFlags) {
  for (int i = 1; i <= 3; ++i) lendemain.e().Reste(i).texte = "7";
  ASSERT_TRUE(reprendre_la_partie(lendemain, "souper.CAI"));
  const GameState &g2 = lendemain.g();
  const bool villes = GetParam().étape == étape_villes, régions = GetParam().étape == étape_régions;
  EXPECT_EQ(g2.VillesRestantes, villes ? à_trouver(g2.TableVilles) : 330);
  EXPECT_EQ(g2.ProvincesRestantes, villes ? 110 : à_trouver(g2.TableProvinces));
  EXPECT_EQ(g2.RégionsRestantes, à_trouver(g2.TableRégions));
  for (int r = 1; r <= nombre_régions; ++r)
    EXPECT_EQ(g2.TableRégions(r).provinces_restantes, en_jeu_dans_la_région(g2, r, régions)) << r;

  const int reste = villes ? g2.VillesRestantes : régions ? g2.RégionsRestantes : g2.ProvincesRestantes;
  EXPECT_EQ(compteur(lendemain), GetParam().étape == étape_drapeaux ? 777 : reste);
}

TEST_P(SavedGameTakenUp, ItCanBePlayedToItsEnd) {
  ASSERT_TRUE(reprendre_la_partie(lendemain, "souper.CAI"));
  const int score = lendemain.g().Score;
  EXPECT_GT(finir_la_partie(lendemain), 0);
  EXPECT_EQ(lendemain.g().Etape, étape_repos);
  if (GetParam().niveau != 0)
    EXPECT_EQ(lendemain.boîtes.montrées.at(0).titre, message(g(), Message::étape_suivante));
  if (GetParam().niveau == 0) {
    EXPECT_EQ(lendemain.dernière_boîte().texte, message(g(), Message::score_d_apprentissage_non_enregistré));
  } else {
    EXPECT_EQ(lendemain.dernière_boîte().texte, message(g(), Message::bravo_top_ten));
    EXPECT_EQ(lendemain.g().Meilleurs_scores(GetParam().niveau, 1).score, score);
  }
}

// --- What else a file may hold

TEST_F(SavedGame, AFoundTownLeavesItsProvinceAndACompleteProvinceIsFound) {
  OctetsPartie octets(étape_villes);
  for (int v = 1; v <= nombre_villes; ++v) {
    const int province = g().TableVilles(v).province;
    octets.changer_paire(octets.case_paires + v - 1, v, province == 7 || v == 8 ? -1 : 0);
  }
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(g().VillesRestantes, 330 - 3 - 1);
  for (int p = 1; p <= nombre_provinces; ++p) {
    EXPECT_EQ(g().TableProvinces(p).trouvée, p == 7) << p;
    EXPECT_EQ(g().TableProvinces(p).villes_restantes, p == 7 ? 0 : p == 8 ? 2 : 3) << p;
  }
}

TEST_F(SavedGame, TheFlagsAreAllToPlaceAgainScoreAndStatisticsKept) {
  ASSERT_TRUE(reprendre(OctetsPartie(étape_drapeaux)));
  EXPECT_EQ(à_trouver(g().TableProvinces), 110);
  EXPECT_EQ(g().ProvincesRestantes, 110);
  EXPECT_EQ(g().Score, 987'654);
  EXPECT_EQ(g().TableProvinces(5).points_perdus(étape_drapeaux),
            MotifBilans::points_province(5, étape_drapeaux));
}

TEST_F(SavedGame, TheIndexOfAPairDecidesAndNotItsPlace) {
  OctetsPartie octets(étape_provinces);
  for (int i = 1; i <= nombre_provinces; ++i) {
    const int p = nombre_provinces + 1 - i;
    octets.changer_paire(octets.case_paires + i - 1, p, p <= 3 ? -1 : 0);
  }
  ASSERT_TRUE(reprendre(octets));
  for (int p = 1; p <= nombre_provinces; ++p) EXPECT_EQ(g().TableProvinces(p).trouvée, p <= 3) << p;
  EXPECT_EQ(g().ProvincesRestantes, 107);
}

TEST_F(SavedGame, AnObjectThatComesTwiceIsCountedOnceAndIndex0NotAtAll) {
  for (const int étape : {étape_provinces, étape_villes, étape_régions}) {
    SCOPED_TRACE(étape);
    OctetsPartie octets(étape);
    octets.changer_paire(octets.case_paires + 5, 5, -1);
    octets.changer_paire(octets.case_paires + 6, 5, -1);
    octets.changer_paire(octets.case_paires + 7, 0, -1);
    ASSERT_TRUE(reprendre(octets));
    EXPECT_EQ(à_trouver(g().TableProvinces), étape == étape_villes ? 110 : 88);
    EXPECT_EQ(à_trouver(g().TableVilles), étape == étape_villes ? 264 : 330);
    EXPECT_EQ(g().ProvincesRestantes, à_trouver(g().TableProvinces));
    EXPECT_EQ(g().VillesRestantes, à_trouver(g().TableVilles));
    EXPECT_GT(finir_la_partie(m), 0);
    EXPECT_EQ(g().Etape, étape_repos);
  }
}

TEST_F(SavedGame, AnyNumberButZeroIsTrue) {
  for (const int vrai : {2, -7}) {
    OctetsPartie octets(étape_provinces);
    octets.changer(octets.case_niveau, 1);
    octets.changer(octets.case_apprentissage, vrai);
    octets.changer_paire(octets.case_paires, 1, vrai);
    ASSERT_TRUE(reprendre(octets));
    EXPECT_TRUE(g().ModeApprentissage);
    EXPECT_TRUE(g().ScoreNonRetenu);
    EXPECT_TRUE(g().TableProvinces(1).trouvée);
    g().PartieVierge = true;
  }
}

TEST_F(SavedGame, TheMostPointsLostThatAFileMayHoldLeaveRoomForMore) {
  OctetsPartie octets(étape_provinces);
  for (int numéro = octets.case_bilans; numéro < static_cast<int>(octets.cases.size()); numéro += 2)
    octets.changer32(numéro, 1'000'000'000);
  ASSERT_TRUE(reprendre(octets));
  const int p = g().ProvinceCourante;
  for (int i = 0; i < erreurs_permises; ++i) m.répondre_faux();
  EXPECT_EQ(g().TableProvinces(p).points_perdus(0), 1'000'001'023);
}

TEST_F(SavedGame, WhereAllIsFoundTheNextStageComes) {
  OctetsPartie octets(étape_provinces, {1, 2, 0, 0}, {});
  for (int i = 1; i <= nombre_provinces; ++i) octets.changer_paire(octets.case_paires + i - 1, i, -1);
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(m.dernière_boîte().titre, message(g(), Message::étape_suivante));
  EXPECT_EQ(g().Etape, étape_villes);
  EXPECT_NE(g().VilleCourante, 0);
  EXPECT_FALSE(g().PartieVierge);
}

TEST_F(SavedGame, WhereAllIsFoundInTheLastStageTheGameEnds) {
  OctetsPartie octets(étape_régions, {4, 0, 0, 0}, {});
  for (int i = 1; i <= nombre_provinces; ++i) octets.changer_paire(octets.case_paires + i - 1, i, -1);
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(g().Etape, étape_repos);
  EXPECT_EQ(g().Meilleurs_scores(2, 1).score, 987'654);
  EXPECT_THAT(m.façade.ouvertes, Contains("Affichage_scores"));
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_EQ(g().Nombre_scores(2), 1);
}

TEST_F(SavedGame, ALanguageThatTheProgramDoesNotHaveIsItsFirst) {
  for (const int langue : {2, 0, -1, 32767, -32768}) {
    OctetsPartie octets;
    octets.changer(OctetsPartie::case_langue, langue);
    ASSERT_TRUE(reprendre(octets)) << langue;
    EXPECT_EQ(g().Langue, 1) << langue;
    g().PartieVierge = true;
  }
}

TEST_F(SavedGame, ALanguageThatTheProgramHasTakesEffect) {
  g().Nombre_langues = 2;
  OctetsPartie octets;
  octets.changer(OctetsPartie::case_langue, 2);
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(g().Langue, 2);
}

// --- Its configuration

class SavedGameWithAConfiguration : public SavedGame {
 protected:
  void écarter(int tous_les) {
    for (int p = 1; p <= nombre_provinces; ++p) g().TableProvinces(p).inhibée = p % tous_les == 0;
  }
  std::vector<int> écartées() {
    std::vector<int> provinces;
    for (int p = 1; p <= nombre_provinces; ++p)
      if (g().TableProvinces(p).inhibée) provinces.push_back(p);
    return provinces;
  }
  void attendre_défaut() {
    EXPECT_EQ(g().Fichier_lancement, m.dossier.fichier("ARDANE.SCI"));
    EXPECT_THAT(valeurs(g().Ordre_jeux), ElementsAre(1, 4, 2, 3));
    EXPECT_THAT(écartées(), IsEmpty());
    EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 0, 0, 0, 0));
  }
  /// A score file of the program at hand: cities, then provinces, those of even numbers left out.
  OctetsScores le_nord() {
    OctetsScores octets;
    octets.cases.front() = de_cette_version(OctetsPartie()).cases.front();
    int place = case_ordre;
    for (const int code : {2, 1, 0, 0}) octets.changer(place++, code);
    for (int p = 2; p <= nombre_provinces; p += 2) octets.changer(case_inhibée + p - 1, -1);
    octets.score("Zo\xE9", 1234, 3);
    return octets;
  }
};

TEST_F(SavedGameWithAConfiguration, OfItsOwnBringsOrderAndScoresWithoutAFile) {
  g().Nombre_scores(1) = 3;
  g().Meilleurs_scores(1, 3) = {"old", 1};
  écarter(10);
  const auto avant = écartées();
  ASSERT_TRUE(reprendre(OctetsPartie(étape_provinces, {2, 1, 0, 0}, {{"Zo\xE9", 999000, 1}, {"Lou", 5, 4}})));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(g().Fichier_lancement, "~tmp.~ci");
  EXPECT_THAT(valeurs(g().Ordre_jeux), ElementsAre(2, 1, 0, 0));
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 1, 0, 0, 1));
  EXPECT_EQ(g().Meilleurs_scores(1, 1).nom, "Zoé");
  EXPECT_EQ(g().Meilleurs_scores(1, 1).score, 999000);
  EXPECT_EQ(g().Meilleurs_scores(1, 3).nom, "");
  EXPECT_EQ(g().Meilleurs_scores(4, 1).nom, "Lou");
  EXPECT_EQ(écartées(), avant);
  EXPECT_THAT(dans_le_dossier(), UnorderedElementsAre("ardane.pts", "ARDANE.INF"));
}

TEST_F(SavedGameWithAConfiguration, OfItsOwnGoesOnInTheTemporaryFile) {
  ASSERT_TRUE(reprendre(OctetsPartie(étape_drapeaux, {3, 0, 0, 0}, {{"Zo\xE9", 999000, 2}})));
  finir_la_partie(m);
  EXPECT_THAT(dans_le_dossier(), UnorderedElementsAre("ardane.pts", "ARDANE.INF", "~tmp.~ci"));
  EXPECT_EQ(g().Meilleurs_scores(2, 1).nom, "Zoé");
  EXPECT_EQ(g().Meilleurs_scores(2, 2).score, 987'654);
}

TEST_F(SavedGameWithAConfiguration, InAFileThatIsThereIsThatFiles) {
  const std::string nord = m.dossier.fichier("Le nord.SCI");
  écrire_fichier(nord, le_nord().octets());
  for (const std::string &nom :
       {nord, m.dossier.fichier("jeux/../Le nord.SCI"), std::string("Le nord.SCI")}) {
    fs::create_directory(chemin_natif(m.dossier.fichier("jeux")));
    ASSERT_TRUE(reprendre(OctetsPartie(étape_drapeaux, nom))) << nom;
    EXPECT_THAT(m.boîtes.montrées, IsEmpty());
    EXPECT_EQ(g().Fichier_lancement, nom);
    EXPECT_THAT(valeurs(g().Ordre_jeux), ElementsAre(2, 1, 0, 0));
    EXPECT_THAT(écartées(), SizeIs(55));
    EXPECT_EQ(g().Meilleurs_scores(3, 1).score, 1234);
    EXPECT_TRUE(fichier_existe(nord));
    g().PartieVierge = true;
  }
}

TEST_F(SavedGameWithAConfiguration, InAFileThatIsGoneIsTheDefaultOneWithoutAWord) {
  fs::create_directory(chemin_natif(m.dossier.fichier("dossier.SCI")));
  ASSERT_EQ(mkfifo(m.dossier.fichier("tuyau.SCI").c_str(), S_IRUSR | S_IWUSR), 0);
  for (const std::string &nom :
       {std::string(), m.dossier.fichier("absent.SCI"), m.dossier.fichier("absent/Le nord.SCI"),
        m.dossier.fichier("dossier.SCI"), m.dossier.fichier("tuyau.SCI"), std::string("../absent.SCI"),
        "/" + std::string(125, 'f'), std::string("/dev/full"), std::string("~TMP.~CI")}) {
    écarter(10);
    g().Nombre_scores(1) = 3;
    ASSERT_TRUE(reprendre(OctetsPartie(étape_provinces, nom))) << nom;
    EXPECT_THAT(m.boîtes.montrées, IsEmpty()) << nom;
    attendre_défaut();
    EXPECT_EQ(g().Etape, étape_provinces);
    g().PartieVierge = true;
  }
  EXPECT_TRUE(fs::is_directory(chemin_natif(m.dossier.fichier("dossier.SCI"))));
  EXPECT_TRUE(fs::exists(chemin_natif(m.dossier.fichier("tuyau.SCI"))));
}

TEST_F(SavedGameWithAConfiguration, InAFileOfAnotherVersionIsTheDefaultOneAfterTheBoxThatSaysSo) {
  const std::string nord = m.dossier.fichier("Le nord.SCI");
  OctetsScores ancien = le_nord();
  ancien.changer_texte(1, "Version 0.99");
  écrire_fichier(nord, ancien.octets());
  ASSERT_TRUE(reprendre(OctetsPartie(étape_provinces, nord)));
  attendre_boîte(Icône::exclamation, Message::erreur_de_format,
                 nord + " : " + message(g(), Message::fichier_non_interprétable));
  attendre_défaut();
  EXPECT_FALSE(fichier_existe(nord));
  EXPECT_EQ(g().ProvincesRestantes, 88);
}

TEST_F(SavedGameWithAConfiguration, ThatHasNoLongerItsStageEndsWithThatStage) {
  const std::string nord = m.dossier.fichier("Le nord.SCI");
  écrire_fichier(nord, le_nord().octets());
  for (const int étape : {étape_drapeaux, étape_régions}) {
    ASSERT_TRUE(reprendre(OctetsPartie(étape, nord)));
    EXPECT_EQ(g().Etape, étape);
    finir_la_partie(m);
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_EQ(g().Meilleurs_scores(2, 1).score, 987'654);
    for (const Boîte &boîte : m.boîtes.montrées)
      EXPECT_NE(boîte.titre, message(g(), Message::étape_suivante));
  }
}

TEST_F(SavedGameWithAConfiguration, ThatLeavesOutMoreThanAtSavingHasFlagsAndRegionsInPlayAlone) {
  écarter(3);
  for (const int étape : {étape_drapeaux, étape_régions}) {
    ASSERT_TRUE(reprendre(OctetsPartie(étape, {étape, 0, 0, 0}, {})));
    EXPECT_THAT(écartées(), SizeIs(36));
    EXPECT_EQ(g().ProvincesEnJeu, 110 - 36);
    EXPECT_EQ(g().ProvincesRestantes, à_trouver(g().TableProvinces));
    EXPECT_EQ(g().RégionsRestantes, à_trouver(g().TableRégions));
    for (int r = 1; r <= nombre_régions; ++r) {
      EXPECT_EQ(g().TableRégions(r).provinces_restantes,
                en_jeu_dans_la_région(g(), r, étape == étape_régions))
          << r;
      EXPECT_EQ(g().TableRégions(r).trouvée, g().TableRégions(r).provinces_restantes == 0) << r;
    }
    EXPECT_GT(finir_la_partie(m), 0);
    EXPECT_EQ(g().Etape, étape_repos);
  }
}

TEST_F(SavedGameWithAConfiguration, ThatLeavesOutRegionsHasThemFoundOnce) {
  const int écartée = g().TableProvinces(1).région, placée = g().TableProvinces(60).région;
  ASSERT_NE(écartée, placée);
  OctetsPartie octets(étape_régions, {4, 0, 0, 0}, {});
  for (int p = 1; p <= nombre_provinces; ++p) {
    const int région = g().TableProvinces(p).région;
    g().TableProvinces(p).inhibée = région == écartée;
    octets.changer_paire(octets.case_paires + p - 1, p, région == écartée || région == placée ? -1 : 0);
  }
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(g().RégionsEnJeu, 19);
  EXPECT_EQ(g().RégionsRestantes, 18);
  EXPECT_EQ(finir_la_partie(m), 18);
}

TEST_F(SavedGameWithAConfiguration, ThatPutsProvincesBackInPlayLeavesThemFoundAsTheFileSays) {
  OctetsPartie octets(étape_régions, {4, 0, 0, 0}, {});
  for (int p = 1; p <= nombre_provinces; ++p)
    octets.changer_paire(octets.case_paires + p - 1, p, p % 2 == 0 ? -1 : 0);
  ASSERT_TRUE(reprendre(octets));
  EXPECT_EQ(g().ProvincesRestantes, 55);
  finir_la_partie(m);
  EXPECT_EQ(g().Etape, étape_repos);
}

TEST_F(SavedGameWithAConfiguration, ThatLeavesOutWhatTheFileHasStillToFindAsksForTheRestAlone) {
  for (const int étape : {étape_provinces, étape_villes}) {
    OctetsPartie octets(étape, {étape, 0, 0, 0}, {});
    for (int i = 1; i <= nombre_de_paires(étape, false); ++i)
      octets.changer_paire(octets.case_paires + i - 1, i, 0);
    écarter(3);
    ASSERT_TRUE(reprendre(octets));
    const bool villes = étape == étape_villes;
    EXPECT_EQ(villes ? g().VillesRestantes : g().ProvincesRestantes, villes ? 3 * 74 : 74);
    EXPECT_EQ(finir_la_partie(m), villes ? 3 * 74 : 74);
    EXPECT_EQ(g().Etape, étape_repos);
  }
}

TEST_F(SavedGameWithAConfiguration, ThatLeavesOutAllThatWasLeftGoesOnWithTheNextStage) {
  OctetsPartie octets(étape_provinces, {étape_provinces, étape_régions, 0, 0}, {});
  for (int p = 1; p <= nombre_provinces; ++p)
    octets.changer_paire(octets.case_paires + p - 1, p, p % 3 == 0 ? 0 : -1);
  écarter(3);
  ASSERT_TRUE(reprendre(octets));
  Reprendre_partie(m.c());
  EXPECT_EQ(g().Etape, étape_régions);
}

// --- Files that are refused

class SavedGameRefused : public SavedGame {
 protected:
  void SetUp() override {
    SavedGame::SetUp();
    jouer(étape_villes, 3);
    m.répondre_juste();
    m.répondre_faux();
    g().Nombre_scores(2) = 1;
    g().Meilleurs_scores(2, 1) = {"Zoé", 1234};
  }
  /// Nothing but a box: the file, the program's every variable and its window are as they were.
  void attendre_refus(const std::string &nom, const std::string &texte, Icône icône, Message titre) {
    const std::string chemin = fichier(nom);
    const bool lisible = est_fichier_ordinaire(chemin);
    const std::string octets = lisible ? lire_fichier(chemin) : "";
    const auto état = photographier(g());
    const auto contrôles = contrôles_affichés(m.e());
    m.oublier();
    EXPECT_FALSE(Charger_partie(m.c(), chemin));
    attendre_boîte(icône, titre, texte);
    EXPECT_THAT(différences(état, photographier(g())), IsEmpty());
    EXPECT_EQ(contrôles_affichés(m.e()), contrôles);
    EXPECT_TRUE(fs::exists(chemin_natif(chemin)));
    EXPECT_EQ(lisible ? lire_fichier(chemin) : "", octets);
    EXPECT_THAT(m.façade.ouvertes, IsEmpty());
  }
  void attendre_abîmé(const std::string &nom = "souper.CAI") {
    attendre_refus(nom, fichier(nom) + " : Le fichier sélectionné n'est pas interprétable !",
                   Icône::exclamation, Message::erreur_de_format);
  }
  void attendre_abîmé(const OctetsPartie &octets) {
    poser(octets);
    attendre_abîmé();
  }
  void attendre_autre_version() {
    attendre_refus("souper.CAI",
                   "Impossible de reprendre avec le jeu " + g().Version_programme +
                       " une partie interrompue avec une version antérieure !",
                   Icône::stop, Message::pas_possible);
  }
};

TEST_F(SavedGameRefused, BecauseItIsAnotherVersions) {
  OctetsPartie octets = de_cette_version(OctetsPartie());
  const std::string version = g().Version_programme;
  std::string presque = version;
  presque.back() = '8';
  for (const std::string &autre :
       {presque, version + " ", version.substr(0, 7), std::string("Bonjour"), std::string()}) {
    SCOPED_TRACE(autre);
    octets.changer_texte(OctetsPartie::case_version, autre);
    écrire_fichier(fichier(), octets.octets());
    attendre_autre_version();
  }
  octets.changer(octets.case_étape, 9);
  écrire_fichier(fichier(), octets.octets());
  attendre_autre_version();
  écrire_fichier(fichier(), octets.cases.front());
  attendre_autre_version();
}

TEST_F(SavedGameRefused, BecauseItIsCut) {
  const std::string octets = de_cette_version(OctetsPartie(étape_régions)).octets();
  for (const std::size_t longueur : {std::size_t{0}, std::size_t{1}, std::size_t{128}, std::size_t{4 * 128},
                                     std::size_t{100 * 128}, std::size_t{1000 * 128}, octets.size() - 127}) {
    SCOPED_TRACE(longueur);
    écrire_fichier(fichier(), octets.substr(0, longueur));
    attendre_abîmé();
  }
}

TEST_F(SavedGameRefused, BecauseAnItemIsNotOneOfAGame) {
  const OctetsPartie entier(étape_régions);
  const auto abîmer = [&](const char *défaut, auto dégât) {
    SCOPED_TRACE(défaut);
    OctetsPartie octets = entier;
    dégât(octets);
    attendre_abîmé(octets);
  };
  for (const int étape : {0, 5, -1, 32767})
    abîmer("stage", [&](OctetsPartie &o) { o.changer(o.case_étape, étape); });
  for (const int niveau : {0, 5, -1})
    abîmer("level", [&](OctetsPartie &o) { o.changer(o.case_niveau, niveau); });
  for (const int score : {0, -1, 1'000'000, 2'147'483'647})
    abîmer("score", [&](OctetsPartie &o) { o.changer32(o.case_score, score); });
  for (const int longueur : {121, 65535})
    abîmer("name", [&](OctetsPartie &o) { o.changer_texte(o.case_nom, longueur, "Ann"); });
  for (const int indice : {-1, 111, 331})
    abîmer("index", [&](OctetsPartie &o) { o.changer_paire(o.case_paires + 109, indice, -1); });
  abîmer("statistics", [&](OctetsPartie &o) { o.changer32(static_cast<int>(o.cases.size()) - 1, -1); });
}

TEST_F(SavedGameRefused, BecauseItsOwnConfigurationCannotBe) {
  OctetsPartie octets(étape_provinces, {1, 2, 0, 0}, {{"Zo\xE9", 3, 1}, {"Lou", 2, 5}});
  attendre_abîmé(octets);
  octets = OctetsPartie(étape_provinces, {1, 1, 0, 0}, {});
  attendre_abîmé(octets);
  octets = OctetsPartie(étape_provinces, {2, 3, 0, 0}, {});
  attendre_abîmé(octets);
  octets = OctetsPartie(étape_provinces, {1, 2, 0, 0}, std::vector<OctetsPartie::Score>(11, {"Ann", 5, 1}));
  attendre_abîmé(octets);
  for (const int nombre : {-1, 32767}) {
    octets = OctetsPartie(étape_provinces, {1, 2, 0, 0}, {});
    octets.changer(OctetsPartie::case_nombre, nombre);
    attendre_abîmé(octets);
  }
}

TEST_F(SavedGameRefused, BecauseItCannotBeRead) {
  fs::create_directory(chemin_natif(fichier("dossier.CAI")));
  attendre_abîmé("dossier.CAI");
  ASSERT_EQ(mkfifo(fichier("tuyau.CAI").c_str(), S_IRUSR | S_IWUSR), 0);
  attendre_abîmé("tuyau.CAI");
  poser(OctetsPartie());
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(fichier()), fs::perms::none);
  const SansPrivilège ordinaire;
  attendre_abîmé();
}

TEST_F(SavedGameRefused, InTheChooserWhichStaysOpenForAnother) {
  g().PartieVierge = true;
  OctetsPartie abîmée = de_cette_version(OctetsPartie());
  abîmée.changer(abîmée.case_étape, 0);
  écrire_fichier(fichier("abîmée.CAI"), abîmée.octets());
  abîmée.changer_texte(OctetsPartie::case_version, "Version 0.99");
  écrire_fichier(fichier("ancienne.CAI"), abîmée.octets());
  poser(OctetsPartie());
  EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_lire", [&](Fenêtre &f) {
    for (const char *nom : {"abîmée.CAI", "ancienne.CAI"}) {
      EXPECT_FALSE(choisir_le_fichier(f, nom)) << nom;
      EXPECT_EQ(élément_choisi(contrôle(f, "Fichier")), nom);
    }
    EXPECT_THAT(m.boîtes.montrées, SizeIs(2));
    EXPECT_TRUE(choisir_le_fichier(f, "souper.CAI"));
  }));
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_THAT(dans_le_dossier(),
              UnorderedElementsAre("ardane.pts", "ARDANE.INF", "abîmée.CAI", "ancienne.CAI"));
}

TEST_F(SavedGameRefused, WhenItIsDeletedBetweenListAndChoice) {
  g().PartieVierge = true;
  poser(OctetsPartie());
  EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_lire", [&](Fenêtre &f) {
    fs::remove(chemin_natif(fichier()));
    EXPECT_FALSE(choisir_le_fichier(f, "souper.CAI"));
    EXPECT_EQ(m.dernière_boîte().titre, message(g(), Message::erreur_de_format));
    EXPECT_THAT(contrôle(f, "Fichier").éléments, IsEmpty());
    EXPECT_EQ(contrôle(f, "Fichier").choix, 0);
  }));
  EXPECT_EQ(g().Etape, étape_repos);
}

TEST_F(SavedGameRefused, IsLoggedWithTheSlot) {
  OctetsPartie octets;
  octets.changer_texte(octets.case_nom, 121, "Ann");
  poser(octets);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(Charger_partie(m.c(), fichier()));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ardane : La partie « " + fichier() + " » est refusée : case 5 : texte trop long\n");
}

// --- The way to it and back

TEST_F(SavedGame, BeforeAnotherIsTakenUpTheGameUnderWayIsDroppedOnlyIfThePlayerAgrees) {
  poser(OctetsPartie());
  jouer(étape_provinces);
  m.répondre_juste();
  const auto avant = photographier(g());
  m.boîtes.réponses = {Réponse::non};
  EXPECT_FALSE(dans_le_choix_de_fichier(m, "Fichier_lire", [](Fenêtre &) {}));
  attendre_question_d_abandon();
  EXPECT_THAT(différences(avant, photographier(g())), IsEmpty());
  m.oublier();
  m.boîtes.réponses = {Réponse::oui};
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_THAT(m.façade.ouvertes, ElementsAre("Affichage_scores", "Sélection_partie"));
  EXPECT_EQ(g().Score, 987'654);
  EXPECT_EQ(g().ProvincesRestantes, 88);
}

TEST_F(SavedGame, WithoutAChoiceTheProgramIsIdle) {
  const std::function<void(Fenêtre &)> façons[] = {
      [](Fenêtre &f) { cliquer(f, contrôle(f, "Bouton_annuler")); },
      [](Fenêtre &f) { demander_fermeture(f); },
      [](Fenêtre &f) {
        EXPECT_FALSE(choisir_le_fichier(f, "vide.CAI"));
        cliquer(f, contrôle(f, "Bouton_annuler"));
      },
  };
  écrire_fichier(fichier("vide.CAI"), "");
  for (const auto &façon : façons) {
    jouer(étape_provinces, 0);
    m.répondre_juste();
    g().ConseilFicheVu = true;
    EXPECT_TRUE(dans_le_choix_de_fichier(m, "Fichier_lire", façon));
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_TRUE(g().PartieVierge);
    EXPECT_FALSE(g().ConseilFicheVu);
    EXPECT_FALSE(m.e().que_faire.visible);
    EXPECT_FALSE(m.e().Inv(1).visible || m.e().Pays(1).visible);
    EXPECT_TRUE(fichier_existe(fichier("vide.CAI")));
    m.oublier();
    EXPECT_TRUE(ConfirmerAbandon(m.c()));
    EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  }
}

TEST_F(SavedGame, ItIsTakenUpFromAnyModeWhosePanelsThenGo) {
  for (const auto mode : {&AfficherParamétrage, &DéfinirParamétrage}) {
    poser(OctetsPartie());
    mode(m.c());
    ASSERT_TRUE(m.e().Bouton(1).visible);
    EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
    EXPECT_FALSE(m.e().Bouton(1).visible);
    EXPECT_FALSE(m.e().BTN(1).visible);
    EXPECT_TRUE(m.e().menu("menu_fichier").actif);
    EXPECT_TRUE(m.e().que_faire.visible);
    EXPECT_EQ(g().Etape, étape_provinces);
    g().PartieVierge = true;
  }
}

TEST_F(SavedGame, UntilTheGameStandsOnTheScreenItStandsOnTheDisk) {
  fs::create_directory(chemin_natif(m.dossier.fichier("jeux")));
  g().Répertoire_sauvegarde = m.dossier.fichier("jeux");
  OctetsPartie octets(étape_provinces, {1, 2, 0, 0}, {});
  for (int i = 1; i <= nombre_provinces; ++i) octets.changer_paire(octets.case_paires + i - 1, i, -1);
  std::vector<std::string> titres;
  m.boîtes.pendant = [&](const Boîte &boîte) {
    titres.push_back(boîte.titre);
    EXPECT_TRUE(fichier_existe(fichier())) << boîte.titre;
  };
  EXPECT_TRUE(reprendre(octets));
  EXPECT_THAT(titres,
              ElementsAre(message(g(), Message::choix_du_répertoire), message(g(), Message::étape_suivante)));
  EXPECT_FALSE(fichier_existe(fichier()));
}

TEST_F(SavedGame, AFileThatCannotBeDeletedIsTakenUpAllTheSameAndLogged) {
  poser(OctetsPartie());
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(fichier()),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const SansPrivilège ordinaire;
  testing::internal::CaptureStderr();
  EXPECT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), EndsWith("souper.CAI » ne peut pas être effacée\n"));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(g().Etape, étape_provinces);
  EXPECT_TRUE(fichier_existe(fichier()));
}

TEST_F(SavedGame, AGameTakenUpCanBeSavedAgain) {
  poser(OctetsPartie(étape_villes));
  const std::string octets = lire_fichier(fichier());
  ASSERT_TRUE(reprendre_la_partie(m, "souper.CAI"));
  g().Fichier_lancement = "/jeux/Le nord.SCI";
  ASSERT_TRUE(enregistrer_la_partie(m, "souper"));
  EXPECT_EQ(lire_fichier(fichier()), octets);
}

}  // namespace
}  // namespace ardane
