#include "front/qt/screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <cmath>

#include "front/qt/monitor_modes.h"

namespace ardane {
namespace {

const QScreen &primary() {
  return *QGuiApplication::primaryScreen();
}

}  // namespace

ScreenQt::~ScreenQt() {
  ScreenQt::sablier(false);
}

QPointF ScreenQt::on_desktop(QPointF logical) const {
  if (!area_) return logical;
  return area_->widget->mapToGlobal(logical * area_->scale.value());
}

QPoint ScreenQt::logical(QPointF on_desktop) const {
  const QPointF place = area_ ? area_->scale.logical(area_->widget->mapFromGlobal(on_desktop)) : on_desktop;
  return {static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y()))};
}

int ScreenQt::largeur() const {
  return area_ ? area_->size.width() : primary().size().width();
}
int ScreenQt::hauteur() const {
  return area_ ? area_->size.height() : primary().size().height();
}
int ScreenQt::bits_par_pixel() const {
  return primary().depth();
}

Rect ScreenQt::zone_de_travail() const {
  if (area_) return {0, 0, area_->size.width(), area_->size.height()};
  const QRect zone = primary().availableGeometry();
  return {zone.left(), zone.top(), zone.left() + zone.width(), zone.top() + zone.height()};
}

Mode_écran ScreenQt::moniteur() const {
  return {primary().size().width(), primary().size().height(), bits_par_pixel()};
}

std::vector<Mode_écran> ScreenQt::modes() const {
  std::vector<Mode_écran> known = monitor_modes();
  if (known.empty()) known.push_back(moniteur());
  return known;
}

Point ScreenQt::curseur() const {
  const QPoint place = logical(press_ ? *press_ : QPointF(QCursor::pos()));
  return {place.x(), place.y()};
}

void ScreenQt::sablier(bool actif) {
  if (actif == hourglass_) return;
  hourglass_ = actif;
  if (actif)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace ardane
