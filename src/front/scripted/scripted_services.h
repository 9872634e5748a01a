// A scripted world but for windows and boxes: a screen of given measures, a clock that stands still, a random
// source and a web that scripts feed, and a witness in place of loudspeaker and help viewer.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "front/scripted/witness.h"
#include "front/scripted/world_options.h"
#include "platform/random_source.h"
#include "platform/services.h"
#include "platform/system_clock.h"

namespace ardane {

class EcranScripté : public Ecran {
 public:
  EcranScripté(const OptionsMonde &options, Témoin &témoin);

  int largeur() const override { return taille.x; }
  int hauteur() const override { return taille.y; }
  int bits_par_pixel() const override { return bits; }
  Rect zone_de_travail() const override { return zone.value_or(Rect{0, 0, taille.x, taille.y}); }
  std::vector<Mode_écran> modes() const override;
  Point curseur() const override { return curseur_; }
  void sablier(bool actif) override { témoin_.sablier_posé(actif); }

  void placer_curseur(Point curseur) { curseur_ = curseur; }

  // Of the screen, which may change under the program.
  Point taille;
  int bits;
  std::optional<Rect> zone;
  std::vector<Mode_écran> modes_listés;

 private:
  Témoin &témoin_;
  Point curseur_;
};

class SonScripté : public Son {
 public:
  explicit SonScripté(Témoin &témoin) : témoin_(témoin) {}
  void jouer(const std::string &chemin) override;

 private:
  Témoin &témoin_;
};

/// A given date at midnight, or the system's clock.
class HorlogeScriptée : public HorlogeSystème {
 public:
  explicit HorlogeScriptée(const OptionsMonde &options) : date_(options.date) {}
  std::chrono::year_month_day aujourd_hui() const override;
  std::chrono::seconds heure() const override;

 private:
  std::optional<std::chrono::year_month_day> date_;
};

class HasardScripté : public HasardSemé {
 public:
  explicit HasardScripté(const OptionsMonde &options)
      : HasardSemé(options.hasard), nul_(options.hasard_nul) {}
  void semer() override;
  float tirer() override;

  std::deque<float> suite;  ///< draws to come, in [0, 1), before the source goes on by itself
  int semailles = 0;        ///< how often the program has asked for it
  int tirages = 0;

 private:
  bool nul_;
};

/// Without a network every page fails, but for the next one that a script provides.
class WebScripté : public Web {
 public:
  explicit WebScripté(Témoin &témoin) : témoin_(témoin) {}
  std::optional<std::string> lire_page(const std::string &page) override;

  /// What the next page yields; nothing for a failure.
  void prévoir(std::optional<std::string> octets) { prochaine_ = std::move(octets); }

 private:
  Témoin &témoin_;
  std::optional<std::string> prochaine_;
};

class AideScriptée : public Aide {
 public:
  explicit AideScriptée(Témoin &témoin) : témoin_(témoin) {}
  void ouvrir(const std::string &fichier, int contexte) override;

 private:
  Témoin &témoin_;
};

}  // namespace ardane
