#include "front/qt/map_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <unordered_map>

#include "front/qt/appearance.h"

namespace ardane {
namespace {

bool lies_lower(const Contrôle *a, const Contrôle *b) {
  return a->plan < b->plan;
}

}  // namespace

MapView::MapView(Contrôle &control, const ViewContext &context, Pointing pointing, QWidget *parent)
    : QWidget(parent), control_(control), context_(context), pointing_(std::move(pointing)) {}

void MapView::gather() {
  if (revision_ != context_.window.révision()) {
    revision_ = context_.window.révision();
    stack_.clear();
    for (const Contrôle &control : context_.window.contrôles())
      if (control.genre == Genre::image && control.conteneur == &control_) stack_.push_back(&control);
  }
  if (!std::is_sorted(stack_.begin(), stack_.end(), lies_lower))
    std::sort(stack_.begin(), stack_.end(), lies_lower);
}

std::vector<MapView::Layer> MapView::visible_layers() {
  gather();
  std::vector<Layer> layers;
  layers.reserve(layers_.size());
  for (const Contrôle *picture : stack_) {
    if (!picture->visible || !picture->image) continue;
    const QRect place = place_of(*picture);
    if (place.intersects(rect())) layers.push_back({picture, picture->image, place});
  }
  return layers;
}

void MapView::sync_pictures() {
  std::vector<Layer> layers = visible_layers();
  damage_ = {};
  if (layers == layers_) return;

  // A layer that came, went or changed is damage where it was and where it is. Of the layers that stayed,
  // those that are not at their old rank among their like may have passed over or under another.
  std::unordered_map<const Contrôle *, const Layer *> before;
  for (const Layer &layer : layers_) before.emplace(layer.control, &layer);
  std::vector<const Layer *> stayed_now;
  for (const Layer &layer : layers) {
    const auto old = before.find(layer.control);
    if (old != before.end() && *old->second == layer) {
      stayed_now.push_back(&layer);
      old->second = nullptr;
    } else {
      damage_ += layer.place;
    }
  }
  auto now = stayed_now.begin();
  for (const Layer &layer : layers_) {
    if (before.at(layer.control) != nullptr) {
      damage_ += layer.place;
    } else if (const Layer &same_rank = **now++; same_rank.control != layer.control) {
      damage_ += layer.place;
      damage_ += same_rank.place;
    }
  }
  layers_ = std::move(layers);
  damage_ &= rect();
  update(damage_);
}

void MapView::paintEvent(QPaintEvent *event) {
  QPainter painter(this);
  const double ratio = devicePixelRatioF();
  for (const Layer &layer : layers_) {
    if (!event->region().intersects(layer.place)) continue;
    const QPixmap &pixmap = context_.pictures.pixmap(layer.image, ratio);
    if (pixmap.isNull()) continue;
    if (pixmap.deviceIndependentSize().toSize() == layer.place.size())
      painter.drawPixmap(layer.place.topLeft(), pixmap);
    else
      painter.drawPixmap(layer.place, pixmap);
  }
}

void MapView::mousePressEvent(QMouseEvent *event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF place = event->position();
  const ScreenQt::Press press(context_.screen, event->globalPosition().toPoint());
  context_.dispatcher.run([&] {
    if (Contrôle *picture = pointing_.picture(place.x(), place.y())) cliquer(context_.window, *picture);
  });
}

bool MapView::event(QEvent *event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto &help = static_cast<QHelpEvent &>(*event);
  const Contrôle *picture = pointing_.tip(help.pos().x(), help.pos().y());
  if (picture == nullptr)
    QToolTip::hideText();
  else
    QToolTip::showText(help.globalPos(), tool_tip(picture->infobulle), this, place_of(*picture));
  return true;
}

}  // namespace ardane
