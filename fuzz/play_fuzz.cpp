// The whole game played by bytes: clicks anywhere, dots, buttons, menus, answers to boxes, ticks, games
// stopped and taken up, configurations made, kept and loaded, saved games damaged on the disk. After every
// event what must always hold is checked. The files of a run lie in a folder of its own, which the player
// never leaves.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/chooser_modes.h"
#include "persistence/card_format.h"
#include "persistence/folders.h"
#include "persistence/score_file.h"
#include "persistence/slot_file.h"
#include "platform/window_layout.h"
#include "rules.h"
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

/// Played by all runs, told at the end.
long événements = 0, enregistrées = 0, reprises = 0, abîmées = 0, paramétrages = 0;

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

bool même_ordre(const Ordre_de_jeu &a, const Ordre_de_jeu &b) {
  return std::equal(a.begin(), a.end(), b.begin());
}

bool en_jeu(const GameState &g) {
  return g.Etape >= étape_provinces && g.Etape <= étape_régions;
}

bool paramétrage_affiché(const GameState &g) {
  return g.Etape == étape_paramétrage_affiché || g.Etape == étape_paramétrage_défini;
}

// --- A game taken up is the one that was saved

bool mêmes_statistiques(const GameState &a, const GameState &b) {
  for (int p = 1; p <= nombre_provinces; ++p)
    for (int k = 0; k <= nombre_jeux; ++k)
      if (a.TableProvinces(p).points_perdus(k) != b.TableProvinces(p).points_perdus(k) ||
          a.TableProvinces(p).trouvée_étape(k) != b.TableProvinces(p).trouvée_étape(k))
        return false;
  const auto mêmes = [](const auto &une, const auto &autre) {
    for (int i = 1; i <= une.dernier; ++i)
      if (une(i).points_perdus != autre(i).points_perdus || une(i).trouvée_étape != autre(i).trouvée_étape)
        return false;
    return true;
  };
  return mêmes(a.TableRégions, b.TableRégions) && mêmes(a.TableVilles, b.TableVilles);
}

bool mêmes_scores(const GameState &a, const GameState &b) {
  for (int niveau = 1; niveau <= plus_haut_niveau; ++niveau) {
    if (a.Nombre_scores(niveau) != b.Nombre_scores(niveau)) return false;
    for (int rang = 1; rang <= nombre_rangs; ++rang)
      if (a.Meilleurs_scores(niveau, rang).nom != b.Meilleurs_scores(niveau, rang).nom ||
          a.Meilleurs_scores(niveau, rang).score != b.Meilleurs_scores(niveau, rang).score)
        return false;
  }
  return true;
}

bool mêmes_trouvées(const auto &a, const auto &b) {
  for (int i = 1; i <= a.dernier; ++i)
    if (a(i).trouvée != b(i).trouvée) return false;
  return true;
}

bool mêmes_exclusions(const GameState &a, const GameState &b) {
  for (int p = 1; p <= nombre_provinces; ++p)
    if (a.TableProvinces(p).inhibée != b.TableProvinces(p).inhibée) return false;
  return true;
}

/// `nommé_est_là`: the score file that the game was played under is on the disk.
void vérifier_reprise(const GameState &avant, const GameState &après, bool nommé_est_là) {
  exiger(après.Nom_joueur == avant.Nom_joueur && après.Niveau == avant.Niveau &&
             après.ModeApprentissage == avant.ModeApprentissage && après.Langue == avant.Langue &&
             après.ScoreNonRetenu == avant.ModeApprentissage,
         "a game taken up has its player, level, mode and language");
  exiger(mêmes_statistiques(avant, après), "a game taken up has its statistics");
  const bool mêmes = mêmes_exclusions(avant, après);
  if (après.Etape != avant.Etape) {
    exiger(!mêmes && avant.Etape == étape_régions, "a game taken up stands in its stage");
    return;
  }
  exiger(après.Score == avant.Score, "a game taken up has its score");
  exiger(!après.PartieVierge && !après.PartieClose && !après.AprèsPartie, "a game taken up is under way");
  if (paramétrage_temporaire(avant)) {
    exiger(paramétrage_temporaire(après) && mêmes_scores(avant, après) &&
               même_ordre(avant.Ordre_jeux, après.Ordre_jeux),
           "a game taken up has the configuration that no file keeps");
  } else {
    exiger(!nommé_est_là || après.Fichier_lancement == avant.Fichier_lancement,
           "a game taken up has its score file");
  }
  switch (après.Etape) {
    case étape_villes:
      exiger(mêmes_trouvées(avant.TableVilles, après.TableVilles), "a game taken up has its towns");
      exiger(!mêmes || mêmes_trouvées(avant.TableProvinces, après.TableProvinces),
             "a province is complete when its towns are");
      break;
    case étape_régions:
      exiger(!mêmes || mêmes_trouvées(avant.TableRégions, après.TableRégions),
             "a game taken up has its regions");
      [[fallthrough]];
    case étape_provinces:
      exiger(mêmes_trouvées(avant.TableProvinces, après.TableProvinces), "a game taken up has its provinces");
      break;
    default: break;
  }
}

