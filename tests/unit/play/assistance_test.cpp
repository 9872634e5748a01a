#include "play/assistance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "map/visibility_rules.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;

class Assistance : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  void jouer(int niveau, int étape = étape_provinces) {
    m.g().PartieVierge = true;
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = static_cast<std::int16_t>(étape);
    m.nouvelle_partie(niveau);
    m.boîtes.montrées.clear();
    m.son.joués.clear();
  }
  void aider() { cliquer(m.e(), m.e().Bouton_gruge); }
  void passer() { cliquer(m.e(), m.e().BoutonPasse); }
  MondeFactice m;
};

TEST_F(Assistance, TheButtonIsOfferedOnceAQuestion) {
  jouer(1);
  m.répondre_faux();
  EXPECT_TRUE(m.e().BoutonPasse.visible);
  m.e().BoutonPasse.visible = false;
  m.répondre_faux();
  EXPECT_FALSE(m.e().BoutonPasse.visible);
}

TEST_F(Assistance, TheButtonBearsItsLampFromTheStartOn) {
  EXPECT_EQ(m.e().Bouton_gruge.image, m.e().Ampoule_allumée.image);
  EXPECT_TRUE(m.e().Bouton_gruge.image);
}

TEST(AssistanceOnASmallScreen, TheProvinceThatBlinksComesIntoView) {
  MondeFactice m;
  m.écran.taille = {640, 480};
  m.démarrer();
  m.nouvelle_partie(0);
  Ecran_principal &e = m.e();
  const Contrôle &province = e.Pays(m.g().ProvinceCourante);
  const auto en_vue = [&] {
    return province.haut + province.hauteur > 0 && province.haut < e.Carte.hauteur &&
           province.gauche + province.largeur > 0 && province.gauche < e.Carte.largeur;
  };
  for (const int bout : {e.barre_v.min, e.barre_v.max}) {
    fixer_valeur(e.barre_v, bout);
    if (!en_vue()) break;
  }
  ASSERT_FALSE(en_vue());
  AideClignotante(m.c());
  EXPECT_TRUE(en_vue());
}

TEST_F(Assistance, APassWithNineErrorsMadeCosts512) {
  jouer(1);
  for (int i = 0; i < 9; ++i) m.répondre_faux();
  const int avant = m.g().Score;
  passer();
  EXPECT_EQ(m.g().Score, avant - 512);
  EXPECT_EQ(m.g().NbErreurs, 0);
  EXPECT_FALSE(m.e().BoutonPasse.visible);
}

TEST_F(Assistance, APassAfterOneErrorCosts1022AndTheObjectStaysUnplaced) {
  jouer(1);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  m.son.joués.clear();
  passer();
  EXPECT_EQ(m.g().Score, 999999 - 1023);
  EXPECT_FALSE(m.g().TableProvinces(p).trouvée);
  EXPECT_NE(m.g().ProvinceCourante, p);
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(0), 1023);
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav"));
}

TEST_F(Assistance, APassThatExhaustsTheScoreLosesTheGame) {
  jouer(1);
  m.répondre_faux();
  m.g().Score = 1022;
  m.son.joués.clear();
  passer();
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav", "carte_ga.wav"));
  EXPECT_EQ(m.boîtes.montrées[0].texte, message(m.g(), Message::partie_terminée));
}

TEST_F(Assistance, TenErrorsAfterTheHelpAreToldOtherwiseThanWithoutIt) {
  jouer(0);
  m.répondre_faux();
  aider();
  for (int i = 0; i < 9; ++i) m.répondre_faux();
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::réponse_indiquée_par_le_clignotement));
  for (int i = 0; i < 10; ++i) m.répondre_faux();
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::essayer_autre_chose));
}

TEST_F(Assistance, TheNextQuestionBeginsWithoutTheButton) {
  jouer(1);
  m.répondre_faux();
  ASSERT_TRUE(est_visible(m.e().BoutonPasse));
  for (int i = 1; i < 10; ++i) m.répondre_faux();
  EXPECT_EQ(m.g().NbErreurs, 0);
  EXPECT_FALSE(est_visible(m.e().BoutonPasse));
}

