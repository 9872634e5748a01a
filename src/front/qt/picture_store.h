// The pictures of the catalogue as pixmaps, decoded once.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>
#include <vector>

#include "core/resources.h"

namespace ardane {

/// Each picture is drawn twice: with one pixel for each of the data's, and with two by two.
enum class Detail : std::uint8_t { single, doubled };

/// What to draw with on a screen that takes `ratio` of its pixels for one of the data's.
inline Detail detail_for(double ratio) {
  return qFuzzyCompare(ratio, 1) ? Detail::single : Detail::doubled;
}

class PictureStore {
 public:
  /// `folder` holds the files that the catalogue names. The catalogue must outlive the store.
  PictureStore(const CatalogueImages &catalogue, QString folder);

  /// The picture from its own file, or from the one with ".ppm" in place of its suffix, which is quick to
  /// read since it is not compressed; doubled, from the one with "@2x.ppm", "@2x.png" or "@2x.jpg" in place
  /// of its suffix or "@2x" before it, and where there is none, enlarged from the single one. A null pixmap
  /// for no picture, or for a file that is absent, no picture, or one of another size than the catalogue's.
  const QPixmap &pixmap(Image image, Detail detail);

  /// The picture filtered to a size in the toolkit's pixels, on a screen of this device pixel ratio.
  QPixmap scaled(Image image, QSize size, double ratio);

  /// The icon of a window, or of "programme", in the sizes that the catalogue has; null for none.
  QIcon icon(const std::string &window) const;

  /// Names of the pictures whose file is absent or no picture.
  QStringList unreadable() const;

 private:
  QString file(Image image) const;
  QPixmap load(Image image, Detail detail) const;

  const CatalogueImages &catalogue_;
  const QString folder_;
  using Loaded = std::vector<std::optional<QPixmap>>;  ///< by rank
  std::array<Loaded, 2> loaded_;                       ///< by detail
};

}  // namespace ardane
