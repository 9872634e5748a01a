#include "front/qt/window_fit.h"

#include <algorithm>
#include <cmath>

namespace ardane {
namespace {

constexpr double step = 1.1;

/// The largest scale at which an area holds a logical size.
double holding(QSize client, QSize logical) {
  return std::min(static_cast<double>(client.width()) / logical.width(),
                  static_cast<double>(client.height()) / logical.height());
}

/// Whole logical pixels of a length. What was scaled up and rounded comes back as it was.
int logical(int length, double scale) {
  constexpr double rounding = 0.51;
  return static_cast<int>(std::floor((length + rounding) / scale));
}

}  // namespace

double WindowFit::scale(QSize client) const {
  if (!chosen) return std::max(smallest_scale, holding(client, needed));
  return std::clamp(*chosen, smallest_scale, std::max(smallest_scale, holding(client, smallest_screen)));
}

QSize WindowFit::screen(QSize client) const {
  const double s = scale(client);
  return QSize(logical(client.width(), s), logical(client.height(), s)).boundedTo(needed);
}

QRect WindowFit::area(QSize client) const {
  const double s = scale(client);
  const QSize whole(qRound(needed.width() * s), qRound(needed.height() * s));
  const QSize size = whole.boundedTo(client);
  return {QPoint((client.width() - size.width()) / 2, (client.height() - size.height()) / 2), size};
}

double next_scale(double scale, int steps) {
  return scale * std::pow(step, steps);
}

}  // namespace ardane
