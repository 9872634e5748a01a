#include "screens/card_editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persistence/information_file.h"
#include "platform/window_layout.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class CardEditor : public testing::Test {
 protected:
  CardEditor() { m.démarrer(); }
  Edition &f() {
    if (!fenêtre) {
      fenêtre = std::make_unique<Edition>(m.c());
      fenêtre->ouverte = true;
    }
    return *fenêtre;
  }
  Contrôle &k(std::string_view nom) { return contrôle(f(), nom); }
  void presser_bouton(std::string_view nom) { cliquer(f(), k(nom)); }
  void écrire(const std::string &texte) { saisir(k("TXT_INFOS"), texte); }
  Fiche_information fiche(int province) { return Lire_fiche_information(m.c(), province).value(); }
  void attendre_refus(int longueur) {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
    EXPECT_EQ(m.dernière_boîte().titre, "Erreur...");
    EXPECT_EQ(m.dernière_boîte().texte,
              "Erreur à l'enregistrement de cette fiche ; la longueur de l'enregistrement est de " +
                  std::to_string(longueur) + " pour un maximum autorisé de 650");
    m.oublier();
  }

  MondeFactice m;
  std::unique_ptr<Edition> fenêtre;
};

TEST_F(CardEditor, ItOpensOnTheFirstCardInTheMiddleOfTheWorkArea) {
  m.écran.zone = {0, 40, 1000, 900};
  EXPECT_EQ(f().titre, "Modification de la description des provinces");
  EXPECT_EQ(k("LBL_Pays").texte, fiche(1).titre);
  EXPECT_EQ(k("TXT_INFOS").texte, fiche(1).texte);
  EXPECT_FALSE(k("TXT_INFOS").lecture_seule || k("LBL_Pays").lecture_seule);
  EXPECT_EQ(f().gauche, std::trunc((1000 - f().largeur) / 2));
  EXPECT_EQ(f().haut, 40 + std::trunc((860 - f().hauteur) / 2));
}

