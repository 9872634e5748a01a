// What the tests of the pilot share: a fresh folder, and a talk that a test can open with options of its own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "conversation.h"

namespace ardane {

class EssaiDuPilote : public ::testing::Test {
 protected:
  EssaiDuPilote() : dossier(ARDANE_RESOURCES) {
    options.programme = dossier.chemin("programme");
    options.dossier = dossier.chemin();
    options.date = std::chrono::year(2026) / 11 / 21;
    options.hasard = 1;
  }

  Conversation &pilote() {
    if (!conversation_) conversation_ = std::make_unique<Conversation>(options);
    return *conversation_;
  }
  Réplique dire(const std::string &commande) { return pilote().dire(commande); }
  Json état(const std::string &chemin) { return pilote().état(chemin); }
  Json contrôle(const std::string &nom) { return dire("contrôle " + nom).valeur("contrôle"); }

  /// Up to the empty map, the boxes of a first start answered.
  void démarrer() {
    dire("démarrer");
    dire("répondre ok");
    ASSERT_EQ(dire("répondre ok").attend(), "Ecran_principal");
  }
  /// Into a game at the level of an option of the dialog.
  void jouer(const std::string &niveau) {
    démarrer();
    dire("menu fichier_nouveau");
    dire("texte boîte_nom_joueur Ann");
    dire("clic " + niveau);
    ASSERT_EQ(dire("clic bouton_sortie").attend(), "Ecran_principal");
  }
  /// Ends the talk, as the end of the input does.
  void raccrocher() { conversation_.reset(); }

  /// Map pixel in the middle of the dot of a town, as `clic_carte` takes it.
  std::string point(int ville) {
    const std::string fiche = "TableVilles(" + std::to_string(ville) + ")";
    const int x = état(fiche + ".x").get<int>() + 3;
    const int y = état(fiche + ".y").get<int>() + 4;
    return std::to_string(x) + " " + std::to_string(y);
  }

  DossierDeJeu dossier;
  OptionsPilote options;

 private:
  std::unique_ptr<Conversation> conversation_;
};

}  // namespace ardane
