// The pictures of the catalogue as pixmaps, decoded once.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "core/resources.h"

namespace ardane {

class PictureStore {
 public:
  /// `folder` holds the files that the catalogue names. The catalogue must outlive the store.
  PictureStore(const CatalogueImages &catalogue, QString folder);

  /// The picture for a device pixel ratio: at 2 or more the file with "@2x" before its suffix, where there is
  /// one. A null pixmap for no picture, or for a file that is absent or no picture.
  const QPixmap &pixmap(Image image, double ratio);

  /// The icon of a window, or of "programme", in the sizes that the catalogue has; null for none.
  QIcon icon(const std::string &window) const;

  /// Names of the pictures whose file is absent or no picture.
  QStringList unreadable() const;

 private:
  QString file(Image image, bool doubled) const;
  QPixmap load(Image image) const;

  const CatalogueImages &catalogue_;
  const QString folder_;
  bool doubled_ = false;
  std::vector<std::optional<QPixmap>> pixmaps_;  ///< by rank
};

}  // namespace ardane
