#include "screens/card.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/resources.h"
#include "persistence/information_file.h"
#include "platform/window_layout.h"
#include "play/map_clicks.h"
#include "play/stage_sequencer.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Cards : public testing::Test {
 protected:
  Cards() { m.démarrer(); }
  /// Opens the card of a province from the revision of the whole map.
  void réviser(int province, std::function<void(Fenêtre &)> regarder) {
    if (m.g().Etape != étape_révision) Révision(m.c());
    m.oublier();
    m.façade.joueur = std::move(regarder);
    ClicProvince(m.c(), province);
    m.façade.joueur = nullptr;
  }

  MondeFactice m;
};

TEST_F(Cards, ACardShowsNameFlagAndTextAndNoTitle) {
  const auto fiche = Lire_fiche_information(m.c(), 12);
  réviser(12, [&](Fenêtre &f) {
    EXPECT_EQ(f.nom, "Pompe");
    EXPECT_EQ(f.titre, "Fiche de renseignements");
    EXPECT_EQ(f.largeur, 382);
    EXPECT_EQ(f.hauteur, 493);
    EXPECT_EQ(contrôle(f, "LBL_Pays").texte, m.g().TableProvinces(12).nom);
    EXPECT_EQ(m.c().ressources.images.nom(contrôle(f, "IMG_Drapeau").image), "Graphismes.Drapeau(12)");
    EXPECT_EQ(contrôle(f, "TXT_INFOS").texte, fiche->texte);
    EXPECT_TRUE(contrôle(f, "TXT_INFOS").lecture_seule);
    EXPECT_TRUE(contrôle(f, "TXT_INFOS").lignes_crlf);
    EXPECT_FALSE(est_bordé(contrôle(f, "TXT_INFOS")));
    const Contrôle &texte = contrôle(f, "TXT_INFOS");
    EXPECT_NEAR(texte.haut + texte.hauteur, contrôle(f, "BTN_OK").haut, 20) << "it fills the place above";
    EXPECT_LT(texte.haut + texte.hauteur, contrôle(f, "BTN_OK").haut);
  });
}

TEST_F(Cards, ItIsWhiteOnDarkRedInTheLettersOfABook) {
  réviser(1, [&](Fenêtre &f) {
    EXPECT_EQ(f.fond, Teinte(Couleur{64, 0, 0}));
    for (const char *nom : {"LBL_Pays", "TXT_INFOS"}) {
      EXPECT_EQ(contrôle(f, nom).fond, Teinte(Couleur{64, 0, 0}));
      EXPECT_EQ(contrôle(f, nom).couleur, Teinte(Couleur{255, 255, 255}));
      EXPECT_EQ(contrôle(f, nom).police, (Police{Famille_police::times, 12, false}));
    }
    EXPECT_EQ(contrôle(f, "LBL_Pays").alignement, Alignement::centre);
  });
}

TEST_F(Cards, TheFlagKeepsItsShapeWithinItsPlace) {
  réviser(1, [&](Fenêtre &f) {
    const Contrôle &drapeau = contrôle(f, "IMG_Drapeau");
    EXPECT_LE(drapeau.largeur, 64.8);
    EXPECT_LE(drapeau.hauteur, 32.8);
    EXPECT_NEAR(drapeau.largeur / drapeau.hauteur,
                static_cast<double>(drapeau.image.largeur) / drapeau.image.hauteur, 1e-9);
  });
}

TEST_F(Cards, ItStandsRightOfItsMarkerElseLeftElseAtTheEdge) {
  const auto gauche = [&](int largeur_écran) {
    m.g().Largeur_écran = largeur_écran;
    m.g().ProvinceFiche = 30;
    m.e().rond(30).visible = true;
    return Pompe(m.c()).gauche;
  };
  m.e().rond(30).gauche = 450;
  const Rect marqueur = m.c().plateforme.façade.rectangle(m.e(), m.e().rond(30));
  EXPECT_EQ(gauche(marqueur.droite + 382), marqueur.droite);
  EXPECT_EQ(gauche(marqueur.droite + 381), marqueur.gauche - 382);
  m.e().rond(30).gauche -= marqueur.gauche - 382;
  EXPECT_EQ(gauche(300), 0);
  m.e().rond(30).gauche -= 1;
  EXPECT_EQ(gauche(300), 10);
}

