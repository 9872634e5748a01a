// Where the Tab key leads in each window that there is.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "configuration/configuration_mode.h"
#include "core/chooser_modes.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using Noms = std::vector<std::string>;

Noms ordre(Fenêtre &fenêtre) {
  Noms noms;
  for (const Contrôle *contrôle : ordre_du_clavier(fenêtre)) noms.push_back(contrôle->nom);
  return noms;
}

Noms ordre_de_la_palette() {
  Noms noms;
  for (int n = 1; n <= 40; ++n) noms.push_back("ChoixCouleur(" + std::to_string(n) + ")");
  noms.emplace_back("BoutonFermeture");
  return noms;
}

const std::map<std::string_view, Noms> &ordres() {
  static const std::map<std::string_view, Noms> table = {
      {"nouvelle_partie",
       {"boîte_nom_joueur", "niveau_facile", "niveau_moyen", "niveau_difficile", "Niveau_apprentissage",
        "niveau_expert", "bouton_sortie", "Bouton_annuler"}},
      {"Affichage_scores", {"Command1", "BoutonStatistiques"}},
      {"Paramétrage_répertoires",
       {"Répertoire", "Command1", "Sous_répertoire", "Bouton_OK", "Nom_fichier", "Fichier", "Lecteur"}},
      {"Sélection_partie",
       {"Nom_fichier", "Répertoire", "Fichier", "Bouton_OK", "Bouton_annuler", "Lecteur"}},
      {"Pompe", {"BTN_OK", "TXT_INFOS"}},
      {"Edition", {"TXT_INFOS", "BTN_Up", "BTN_Left", "BTN_Right", "BTN_Down", "BTN_quit", "LBL_Pays"}},
      {"Stats",
       {"BoutonProvinces", "BoutonRégions", "BoutonVilles", "Command1", "BarreVerticale",
        "BoutonSauvegarde"}},
      {"Palette", ordre_de_la_palette()},
  };
  return table;
}

/// Started, with the variables set that windows read when they are made.
void préparer(MondeFactice &m) {
  m.démarrer();
  m.g().Mode_sélection = choix_dossier_information;
  m.g().Type_fichier = fichier_partie;
  m.g().Niveau_affiché = 1;
  m.g().ProvinceFiche = 1;
}

TEST(KeyboardOrder, OfEveryWindowThatRulesOpen) {
  MondeFactice m;
  préparer(m);
  EXPECT_EQ(m.programme.fenêtres().size(), ordres().size());
  for (const std::string_view nom : m.programme.fenêtres()) {
    ASSERT_TRUE(ordres().contains(nom)) << nom << " has no order here";
    Noms trouvé;
    m.façade.joueur = [&](Fenêtre &fenêtre) { trouvé = ordre(fenêtre); };
    m.c().plateforme.fenêtres.ouvrir_modale(nom);
    EXPECT_EQ(trouvé, ordres().at(nom)) << nom;
  }
}

TEST(KeyboardOrder, OfTheMainWindowGoesFromTheButtonsOverTheGridToTheBars) {
  MondeFactice m;
  Noms attendu = {"Bouton_gruge", "BoutonPasse"};
  for (int i = 1; i <= 16; ++i) attendu.push_back("Bouton(" + std::to_string(i) + ")");
  for (const char *nom : {"BTN_Sauvegarde", "BTN_Démarrage", "BTN(1)", "BTN(2)", "barre_h", "barre_v"})
    attendu.emplace_back(nom);
  EXPECT_EQ(ordre(m.e()), attendu);
}

/// What is said of a control that has the focus is nothing that only the program knows.
void vérifier_noms(Fenêtre &fenêtre) {
  for (const Contrôle *contrôle : ordre_du_clavier(fenêtre)) {
    if (est_muet(*contrôle) || !est_visible(*contrôle)) continue;
    EXPECT_NE(nom_à_dire(*contrôle), contrôle->nom) << fenêtre.nom;
    EXPECT_NE(nom_à_dire(*contrôle), "") << fenêtre.nom << " " << contrôle->nom;
  }
}

TEST(KeyboardOrder, EveryControlOnTheWayHasAName) {
  MondeFactice m;
  préparer(m);
  DéfinirParamétrage(m.c());
  m.e().barre_h.visible = m.e().barre_v.visible = true;
  vérifier_noms(m.e());
  m.façade.joueur = vérifier_noms;
  for (const std::string_view nom : m.programme.fenêtres()) m.c().plateforme.fenêtres.ouvrir_modale(nom);
}

TEST(KeyboardOrder, EscapeAloneLeavesThePaletteAndNoOtherWindowHasSuchAKey) {
  MondeFactice m;
  préparer(m);
  m.façade.joueur = [](Fenêtre &fenêtre) {
    EXPECT_EQ(fenêtre.bouton_défaut, nullptr) << fenêtre.nom;
    Contrôle *fermeture = fenêtre.nom == "Palette" ? fenêtre.chercher("BoutonFermeture") : nullptr;
    EXPECT_EQ(fenêtre.bouton_annulation, fermeture) << fenêtre.nom;
  };
  for (const std::string_view nom : m.programme.fenêtres()) m.c().plateforme.fenêtres.ouvrir_modale(nom);
}

}  // namespace
}  // namespace ardane
