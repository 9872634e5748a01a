#include "front/qt/window_memory.h"

#include <QApplication>
#include <QFileInfo>
#include <QScreen>
#include <QSettings>
#include <algorithm>
#include <memory>

#include "core/paths.h"
#include "front/qt/appearance.h"
#include "front/qt/plain_file.h"
#include "front/qt/window_fit.h"

namespace ardane {
namespace {

const QString geometry_key = QStringLiteral("fenetre/geometrie");
const QString scale_key = QStringLiteral("fenetre/echelle");

/// How much of the monitor a first window takes, its frame included: what lies behind can still be reached.
constexpr double comfortable_share = 0.92;
/// What a window manager puts above its windows, more or less.
constexpr int title_height = 32;
/// The size of letters that the layouts were drawn for.
constexpr double designed_points = 9;

/// Null where something else has the file's name.
std::unique_ptr<QSettings> settings_of(const std::filesystem::path &file) {
  const QString path = to_qt(texte_du_chemin(file));
  if (QFileInfo::exists(path) && !is_plain_file(path)) return nullptr;
  return std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QVariant kept(const std::filesystem::path &file, const QString &key) {
  const auto settings = settings_of(file);
  return settings == nullptr ? QVariant() : settings->value(key);
}

/// The largest scale at which the contents fit the room.
double largest(QSizeF room, QSize needed) {
  return std::min(room.width() / needed.width(), (room.height() - title_height) / needed.height());
}

}  // namespace

bool WindowMemory::restore(QWidget &window) const {
  return window.restoreGeometry(kept(file_, geometry_key).toByteArray());
}

std::optional<double> WindowMemory::scale() const {
  bool known = false;
  const double scale = kept(file_, scale_key).toDouble(&known);
  return known && scale > 0 ? std::optional(scale) : std::nullopt;
}

void WindowMemory::keep(const QWidget &window, std::optional<double> scale) const {
  const auto settings = settings_of(file_);
  if (settings == nullptr) return;
  settings->setValue(geometry_key, window.saveGeometry());
  if (scale)
    settings->setValue(scale_key, *scale);
  else
    settings->remove(scale_key);
}

void place_for_the_first_time(QWidget &window, QSize needed) {
  const QRect room = window.screen()->availableGeometry();
  const double whole = largest(room.size(), needed);
  // Who has asked his desktop for large letters needs a large map, too.
  const double letters = QApplication::font().pointSizeF() / designed_points;
  const double comfortable = largest(QSizeF(room.size()) * comfortable_share, needed);
  const double scale = std::max(smallest_scale, std::min(whole, std::max(comfortable, letters)));
  QRect place({}, needed * scale);
  place.setSize(place.size().boundedTo(room.size()));
  place.moveCenter(room.center());
  window.setGeometry(place);
}

}  // namespace ardane
