// The window that names and picks files, with a folder of the player's to look at.
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "configuration/file_chooser.h"
#include "core/chooser_modes.h"
#include "platform/window_layout.h"
#include "support/configuration_world.h"

namespace ardane {

/// The window, opened for whatever job.
class AvecChoixDeFichier : public AvecParamétrage {
 protected:
  AvecChoixDeFichier() {
    std::filesystem::create_directory(chemin_natif(jeux));
    m.c().dossier.changer(jeux);
  }
  void TearDown() override {
    if (fenêtre) m.monde.façade.retirer(*fenêtre);
  }

  /// The window as it comes up for a job.
  void ouvrir(Modes_sélection mode, Types_fichier type) {
    if (fenêtre) m.monde.façade.retirer(*fenêtre);
    g().Mode_sélection = mode;
    g().Type_fichier = type;
    fenêtre = std::make_unique<Sélection_partie>(m.c());
    m.monde.façade.montrer(*fenêtre);
  }
  Contrôle &k(std::string_view nom) { return contrôle(*fenêtre, nom); }
  void ok() { cliquer(*fenêtre, k("Bouton_OK")); }
  void nommer(const std::string &nom) { saisir(k("Nom_fichier"), nom); }
  void choisir_nom(const char *liste, std::string_view nom) {
    const auto &éléments = k(liste).éléments;
    const auto place = std::find(éléments.begin(), éléments.end(), nom);
    ASSERT_NE(place, éléments.end()) << nom;
    choisir(k(liste), static_cast<int>(place - éléments.begin()) + 1);
  }
  void charger(const std::string &nom) {
    choisir_nom("Fichier", nom);
    ok();
  }
  void fichier(const std::string &nom) { écrire_fichier(jeux + "/" + nom, "x"); }
  std::string proposition(const std::string &dossier) {
    return "question ? | Choix du répertoire | Souhaitez-vous utiliser comme répertoire par défaut " +
           dossier;
  }

  /// All that a refusal leaves as it is: the variables, the settings, the files.
  struct Tout {
    Photo variables;
    std::map<std::string, std::string> réglages, fichiers;
  };
  Tout tout() {
    Tout tout{photographier(g()), {}, {}};
    for (const std::string &nom : m.registre.valeurs(clé_du_jeu)) tout.réglages[nom] = réglage(nom);
    for (const auto &entrée : std::filesystem::recursive_directory_iterator(chemin_natif(m.dossier.chemin())))
      if (entrée.is_regular_file())
        tout.fichiers[texte_du_chemin(entrée.path())] = lire_fichier(texte_du_chemin(entrée.path()));
    return tout;
  }
  void attendre_refus(const Tout &avant, const std::string &boîte) {
    EXPECT_THAT(boîtes(), testing::ElementsAre(boîte));
    EXPECT_TRUE(fenêtre->ouverte);
    const Tout après = tout();
    EXPECT_THAT(variables_changées(avant.variables, après.variables), testing::IsEmpty());
    EXPECT_EQ(après.réglages, avant.réglages);
    EXPECT_EQ(après.fichiers, avant.fichiers);
  }

  const std::string jeux = m.dossier.fichier("jeux");
  std::unique_ptr<Sélection_partie> fenêtre;
};

}  // namespace ardane