bool régions_bien_comptées(const GameState &g) {
  Table<int, 0, nombre_régions> restantes;
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_province &province = g.TableProvinces(p);
    if (!province.trouvée && !province.inhibée) ++restantes(province.région);
  }
  for (int r = 1; r <= nombre_régions; ++r)
    if (g.TableRégions(r).provinces_restantes != restantes(r)) return false;
  return true;
}

/// One run: the player's part is played by the bytes.
class Joueur {
 public:
  explicit Joueur(Octets octets) : octets_(octets) {
    std::filesystem::create_directory(chemin_natif(monde_.dossier.fichier("jeux")));
    monde_.façade.joueur = [this](Fenêtre &f) { dans_la_fenêtre(f); };
    monde_.démarrer();
    paramétrer();
    ordre_en_vigueur_ = monde_.g().Ordre_jeux;
  }

  void jouer() {
    while (!octets_.épuisés() && monde_.programme.en_cours()) {
      préparer_réponses();
      const int score = monde_.g().Score;
      const bool jouait = en_jeu(monde_.g());
      nouvelle_ = false;
      événement();
      ++événements;
      if (monde_.programme.en_cours()) vérifier(score, jouait);
      monde_.oublier();
    }
  }

  /// The fatal endings of play: a province taken out of a selection of more than nine.
  void vérifier_fin(const ErreurFatale &erreur) {
    const GameState &g = monde_.g();
    // A table scrolled by the order that the statistics' file has left behind.
    if (ordre_des_villes_) return;
    if (g.Etape != étape_régions || g.TailleRégion - g.ResteRégion <= 9) faute(erreur.what());
  }

 private:
  /// A run begins in any stage, some with provinces left out, some with whole regions.
  void paramétrer() {
    GameState &g = monde_.g();
    const int premier = octets_.parmi(nombre_jeux), une_sur = octets_.parmi(7) + 2, façon = octets_.parmi(3);
    for (int i = 1; i <= nombre_jeux; ++i)
      g.Ordre_jeux(i) = static_cast<std::int16_t>((premier + i) % nombre_jeux + 1);
    for (int p = 1; p <= nombre_provinces && façon != 0; ++p) {
      Fiche_province &province = g.TableProvinces(p);
      province.inhibée = (façon == 1 ? p : province.région) % une_sur == 0;
    }
    Ecrire_scores(monde_.c(), true);
  }

  void préparer_réponses() {
    monde_.boîtes.réponses.assign(2, octets_.parmi(4) == 0 ? Réponse::non : Réponse::oui);
    monde_.hasard.suite.assign(2, static_cast<float>(octets_.octet()) / 256.0F);
  }

  void événement() {
    GameState &g = monde_.g();
    if (paramétrage_affiché(g) && octets_.parmi(2) == 0) return toucher_au_paramétrage();
    switch (octets_.parmi(18)) {
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
      case 9: entrée_de_fichier(); break;
      case 10:
        switch (octets_.parmi(8)) {
          case 0: abîmer_une_partie(); break;
          case 1: abîmer_les_fiches(); break;
          default: break;
        }
        break;
      default: territoire(g.ProvinceCourante); break;
    }
  }

  void toucher_au_paramétrage() {
    Ecran_principal &e = monde_.e();
    switch (octets_.parmi(12)) {
      case 0: bouton(e.BTN(1)); break;
      case 1: annuler_le_paramétrage(); break;
      case 2: bouton(e.BTN_Sauvegarde); break;
      case 3: bouton(e.BTN_Démarrage); break;
      case 4:
      case 5: territoire(octets_.parmi(nombre_provinces) + 1); break;
      default: bouton(e.Bouton(octets_.parmi(16) + 1)); break;
    }
  }

