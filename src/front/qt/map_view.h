// The map's viewport: one widget that paints a stack of pictures.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "front/qt/control_view.h"
#include "front/qt/map_cursor.h"

namespace ardane {

/// What a viewport asks about its pictures.
struct Pointing {
  /// The topmost picture that takes clicks at a place of the viewport, or null.
  std::function<Contrôle *(double x, double y)> picture;
  /// The topmost picture there whose tool tip is to be shown, or null.
  std::function<const Contrôle *(double x, double y)> tip;
  /// The picture of the whole map and the bars that scroll it; null for a viewport that shows all.
  struct Scrolled {
    const Contrôle *map = nullptr;
    Contrôle *across = nullptr, *down = nullptr;
  } scrolled;
};

/// Paints the visible pictures contained in a control, the lowest first, and only where the stack has changed
/// since it was last painted. At another scale than theirs the whole is filtered, not picture by picture: two
/// that touch would show a seam.
class MapView : public QWidget {
 public:
  MapView(Contrôle &control, const ViewContext &context, Pointing pointing, QWidget *parent);

  /// Compares the pictures with those shown last and has what differs painted anew.
  void sync_pictures();

  /// What the last comparison found changed, in pixels of the data.
  const QRegion &last_damage() const { return damage_; }

 protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;
  bool event(QEvent *event) override;

 private:
  struct Layer {
    const Contrôle *control = nullptr;
    Image image;
    QRect place;
    friend bool operator==(const Layer &, const Layer &) = default;
  };

  void gather();
  std::vector<Layer> visible_layers();
  QRect viewport() const { return {{}, place_of(control_).size()}; }
  double ratio() const { return context_.scale.value() * devicePixelRatioF(); }
  /// The map's pixel in the viewport's corner.
  QPoint scroll() const;
  void scroll_to(QPoint corner);
  QSize map_size() const;
  bool move_cursor(const QKeyEvent &event);
  void show_cursor();
  void tell_place();
  void say(const std::string &text);
  std::optional<std::string> answer(const QKeyEvent &event) const;
  void hide_cursor();
  std::vector<QPoint> targets() const;
  void follow_cursor();
  void press(QPointF logical, QPointF on_desktop);
  void show_tip(QPointF logical, QPoint on_desktop);
  QRect cursor_pixel() const;
  QRect cursor_area() const;

  void compose(QPainter &painter, const QRegion &region, int detail);
  QImage doubled(const QRegion &region);
  void filter(const QRegion &region);
  void filter(const QImage &source, const QRect &box, const QRegion &part);
  const QImage &picture();

  Contrôle &control_;
  const ViewContext context_;
  const Pointing pointing_;
  std::uint64_t revision_ = 0;           ///< of the window's controls when they were gathered
  std::vector<const Contrôle *> stack_;  ///< every picture of the viewport, the lowest first
  std::vector<Layer> layers_;            ///< those painted, the lowest first
  QRegion damage_;
  MapCursor cursor_;
  QPoint told_;                ///< where it stood when its place was last told
  bool cursor_shown_ = false;  ///< the player moves by keys
  bool focus_away_ = false;    ///< in another window, or on a menu
  QRect cursor_drawn_;         ///< where it was painted last, in the toolkit's pixels
  struct Drag {
    QPointF press;  ///< in the toolkit's pixels
    QPoint scroll;
  };
  std::optional<Drag> drag_;
  QPoint wheel_;          ///< of the mouse wheel, what has not made a pixel yet
  QImage picture_;        ///< the viewport in the screen's pixels
  QImage being_resized_;  ///< all that it is filtered from, until the next picture changes
  QRegion unmade_;        ///< what of it is out of date, in pixels of the data
};

}  // namespace ardane
