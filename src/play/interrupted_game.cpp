#include "play/interrupted_game.h"

#include <array>
#include <cstdio>

#include "core/game_state.h"
#include "map/panel.h"
#include "persistence/lifeline.h"
#include "platform/log.h"
#include "play/assistance.h"
#include "play/judgement.h"
#include "play/question_selection.h"
#include "play/region_stage.h"
#include "play/saved_game.h"

namespace ardane {
namespace {

// --- What is kept

std::int16_t question_posée(const GameState &g) {
  switch (g.Etape) {
    case étape_villes: return g.VilleCourante;
    case étape_régions: return g.RégionCourante;
    default: return g.ProvinceCourante;
  }
}

/// It fills from the top down.
std::vector<std::int16_t> sélection_en_cours(const GameState &g) {
  std::vector<std::int16_t> provinces;
  if (g.Etape != étape_régions) return provinces;
  for (int k = g.TailleRégion; k > g.ResteRégion; --k) provinces.push_back(g.SélectionRégion(k));
  return provinces;
}

Interruption relever_interruption(const GameState &g) {
  Interruption interruption;
  for (int p = 1; p <= nombre_provinces; ++p) interruption.inhibée(p) = g.TableProvinces(p).inhibée;
  interruption.question = question_posée(g);
  interruption.erreurs = g.NbErreurs;
  interruption.assistance = g.AssistanceActive;
  interruption.conseil_vu = g.ConseilFicheVu;
  interruption.sélection = sélection_en_cours(g);
  return interruption;
}

// --- Whether it can go on

/// The game in the file, over the country of this program.
class Partie_laissée {
 public:
  Partie_laissée(const GameState &g, const Contenu_partie &partie)
      : g_(g), partie_(partie), interruption_(*partie.interruption) {}

  bool peut_poser_sa_question() const {
    const int question = interruption_.question;
    switch (partie_.étape) {
      case étape_villes: return à_trouver(question) && !exclue(g_.TableVilles(question).province);
      case étape_régions: return peut_demander_la_région(question);
      default: return à_trouver(question) && !exclue(question);
    }
  }

 private:
  bool à_trouver(int objet) const {
    return partie_.trouvées.at(static_cast<std::size_t>(objet - 1)).valeur == 0;
  }
  bool exclue(int province) const { return interruption_.inhibée(province); }

  /// The selection leaves it at least one click.
  bool peut_demander_la_région(int région) const {
    std::size_t reste = 0;
    for (int p = 1; p <= nombre_provinces; ++p)
      if (g_.TableProvinces(p).région == région && à_trouver(p) && !exclue(p)) ++reste;
    for (const int province : interruption_.sélection)
      if (exclue(province) || g_.TableProvinces(province).région == 0) return false;
    return interruption_.sélection.size() < reste;
  }

  const GameState &g_;
  const Contenu_partie &partie_;
  const Interruption &interruption_;
};

/// Why the game cannot go on, as the end of a sentence; nothing if it can.
std::optional<std::string> obstacle(const GameState &g, const Contenu_partie &partie) {
  if (partie.version != g.Version_programme) return "elle est de la version « " + partie.version + " »";
  if (!Partie_laissée(g, partie).peut_poser_sa_question()) return "sa question ne peut pas être posée";
  return std::nullopt;
}

// --- How it goes on

std::string texte_de_la_question(const Contenu_partie &partie) {
  const int minutes = partie.interruption->heure / 60;
  std::array<char, 8> heure{};
  std::snprintf(heure.data(), heure.size(), "%02d:%02d", minutes / 60 % 24, minutes % 60);
  return "La partie de " + partie.nom_joueur + " s'est interrompue à " + heure.data() + ", avec " +
         std::to_string(partie.score) + " points. La reprendre ?";
}

bool reprise_voulue(Contexte &c, const Contenu_partie &partie) {
  return c.plateforme.boîtes.montrer({Icône::question, message(c.état, Message::partie_en_cours),
                                      texte_de_la_question(partie), Boutons::oui_non, false, true}) ==
         Réponse::oui;
}

void reprendre_la_question(Contexte &c, const Interruption &interruption) {
  GameState &g = c.état;
  Poser_question(c, interruption.question);
  for (const int province : interruption.sélection) Sélectionner_province(c, province);
  g.NbErreurs = interruption.erreurs;
  if (g.NbErreurs > 0) Offrir_aide(c);
  if (interruption.assistance) AideClignotante(c);
  g.ConseilFicheVu = interruption.conseil_vu;
}

}  // namespace

void Tenir_partie(Contexte &c) {
  const GameState &g = c.état;
  if (!c.secours.en_service()) return;
  if (!partie_en_cours(g) || !est_un_jeu(g.Etape)) return c.secours.oublier();
  Contenu_partie partie = Relever_partie(g, true);
  partie.interruption = relever_interruption(g);
  c.secours.garder(std::move(partie), c.plateforme.horloge.heure());
}

void Proposer_reprise(Contexte &c) {
  const auto partie = c.secours.partie_interrompue();
  if (!partie) return;
  if (const auto raison = obstacle(c.état, *partie))
    return consigner("La partie mise de côté ne peut pas être reprise : " + *raison);
  c.secours.prendre_en_charge(*partie);
  if (!reprise_voulue(c, *partie)) return c.secours.oublier();
  Placer_partie(c, *partie);
  Montrer_partie(c);
  AfficherReste(c, reste_de_l_étape(c.état));
  reprendre_la_question(c, *partie->interruption);
}

}  // namespace ardane
