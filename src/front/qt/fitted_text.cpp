#include "front/qt/fitted_text.h"

#include <QFontMetrics>
#include <algorithm>

namespace ardane {
namespace {

/// In hundredths of the designed size.
constexpr int smallest_fitted_font = 60;

/// One line is measured in half the time if it is not laid out.
QSize size_of(const QString &text, const QFontMetrics &font, QSize room, int flags) {
  if ((flags & Qt::TextSingleLine) != 0) return {font.horizontalAdvance(text), font.height()};
  return font.boundingRect({{}, room}, flags, text).size();
}

/// Each line's middle left out where the line is too long.
QString shortened(const QString &text, const QFontMetrics &font, int width) {
  QStringList lines = text.split(QLatin1Char('\n'));
  for (QString &line : lines) line = font.elidedText(line, Qt::ElideMiddle, width);
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

FittedText fitted_text(const QString &text, const QFont &designed, QSize room, int flags) {
  QFont font = designed;
  const int smallest = designed.pixelSize() * smallest_fitted_font / 100;
  const auto fits = [&] {
    const QSize size = size_of(text, QFontMetrics(font), room, flags);
    return size.width() <= room.width() && size.height() <= std::max(room.height(), font.pixelSize());
  };
  bool fitted = fits();
  while (!fitted && font.pixelSize() > smallest) {
    font.setPixelSize(font.pixelSize() - 1);
    fitted = fits();
  }
  if (fitted) return {text, font};
  return {shortened(text, QFontMetrics(designed), room.width()), designed};
}

}  // namespace ardane
