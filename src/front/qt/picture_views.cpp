#include "front/qt/picture_views.h"

#include <QPainter>

#include "front/qt/appearance.h"
#include "front/qt/child.h"
#include "front/qt/control_kinds.h"
#include "map/main_window.h"
#include "map/pointing.h"

namespace ardane {
namespace {

/// Shows one picture over its whole surface.
class PictureWidget : public QWidget {
 public:
  PictureWidget(const Contrôle &control, PictureStore &pictures, QWidget *parent)
      : QWidget(parent), control_(control), pictures_(pictures) {}

 protected:
  void paintEvent(QPaintEvent *) override {
    const QPixmap &pixmap = pictures_.pixmap(control_.image, devicePixelRatioF());
    if (pixmap.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), pixmap);
  }

 private:
  const Contrôle &control_;
  PictureStore &pictures_;
};

Pointing pointing_of(Fenêtre &window) {
  auto *main = dynamic_cast<Ecran_principal *>(&window);
  if (main == nullptr) throw ErreurFatale("Seule la fenêtre principale porte une carte", Lieu::ici());
  return {[main](double x, double y) { return image_sous(*main, x, y); },
          [main](double x, double y) { return image_avec_infobulle(*main, x, y); }};
}

}  // namespace

PictureView::PictureView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<PictureWidget>(control, context.pictures, parent)) {}

void PictureView::sync() {
  ControlView::sync();
  if (control().image == shown_) return;
  shown_ = control().image;
  widget().update();
}

PictureBoxView::PictureBoxView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<QFrame>(parent)) {}

void PictureBoxView::sync() {
  ControlView::sync();
  sync_border(static_cast<QFrame &>(widget()), control());
}

MapControlView::MapControlView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context,
                  make_child<MapView>(control, context, pointing_of(context.window), parent)) {}

void MapControlView::sync() {
  ControlView::sync();
  static_cast<MapView &>(widget()).sync_pictures();
}

}  // namespace ardane
