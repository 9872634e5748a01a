#include "front/qt/map_cursor.h"

#include <QPen>
#include <algorithm>
#include <array>

namespace ardane {

void MapCursor::move(QPoint by, QSize map) {
  const QPoint wanted = place_ + by;
  place_ = {std::clamp(wanted.x(), 0, std::max(0, map.width() - 1)),
            std::clamp(wanted.y(), 0, std::max(0, map.height() - 1))};
}

bool MapCursor::jump(QPoint direction, const std::vector<QPoint> &targets) {
  const QPoint across(direction.y(), direction.x());
  // To the side counts double: a dot straight ahead is nearer than one as far off that lies aslant.
  constexpr int aside_weight = 2;
  std::optional<QPoint> best;
  int least = 0;
  for (const QPoint &target : targets) {
    const QPoint way = target - place_;
    const int ahead = QPoint::dotProduct(way, direction);
    const int aside = std::abs(QPoint::dotProduct(way, across));
    if (ahead <= 0 || aside > ahead) continue;
    const int cost = ahead + aside_weight * aside;
    if (best && cost >= least) continue;
    best = target;
    least = cost;
  }
  if (best) place_ = *best;
  return best.has_value();
}

bool MapCursor::read_on(bool forwards, std::vector<QPoint> targets) {
  const auto before = [forwards](QPoint a, QPoint b) {
    if (!forwards) std::swap(a, b);
    return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x());
  };
  std::erase_if(targets, [&](QPoint target) { return !before(place_, target); });
  const auto next = std::ranges::min_element(targets, before);
  if (next == targets.end()) return false;
  place_ = *next;
  return true;
}

void draw_cursor(QPainter &painter, QPointF middle, double scale) {
  struct Stroke {
    QColor colour;
    double width = 0;
  };
  static const std::array strokes{Stroke{Qt::white, 4}, Stroke{Qt::black, 2}};
  constexpr double radius = 9, tick = 5;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  for (const Stroke &stroke : strokes) {
    painter.setPen(QPen(stroke.colour, stroke.width * scale, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(middle, radius * scale, radius * scale);
    for (const QPointF direction : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
      painter.drawLine(middle + direction * radius * scale, middle + direction * (radius + tick) * scale);
  }
  painter.restore();
}

}  // namespace ardane
