// The primary screen, its work area and the mouse cursor, in the desktop's logical pixels.
#pragma once

#include <QPoint>
#include <optional>

#include "platform/services.h"

namespace ardane {

class ScreenQt : public Ecran {
 public:
  ~ScreenQt() override;

  int largeur() const override;
  int hauteur() const override;
  int bits_par_pixel() const override;
  Rect zone_de_travail() const override;
  /// The mode in use alone: desktops do not tell a program the others.
  std::vector<Mode_écran> modes() const override;
  Point curseur() const override;
  void sablier(bool actif) override;

  /// Where the press stands that is being handled; the cursor may have moved on since.
  class Press {
   public:
    Press(ScreenQt &screen, QPoint place) : screen_(screen) { screen.press_ = place; }
    ~Press() { screen_.press_.reset(); }
    Press(const Press &) = delete;
    Press &operator=(const Press &) = delete;

   private:
    ScreenQt &screen_;
  };

  /// For as long as it lives the arrow stands in for the hourglass: the player is asked something.
  class Arrow {
   public:
    explicit Arrow(ScreenQt &screen) : screen_(screen), hourglass_(screen.hourglass_) {
      screen_.sablier(false);
    }
    ~Arrow() { screen_.sablier(hourglass_); }
    Arrow(const Arrow &) = delete;
    Arrow &operator=(const Arrow &) = delete;

   private:
    ScreenQt &screen_;
    bool hourglass_;
  };

 private:
  std::optional<QPoint> press_;
  bool hourglass_ = false;
};

}  // namespace ardane
