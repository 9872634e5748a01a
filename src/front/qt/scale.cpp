#include "front/qt/scale.h"

#include <QStringList>

namespace ardane {
namespace {

/// The layouts were drawn for a screen of 96 dots per inch.
constexpr double pixels_per_point = 96.0 / 72.0;

/// Designed families, each before the ones with the same metrics that free systems carry.
QStringList families(Famille_police famille) {
  if (famille == Famille_police::times)
    return {QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif"), QStringLiteral("serif")};
  return {QStringLiteral("MS Sans Serif"), QStringLiteral("Liberation Sans"), QStringLiteral("Arial"),
          QStringLiteral("sans-serif")};
}

}  // namespace

QFont Scale::font(const Police &police) const {
  QFont font;
  font.setFamilies(families(police.famille));
  font.setPixelSize(std::max(1, length(police.points * pixels_per_point)));
  font.setBold(police.gras);
  return font;
}

}  // namespace ardane
