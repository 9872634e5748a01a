// The whole game played by bytes: clicks anywhere, dots, buttons, menus, answers to boxes, ticks. After every
// event what must always hold is checked.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// The bytes of one run, one choice after the other; zeros when they are used up.
class Octets {
 public:
  Octets(const std::uint8_t *données, std::size_t taille) : données_(données), taille_(taille) {}
  bool épuisés() const { return place_ >= taille_; }
  unsigned octet() { return épuisés() ? 0U : données_[place_++]; }
  /// A choice among `n`, at most 65536.
  int parmi(int n) { return static_cast<int>((octet() | (octet() << 8)) % static_cast<unsigned>(n)); }

 private:
  const std::uint8_t *données_;
  std::size_t taille_;
  std::size_t place_ = 0;
};

/// Events played by all runs, told at the end.
long événements = 0;

[[noreturn]] void faute(const char *règle) {
  std::fprintf(stderr, "broken: %s\n", règle);
  std::abort();
}

void exiger(bool vrai, const char *règle) {
  if (!vrai) faute(règle);
}

int compter_provinces(const GameState &g) {
  int restantes = 0;
  for (int i = 1; i <= nombre_provinces; ++i) restantes += g.TableProvinces(i).trouvée ? 0 : 1;
  return restantes;
}

int compter_villes(const GameState &g) {
  int restantes = 0;
  for (int v = 1; v <= nombre_villes; ++v) restantes += g.TableVilles(v).trouvée ? 0 : 1;
  return restantes;
}

int compter_régions(const GameState &g) {
  int restantes = 0;
  for (int r = 1; r <= nombre_régions; ++r) restantes += g.TableRégions(r).trouvée ? 0 : 1;
  return restantes;
}

/// One run: the player's part is played by the bytes.
class Joueur {
 public:
  explicit Joueur(Octets octets) : octets_(octets) {
    monde_.façade.joueur = [this](Fenêtre &f) { dans_la_fenêtre(f); };
    monde_.démarrer();
  }

  void jouer() {
    while (!octets_.épuisés() && monde_.programme.en_cours()) {
      préparer_réponses();
      const int score = monde_.g().Score;
      const bool en_jeu = monde_.g().Etape != étape_repos;
      nouvelle_ = false;
      événement();
      ++événements;
      if (monde_.programme.en_cours()) vérifier(score, en_jeu);
      monde_.oublier();
    }
  }

  /// The one fatal ending of play: a province taken out of a selection of more than nine.
  void vérifier_fin(const ErreurFatale &erreur) {
    const GameState &g = monde_.g();
    if (g.Etape != étape_régions || g.TailleRégion - g.ResteRégion <= 9) faute(erreur.what());
  }

 private:
  void préparer_réponses() {
    monde_.boîtes.réponses.assign(2, octets_.parmi(4) == 0 ? Réponse::non : Réponse::oui);
    monde_.hasard.suite.assign(2, static_cast<float>(octets_.octet()) / 256.0F);
  }

  void événement() {
    GameState &g = monde_.g();
    switch (octets_.parmi(12)) {
      case 0: menu(); break;
      case 1: monde_.e().tic(); break;
      case 2: bouton(monde_.e().Bouton_gruge); break;
      case 3: bouton(monde_.e().BoutonPasse); break;
      case 4: image(octets_.parmi(602), octets_.parmi(662)); break;
      case 5: fixer_valeur(monde_.e().barre_v, octets_.parmi(700)); break;
      case 6: repère_de(octets_.parmi(nombre_villes) + 1); break;
      case 7: membre_de_la_région(); break;
      case 8:
        if (g.Etape == étape_villes) repère_de(g.VilleCourante);
        break;
      default: territoire(g.ProvinceCourante); break;
    }
  }

  void menu() {
    std::vector<Contrôle *> entrées;
    for (Contrôle &c : monde_.e().contrôles())
      if (c.genre == Genre::menu && c.clic && est_utilisable(c) && c.nom != "menu_inf") entrées.push_back(&c);
    cliquer(monde_.e(), *entrées[static_cast<std::size_t>(octets_.parmi(static_cast<int>(entrées.size())))]);
  }