TEST_F(Cards, ItStandsInTheMiddleBetweenTheTopAndTheEndOfTheWorkArea) {
  m.g().ProvinceFiche = 1;
  m.g().Bas_zone_travail = 1000;
  EXPECT_EQ(Pompe(m.c()).haut, 253);
}

TEST_F(Cards, ItsMarkerShowsAsLongAsItIsOpen) {
  réviser(9, [&](Fenêtre &) { EXPECT_TRUE(m.e().rond(9).visible); });
  EXPECT_FALSE(m.e().rond(9).visible);
}

TEST_F(Cards, TheSoundComesBeforeTheWindow) {
  std::vector<std::string> sons;
  réviser(9, [&](Fenêtre &) { sons = m.son.joués; });
  EXPECT_THAT(sons, ElementsAre("carte_hl.wav"));
  EXPECT_EQ(m.g().ProvinceFiche, 9);
}

TEST_F(Cards, ItsButtonClosesIt) {
  réviser(9, [&](Fenêtre &f) {
    cliquer(f, contrôle(f, "BTN_OK"));
    EXPECT_FALSE(f.ouverte);
  });
}

TEST_F(Cards, ACardThatCannotBeReadIsEmptyAndNothingIsTold) {
  for (const std::string &contenu : {std::string(), std::string("x"), std::string(650, '\xFF')}) {
    écrire_fichier(m.g().Fichiers_info(1), contenu);
    réviser(1, [&](Fenêtre &f) { EXPECT_EQ(contrôle(f, "TXT_INFOS").texte, ""); });
    EXPECT_TRUE(m.boîtes.montrées.empty());
  }
  std::filesystem::remove(chemin_natif(m.g().Fichiers_info(1)));
  réviser(1, [&](Fenêtre &f) { EXPECT_EQ(contrôle(f, "TXT_INFOS").texte, ""); });
  EXPECT_TRUE(m.boîtes.montrées.empty());
}

TEST_F(Cards, RevisionShowsTheWholeMapWithEveryName) {
  m.nouvelle_partie(4);
  m.oublier();
  cliquer(m.e(), m.e().menu("Menu_révision"));
  EXPECT_EQ(m.g().Etape, étape_révision);
  EXPECT_EQ(m.g().Niveau, niveau_facile);
  EXPECT_TRUE(m.g().PartieVierge);
  EXPECT_TRUE(m.g().Carte_pleine_largeur);
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().titre, "A propos...");
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::conseil_fiches_des_pays));
  for (int p = 1; p <= nombre_provinces; ++p) EXPECT_TRUE(m.e().Pays(p).visible);
  for (int r = 1; r <= nombre_régions; ++r) EXPECT_TRUE(m.e().Région(r).visible);
  for (int v = 1; v <= nombre_villes; ++v) {
    EXPECT_TRUE(repère(m.e(), v).visible);
    EXPECT_EQ(repère(m.e(), v).infobulle, m.g().TableVilles(v).nom);
  }
  EXPECT_FALSE(m.e().que_faire.visible || m.e().Boîte_score.visible);
}

TEST_F(Cards, RevisionAfterAGameCountsAsUntouched) {
  m.g().PartieVierge = false;
  m.g().PartieClose = true;
  Révision(m.c());
  EXPECT_TRUE(m.g().PartieVierge);
}

TEST_F(Cards, RevisionIsNotEnteredOverAGameThatThePlayerKeeps) {
  m.nouvelle_partie(1);
  m.répondre_faux();
  m.boîtes.réponses = {Réponse::non};
  Révision(m.c());
  EXPECT_EQ(m.g().Etape, étape_provinces);
}

TEST_F(Cards, EveryProvincesCardIsAClickAwayInRevisionAndCostsNothing) {
  for (const int p : {1, 55, 110}) {
    int ouverte = 0;
    réviser(p, [&](Fenêtre &) { ouverte = m.g().ProvinceFiche; });
    EXPECT_EQ(ouverte, p);
    EXPECT_THAT(m.son.joués, ElementsAre("carte_hl.wav"));
  }
  EXPECT_TRUE(m.g().PartieVierge);
}

}  // namespace
}  // namespace ardane
