#include "front/qt/demonstration/demonstration_plan.h"

#include <array>
#include <cstdio>
#include <map>
#include <utility>

#include "core/chooser_modes.h"
#include "front/qt/appearance.h"
#include "persistence/score_file.h"

namespace ardane {
namespace {

/// Pixels of the map: the towns below lie in the south.
constexpr int middle_of_the_map = 330;
/// A wrong click before each so many-th answer.
constexpr int mistake_every = 9;

/// What the stopped game is kept as.
const QString saved_game = QStringLiteral("Souper");

constexpr int card_to_show = 55;

/// What is looked at after the game, in this order.
const std::array<std::pair<const char *, const char *>, 5> visits = {{
    {"menu_paramétrer", "menu_définir"},
    {"Menu_réviser", "Menu_révision"},
    {"menu_paramétrer", "MenuFicheur"},
    {"menu_paramétrer", "MenuCouleurPréfectures"},
    {"menu_fichier", "fichier_quitter"},
}};

/// Windows that are only looked at, and what closes them.
const std::map<std::string, const char *> ways_out = {
    {"Stats", "Command1"}, {"Pompe", "BTN_OK"}, {"Edition", "BTN_quit"}, {"Palette", "BoutonFermeture"}};

}  // namespace

void DemonstrationPlan::choose_stage(Contexte &c) {
  c.état.Ordre_jeux = Ordre_de_jeu({étape_provinces, 0, 0, 0});
  Ecrire_scores(c, false);  // a game taken up finds its stages in the score file
}

void DemonstrationPlan::at_box(AutomaticPlayer &player, const QMessageBox &box) {
  album_.add(to_utf8(box.windowTitle()));
  player.accept();
}

void DemonstrationPlan::at_window(AutomaticPlayer &player, const std::string &name) {
  if (name == "nouvelle_partie") return new_game(player);
  if (name == "Sélection_partie") return choose_file(player);
  if (name == "Affichage_scores") return look_at_scores(player);
  const auto way_out = ways_out.find(name);
  if (way_out == ways_out.end()) return player.give_up("fenêtre inattendue : " + name);
  album_.add(name);
  player.click(way_out->second);
}

/// The statistics first, above them.
void DemonstrationPlan::look_at_scores(AutomaticPlayer &player) {
  album_.add("Affichage_scores");
  ended_ = true;
  player.click(std::exchange(counted_, true) ? "Command1" : "BoutonStatistiques");
}

void DemonstrationPlan::new_game(AutomaticPlayer &player) {
  player.fill_in("boîte_nom_joueur", QStringLiteral("Ardan"));
  player.click("niveau_facile");
  player.then([this] { album_.add("nouvelle_partie"); });
  player.click("bouton_sortie");
}

void DemonstrationPlan::choose_file(AutomaticPlayer &player) {
  const bool keeps = g_.Mode_sélection == choix_nouveau_nom;
  if (keeps)
    player.fill_in("Nom_fichier", saved_game);
  else
    player.pick("Fichier", saved_game + QStringLiteral(".CAI"));
  player.then([this, keeps] { album_.add(keeps ? "enregistrer" : "reprendre"); });
  player.click("Bouton_OK");
}

void DemonstrationPlan::at_map(AutomaticPlayer &player) {
  switch (g_.Etape) {
    case étape_provinces: return answer(player);
    case étape_paramétrage_défini: return configure(player);
    case étape_révision:
      if (g_.ProvinceFiche == 0) return player.click(province(card_to_show));
      return between_games(player);
    case étape_repos: return between_games(player);
    default: player.give_up("la partie s'est arrêtée à l'étape " + std::to_string(g_.Etape));
  }
}

void DemonstrationPlan::between_games(AutomaticPlayer &player) {
  if (ended_) {
    const auto &[menu, entry] = visits.at(visits_++);
    return player.choose(menu, entry);
  }
  if (stopped_) return player.choose("menu_fichier", "Fichier_lire");
  if (started_) return player.give_up("la partie s'est arrêtée avant sa fin");
  started_ = true;
  album_.add("carte");
  player.choose("menu_fichier", "fichier_nouveau");
}

void DemonstrationPlan::configure(AutomaticPlayer &player) {
  for (int p = 1; p <= nombre_provinces; ++p)
    if (g_.TableVilles(p).y > middle_of_the_map) player.click(province(p));
  player.then([this] { album_.add("paramétrage"); });
  player.click("BTN(2)");
}

void DemonstrationPlan::answer(AutomaticPlayer &player) {
  if (answers_ == g_.ProvincesEnJeu / 2 && !stopped_) {
    stopped_ = true;
    return player.choose("menu_fichier", "Fichier_enregistrer");
  }
  const int wrong = (answers_ + 1) % mistake_every == 0 && !erred_ ? other_province() : 0;
  erred_ = wrong != 0;
  if (erred_) {
    ++mistakes_;
    return player.click(province(wrong));
  }
  ++answers_;
  if (answers_ == g_.ProvincesEnJeu / 2) album_.add("milieu");
  if (answers_ == g_.ProvincesEnJeu) album_.add("fin");
  score_ = g_.Score;
  tell_progress();
  player.click(province(g_.ProvinceCourante));
}

/// The next province still to be found after the one that is asked; 0 for none.
int DemonstrationPlan::other_province() const {
  const int asked = g_.ProvinceCourante;
  for (int p = asked % nombre_provinces + 1; p != asked; p = p % nombre_provinces + 1)
    if (!g_.TableProvinces(p).trouvée) return p;
  return 0;
}

void DemonstrationPlan::tell_progress() const {
  if (answers_ % 10 != 0) return;
  std::printf("Province %d sur %d : %s. Score : %d\n", answers_, g_.ProvincesEnJeu,
              g_.TableProvinces(g_.ProvinceCourante).nom.c_str(), g_.Score);
  std::fflush(stdout);
}

}  // namespace ardane
