#include "front/qt/picture_views.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "front/qt/appearance.h"
#include "front/qt/child.h"
#include "front/qt/control_kinds.h"
#include "map/main_window.h"
#include "map/pointing.h"

namespace ardane {
namespace {

/// Around a picture that is clicked: room for the mark of the focus, and for a hand that is not that steady.
constexpr int button_margin = 4;

/// Shows one picture within a margin.
template <class Widget, int margin>
class PictureWidget : public Widget {
 public:
  PictureWidget(const Contrôle &control, const ViewContext &context, QWidget *parent)
      : Widget(parent), control_(control), context_(context) {}

 protected:
  void paintEvent(QPaintEvent *) override {
    QPainter painter(this);
    const QRect area = this->rect().adjusted(margin, margin, -margin, -margin);
    filter(area.size());
    if (!filtered_.isNull()) painter.drawPixmap(area.topLeft(), filtered_);
    if (this->hasFocus()) draw_focus(painter);
  }
  void filter(QSize size) {
    const Filtered wanted{control_.image, size, this->devicePixelRatioF()};
    if (wanted == filtered_for_) return;
    filtered_for_ = wanted;
    filtered_ = context_.pictures.scaled(wanted.image, wanted.size, wanted.ratio);
  }
  void draw_focus(QPainter &painter) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    this->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }

 private:
  struct Filtered {
    Image image;
    QSize size;
    double ratio = 0;
    friend bool operator==(const Filtered &, const Filtered &) = default;
  };

  const Contrôle &control_;
  const ViewContext context_;
  std::optional<Filtered> filtered_for_;
  QPixmap filtered_;
};

using PlainPicture = PictureWidget<QWidget, 0>;
using PictureButton = PictureWidget<QAbstractButton, button_margin>;

Pointing pointing_of(Fenêtre &window) {
  auto *main = dynamic_cast<Ecran_principal *>(&window);
  if (main == nullptr) throw ErreurFatale("Seule la fenêtre principale porte une carte", Lieu::ici());
  return {[main](double x, double y) { return image_sous(*main, x, y); },
          [main](double x, double y) { return image_avec_infobulle(*main, x, y); },
          {&main->image_région, &main->barre_h, &main->barre_v}};
}

}  // namespace

PictureView::PictureView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<PlainPicture>(control, context, parent)) {}

void PictureView::sync() {
  ControlView::sync();
  if (control().image == shown_) return;
  shown_ = control().image;
  widget().update();
}

PictureButtonView::PictureButtonView(Contrôle &control, const ViewContext &context, QWidget *parent)
    : ControlView(control, context, make_child<PictureButton>(control, context, parent)) {
  connect(static_cast<QAbstractButton *>(&widget()), &QAbstractButton::clicked, this, [this] { click(); });
}

QRect PictureButtonView::place() const {
  return ControlView::place().adjusted(-button_margin, -button_margin, button_margin, button_margin);
}

void PictureButtonView::sync() {
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
