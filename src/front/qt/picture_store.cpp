#include "front/qt/picture_store.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <array>

#include "front/qt/appearance.h"

namespace ardane {
namespace {

/// True for a file that begins like a GIF, a PNG or a JPEG.
bool looks_like_picture(const QString &path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
  const QByteArray head = file.read(4);
  return head == "GIF8" || head == "\x89PNG" || head.startsWith("\xff\xd8\xff");
}

QPixmap read_picture(const QString &path) {
  QImageReader reader(path, QFileInfo(path).suffix().toLatin1());
  QImage image = reader.read();
  if (image.isNull()) return {};
  image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return QPixmap::fromImage(std::move(image), Qt::NoFormatConversion);
}

}  // namespace

PictureStore::PictureStore(const CatalogueImages &catalogue, QString folder)
    : catalogue_(catalogue), folder_(std::move(folder)), pixmaps_(catalogue.toutes().size() + 1) {}

QString PictureStore::file(Image image, bool doubled) const {
  QString name = to_qt(catalogue_.fichier(image));
  if (doubled) name.insert(name.lastIndexOf(QLatin1Char('.')), QLatin1String("@2x"));
  return folder_ + QLatin1Char('/') + name;
}

QPixmap PictureStore::load(Image image) const {
  if (doubled_) {
    const QString path = file(image, true);
    if (QFileInfo::exists(path)) {
      QPixmap pixmap = read_picture(path);
      pixmap.setDevicePixelRatio(2);
      if (!pixmap.isNull()) return pixmap;
    }
  }
  return read_picture(file(image, false));
}

const QPixmap &PictureStore::pixmap(Image image, double ratio) {
  static const QPixmap none;
  if (!image) return none;
  if (doubled_ != (ratio >= 2)) {
    doubled_ = ratio >= 2;
    pixmaps_.assign(pixmaps_.size(), std::nullopt);
  }
  std::optional<QPixmap> &pixmap = pixmaps_.at(image.rang);
  if (!pixmap) pixmap = load(image);
  return *pixmap;
}

QIcon PictureStore::icon(const std::string &window) const {
  QIcon icon;
  for (const char *size : {"", ".16", ".24", ".32", ".48", ".64", ".128"})
    if (const Image image = catalogue_.chercher("icône." + window + size)) icon.addPixmap(load(image));
  return icon;
}

QStringList PictureStore::unreadable() const {
  QStringList names;
  for (const Image image : catalogue_.toutes()) {
    const std::optional<QPixmap> &loaded = pixmaps_[image.rang];
    if (loaded ? loaded->isNull() : !looks_like_picture(file(image, false)))
      names.append(to_qt(catalogue_.nom(image)));
  }
  return names;
}

}  // namespace ardane
