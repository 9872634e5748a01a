#include "front/qt/picture_store.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <array>

#include "front/qt/appearance.h"
#include "front/qt/plain_file.h"

namespace ardane {
namespace {

/// True for a file that begins like a GIF, a PNG or a JPEG.
bool looks_like_picture(const QString &path) {
  QFile file(path);
  if (!is_plain_file(path) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
  const QByteArray head = file.read(4);
  return head == "GIF8" || head == "\x89PNG" || head.startsWith("\xff\xd8\xff");
}

/// A picture as netpbm writes it, three bytes a pixel, behind a header without comments. For this form the
/// toolkit would load every decoder that it has, to ask each whether it knows it.
QImage read_netpbm(const QString &path, QSize size) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray head = QStringLiteral("P6\n%1 %2\n255\n").arg(size.width()).arg(size.height()).toLatin1();
  QByteArray row(qsizetype{3} * size.width(), 0);
  if (file.size() != head.size() + row.size() * size.height() || file.read(head.size()) != head) return {};
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    if (file.read(row.data(), row.size()) != row.size()) return {};
    auto *pixel = reinterpret_cast<QRgb *>(image.scanLine(y));
    for (const char *part = row.cbegin(); part != row.cend(); part += 3)
      *pixel++ = qRgb(static_cast<uchar>(part[0]), static_cast<uchar>(part[1]), static_cast<uchar>(part[2]));
  }
  return image;
}

/// What says that it has another size is not decoded: to do so could take all the memory there is.
QImage decode(const QString &path, QSize size) {
  if (!is_plain_file(path)) return {};
  if (path.endsWith(QLatin1String(".ppm"))) return read_netpbm(path, size);
  QImageReader reader(path, QFileInfo(path).suffix().toLatin1());
  return reader.size() == size ? reader.read() : QImage();
}

QPixmap read_picture(const QString &path, QSize size) {
  // The reader goes before the conversion, which would copy what they shared.
  QImage image = decode(path, size);
  if (image.isNull()) return {};
  image.setDevicePixelRatio(1);  // the reader takes 2 from the name of a doubled picture
  image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return QPixmap::fromImage(std::move(image), Qt::NoFormatConversion);
}

QPixmap first_of(std::initializer_list<QString> paths, QSize size) {
  for (const QString &path : paths) {
    QPixmap picture = read_picture(path, size);
    if (!picture.isNull()) return picture;
  }
  return {};
}

}  // namespace

PictureStore::PictureStore(const CatalogueImages &catalogue, QString folder)
    : catalogue_(catalogue), folder_(std::move(folder)) {
  loaded_.fill(Loaded(catalogue.toutes().size() + 1));
}

QString PictureStore::file(Image image) const {
  return folder_ + QLatin1Char('/') + to_qt(catalogue_.fichier(image));
}

QPixmap PictureStore::load(Image image, Detail detail) const {
  const QFileInfo info(file(image));
  const QString name = info.path() + QLatin1Char('/') + info.completeBaseName();
  const QString suffix = QLatin1Char('.') + info.suffix();
  const QSize size(image.largeur, image.hauteur);
  if (detail == Detail::single) return first_of({name + QLatin1String(".ppm"), name + suffix}, size);
  const QString twice = name + QLatin1String("@2x");
  QPixmap doubled = first_of({twice + QLatin1String(".ppm"), twice + QLatin1String(".png"),
                              twice + QLatin1String(".jpg"), twice + suffix},
                             size * 2);
  if (!doubled.isNull()) return doubled;
  const QPixmap single = load(image, Detail::single);
  return single.isNull() ? single : single.scaled(size * 2);
}

const QPixmap &PictureStore::pixmap(Image image, Detail detail) {
  static const QPixmap none;
  if (!image) return none;
  std::optional<QPixmap> &pixmap = loaded_.at(static_cast<std::size_t>(detail)).at(image.rang);
  if (!pixmap) pixmap = load(image, detail);
  return *pixmap;
}

QPixmap PictureStore::scaled(Image image, QSize size, double ratio) {
  const QSize device = size * ratio;
  const QPixmap &single = pixmap(image, Detail::single);
  if (single.isNull() || device.isEmpty()) return {};
  const QPixmap &best = device == single.size() ? single : pixmap(image, Detail::doubled);
  QPixmap result = best.scaled(device, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  result.setDevicePixelRatio(ratio);
  return result;
}

QIcon PictureStore::icon(const std::string &window) const {
  QIcon icon;
  for (const char *size : {"", ".16", ".24", ".32", ".48", ".64", ".128"})
    if (const Image image = catalogue_.chercher("icône." + window + size))
      icon.addPixmap(load(image, Detail::single));
  return icon;
}

QStringList PictureStore::unreadable() const {
  QStringList names;
  for (const Image image : catalogue_.toutes()) {
    const std::optional<QPixmap> &loaded = loaded_.front()[image.rang];
    if (loaded ? loaded->isNull() : !looks_like_picture(file(image)))
      names.append(to_qt(catalogue_.nom(image)));
  }
  return names;
}

}  // namespace ardane