  void bouton(Contrôle &b) {
    if (est_utilisable(b)) cliquer(monde_.e(), b);
  }

  void image(int x, int y) {
    if (monde_.g().Etape == étape_repos) return;
    monde_.cliquer_carte(x, y);
  }

  void repère_de(int ville) {
    if (ville < 1) return;
    Contrôle &point = repère(monde_.e(), ville);
    if (est_utilisable(point)) cliquer(monde_.e(), point);
  }

  void territoire(int province) {
    if (province < 1) return;
    const Fiche_ville &capitale = monde_.g().TableVilles(province);
    image(capitale.x + 3, capitale.y + 4);
  }

  void membre_de_la_région() {
    const GameState &g = monde_.g();
    if (g.Etape != étape_régions) return;
    const Fiche_région &région = g.TableRégions(g.RégionCourante);
    if (région.nombre_provinces > 0) territoire(région.membres(octets_.parmi(région.nombre_provinces) + 1));
  }

  void dans_la_fenêtre(Fenêtre &f) {
    exiger(++fenêtres_ == 1, "one modal window at a time");
    if (f.nom == "nouvelle_partie") {
      nouvelle_ = true;
      static const char *const options[] = {"Niveau_apprentissage", "niveau_facile", "niveau_moyen",
                                            "niveau_difficile", "niveau_expert"};
      saisir(contrôle(f, "boîte_nom_joueur"), "Ann");
      cliquer(f, contrôle(f, options[octets_.parmi(5)]));
      cliquer(f, contrôle(f, octets_.parmi(8) == 0 ? "Bouton_annuler" : "bouton_sortie"));
    }
    --fenêtres_;
  }

  void vérifier(int score, bool en_jeu) {
    const GameState &g = monde_.g();
    switch (g.Etape) {
      case étape_provinces:
      case étape_drapeaux:
        exiger(g.ProvincesRestantes == compter_provinces(g), "provinces left are those not found");
        exiger(g.ProvincesRestantes == 0 || g.ProvinceCourante > 0, "a province is asked");
        break;
      case étape_villes:
        exiger(g.VillesRestantes == compter_villes(g), "towns left are those not found");
        exiger(g.VillesRestantes == 0 || g.VilleCourante > 0, "a town is asked");
        break;
      case étape_régions:
        exiger(g.RégionsRestantes == compter_régions(g), "regions left are those not found");
        exiger(g.RégionsRestantes == 0 || g.RégionCourante > 0, "a region is asked");
        exiger(g.ResteRégion >= 1 && g.ResteRégion <= g.TailleRégion, "a selection under way is not full");
        break;
      default: exiger(g.Etape == étape_repos, "the mode is one of play or idle"); break;
    }
    exiger(!en_jeu || g.Etape == étape_repos || nouvelle_ || g.Score <= score, "the score never rises");
    exiger(g.NbErreurs >= 0 && g.NbErreurs < erreurs_permises, "errors of a question stay below ten");
    exiger(g.Etape == étape_repos || g.Score > 0, "a game goes on with points only");
    for (int niveau = 1; niveau <= plus_haut_niveau; ++niveau)
      for (int rang = 2; rang <= g.Nombre_scores(niveau); ++rang)
        exiger(g.Meilleurs_scores(niveau, rang - 1).score >= g.Meilleurs_scores(niveau, rang).score,
               "the top ten descends");
  }

  Octets octets_;
  MondeFactice monde_;
  int fenêtres_ = 0;
  bool nouvelle_ = false;
};

}  // namespace
}  // namespace ardane

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/) {
  return std::atexit([] { std::fprintf(stderr, "%ld events played\n", ardane::événements); });
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *données, std::size_t taille) {
  using namespace ardane;
  Joueur joueur(Octets(données, taille));
  try {
    joueur.jouer();
  } catch (const ErreurFatale &erreur) {
    joueur.vérifier_fin(erreur);
  }
  return 0;
}
