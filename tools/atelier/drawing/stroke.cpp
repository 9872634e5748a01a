// The outline of a pen's trace.
#include <algorithm>

#include "drawing/path.h"

namespace atelier {
namespace {

/// Trace of the pen over one segment, turned the same way whatever the segment's direction.
void add_segment(Path &out, Point a, Point b, double half, bool square_start, bool square_end) {
  const double l = length(b - a);
  if (l == 0) return;
  const Point along = (b - a) * (half / l);
  const Point across{-along.y, along.x};
  const Point from = square_start ? a - along : a;
  const Point to = square_end ? b + along : b;
  const Point corners[] = {from + across, from - across, to - across, to + across};
  out.add_polygon(corners);
}

void add_join(Path &out, Point before, Point at, Point after, double half, Join join) {
  if (join == Join::round) {
    out.add_circle(at, half);
    return;
  }
  const double l1 = length(at - before);
  const double l2 = length(after - at);
  if (l1 == 0 || l2 == 0) return;
  const Point d1 = (at - before) * (1 / l1);
  const Point d2 = (after - at) * (1 / l2);
  const double turn = d1.x * d2.y - d1.y * d2.x;
  if (turn == 0) return;
  const double side = turn > 0 ? -half : half;
  const Point p1 = at + Point{-d1.y, d1.x} * side;
  const Point p2 = at + Point{-d2.y, d2.x} * side;
  std::vector<Point> corners{at, p1};
  const Point middle = (p1 + p2) * 0.5 - at;
  const double m = length(middle);
  if (join == Join::mitre && m * 4 > half) corners.push_back(at + middle * (half * half / (m * m)));
  corners.push_back(p2);
  // All pieces of a stroke turn clockwise, so that none cancels another where they overlap.
  if (turn < 0) std::reverse(corners.begin(), corners.end());
  out.add_polygon(corners);
}

}  // namespace

Path stroked(const Path &path, double width, Cap cap, Join join) {
  const double half = width / 2;
  Path out;
  for (const Contour &contour : path.contours()) {
    std::vector<Point> points = contour.points;
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (contour.closed && points.size() > 1 && points.front() == points.back()) points.pop_back();
    const std::size_t n = points.size();
    if (n == 1) {
      if (cap == Cap::round) out.add_circle(points[0], half);
      continue;
    }
    const std::size_t segments = contour.closed ? n : n - 1;
    const bool square = cap == Cap::square && !contour.closed;
    for (std::size_t i = 0; i < segments; ++i)
      add_segment(out, points[i], points[(i + 1) % n], half, square && i == 0, square && i + 1 == segments);
    for (std::size_t i = contour.closed ? 0 : 1; i < (contour.closed ? n : n - 1); ++i)
      add_join(out, points[(i + n - 1) % n], points[i], points[(i + 1) % n], half, join);
    if (cap == Cap::round && !contour.closed) {
      out.add_circle(points.front(), half);
      out.add_circle(points.back(), half);
    }
  }
  return out;
}

}  // namespace atelier
