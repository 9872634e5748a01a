// A run of the program in a scripted world, for tests of rules: what reaches the outside is written down, the
// player answers boxes from a queue and plays in modal windows by a function.
#pragma once

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/resources.h"
#include "front/scripted/scripted_world.h"
#include "map/main_window.h"
#include "startup/program.h"

namespace ardane {

/// A folder of its own that goes away with it.
class DossierTemporaire {
 public:
  DossierTemporaire();
  ~DossierTemporaire();
  DossierTemporaire(const DossierTemporaire &) = delete;
  DossierTemporaire &operator=(const DossierTemporaire &) = delete;
  std::string chemin() const { return texte_du_chemin(dossier_); }
  std::string fichier(std::string_view nom) const { return Joindre_chemin(chemin(), nom); }

 private:
  std::filesystem::path dossier_;
};

/// What has reached the outside, kind by kind, and the player's part.
struct Relevé : Témoin, Attente {
  void boîte_montrée(const Boîte &boîte) override { boîtes.montrées.push_back(boîte); }
  void fenêtre_ouverte(const Fenêtre &fenêtre, bool) override { façade.ouvertes.push_back(fenêtre.nom); }
  void sablier_posé(bool actif) override { sabliers.push_back(actif); }
  void son_joué(const std::string &fichier) override { son.joués.push_back(fichier); }
  void page_demandée(const std::string &page) override { pages.push_back(page); }
  void aide_ouverte(const std::string &fichier, int contexte) override {
    aide.ouvertures.emplace_back(fichier, contexte);
  }
  Réponse attendre_réponse(const Boîte &boîte) override;
  void attendre_fermeture(Fenêtre &fenêtre) override;
  void oublier();

  struct {
    std::vector<Boîte> montrées;
    std::deque<Réponse> réponses;                ///< then OK, or Oui
    std::function<void(const Boîte &)> pendant;  ///< runs while a box is up
  } boîtes;
  struct {
    std::vector<std::string> ouvertes;
    std::function<void(Fenêtre &)> joueur;  ///< plays in a modal window, which then closes
  } façade;
  struct {
    std::vector<std::string> joués;
  } son;
  struct {
    std::vector<std::pair<std::string, int>> ouvertures;
  } aide;
  std::vector<std::string> pages;
  std::vector<bool> sabliers;
};

/// One run of the program, not yet started, in a world of 21 November 2026 whose every draw is 0 unless the
/// test foresees it. Its current folder is a temporary one.
struct MondeFactice : Relevé {
  explicit MondeFactice(Lieu_de_secours secours = {});

  /// `Démarrage` over a program folder that holds "ardane.pts" alone; the boxes of a first start are
  /// forgotten afterwards.
  void démarrer();
  /// A new game through the dialog: a level of 1 to 4, 0 for learning mode.
  void nouvelle_partie(int niveau, const std::string &nom = "Ann");
  /// The picture of the map that the player clicks at a map pixel.
  void cliquer_carte(int x, int y);
  /// A right answer, a wrong one, through the gate of the game.
  void répondre_juste();
  void répondre_faux();
  /// A province that is in play and not the one asked.
  int autre_province();

  GameState &g() { return programme.état(); }
  Ecran_principal &e() { return programme.principale(); }
  Contexte &c() { return programme.contexte(); }
  const Boîte &dernière_boîte() const { return boîtes.montrées.at(boîtes.montrées.size() - 1); }

  DossierTemporaire dossier;
  MondeScripté monde;
  Registre &registre = *monde.registre;
  EcranScripté &écran = monde.écran;
  HasardScripté &hasard = monde.hasard;
  WebScripté &web = monde.web;
  Programme programme;
};

/// The options of that world.
OptionsMonde options_factices();

/// What stands in a file, and writing one.
std::string lire_fichier(const std::string &chemin);
void écrire_fichier(const std::string &chemin, std::string_view contenu);

}  // namespace ardane
