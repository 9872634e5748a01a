#include "front/qt/screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace ardane {
namespace {

const QScreen &primary() {
  return *QGuiApplication::primaryScreen();
}

}  // namespace

ScreenQt::~ScreenQt() {
  ScreenQt::sablier(false);
}

int ScreenQt::largeur() const {
  return primary().size().width();
}
int ScreenQt::hauteur() const {
  return primary().size().height();
}
int ScreenQt::bits_par_pixel() const {
  return primary().depth();
}

Rect ScreenQt::zone_de_travail() const {
  const QRect zone = primary().availableGeometry();
  return {zone.left(), zone.top(), zone.left() + zone.width(), zone.top() + zone.height()};
}

std::vector<Mode_écran> ScreenQt::modes() const {
  return {{largeur(), hauteur(), bits_par_pixel()}};
}

Point ScreenQt::curseur() const {
  const QPoint place = press_ ? *press_ : QCursor::pos();
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
