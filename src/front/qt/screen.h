// The screen that the program plays on, and the mouse cursor.
#pragma once

#include <QPoint>
#include <QSize>
#include <QWidget>
#include <optional>

#include "front/qt/scale.h"
#include "platform/services.h"

namespace ardane {

/// The primary monitor in the toolkit's pixels, or a part of a window that stands in for it in pixels of its
/// own.
class ScreenQt : public Ecran {
 public:
  /// A widget that the program takes for its screen.
  struct Area {
    const QWidget *widget = nullptr;
    QSize size;  ///< in the program's pixels
    Scale scale;
  };

  ~ScreenQt() override;

  /// From now on the program plays on this area; on the primary monitor if there is none.
  void play_on(const std::optional<Area> &area) { area_ = area; }
  const std::optional<Area> &area() const { return area_; }
  Scale scale() const { return area_ ? area_->scale : Scale(); }

  /// A place of the program's screen on the desktop, and the other way round.
  QPointF on_desktop(QPointF logical) const;
  QPoint logical(QPointF on_desktop) const;

  int largeur() const override;
  int hauteur() const override;
  int bits_par_pixel() const override;
  Rect zone_de_travail() const override;
  Mode_écran moniteur() const override;
  /// The mode in use alone where the desktop does not tell the others.
  std::vector<Mode_écran> modes() const override;
  Point curseur() const override;
  void sablier(bool actif) override;

  /// Where the press stands that is being handled; the cursor may have moved on since.
  class Press {
   public:
    Press(ScreenQt &screen, QPointF place) : screen_(screen) { screen.press_ = place; }
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
  std::optional<Area> area_;
  std::optional<QPointF> press_;  ///< on the desktop
  bool hourglass_ = false;
};

}  // namespace ardane
