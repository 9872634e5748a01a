// Games in runs that are killed at every call that touches the disk, and the starts behind them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <map>

#include "deadly_calls.h"
#include "map/panel.h"
#include "persistence/lifeline.h"
#include "persistence/score_file.h"
#include "persistence/score_format.h"
#include "play/map_clicks.h"
#include "play/stage_sequencer.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;

/// What the player of a killed run has seen; parent and child share it.
struct Vécu {
  int réponses = 0;       ///< answers that the program has taken to their end
  bool félicité = false;  ///< the box of the top ten has come up
  bool partie_finie = false;
};

Vécu &vécu() {
  static auto *const partagé = static_cast<Vécu *>(
      mmap(nullptr, sizeof(Vécu), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  return *partagé;
}

/// A point in a game, as far as a player minds.
struct Position {
  int étape, question, erreurs, reste, score, choisies;
  friend bool operator==(const Position &, const Position &) = default;
};

Position position(const GameState &g) {
  const int question = g.Etape == étape_villes    ? g.VilleCourante
                       : g.Etape == étape_régions ? g.RégionCourante
                                                  : g.ProvinceCourante;
  return {g.Etape, question, g.NbErreurs, reste_de_l_étape(g), g.Score, g.TailleRégion - g.ResteRégion};
}

/// A game of the four stages with two provinces of one region, Zoé's, over a score file that holds Lou's
/// score.
class KilledGame : public testing::Test {
 protected:
  KilledGame() {
    MondeFactice modèle;
    modèle.démarrer();
    GameState &g = modèle.g();
    const int région = g.TableProvinces(1).région;
    int en_jeu = 0;
    for (int p = 1; p <= nombre_provinces; ++p)
      g.TableProvinces(p).inhibée = g.TableProvinces(p).région != région || ++en_jeu > 2;
    g.Nombre_scores(1) = 1;
    g.Meilleurs_scores(1, 1) = {"Lou", 12};
    g.Fichier_lancement = scores();
    if (!Ecrire_scores(modèle.c(), true)) throw std::runtime_error("no score file");
    avant_ = lire_fichier(scores());
  }

  std::string scores() const { return dossier.fichier("ARDANE.SCI"); }
  Lieu_de_secours lieu() const { return {chemin_natif(dossier.fichier("secours"))}; }

  /// A start that has the score file in use.
  static void démarrer(MondeFactice &m, const std::string &fichier) {
    m.registre.créer(clé_du_jeu());
    m.démarrer();
    m.g().Fichier_lancement = fichier;
  }
  static std::string clé_du_jeu() { return R"(HKEY_CURRENT_USER\Software\Mirabonde\Ardane)"; }

  /// One answer: a wrong one first at each third question.
  static void répondre(MondeFactice &m) {
    const GameState &g = m.g();
    const auto autre = [&](int p) {
      return p != g.ProvinceCourante && !g.TableProvinces(p).trouvée && !g.TableProvinces(p).inhibée;
    };
    bool peut_se_tromper = false;
    for (int p = 1; p <= nombre_provinces; ++p) peut_se_tromper = peut_se_tromper || autre(p);
    const bool juste = g.NbErreurs > 0 || !peut_se_tromper || reste_de_l_étape(g) % 3 != 2;
    if (g.Etape != étape_régions) return juste ? m.répondre_juste() : m.répondre_faux();
    for (int p = 1; p <= nombre_provinces; ++p) {
      const Fiche_province &province = g.TableProvinces(p);
      if (province.région != g.RégionCourante || province.trouvée || province.inhibée) continue;
      bool choisie = false;
      for (int k = g.ResteRégion + 1; k <= g.TailleRégion; ++k)
        choisie = choisie || g.SélectionRégion(k) == p;
      if (!choisie) return ClicProvince(m.c(), p);
    }
  }

  /// The whole game, in the child process. `fin`: the player gives up after so many answers.
  int jouer(int fin) {
    vécu() = {};
    MondeFactice m(lieu());
    démarrer(m, scores());
    Charger_scores(m.c());
    m.nouvelle_partie(1, "Zoé");
    m.boîtes.pendant = [&](const Boîte &boîte) {
      const GameState &g = m.g();
      if (boîte.texte == message(g, Message::bravo_top_ten) ||
          boîte.texte == message(g, Message::top_ten_mais_peut_mieux_faire))
        vécu().félicité = true;
    };
    while (m.g().Etape != étape_repos && vécu().réponses != fin) {
      positions_.push_back(position(m.g()));
      répondre(m);
      m.programme.tenir_la_partie();
      ++vécu().réponses;
    }
    if (m.g().Etape != étape_repos) positions_.push_back(position(m.g()));
    if (m.g().Etape != étape_repos) cliquer(m.e(), m.e().menu("fichier_quitter"));
    m.programme.tenir_la_partie();
    vécu().partie_finie = true;
    return 0;
  }

  void remettre() const {
    fs::remove_all(lieu().dossier);
    écrire_fichier(scores(), avant_);
  }

  std::vector<std::string> noms_des_scores() const {
    std::ifstream flux(chemin_natif(scores()), std::ios::binary);
    const Lecture_scores lecture = lire_scores(flux);
    EXPECT_EQ(lecture.défaut, std::nullopt);
    std::vector<std::string> noms;
    for (const auto &score : lecture.contenu.scores) noms.push_back(score.nom);
    return noms;
  }

  /// The next start, told Oui: where the game is then; nothing if none was offered.
  std::optional<Position> reprendre() const {
    MondeFactice m(lieu());
    bool proposée = false;
    m.boîtes.pendant = [&](const Boîte &boîte) {
      proposée = proposée || boîte.texte.find("La reprendre ?") != std::string::npos;
    };
    démarrer(m, scores());
    return proposée ? std::optional(position(m.g())) : std::nullopt;
  }

  /// Kills the game at each of its calls; `fin` as above.
  void tuer_partout(int fin);

  const DossierTemporaire dossier;
  std::string avant_;
  std::vector<Position> positions_;
};

void KilledGame::tuer_partout(int fin) {
  // What an undisturbed player sees, in this very process.
  remettre();
  jouer(fin);
  const std::vector<Position> toutes = positions_;
  const bool avec_score = noms_des_scores().size() == 2;
  ASSERT_TRUE(avec_score);
  int moments = 0, félicités = 0;
  for (int n = 1;; ++n) {
    remettre();
    const Fin mort = tuer_à_l_appel(n, [&] { return jouer(fin); });
    if (!mort.tué) {
      EXPECT_EQ(mort.code, 0);
      break;
    }
    ++moments;
    SCOPED_TRACE("call " + std::to_string(n) + ", " + appels_du_dernier().back() + ", after " +
                 std::to_string(vécu().réponses) + " answers");
    const auto reprise = reprendre();
    const std::vector<std::string> noms = noms_des_scores();
    ASSERT_THAT(noms, Contains("Lou")) << "a score of old";
    const bool inscrit = std::ranges::count(noms, "Zoé") == 1;
    ASSERT_LE(std::ranges::count(noms, "Zoé"), 1);
    if (vécu().félicité) {
      ++félicités;
      ASSERT_TRUE(inscrit) << "the player has been congratulated";
    }
    // The game, or its score; never both, and never neither once it has an answer.
    ASSERT_NE(inscrit, reprise.has_value() || vécu().réponses == 0);
    if (!reprise) continue;
    const auto réponses = static_cast<std::size_t>(vécu().réponses);
    const bool donnée = réponses + 1 < toutes.size();
    ASSERT_TRUE(*reprise == toutes.at(réponses) || (donnée && *reprise == toutes.at(réponses + 1)))
        << "more than the answer being given is lost";
  }
  EXPECT_GT(moments, 3 * static_cast<int>(toutes.size()));
  EXPECT_GT(félicités, 5);
}

TEST_F(KilledGame, LosesAtMostTheAnswerBeingGivenAndNeverAScore) {
  tuer_partout(-1);
  EXPECT_THAT(positions_.size(), testing::Ge(12U));
}

TEST_F(KilledGame, ThatIsGivenUpKeepsItsScore) {
  tuer_partout(4);
}

}  // namespace
}  // namespace ardane
