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

/// How far a pixel of the filtered picture looks, in pixels of the data.
constexpr int reach = 2;

/// What a region widened on all sides covers at a scale.
QRegion scaled(const QRegion &region, double scale, int wider) {
  QRegion result;
  for (const QRect &part : region) {
    const QRectF wide = QRectF(part).adjusted(-wider, -wider, wider, wider);
    result += QRectF(wide.topLeft() * scale, wide.size() * scale).toAlignedRect();
  }
  return result;
}

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
    if (place.intersects(viewport())) layers.push_back({picture, picture->image, place});
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
  damage_ &= viewport();
  unmade_ += damage_;
  update(scaled(damage_, context_.scale.value(), detail_for(ratio()) == Detail::single ? 0 : reach));
}

void MapView::compose() {
  const Detail pictures = detail_for(ratio());
  const int detail = pictures == Detail::single ? 1 : 2;
  const QSize size = viewport().size() * detail;
  if (composed_.size() != size) {
    composed_ = QImage(size, QImage::Format_RGB32);
    unmade_ = viewport();
  }
  if (unmade_.isEmpty()) return;
  QPainter painter(&composed_);
  painter.setClipRegion(scaled(unmade_, detail, 0));
  painter.fillRect(composed_.rect(), palette().window());
  for (const Layer &layer : layers_) {
    if (!unmade_.intersects(layer.place)) continue;
    const QRect place(layer.place.topLeft() * detail, layer.place.size() * detail);
    const QPixmap &pixmap = context_.pictures.pixmap(layer.image, pictures);
    if (pixmap.size() == place.size())
      painter.drawPixmap(place.topLeft(), pixmap);
    else if (!pixmap.isNull())
      painter.drawPixmap(place, pixmap);
  }
  unfiltered_ += unmade_;
  unmade_ = {};
}

void MapView::filter() {
  const QSize size = viewport().size() * ratio();
  if (filtered_.size() != size) {
    filtered_ = QImage(size, QImage::Format_RGB32);
    unfiltered_ = viewport();
  }
  if (unfiltered_.isEmpty()) return;
  QPainter painter(&filtered_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setClipRegion(scaled(unfiltered_, ratio(), reach));
  painter.drawImage(QRectF(filtered_.rect()), composed_, QRectF(composed_.rect()));
  unfiltered_ = {};
}

/// The viewport as the screen shows it, pixel by pixel.
const QImage &MapView::picture() {
  compose();
  if (composed_.size() == viewport().size() * ratio()) {
    filtered_ = {};
    unfiltered_ = {};
    return composed_;
  }
  filter();
  return filtered_;
}

void MapView::paintEvent(QPaintEvent *event) {
  const QImage &shown = picture();
  const double device = devicePixelRatioF();
  QPainter painter(this);
  for (const QRect &part : event->region())
    painter.drawImage(QRectF(part), shown,
                      QRectF(QPointF(part.topLeft()) * device, QSizeF(part.size()) * device));
}

void MapView::mousePressEvent(QMouseEvent *event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF place = context_.scale.logical(event->position());
  const ScreenQt::Press press(context_.screen, event->globalPosition().toPoint());
  context_.dispatcher.run([&] {
    if (Contrôle *picture = pointing_.picture(place.x(), place.y())) cliquer(context_.window, *picture);
  });
}

/// The second press of a double click was meant for what the first one has answered.
void MapView::mouseDoubleClickEvent(QMouseEvent *) {}

bool MapView::event(QEvent *event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto &help = static_cast<QHelpEvent &>(*event);
  const QPointF place = context_.scale.logical(help.pos());
  const Contrôle *picture = pointing_.tip(place.x(), place.y());
  if (picture == nullptr)
    QToolTip::hideText();
  else
    QToolTip::showText(help.globalPos(), tool_tip(picture->infobulle), this,
                       context_.scale.rect(place_of(*picture)));
  return true;
}

}  // namespace ardane