  void annuler_le_paramétrage() {
    const bool annulé = est_utilisable(monde_.e().BTN(2));
    bouton(monde_.e().BTN(2));
    exiger(!annulé || même_ordre(monde_.g().Ordre_jeux, ordre_en_vigueur_),
           "nothing of a cancelled editing stays");
  }

  void menu() {
    std::vector<Contrôle *> entrées;
    for (Contrôle &c : monde_.e().contrôles())
      if (c.genre == Genre::menu && c.clic && est_utilisable(c) && c.nom != "menu_inf") entrées.push_back(&c);
    Contrôle &choisie = *entrées[static_cast<std::size_t>(octets_.parmi(static_cast<int>(entrées.size())))];
    // To quit ends the run: not often.
    if (choisie.nom != "fichier_quitter" || octets_.parmi(8) == 0) cliquer(monde_.e(), choisie);
  }

  void entrée_de_fichier() {
    static constexpr std::array<std::string_view, 4> noms = {"fichier_nouveau", "Fichier_enregistrer",
                                                             "Fichier_lire", "menu_définir"};
    bouton(monde_.e().menu(noms[static_cast<std::size_t>(octets_.parmi(4))]));
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

  // --- Windows

  void dans_la_fenêtre(Fenêtre &f) {
    fenêtres_.push_back(f.nom);
    exiger(fenêtres_.size() == 1 || peut_recouvrir(f.nom, fenêtres_[fenêtres_.size() - 2]),
           "one modal window at a time but for those that open others");
    if (f.nom == "nouvelle_partie")
      préparer_une_partie(f);
    else if (f.nom == "Sélection_partie")
      choisir_un_fichier(f);
    else
      toucher_à_tout(f);
    fenêtres_.pop_back();
  }

  static bool peut_recouvrir(std::string_view nom, std::string_view dessous) {
    return (nom == "Affichage_scores" && dessous == "Sélection_partie") ||
           (nom == "Stats" && dessous == "Affichage_scores");
  }

  /// Whatever a window offers, a few times: buttons, pictures, bars, texts.
  void toucher_à_tout(Fenêtre &f) {
    ordre_des_villes_ = false;
    for (int i = octets_.parmi(8); i > 0 && f.ouverte; --i) {
      std::vector<Contrôle *> offerts;
      for (Contrôle &c : f.contrôles())
        if (est_utilisable(c) && prend_le_clavier(c)) offerts.push_back(&c);
      if (offerts.empty()) return;
      Contrôle &choisi = *offerts[static_cast<std::size_t>(octets_.parmi(static_cast<int>(offerts.size())))];
      if (choisi.genre != Genre::barre) ordre_des_villes_ = choisi.nom == "BoutonSauvegarde";
      if (choisi.genre == Genre::barre)
        fixer_valeur(choisi, octets_.parmi(400));
      else if (choisi.genre == Genre::texte && !choisi.lecture_seule)
        saisir(choisi, std::string(octets_.octet() * 4, static_cast<char>('a' + octets_.octet() % 26)));
      else if (choisi.clic)
        cliquer(f, choisi);
    }
  }

  void préparer_une_partie(Fenêtre &f) {
    nouvelle_ = true;
    static const char *const options[] = {"Niveau_apprentissage", "niveau_facile", "niveau_moyen",
                                          "niveau_difficile", "niveau_expert"};
    saisir(contrôle(f, "boîte_nom_joueur"), "Ann");
    cliquer(f, contrôle(f, options[octets_.parmi(5)]));
    cliquer(f, contrôle(f, octets_.parmi(8) == 0 ? "Bouton_annuler" : "bouton_sortie"));
  }

  void choisir_un_fichier(Fenêtre &f) {
    const GameState avant = monde_.g();
    for (int fois = octets_.parmi(6) + 1; fois > 0 && f.ouverte; --fois) {
      switch (octets_.parmi(8)) {
        case 0: changer_de_dossier(f); break;
        case 1: cliquer(f, contrôle(f, "Bouton_annuler")); break;
        case 2: demander_fermeture(f); break;
        default: choisir_ou_nommer(f); break;
      }
    }
    if (!f.ouverte && choix_fait_) suivre_le_choix(f, avant);
    choix_fait_ = false;
  }

  std::string dossier_ouvert(Fenêtre &f) { return contrôle(f, "Dossier_ouvert").infobulle; }

  /// Into the one folder there is, and out again, but no further.
  void changer_de_dossier(Fenêtre &f) {
    Contrôle &liste = contrôle(f, "Répertoire");
    const bool en_haut = dossier_ouvert(f) == monde_.dossier.chemin();
    const auto place = std::find(liste.éléments.begin(), liste.éléments.end(), en_haut ? "jeux" : "..");
    exiger(place != liste.éléments.end(), "a folder is listed");
    choisir(liste, static_cast<int>(place - liste.éléments.begin()) + 1);
    déclencher(liste.double_clic);
  }

  void choisir_ou_nommer(Fenêtre &f) {
    Contrôle &fichiers = contrôle(f, "Fichier"), &nom = contrôle(f, "Nom_fichier");
    static const std::array<std::string, 10> noms = {"a", "b",  "c", "d.x",    "été",
                                                     "",  "  ", ".", "x/../y", std::string(300, 'n')};
    if (!fichiers.éléments.empty())
      choisir(fichiers, octets_.parmi(static_cast<int>(fichiers.éléments.size())) + 1);
    if (nom.visible && octets_.parmi(4) != 0)
      saisir(nom, noms[static_cast<std::size_t>(octets_.parmi(static_cast<int>(noms.size())))]);
    choix_fait_ = true;
    switch (octets_.parmi(4)) {
      case 0: déclencher(fichiers.double_clic); break;
      case 1:
        if (nom.visible) entrer(f, nom);
        break;
      default: cliquer(f, contrôle(f, "Bouton_OK")); break;
    }
    choix_fait_ = choix_fait_ && !f.ouverte;
  }

  /// The chooser has done what it was opened for.
  void suivre_le_choix(Fenêtre &f, const GameState &avant) {
    const GameState &g = monde_.g();
    const bool lit = g.Mode_sélection == choix_fichier;
    const std::string chemin = Joindre_chemin(
        dossier_ouvert(f), lit ? élément_choisi(contrôle(f, "Fichier")) : contrôle(f, "Nom_fichier").texte);
    if (g.Type_fichier == fichier_paramétrage) {
      ++paramétrages;
      exiger(g.Etape == étape_repos, "a configuration chosen leaves the program idle");
    } else if (lit) {
      ++reprises;
      nouvelle_ = true;
      exiger(!fichier_existe(chemin), "a game is taken up once");
      const auto partie = parties_.find(chemin);
      if (partie == parties_.end()) return;
      vérifier_reprise(partie->second, g,
                       fichier_existe(monde_.c().dossier.complet(partie->second.Fichier_lancement)));
      parties_.erase(partie);
    } else {
      ++enregistrées;
      exiger(est_fichier_ordinaire(chemin), "a game saved is on the disk");
      exiger(g.Etape == étape_repos && g.PartieVierge && g.PartieClose, "a game saved is over on the screen");
      parties_[chemin] = avant;
    }
  }

  /// A byte of a saved game turned into another. Not of what names other files, and of no file that holds a
  /// configuration of its own, which is trusted further than a game.
  void abîmer_une_partie() {
    if (parties_.empty()) return;
    auto partie = parties_.begin();
    std::advance(partie, octets_.parmi(static_cast<int>(parties_.size())));
    if (paramétrage_temporaire(partie->second)) return;
    std::string octets = lire_fichier(partie->first);
    const int cases = static_cast<int>(octets.size() / taille_de_case);
    const int numéro = octets_.parmi(3) == 0 ? octets_.parmi(cases) + 1 : octets_.parmi(10) + 1;
    if (numéro == case_du_fichier_lancement) return;
    const auto place = static_cast<std::size_t>(numéro - 1) * taille_de_case + octets_.octet() % 4;
    octets[place] = static_cast<char>(octets_.octet());
    écrire_fichier(partie->first, octets);
    parties_.erase(partie);
    ++abîmées;
  }

  /// A byte of the cards' file turned into another, or the file cut there.
  void abîmer_les_fiches() {
    const std::string &fichier = monde_.g().Fichiers_info(1);
    std::string octets = lire_fichier(fichier);
    if (octets.empty()) return;
    const int parmi_les_premières = 8 * static_cast<int>(taille_de_fiche);
    const auto place = static_cast<std::size_t>(
        octets_.parmi(std::min(static_cast<int>(octets.size()), parmi_les_premières)));
    if (octets_.parmi(4) == 0)
      octets.resize(place);
    else
      octets[place] = static_cast<char>(octets_.octet());
    écrire_fichier(fichier, octets);
    ++abîmées;
  }

  // --- What must always hold

  void vérifier(int score, bool jouait) {
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
        exiger(régions_bien_comptées(g), "a region lacks its provinces in play that are not found");
        exiger(g.ResteRégion >= 1 && g.ResteRégion <= g.TailleRégion, "a selection under way is not full");
        break;
      case étape_paramétrage_affiché:
      case étape_paramétrage_défini: vérifier_grille(); break;
      case étape_révision: exiger(g.Carte_pleine_largeur, "the revision has the whole screen"); break;
      default: exiger(g.Etape == étape_repos, "the mode is one of those there are"); break;
    }
    exiger(!jouait || !en_jeu(g) || nouvelle_ || g.Score <= score, "the score never rises");
    exiger(g.NbErreurs >= 0 && g.NbErreurs < erreurs_permises, "errors of a question stay below ten");
    exiger(!en_jeu(g) || g.Score > 0, "a game goes on with points only");
    vérifier_paramétrage();
    if (g.Etape != étape_paramétrage_défini) ordre_en_vigueur_ = g.Ordre_jeux;
    for (int niveau = 1; niveau <= plus_haut_niveau; ++niveau)
      for (int rang = 2; rang <= g.Nombre_scores(niveau); ++rang)
        exiger(g.Meilleurs_scores(niveau, rang - 1).score >= g.Meilleurs_scores(niveau, rang).score,
               "the top ten descends");
  }