TEST_F(CardEditor, TheArrowsLeadToTheFirstTheNextThePreviousAndTheLastCard) {
  const struct {
    const char *bouton;
    int carte;
  } pas[] = {{"BTN_Left", 1},   {"BTN_Right", 2},   {"BTN_Right", 3},  {"BTN_Left", 2},
             {"BTN_Down", 110}, {"BTN_Right", 110}, {"BTN_Left", 109}, {"BTN_Up", 1}};
  for (const auto &p : pas) {
    presser_bouton(p.bouton);
    EXPECT_EQ(k("LBL_Pays").texte, fiche(p.carte).titre) << p.bouton;
  }
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(CardEditor, AChangedTextIsOnDiskBeforeTheNextCardIsShown) {
  écrire("neuf\r\n");
  presser_bouton("BTN_Right");
  EXPECT_EQ(fiche(1).texte, "neuf\r\n");
  presser_bouton("BTN_Left");
  EXPECT_EQ(k("TXT_INFOS").texte, "neuf\r\n");
}

TEST_F(CardEditor, AtTheFirstCardThePreviousOneSavesAndStays) {
  écrire("neuf");
  presser_bouton("BTN_Left");
  EXPECT_EQ(fiche(1).texte, "neuf");
  EXPECT_EQ(k("TXT_INFOS").texte, "neuf");
}

TEST_F(CardEditor, ATextThatWasOnlyLookedAtIsNotWritten) {
  const std::string avant = lire_fichier(m.g().Fichiers_info(1));
  std::filesystem::permissions(chemin_natif(m.g().Fichiers_info(1)), std::filesystem::perms::owner_read);
  for (const char *bouton : {"BTN_Right", "BTN_Down", "BTN_quit"}) presser_bouton(bouton);
  EXPECT_EQ(lire_fichier(m.g().Fichiers_info(1)), avant);
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_FALSE(f().ouverte);
}

TEST_F(CardEditor, AChangedTitleAloneIsLost) {
  saisir(k("LBL_Pays"), "Autre titre");
  presser_bouton("BTN_Right");
  presser_bouton("BTN_Left");
  EXPECT_NE(k("LBL_Pays").texte, "Autre titre");
}

TEST_F(CardEditor, AChangedTitleGoesAlongWithAChangedText) {
  saisir(k("LBL_Pays"), "Autre titre");
  écrire("neuf");
  presser_bouton("BTN_Right");
  EXPECT_EQ(fiche(1), (Fiche_information{"Autre titre", "neuf"}));
}

TEST_F(CardEditor, ACardOf650BytesIsAcceptedAndOneMoreIsRefusedWithTheNumber) {
  saisir(k("LBL_Pays"), "abc");
  écrire(std::string(644, 'x'));
  presser_bouton("BTN_Right");
  attendre_refus(651);
  EXPECT_EQ(k("TXT_INFOS").texte.size(), 644U);
  écrire(std::string(643, 'x'));
  presser_bouton("BTN_Right");
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(fiche(1).texte.size(), 643U);
}

TEST_F(CardEditor, ARefusedCardKeepsTheEditorOpenAndTheOldCardInTheFile) {
  const Fiche_information avant = fiche(1);
  saisir(k("LBL_Pays"), "abc");
  écrire(std::string(10'000, 'x'));
  for (const char *bouton : {"BTN_Up", "BTN_Left", "BTN_Right", "BTN_Down", "BTN_quit"}) {
    presser_bouton(bouton);
    attendre_refus(10'007);
    EXPECT_TRUE(f().ouverte);
  }
  demander_fermeture(f());
  attendre_refus(10'007);
  EXPECT_TRUE(f().ouverte);
  EXPECT_EQ(fiche(1), avant);
}

TEST_F(CardEditor, ACardThatADiskOrAFolderRefusesStaysInTheEditorAndTheOldOneInTheFile) {
  const std::string fichier = m.g().Fichiers_info(1), avant = lire_fichier(fichier);
  const int longueur = static_cast<int>(fiche(1).titre.size()) - 1 + 4 + 4;
  écrire("neuf");
  {
    const DisquePlein plein(10'000);
    presser_bouton("BTN_Right");
  }
  attendre_refus(longueur);
  EXPECT_EQ(k("TXT_INFOS").texte, "neuf");
  EXPECT_EQ(lire_fichier(fichier), avant);
  std::filesystem::remove(chemin_natif(fichier));
  std::filesystem::create_directory(chemin_natif(fichier));
  presser_bouton("BTN_quit");
  attendre_refus(longueur);
  EXPECT_TRUE(f().ouverte);
}

TEST_F(CardEditor, WithAFolderInPlaceOfTheFileEveryCardIsEmptyAndTold) {
  std::filesystem::remove(chemin_natif(m.g().Fichiers_info(1)));
  std::filesystem::create_directory(chemin_natif(m.g().Fichiers_info(1)));
  f();
  presser_bouton("BTN_Right");
  ASSERT_THAT(m.boîtes.montrées, SizeIs(2));
  EXPECT_EQ(k("LBL_Pays").texte + k("TXT_INFOS").texte, "");
  presser_bouton("BTN_quit");
  EXPECT_FALSE(f().ouverte);
}

TEST_F(CardEditor, ATitleOf651CharactersIsRefusedToo) {
  saisir(k("LBL_Pays"), std::string(651, 't'));
  écrire("");
  presser_bouton("BTN_quit");
  attendre_refus(655);
}

TEST_F(CardEditor, LinesTypedByThePlayerEndInCrLfInTheFile) {
  écrire("un\ndeux\n");
  presser_bouton("BTN_quit");
  EXPECT_EQ(fiche(1).texte, "un\r\ndeux\r\n");
  EXPECT_FALSE(f().ouverte);
}

TEST_F(CardEditor, AFileThatCannotBeReadIsToldAndEmptyFieldsAreShown) {
  const std::string fichier = m.g().Fichiers_info(1);
  écrire_fichier(fichier, lire_fichier(fichier).substr(0, 650));
  f();
  ASSERT_THAT(m.boîtes.montrées, SizeIs(0)) << "the first card is there";
  presser_bouton("BTN_Right");
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
  EXPECT_EQ(m.dernière_boîte().titre, "Erreur de format");
  EXPECT_EQ(m.dernière_boîte().texte, fichier + " : Le fichier sélectionné n'est pas interprétable !");
  EXPECT_EQ(k("LBL_Pays").texte + k("TXT_INFOS").texte, "");
  écrire("réparée");
  presser_bouton("BTN_Left");
  EXPECT_EQ(fiche(2).texte, "réparée");
}

TEST_F(CardEditor, OfACardThatIsCutTheRestIsShownAndNotWrittenUnlessItChanges) {
  const std::string fichier = m.g().Fichiers_info(1);
  const Fiche_information entière = fiche(1);
  const std::string coupé = lire_fichier(fichier).substr(0, 60);
  écrire_fichier(fichier, coupé);
  ASSERT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(k("LBL_Pays").texte, entière.titre);
  EXPECT_THAT(entière.texte, testing::StartsWith(k("TXT_INFOS").texte));
  EXPECT_NE(k("TXT_INFOS").texte, "");
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().titre, "Erreur de format");
  presser_bouton("BTN_quit");
  EXPECT_EQ(lire_fichier(fichier), coupé);
}

TEST_F(CardEditor, TheMenuLeadsToItOverAnIdleMap) {
  m.nouvelle_partie(1);
  std::int16_t étape = -1;
  m.façade.joueur = [&](Fenêtre &ouverte) {
    EXPECT_EQ(ouverte.nom, "Edition");
    étape = m.g().Etape;
  };
  cliquer(m.e(), m.e().menu("MenuFicheur"));
  EXPECT_EQ(étape, étape_repos);
  EXPECT_FALSE(m.g().Carte_pleine_largeur);
}

TEST_F(CardEditor, OverAGameThatThePlayerKeepsItOpensAllTheSame) {
  m.nouvelle_partie(1);
  m.répondre_faux();
  m.boîtes.réponses = {Réponse::non};
  std::int16_t étape = -1;
  m.façade.joueur = [&](Fenêtre &) { étape = m.g().Etape; };
  const auto province = m.g().ProvinceCourante;
  cliquer(m.e(), m.e().menu("MenuFicheur"));
  EXPECT_EQ(étape, étape_provinces);
  EXPECT_EQ(m.g().Etape, étape_provinces);
  EXPECT_EQ(m.g().ProvinceCourante, province);
  EXPECT_TRUE(m.e().que_faire.visible);
}

TEST(CardEditorOnASmallScreen, LeavesTheMapOfAKeptGameWhereItBegins) {
  MondeFactice m;
  m.écran.taille = {640, 480};
  m.démarrer();
  m.nouvelle_partie(1);
  m.répondre_faux();
  for (Contrôle *barre : {&m.e().barre_h, &m.e().barre_v}) fixer_valeur(*barre, barre->max);
  m.boîtes.réponses = {Réponse::non};
  cliquer(m.e(), m.e().menu("MenuFicheur"));
  EXPECT_EQ(m.g().Etape, étape_provinces);
  EXPECT_EQ(m.e().image_région.gauche, 0);
  EXPECT_EQ(m.e().image_région.haut, 0);
}

TEST_F(CardEditor, OverAKeptGameOfRegionsTheCounterOfTheRegionComesBack) {
  m.g().Ordre_jeux(1) = étape_régions;
  m.nouvelle_partie(1);
  m.g().PartieVierge = false;
  m.boîtes.réponses = {Réponse::non};
  cliquer(m.e(), m.e().menu("MenuFicheur"));
  EXPECT_TRUE(m.e().BoîteProvinces.visible && m.e().NombreProvinces.visible);
}

}  // namespace
}  // namespace ardane