TEST_F(Assistance, TheBlinkingStopsWhenTheQuestionIsGivenUp) {
  jouer(0);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  aider();
  EXPECT_TRUE(m.g().TableClignotement(p));
  for (int i = 0; i < 9; ++i) m.répondre_faux();
  EXPECT_FALSE(m.g().TableClignotement(p));
  EXPECT_FALSE(m.g().AssistanceActive);
  EXPECT_FALSE(m.e().Bouton_gruge.visible);
}

TEST_F(Assistance, ARightAnswerUnderHelpPlacesNothingChargesInFullAndDrawsTwice) {
  jouer(0);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  aider();
  const int tirages = m.hasard.tirages;
  m.son.joués.clear();
  m.répondre_juste();
  EXPECT_THAT(m.son.joués, ElementsAre("carte_ok.wav"));
  EXPECT_FALSE(m.g().AssistanceActive);
  EXPECT_EQ(m.hasard.tirages, tirages + 2);
  EXPECT_FALSE(m.g().TableProvinces(p).trouvée);
  EXPECT_EQ(m.g().ProvincesRestantes, 110);
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(0), 1023);
  EXPECT_EQ(m.g().Score, 999999);
  EXPECT_EQ(m.g().NbErreurs, 0);
  EXPECT_FALSE(m.e().Bouton_gruge.visible);
  EXPECT_FALSE(m.g().TableClignotement(p));
  EXPECT_EQ(m.g().ProvinceClignotante, 0);
}

TEST_F(Assistance, AnAssistedAnswerWithNoScoreLeftLosesTheGame) {
  jouer(0);
  m.répondre_faux();
  aider();
  m.g().Score = 0;
  m.son.joués.clear();
  m.répondre_juste();
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav", "carte_pe.wav")) << "and nothing of a right answer";
}

TEST_F(Assistance, TheFirstOfTheTwoDrawsCountsAsThePreviousObjectOfTheSecond) {
  jouer(0);
  m.répondre_faux();
  aider();
  m.hasard.suite = {10.5F / 110.0F, 10.5F / 110.0F};
  m.répondre_juste();
  EXPECT_EQ(m.g().ProvinceCourante, 10);
}

TEST_F(Assistance, WithOneObjectLeftTheSameIsAskedAgainAfterAnAssistedAnswer) {
  jouer(0);
  for (int i = 1; i < nombre_provinces; ++i) m.répondre_juste();
  const int p = m.g().ProvinceCourante;
  m.g().NbErreurs = 1;
  m.e().Bouton_gruge.visible = true;
  aider();
  m.répondre_juste();
  EXPECT_EQ(m.g().ProvinceCourante, p);
  EXPECT_EQ(m.g().ProvincesRestantes, 1);
  EXPECT_EQ(m.g().Etape, étape_provinces);
}

TEST_F(Assistance, ABlinkingProvinceEndsAsTheLastRedrawLeftIt) {
  jouer(0);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  aider();
  m.e().tic();
  EXPECT_FALSE(m.e().Pays(p).visible);
  m.e().tic();
  EXPECT_TRUE(m.e().Pays(p).visible);
  m.répondre_juste();
  EXPECT_FALSE(m.e().Pays(p).visible);
  m.e().tic();
  EXPECT_FALSE(m.e().Pays(p).visible);
}

TEST_F(Assistance, TheHelpPutsTheBlackMarkerOnTheTargetAtTheNextRedraw) {
  jouer(0);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  aider();
  Montrer_province(m.c(), p, false);
  EXPECT_TRUE(m.e().rond(p).visible);
  EXPECT_EQ(m.e().rond(p).image, m.e().rondnoir.image);
}

TEST_F(Assistance, InStageVillesTheProvinceBlinksAndNotTheTown) {
  jouer(0, étape_villes);
  m.répondre_faux();
  aider();
  EXPECT_TRUE(m.g().TableClignotement(m.g().TableVilles(m.g().VilleCourante).province));
}

TEST_F(Assistance, TheHelpItselfCostsNothing) {
  jouer(0);
  m.répondre_faux();
  const int p = m.g().ProvinceCourante;
  aider();
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(0), 1);
  EXPECT_EQ(m.g().ProvinceClignotante, p);
}

TEST_F(Assistance, ThePassButtonBearsItsTip) {
  EXPECT_EQ(m.e().BoutonPasse.infobulle, "Je passe !");
}

}  // namespace
}  // namespace ardane
