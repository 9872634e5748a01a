#include "script.h"

#include <QApplication>
#include <QMenuBar>

#include "front/qt/appearance.h"
#include "map/layout.h"

namespace ardane {

std::string Script::run(const std::function<bool()> &until) {
  player.begin();
  do {
    at_rest_ = false;
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  } while (desktop_.programme().en_cours() && !(at_rest_ && (!until || until())));
  player.rest();
  return player.trouble();
}

QSize Script::window_for(double scale) const {
  const Point needed = Taille_confortable(desktop_.programme().principale());
  QMenuBar menus;
  menus.addMenu(QStringLiteral("Fichier"));
  menus.setFont(Scale().font({}));
  return QSize(needed.x, needed.y + menus.sizeHint().height()) * scale;
}

void Script::at_box(AutomaticPlayer &, const QMessageBox &box) {
  told.push_back(to_utf8(box.text()));
  player.accept();
}

void Script::at_window(AutomaticPlayer &, const std::string &name) {
  player.give_up("la fenêtre " + name + " attend un ordre");
}

}  // namespace ardane
