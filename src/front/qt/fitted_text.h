// A text made to fit the room that a label has for it.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace ardane {

/// A text as it is drawn, and with what.
struct FittedText {
  QString text;
  QFont font;
};

/// Sets a text that is too long for its room in smaller letters, down to six tenths of the designed ones. One
/// that is too long even then keeps the designed letters, and each line that is too long loses its middle.
/// `flags` are Qt's of a text; what they break into lines may be as wide as `room`, in pixels.
FittedText fitted_text(const QString &text, const QFont &designed, QSize room, int flags);

}  // namespace ardane
