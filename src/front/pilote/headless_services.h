// The world of the pilot but for windows and boxes: a screen of given measures, a clock that stands still, a
// random source and a web that scripts feed, and a journal in place of loudspeaker and help viewer.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "front/pilote/journal.h"
#include "front/pilote/options.h"
#include "platform/random_source.h"
#include "platform/services.h"

namespace ardane {

class EcranScripté : public Ecran {
 public:
  explicit EcranScripté(const Options &options);

  int largeur() const override { return mode_.largeur; }
  int hauteur() const override { return mode_.hauteur; }
  int bits_par_pixel() const override { return mode_.couleurs; }
  Rect zone_de_travail() const override { return zone_; }
  std::vector<Mode_écran> modes() const override { return modes_; }
  Point curseur() const override { return curseur_; }
  void sablier(bool) override {}

  void placer_curseur(Point curseur) { curseur_ = curseur; }

 private:
  Mode_écran mode_;
  Rect zone_;
  std::vector<Mode_écran> modes_;
  Point curseur_;
};

/// Writes the name of each sound file, without its folder.
class SonÉcrit : public Son {
 public:
  explicit SonÉcrit(Journal &journal) : journal_(journal) {}
  void jouer(const std::string &chemin) override;

 private:
  Journal &journal_;
};

/// A given date at midnight, or the system's clock.
class HorlogeScriptée : public Horloge {
 public:
  explicit HorlogeScriptée(const Options &options) : date_(options.date) {}
  std::chrono::year_month_day aujourd_hui() const override;
  std::chrono::seconds heure() const override;

 private:
  std::optional<std::chrono::year_month_day> date_;
};

class HasardScripté : public HasardSemé {
 public:
  explicit HasardScripté(const Options &options) : HasardSemé(options.hasard) {}
  float tirer() override;

  /// A draw to come, in [0, 1), after those that wait already.
  void prévoir(float tirage) { prévus_.push_back(tirage); }
  void oublier() { prévus_.clear(); }

 private:
  std::deque<float> prévus_;
};

/// Without a network every page fails, but for the next one that a script provides.
class WebScripté : public Web {
 public:
  explicit WebScripté(Journal &journal) : journal_(journal) {}
  std::optional<std::string> lire_page(const std::string &page) override;

  /// What the next page yields; nothing for a failure.
  void prévoir(std::optional<std::string> octets) { prochaine_ = std::move(octets); }

 private:
  Journal &journal_;
  std::optional<std::string> prochaine_;
};

class AideÉcrite : public Aide {
 public:
  explicit AideÉcrite(Journal &journal) : journal_(journal) {}
  void ouvrir(const std::string &fichier, int contexte) override;

 private:
  Journal &journal_;
};

}  // namespace ardane
