#include "front/qt/demonstration/album.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cstdio>

#include "front/qt/appearance.h"

namespace ardane {
namespace {

/// The offscreen platform gives windows no title bars: a plain one stands in for them.
void draw_title(QPainter &painter, const QWidget &window) {
  constexpr int height = 24;
  const QRect client = window.geometry();
  const QRect bar(client.left(), client.top() - height, client.width(), height);
  painter.fillRect(bar, QColor(0x24, 0x3c, 0x5a));
  painter.setPen(Qt::white);
  painter.drawText(bar.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
}

/// Everything on the screen as the player sees it, the boxes above the windows.
QPixmap picture_of_screen() {
  QPixmap picture(QGuiApplication::primaryScreen()->size());
  picture.fill(QColor(0x3a, 0x4a, 0x58));
  QPainter painter(&picture);
  QWidgetList windows = QApplication::topLevelWidgets();
  // A window's parents lie below it.
  const auto depth = [](const QWidget *w) {
    int n = 0;
    for (; w != nullptr; w = w->parentWidget()) ++n;
    return n;
  };
  std::ranges::stable_sort(windows, {}, depth);
  for (QWidget *window : windows) {
    if (!window->isVisible()) continue;
    if ((window->windowFlags() & Qt::FramelessWindowHint) == 0) draw_title(painter, *window);
    painter.drawPixmap(window->geometry().topLeft(), window->grab());
  }
  return picture;
}

}  // namespace

void Album::add(const std::string &screen) {
  if (!known_.insert(screen).second) return;
  QString name =
      QStringLiteral("%1-%2").arg(known_.size(), 2, 10, QLatin1Char('0')).arg(to_qt(screen).trimmed());
  name.replace(QLatin1Char('/'), QLatin1Char('-'));
  const QString path = folder_.filePath(name + QStringLiteral(".png"));
  complete_ = picture_of_screen().save(path) && complete_;
  std::printf("Image : %s\n", path.toUtf8().constData());
  std::fflush(stdout);
}

}  // namespace ardane
