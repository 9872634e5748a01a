#include "front/qt/scale.h"

#include <QFontDatabase>
#include <array>

namespace ardane {
namespace {

/// The layouts were drawn for a screen of 96 dots per inch.
constexpr double pixels_per_point = 96.0 / 72.0;

/// Designed families, each beside the ones with the same metrics that systems carry.
constexpr std::array serif{"Times New Roman", "Liberation Serif", "serif"};
constexpr std::array sans_serif{"Microsoft Sans Serif", "MS Sans Serif", "Liberation Sans", "Arial",
                                "sans-serif"};

/// The first that is installed and drawn well at any size, else the last. One alone: for each that a font
/// names further, the toolkit asks the system at once what to take for letters that it lacks, which takes as
/// long as to load it.
template <std::size_t count>
QString installed(const std::array<const char *, count> &families) {
  const QStringList known = QFontDatabase::families();
  const auto found = std::ranges::find_if(families, [&](const char *name) {
    const QString family = QLatin1String(name);
    return known.contains(family) && QFontDatabase::isSmoothlyScalable(family);
  });
  return QLatin1String(found == families.end() ? families.back() : *found);
}

QString family(Famille_police famille) {
  static const QString times = installed(serif), other = installed(sans_serif);
  return famille == Famille_police::times ? times : other;
}

}  // namespace

QFont Scale::font(const Police &police) const {
  QFont font;
  font.setFamily(family(police.famille));
  font.setPixelSize(std::max(1, length(police.points * pixels_per_point)));
  font.setBold(police.gras);
  return font;
}

}  // namespace ardane
