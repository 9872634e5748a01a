// The index that ships, and what players ask it in their own words.
#include <gtest/gtest.h>

#include <set>

#include "front/help/search.h"
#include "pages.h"

namespace ardane {
namespace {

const std::filesystem::path folder = AIDE;

const std::vector<Section> &shipped() {
  static const SearchIndex index = read_index(folder / index_file);
  return index.sections;
}

TEST(HelpIndex, IsMadeOfTodaysPages) {
  ASSERT_EQ(read_index(folder / index_file).trouble, "");
  EXPECT_TRUE(shipped() == sections_of(folder))
      << "A page has changed since: build/release/programme/index_aide resources/aide";
}

TEST(HelpIndex, HasEveryPageButTheListOfWords) {
  std::set<std::string> pages, indexed;
  for (const auto &entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".html") pages.insert(entry.path().filename().string());
  for (const Section &section : shipped()) indexed.insert(section.page);
  pages.erase(page_of_entries);
  EXPECT_EQ(indexed, pages);
}

struct Question {
  const char *asked;
  const char *answer;  ///< the page that comes first, with the anchor where the place on it matters
};

class HelpSearch : public testing::TestWithParam<Question> {};

TEST_P(HelpSearch, AnswersFirstWithTheRightPage) {
  const std::vector<Hit> hits = search(shipped(), Query(GetParam().asked));
  ASSERT_FALSE(hits.empty());
  const Section &first = *hits.front().section;
  const std::string answer = GetParam().answer;
  EXPECT_EQ(answer.find('#') == std::string::npos ? first.page : first.page + "#" + first.anchor, answer);
}

INSTANTIATE_TEST_SUITE_P(
    Players, HelpSearch,
    testing::Values(Question{"comment sauver ma partie ?", "sauvegarde.html"},
                    Question{"Comment continuer ma partie d’hier ?", "sauvegarde.html"},
                    Question{"reprendre", "sauvegarde.html"},
                    Question{"je veux arrêter et finir demain", "sauvegarde.html"},
                    Question{"MA PARTIE A DISPARU", "questions.html#partie-disparue"},
                    Question{"comment jouer ?", "jouer.html"},
                    Question{"comment commencer une nouvelle partie", "partie.html"},
                    Question{"changer mon nom", "partie.html"},
                    Question{"couper le son", "jouer.html#reglages"},
                    Question{"changer la couleur des ronds", "jouer.html#reglages"},
                    Question{"combien coûte une erreur ?", "points.html"},
                    Question{"pourquoi j'ai perdu mille points", "questions.html#mille-points"},
                    Question{"qu’est-ce que le score d’avancement", "points.html#abandon"},
                    Question{"je suis bloqué", "coup-de-pouce.html"},
                    Question{"passer une question", "coup-de-pouce.html#je-passe"},
                    Question{"à quoi sert l'ampoule", "coup-de-pouce.html#lampe"},
                    Question{"différence entre facile et expert", "niveaux.html"},
                    Question{"à quel niveau voit-on la silhouette ?", "niveaux.html#tableau"},
                    Question{"où imprimer la liste des villes", "listes.html"},
                    Question{"où sont mes fichiers", "dossiers.html"},
                    Question{"jouer seulement avec quelques régions", "parametrage.html"},
                    Question{"dans quel ordre viennent les étapes", "parametrage.html#grille"},
                    Question{"effacer les scores", "scores.html#remise-a-zero"},
                    Question{"mes scores ont disparu", "questions.html#scores-disparus"},
                    Question{"retrouver mes anciens scores", "scores.html#secours"},
                    Question{"le jeu a planté", "sauvegarde.html#interruption"},
                    Question{"le jeu installé écrit où", "dossiers.html#installe"},
                    Question{"double clic sur une partie", "dossiers.html#double-clic"},
                    Question{"coupure de courant pendant une partie", "sauvegarde.html#interruption"},
                    Question{"les dix meilleurs", "scores.html"},
                    Question{"apprendre les provinces par cœur", "apprentissage.html"},
                    Question{"modifier la fiche d’une province", "fiches.html"},
                    Question{"quelles sont mes faiblesses", "statistiques.html"},
                    Question{"que se passe-t-il si je quitte ?", "partie.html#deja-en-cours"},
                    Question{"deviner un drapeau", "etapes.html#drapeaux"},
                    Question{"la carte est trop grande pour mon écran", "questions.html#ecran"},
                    Question{"jouer au clavier", "jouer.html#clavier"},
                    Question{"jouer avec un lecteur d'écran", "jouer.html#ecoute"},
                    Question{"répéter la question", "jouer.html#ecoute"},
                    Question{"je lance le jeu une seconde fois", "questions.html#une-fois"},
                    Question{"lettre de mon nom refusée", "questions.html#lettres"},
                    Question{"agrandir la carte", "jouer.html#taille"},
                    Question{"c'est trop petit, je vois mal", "questions.html#ecran"},
                    Question{"mise a jour", "questions.html#version"},
                    Question{"que faire des îles et des lacs", "jouer.html#cliquer"}));

}  // namespace
}  // namespace ardane