  /// One stage a position, one position a stage, positions without a hole.
  void vérifier_grille() {
    std::array<int, nombre_jeux> par_jeu{};
    bool trou = false;
    for (int position = 0; position < nombre_jeux; ++position) {
      int jeux = 0;
      for (int jeu = 0; jeu < nombre_jeux; ++jeu) {
        if (!monde_.e().Bouton(position * nombre_jeux + jeu + 1).coché) continue;
        ++jeux;
        ++par_jeu[static_cast<std::size_t>(jeu)];
      }
      exiger(jeux <= 1, "one stage a position");
      exiger(jeux == 0 || !trou, "positions are contiguous");
      exiger(position > 0 || jeux == 1, "some stage comes first");
      trou = jeux == 0;
    }
    for (const int positions : par_jeu) exiger(positions <= 1, "one position a stage");
  }

  void vérifier_paramétrage() {
    const GameState &g = monde_.g();
    Ecran_principal &e = monde_.e();
    const bool défini = g.Etape == étape_paramétrage_défini;
    exiger(e.Bouton(1).visible == paramétrage_affiché(g), "the panel is there in its two modes");
    exiger(e.BTN(1).visible == défini && e.BTN(2).visible == défini, "its buttons are there to edit it");
    exiger(e.menu("menu_fichier").actif != défini, "the menus are closed while it is edited");
    exiger(g.Ordre_jeux(1) != aucun_jeu, "something is played");
    bool fini = false;
    for (const std::int16_t jeu : g.Ordre_jeux) {
      exiger(jeu >= 0 && jeu <= nombre_jeux, "what is played are stages");
      exiger(jeu == aucun_jeu || !fini, "the order of play has no hole");
      exiger(jeu == aucun_jeu || std::count(g.Ordre_jeux.begin(), g.Ordre_jeux.end(), jeu) == 1,
             "no stage is played twice");
      fini = jeu == aucun_jeu;
    }
  }

  static constexpr int case_du_fichier_lancement = 3;

  Octets octets_;
  MondeFactice monde_;
  bool ordre_des_villes_ = false;             ///< written to its file, and no table shown since
  std::vector<std::string> fenêtres_;         ///< open modal windows, the lowest first
  std::map<std::string, GameState> parties_;  ///< saved games, undamaged, by their files
  Ordre_de_jeu ordre_en_vigueur_;             ///< that of play, whatever is being edited
  bool nouvelle_ = false;                     ///< the event has put another game in the place of the last
  bool choix_fait_ = false;                   ///< the chooser was left by a choice
};

}  // namespace
}  // namespace ardane

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/) {
  return std::atexit([] {
    using namespace ardane;
    std::fprintf(stderr,
                 "%ld events played: %ld games saved, %ld taken up, %ld damaged; %ld configurations chosen\n",
                 événements, enregistrées, reprises, abîmées, paramétrages);
  });
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
