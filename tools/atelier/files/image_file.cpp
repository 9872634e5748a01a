#include "files/image_file.h"

#include <QImage>
#include <QString>
#include <stdexcept>

namespace atelier {
namespace {

QImage to_qt(const Image &image) {
  QImage result(image.width(), image.height(), QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const Pixel &p = image.at(x, y);
      result.setPixel(x, y, qRgba(p.r, p.g, p.b, p.a));
    }
  return result;
}

void save(const std::filesystem::path &fichier, const QImage &image, const char *format, int quality) {
  if (!image.save(QString::fromStdString(fichier.string()), format, quality))
    throw std::runtime_error(fichier.string() + ": cannot be written");
}

}  // namespace

void écrire_png(const std::filesystem::path &fichier, const Image &image) {
  save(fichier, to_qt(image), "PNG", -1);
}

void écrire_jpeg(const std::filesystem::path &fichier, const Image &image, int quality) {
  save(fichier, to_qt(image).convertToFormat(QImage::Format_RGB888), "JPG", quality);
}

void écrire_ppm(const std::filesystem::path &fichier, const Image &image) {
  save(fichier, to_qt(image).convertToFormat(QImage::Format_RGB888), "PPM", -1);
}

Image lire_image(const std::filesystem::path &fichier) {
  const QImage source =
      QImage(QString::fromStdString(fichier.string())).convertToFormat(QImage::Format_ARGB32);
  if (source.isNull()) throw std::runtime_error(fichier.string() + ": cannot be read");
  Image image(source.width(), source.height());
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QRgb c = source.pixel(x, y);
      image.at(x, y) = {static_cast<std::uint8_t>(qRed(c)), static_cast<std::uint8_t>(qGreen(c)),
                        static_cast<std::uint8_t>(qBlue(c)), static_cast<std::uint8_t>(qAlpha(c))};
    }
  return image;
}

}  // namespace atelier
