// What a listener hears when something has changed in a game.
#include "services/spoken_game.h"

#include <gtest/gtest.h>

#include "map/panel.h"
#include "play/map_clicks.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// A question of stage Provinces in the middle of a game.
Partie_entendue question() {
  Partie_entendue partie;
  partie.étape = 1;
  partie.consigne = "Trouvez moi... Saulonde";
  partie.score = 999'998;
  partie.compté = true;
  partie.reste = 40;
  return partie;
}

TEST(SpokenGame, AnEventThatChangesNothingIsNotTold) {
  EXPECT_EQ(Annoncer_partie(question(), question()), "");
}

TEST(SpokenGame, TheFirstQuestionIsToldWithWhatIsLeft) {
  EXPECT_EQ(Annoncer_partie({}, question()), "Trouvez moi... Saulonde. Reste 40.");
}

TEST(SpokenGame, ARightAnswerIsToldWithTheNextQuestion) {
  Partie_entendue après = question();
  après.consigne = "Trouvez moi... Hermenec";
  après.reste = 39;
  EXPECT_EQ(Annoncer_partie(question(), après), "Juste. Trouvez moi... Hermenec. Reste 39.");
}

TEST(SpokenGame, AWrongAnswerIsToldWithTheScore) {
  Partie_entendue après = question();
  après.erreurs = 1;
  après.score = 999'996;
  EXPECT_EQ(Annoncer_partie(question(), après), "Faux. Score : 999 996.");
}

TEST(SpokenGame, AWrongAnswerIsToldWhereNothingIsCounted) {
  Partie_entendue avant = question(), après = question();
  avant.compté = après.compté = false;
  après.erreurs = 3;
  EXPECT_EQ(Annoncer_partie(avant, après), "Faux.");
}

TEST(SpokenGame, AnErrorThatGivesTheQuestionUpIsToldWithTheNextOne) {
  Partie_entendue avant = question(), après = question();
  avant.erreurs = 9;
  après.score = 999'486;
  après.consigne = "Trouvez moi... Hermenec";
  EXPECT_EQ(Annoncer_partie(avant, après), "Faux. Score : 999 486. Trouvez moi... Hermenec.");
}

TEST(SpokenGame, AProvinceOfARegionIsToldAsChosenOrTakenBack) {
  Partie_entendue avant = question(), après = question();
  après.choisies = 1;
  EXPECT_EQ(Annoncer_partie(avant, après), "Choisie.");
  EXPECT_EQ(Annoncer_partie(après, avant), "Retirée.");
}

TEST(SpokenGame, AnotherStageIsNeitherRightNorWrong) {
  Partie_entendue après = question();
  après.étape = 2;
  après.consigne = "Trouvez moi... Valcrête";
  après.reste = 330;
  EXPECT_EQ(Annoncer_partie(question(), après), "Trouvez moi... Valcrête. Reste 330.");
}

TEST(SpokenGame, TheQuestionIsToldOnceMoreWithWhatIsLeftAndTheScore) {
  Partie_entendue partie = question();
  EXPECT_EQ(Redire_partie(partie), "Trouvez moi... Saulonde. Reste 40. Score : 999 998.");
  partie.compté = false;
  EXPECT_EQ(Redire_partie(partie), "Trouvez moi... Saulonde. Reste 40.");
  EXPECT_EQ(Redire_partie({}), "Aucune question.");
}

TEST(SpokenGame, TheEndOfAGameIsSilent) {
  EXPECT_EQ(Annoncer_partie(question(), {}), "");
}

TEST(SpokenGame, ThousandsAreReadApart) {
  EXPECT_EQ(En_milliers(0), "0");
  EXPECT_EQ(En_milliers(999), "999");
  EXPECT_EQ(En_milliers(1'000), "1 000");
  EXPECT_EQ(En_milliers(999'999), "999 999");
  EXPECT_EQ(En_milliers(-1'023), "-1 023");
}

class HeardGame : public testing::Test {
 protected:
  HeardGame() { m.démarrer(); }
  void jouer(int étape, int niveau) {
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = static_cast<std::int16_t>(étape);
    m.nouvelle_partie(niveau);
  }
  Partie_entendue entendue() { return Ecouter(m.c()); }

  MondeFactice m;
};

TEST_F(HeardGame, WhereNothingIsAskedNothingIsHeardButThat) {
  m.e().que_faire.visible = true;
  EXPECT_EQ(entendue(), Partie_entendue{});
  jouer(étape_provinces, niveau_facile);
  m.e().que_faire.visible = false;
  Partie_entendue sans_question;
  sans_question.étape = étape_provinces;
  EXPECT_EQ(entendue(), sans_question);
}

TEST_F(HeardGame, AQuestionIsWhatThePanelShows) {
  jouer(étape_provinces, niveau_facile);
  m.répondre_juste();
  m.répondre_faux();
  Partie_entendue attendue;
  attendue.étape = étape_provinces;
  attendue.consigne = m.e().que_faire.texte + " " + m.g().TableProvinces(m.g().ProvinceCourante).nom;
  attendue.score = m.g().Score;
  attendue.compté = true;
  attendue.reste = nombre_provinces - 1;
  attendue.erreurs = 1;
  EXPECT_EQ(entendue(), attendue);
}

TEST_F(HeardGame, AFlagIsAskedByItsBlazonAndAGameToLearnFromHasNoScore) {
  jouer(étape_drapeaux, aucun_niveau);
  ASSERT_NE(m.e().Image_recherchée.nom_parlé, "");
  EXPECT_EQ(entendue().consigne, m.e().que_faire.texte + " drapeau " + m.e().Image_recherchée.nom_parlé);
  EXPECT_FALSE(entendue().compté);
}

TEST_F(HeardGame, OfARegionTheProvincesChosenCount) {
  jouer(étape_régions, niveau_moyen);
  EXPECT_EQ(entendue().choisies, 0);
  ClicProvince(m.c(), m.autre_province());
  EXPECT_EQ(entendue().choisies, 1);
}

}  // namespace
}  // namespace ardane
