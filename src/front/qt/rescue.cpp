#include "front/qt/rescue.h"

#include <algorithm>
#include <fstream>

#include "core/paths.h"
#include "core/resources.h"
#include "map/panel.h"
#include "persistence/earlier_scores.h"
#include "persistence/lifeline.h"
#include "persistence/score_format.h"
#include "platform/file_replacement.h"
#include "platform/system_clock.h"
#include "platform/whole_file.h"

namespace ardane {
namespace {

/// "3 scores, le meilleur de Ann : 999 812".
std::string describe(const std::filesystem::path &copy) {
  std::ifstream stream(copy, std::ios::binary);
  const Lecture_scores reading = lire_scores(stream);
  if (reading.défaut) return "illisible";
  if (reading.contenu.version != ressources_du_programme().chaînes.chaîne(id_messages))
    return "d'une autre version du jeu";
  const auto &scores = reading.contenu.scores;
  if (scores.empty()) return "aucun score";
  const Enregistrement_score &best = std::ranges::max(scores, {}, &Enregistrement_score::score);
  return (scores.size() == 1 ? "1 score" : std::to_string(scores.size()) + " scores, le meilleur") + " de " +
         best.nom + " : " + En_milliers(best.score);
}

std::string describe_interrupted_game(const std::filesystem::path &lifeline) {
  const auto game = Secours({lifeline}).partie_interrompue();
  if (!game) return "";
  return "La partie interrompue de " + game->nom_joueur + " (" + En_milliers(game->score) +
         " points) sera proposée au prochain lancement du jeu.\n";
}

}  // namespace

Rescue list_earlier_scores(const std::filesystem::path &lifeline) {
  const auto earlier = Lister_scores_anciens(Secours({lifeline}).dossier_des_scores());
  if (earlier.empty())
    return {0, "Aucun ancien contenu d'un fichier de scores n'est gardé.\n" +
                   describe_interrupted_game(lifeline)};
  std::string text = "Ce que les fichiers de scores contenaient avant d'être récrits ou effacés :\n";
  std::string file;
  for (const Scores_anciens &scores : earlier) {
    if (scores.fichier != file) text += "\n" + scores.fichier + "\n";
    file = scores.fichier;
    const std::string number = std::to_string(scores.numéro);
    text += std::string(number.size() < 6 ? 6 - number.size() : 1, ' ') + number + "  jusqu'au " +
            scores.quand + "  " + describe(scores.copie) + "\n";
  }
  text += "\nPour rendre l'un d'eux à son fichier : ardane --secours NUMÉRO\n";
  return {0, text + describe_interrupted_game(lifeline)};
}

Rescue give_scores_back(const std::filesystem::path &lifeline, int number) {
  const HorlogeSystème clock;
  Secours secours({lifeline});
  secours.achever(clock);
  const auto earlier = Lister_scores_anciens(secours.dossier_des_scores());
  const auto found = std::ranges::find(earlier, number, &Scores_anciens::numéro);
  if (found == earlier.end())
    return {1, "Le numéro " + std::to_string(number) +
                   " n'est pas dans la liste : ardane --secours la montre.\n"};
  const auto bytes = octets_du_fichier(found->copie);
  if (!bytes)
    return {1, "Le contenu gardé ne peut pas être lu : « " + texte_du_chemin(found->copie) + " ».\n"};
  const std::string content = describe(found->copie);
  // It may push the content that is asked for out of the last five.
  secours.garder_scores(found->fichier, clock);
  if (const auto failure = remplacer_fichier(chemin_natif(found->fichier), *bytes))
    return {1, "Le fichier « " + found->fichier + " » n'est pas écrit : " + std::string(*failure) + ".\n"};
  return {0, "Le fichier « " + found->fichier + " » a retrouvé son contenu d'avant le " + found->quand +
                 " : " + content +
                 ".\nCe qu'il contenait à l'instant est gardé aussi : ardane --secours le montre.\n"};
}

}  // namespace ardane
