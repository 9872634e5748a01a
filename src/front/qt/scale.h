// How large the windows' data is shown.
#pragma once

#include <QFont>
#include <QPointF>
#include <QRect>

#include "platform/controls.h"

namespace ardane {

/// A pixel of the data in the toolkit's pixels.
class Scale {
 public:
  explicit Scale(double value = 1) : value_(value) {}

  double value() const { return value_; }
  int length(double logical) const { return qRound(logical * value_); }
  /// Edges are rounded one by one, so that what touches in the data touches on the screen.
  QRect rect(const QRectF &logical) const {
    return {QPoint(length(logical.left()), length(logical.top())),
            QPoint(length(logical.right()) - 1, length(logical.bottom()) - 1)};
  }
  QPointF logical(QPointF shown) const { return shown / value_; }
  QFont font(const Police &police) const;

  friend bool operator==(const Scale &, const Scale &) = default;

 private:
  double value_;
};

}  // namespace ardane
