// A world without a screen for tests of rules: boxes answered from a queue, draws of the random source in a
// list, everything that reaches the outside written down.
#pragma once

#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/game_state.h"
#include "core/paths.h"
#include "core/resources.h"
#include "map/main_window.h"
#include "platform/registry_store.h"
#include "platform/services.h"
#include "startup/program.h"

namespace ardane {

class BoîtesFactices : public Boîtes {
 public:
  Réponse montrer(const Boîte &boîte) override {
    montrées.push_back(boîte);
    if (pendant) pendant(boîte);
    if (réponses.empty()) return boîte.boutons == Boutons::ok ? Réponse::ok : Réponse::oui;
    const Réponse réponse = réponses.front();
    réponses.pop_front();
    return réponse;
  }

  std::vector<Boîte> montrées;
  std::deque<Réponse> réponses;                ///< then OK, or Oui
  std::function<void(const Boîte &)> pendant;  ///< runs while a box is up
};

class EcranFactice : public Ecran {
 public:
  int largeur() const override { return taille.x; }
  int hauteur() const override { return taille.y; }
  int bits_par_pixel() const override { return 32; }
  Rect zone_de_travail() const override { return {0, 0, taille.x, taille.y}; }
  std::vector<Mode_écran> modes() const override { return {{taille.x, taille.y, 32}}; }
  Point curseur() const override { return place_du_curseur; }
  void sablier(bool actif) override { sabliers.push_back(actif); }

  Point taille{1280, 1024};
  Point place_du_curseur;
  std::vector<bool> sabliers;
};

class SonFactice : public Son {
 public:
  void jouer(const std::string &chemin) override {
    joués.push_back(texte_du_chemin(chemin_natif(chemin).filename()));
  }
  std::vector<std::string> joués;
};

class HorlogeFactice : public Horloge {
 public:
  std::chrono::year_month_day aujourd_hui() const override { return date; }
  std::chrono::seconds heure() const override { return std::chrono::seconds(0); }
  std::chrono::year_month_day date{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(21)};
};

class HasardFactice : public Hasard {
 public:
  void semer() override { ++semailles; }
  float tirer() override {
    ++tirages;
    if (suite.empty()) return 0;
    const float tirage = suite.front();
    suite.pop_front();
    return tirage;
  }
  std::deque<float> suite;  ///< then 0 for ever: the first candidate
  int semailles = 0;
  int tirages = 0;
};

class WebFactice : public Web {
 public:
  std::optional<std::string> lire_page(const std::string &page) override {
    demandées.push_back(page);
    return contenu;
  }
  std::vector<std::string> demandées;
  std::optional<std::string> contenu;
};

class AideFactice : public Aide {
 public:
  void ouvrir(const std::string &fichier, int contexte) override {
    ouvertures.emplace_back(fichier, contexte);
  }
  std::vector<std::pair<std::string, int>> ouvertures;
};

class FaçadeFactice : public Façade {
 public:
  void montrer(Fenêtre &fenêtre) override {
    fenêtre.ouverte = true;
    ouvertes.push_back(fenêtre.nom);
  }
  /// Plays the player's part in the window, then closes it if it is still open.
  void montrer_modale(Fenêtre &fenêtre) override {
    fenêtre.ouverte = true;
    ouvertes.push_back(fenêtre.nom);
    if (fenêtre.activation) fenêtre.activation();
    if (joueur) joueur(fenêtre);
    fenêtre.ouverte = false;
  }
  void retirer(Fenêtre &fenêtre) override { retirées.push_back(fenêtre.nom); }
  void repeindre(Fenêtre &) override {}
  Rect rectangle(const Fenêtre &fenêtre, const Contrôle &contrôle) const override {
    const auto pixel = [](double valeur) { return static_cast<int>(valeur); };
    const int gauche = pixel(fenêtre.gauche + contrôle.gauche);
    const int haut = pixel(fenêtre.haut + contrôle.haut);
    return {gauche, haut, gauche + pixel(contrôle.largeur), haut + pixel(contrôle.hauteur)};
  }

  std::vector<std::string> ouvertes, retirées;
  std::function<void(Fenêtre &)> joueur;
};

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

/// The world and one run of the program in it, not yet started. Its current folder is the temporary one.
struct MondeFactice {
  MondeFactice();

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
  int autre_province() const;

  GameState &g() { return programme.état(); }
  const GameState &g() const { return programme_constant(); }
  Ecran_principal &e() { return programme.principale(); }
  Contexte &c() { return programme.contexte(); }
  const Boîte &dernière_boîte() const { return boîtes.montrées.at(boîtes.montrées.size() - 1); }

  DossierTemporaire dossier;
  BoîtesFactices boîtes;
  RegistreMémoire registre;
  EcranFactice écran;
  SonFactice son;
  HorlogeFactice horloge;
  HasardFactice hasard;
  WebFactice web;
  AideFactice aide;
  FaçadeFactice façade;
  Programme programme;

 private:
  const GameState &programme_constant() const { return const_cast<MondeFactice *>(this)->programme.état(); }
};

/// What stands in a file, and writing one.
std::string lire_fichier(const std::string &chemin);
void écrire_fichier(const std::string &chemin, std::string_view contenu);

}  // namespace ardane
