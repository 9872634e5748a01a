#include "whole_game_plan.h"

#include "core/game_state.h"
#include "map/main_window.h"
#include "map/visibility_rules.h"

namespace ardane {
namespace {

/// What errors number `first` to ten of a question cost together.
int rest_of_question(int first) {
  int cost = 0;
  for (int e = first; e < 10; ++e) cost += 1 << e;
  return cost;
}

bool dots_asked(const GameState &g) {
  return g.Etape == étape_villes && haut_niveau(g);
}

}  // namespace

/// No question is expected.
void WholeGamePlan::at_box(AutomaticPlayer &player, const QMessageBox &) {
  player.answer(Réponse::ok);
}

void WholeGamePlan::at_window(AutomaticPlayer &player, const std::string &name) {
  if (name == "nouvelle_partie") {
    player.fill_in("boîte_nom_joueur", name_);
    player.click(level_);
    player.click("bouton_sortie");
  } else if (name == "Affichage_scores") {
    ended_ = true;
    player.click("Command1");
  } else {
    player.give_up("unexpected window " + name);
  }
}

void WholeGamePlan::at_map(AutomaticPlayer &player) {
  if (g().Etape == étape_repos) {
    if (started_ && !ended_) return player.give_up("the game stopped before the top ten");
    player.choose("menu_fichier", started_ ? "fichier_quitter" : "fichier_nouveau");
    started_ = true;
  } else if (g().Score != expected_score) {
    player.give_up("the score is " + std::to_string(g().Score) + " and not " +
                   std::to_string(expected_score) + " at question " + std::to_string(questions));
  } else if (g().Etape == étape_régions) {
    answer_region(player);
  } else {
    answer_object(player);
  }
}

void WholeGamePlan::pay(int cost) {
  if (!g().ModeApprentissage) expected_score -= cost;
}

void WholeGamePlan::settle_question() {
  if (errors_ > 0) pay(rest_of_question(errors_));
  end_question();
}

void WholeGamePlan::end_question() {
  ++questions;
  errors_ = 0;
  hesitated_ = false;
}

/// Every 7th question errs once, every 11th errs and seeks help, every 53rd errs until it is given up.
bool WholeGamePlan::wants_to_err() const {
  if (questions % 53 == 17) return true;
  return errors_ == 0 && (questions % 7 == 3 || questions % 11 == 5);
}

void WholeGamePlan::answer_object(AutomaticPlayer &player) {
  if (wants_to_err() && other_province() != 0) return err(player, another());
  if (errors_ > 0 && questions % 11 == 5 && seek_help(player)) return;
  if (g().AssistanceActive) ++helps;
  player.click(asked());
  end_question();
}

void WholeGamePlan::err(AutomaticPlayer &player, MapTarget wrong) {
  player.click(wrong);
  pay(1 << errors_);
  ++mistakes;
  if (++errors_ < 10) return;
  ++given_up;
  end_question();
}

/// Presses the button that the level offers; false if it offers none, or its help is there already.
bool WholeGamePlan::seek_help(AutomaticPlayer &player) {
  if (screen().BoutonPasse.visible) {
    player.click(screen().BoutonPasse.nom);
    settle_question();
    ++passes;
    return true;
  }
  if (!screen().Bouton_gruge.visible || g().AssistanceActive) return false;
  player.click(screen().Bouton_gruge.nom);
  return true;
}

/// Selects the members in order, takes one out again on the way, and submits a foreign province in place of
/// the last at every third question.
void WholeGamePlan::answer_region(AutomaticPlayer &player) {
  const Fiche_région &region = g().TableRégions(g().RégionCourante);
  const int to_select = g().TailleRégion;
  const int selected = to_select - g().ResteRégion;
  if (selected == 1 && to_select > 1 && !hesitated_) {
    hesitated_ = true;
    return player.click(province(g().SélectionRégion(to_select)));
  }
  const bool last = g().ResteRégion == 1;
  if (const int foreign = other_province(); last && questions % 3 == 1 && foreign != 0) {
    player.click(province(foreign));
    // Up to Moyen the right ones stay, and one is missing; above, all of them are.
    const int missing = bas_niveau(g()) ? 1 : to_select;
    pay(1 << ((9 / region.nombre_provinces + 1) * missing));
    ++wrong_selections;
    return end_question();
  }
  for (int k = 1; k <= region.nombre_provinces; ++k) {
    const int p = region.membres(k);
    if (g().TableProvinces(p).trouvée || est_sélectionnée(g(), p)) continue;
    player.click(province(p));
    if (last) end_question();
    return;
  }
  player.give_up("the region has no member left");
}

MapTarget WholeGamePlan::asked() const {
  return dots_asked(g()) ? town(g().VilleCourante) : province(g().ProvinceCourante);
}

MapTarget WholeGamePlan::another() const {
  return dots_asked(g()) ? town(other_town()) : province(other_province());
}

/// A province still to be found that is no answer to the question; 0 for none.
int WholeGamePlan::other_province() const {
  for (int p = nombre_provinces; p >= 1; --p) {
    const Fiche_province &other = g().TableProvinces(p);
    const bool answer =
        g().Etape == étape_régions ? other.région == g().RégionCourante : p == g().ProvinceCourante;
    if (!answer && !other.trouvée && !est_sélectionnée(g(), p)) return p;
  }
  return 0;
}

int WholeGamePlan::other_town() const {
  for (int v = nombre_villes; v >= 1; --v)
    if (v != g().VilleCourante && !g().TableVilles(v).trouvée) return v;
  return 0;
}

}  // namespace ardane
