// Commands carried out straight on a session, over windows that the test itself makes.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "front/pilote/commands.h"
#include "front/pilote/event_lines.h"
#include "front/pilote/options.h"
#include "front/pilote/refusal.h"

namespace ardane {

class EssaiDeSession : public ::testing::Test, private Attente {
 protected:
  /// Carries out a command; returns what it wrote.
  std::vector<Json> faire(const std::string &commande) {
    sortie.str({});
    exécuter_commande(session, commande);
    monde.façade.suivre();
    std::vector<Json> lignes;
    std::istringstream texte(sortie.str());
    for (std::string ligne; std::getline(texte, ligne);) lignes.push_back(Json::parse(ligne));
    return lignes;
  }
  /// Why a command is refused; empty if it is carried out.
  std::string refus(const std::string &commande) {
    try {
      exécuter_commande(session, commande);
    } catch (const Refus &raison) {
      return raison.what();
    }
    return {};
  }
  Contrôle &ajouter(const std::string &nom, Genre genre) {
    Contrôle contrôle;
    contrôle.nom = nom;
    contrôle.genre = genre;
    return fenêtre.ajouter(std::move(contrôle));
  }
  /// Writes `mot` among `gestes` whenever an event comes.
  std::function<void()> noter(const std::string &mot) {
    return [this, mot] { gestes.push_back(mot); };
  }
  void ouvrir() { monde.façade.montrer(fenêtre); }

  std::ostringstream sortie;
  Journal journal{sortie};
  OptionsPilote options;
  Récit récit{journal};
  MondeScripté monde{options, récit, *this};
  Programme programme{monde.monde(), ressources_du_programme(), options.dossier};
  Session session{journal, monde, programme, ressources_du_programme().images, ""};
  Fenêtre fenêtre{"essai"};
  std::vector<std::string> gestes;

 private:
  /// No test of this kind has anyone to talk to while a box or a modal window waits.
  Réponse attendre_réponse(const Boîte &) override { throw std::logic_error("nobody answers"); }
  void attendre_fermeture(Fenêtre &) override { throw std::logic_error("nobody plays"); }
};

}  // namespace ardane
