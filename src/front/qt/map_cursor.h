// The keyboard's own cursor on the map.
#pragma once

#include <QPainter>
#include <QPoint>
#include <QSize>
#include <optional>
#include <vector>

namespace ardane {

/// A pixel of the map that arrows move, whatever part of the map is in view.
class MapCursor {
 public:
  QPoint place() const { return place_; }
  /// Moves by that much, and no further than the edges of the map.
  void move(QPoint by, QSize map);
  void move_to(QPoint place, QSize map) { move(place - place_, map); }
  /// Moves to the next of these in a direction, one of four; false if there is none. What lies more to the
  /// side than ahead is another direction's.
  bool jump(QPoint direction, const std::vector<QPoint> &targets);
  /// Moves to the next of these line by line, or to the one before: no arrow may lead to one that lies among
  /// many. False if there is none.
  bool read_on(bool forwards, std::vector<QPoint> targets);

 private:
  QPoint place_;
};

/// Draws it around a point, light on dark and dark on light, so that it is seen on every ground.
void draw_cursor(QPainter &painter, QPointF middle, double scale);

}  // namespace ardane
