#include "front/qt/map_view.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <unordered_map>
#include <utility>

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"

namespace ardane {
namespace {

/// How far a pixel of the filtered picture looks, in pixels of the data.
constexpr int reach = 2;
/// How many rows of the data are filtered at a time: what is made of them stays in the processor's cache.
constexpr int band_height = 64;
/// How far the drawing of the keyboard's cursor does, and how near to the view's edge it comes.
constexpr int cursor_reach = 17;
/// What the Shift key makes of one pixel.
constexpr int stride = 10;
/// Of the mouse wheel's turn: forty logical pixels a notch, as much as three lines of a text.
constexpr int eighths_a_pixel = 3;

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
    : QWidget(parent), control_(control), context_(context), pointing_(std::move(pointing)) {
  setFocusPolicy(Qt::StrongFocus);
}

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
  being_resized_ = {};
  update(scaled(damage_, context_.scale.value(), detail_for(ratio()) == Detail::single ? 0 : reach));
}

/// Paints the pictures, so many pixels for one of the data's, where a region of the viewport is.
void MapView::compose(QPainter &painter, const QRegion &region, int detail) {
  painter.setClipRegion(scaled(region, detail, 0));
  painter.fillRect(scaled(region, detail, 0).boundingRect(), palette().window());
  for (const Layer &layer : layers_) {
    if (!region.intersects(layer.place)) continue;
    const QRect place(layer.place.topLeft() * detail, layer.place.size() * detail);
    const QPixmap &pixmap = context_.pictures.pixmap(layer.image, detail_for(ratio()));
    if (pixmap.size() == place.size())
      painter.drawPixmap(place.topLeft(), pixmap);
    else if (!pixmap.isNull())
      painter.drawPixmap(place, pixmap);
  }
}

/// A part of the viewport from the pictures of twice the data's detail.
QImage MapView::doubled(const QRegion &region) {
  constexpr int detail = 2;
  const QRect box = region.boundingRect();
  QImage result(box.size() * detail, QImage::Format_RGB32);
  QPainter painter(&result);
  painter.translate(-box.topLeft() * detail);
  compose(painter, region, detail);
  return result;
}

/// The same in the screen's pixels, band by band.
void MapView::filter(const QRegion &region) {
  if (!being_resized_.isNull()) return filter(being_resized_, viewport(), region);
  QRect band = region.boundingRect();
  for (const int bottom = band.bottom(); band.top() <= bottom; band.translate(0, band_height)) {
    band.setBottom(std::min(band.top() + band_height - 1, bottom));
    const QRegion part = region & band;
    if (part.isEmpty()) continue;
    const QRegion seen = scaled(part, 1, 2 * reach) & viewport();
    filter(doubled(seen), seen.boundingRect(), part);
  }
}

/// A part of the picture, from a source that shows the data's pixels of a box.
void MapView::filter(const QImage &source, const QRect &box, const QRegion &part) {
  QPainter painter(&picture_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setClipRegion(scaled(part, ratio(), reach));
  const QRectF target(QPointF(box.topLeft()) * ratio(), QSizeF(box.size()) * ratio());
  painter.drawImage(target, source, QRectF(source.rect()));
}

/// The viewport as the screen shows it, pixel by pixel.
const QImage &MapView::picture() {
  const QSize size = viewport().size() * ratio();
  if (picture_.size() != size) {
    // A window that is dragged by its edge shows the same at many sizes.
    if (!picture_.isNull() && being_resized_.isNull()) being_resized_ = doubled(viewport());
    picture_ = QImage(size, QImage::Format_RGB32);
    unmade_ = viewport();
  }
  const QRegion region = std::exchange(unmade_, {});
  if (region.isEmpty()) return picture_;
  const int whole = qRound(ratio());
  if (whole <= 2 && qFuzzyCompare(ratio(), whole)) {
    QPainter painter(&picture_);
    compose(painter, region, whole);
  } else {
    filter(region);
  }
  return picture_;
}

void MapView::paintEvent(QPaintEvent *event) {
  const QImage &shown = picture();
  const double device = devicePixelRatioF();
  QPainter painter(this);
  for (const QRect &part : event->region())
    painter.drawImage(QRectF(part), shown,
                      QRectF(QPointF(part.topLeft()) * device, QSizeF(part.size()) * device));
  if (!cursor_shown_ || focus_away_) return;
  cursor_drawn_ = cursor_area();
  draw_cursor(painter, QRectF(cursor_drawn_).center(), context_.scale.value());
}

void MapView::mousePressEvent(QMouseEvent *event) {
  hide_cursor();
  if (event->button() == Qt::MiddleButton && pointing_.scrolled.map != nullptr) {
    drag_ = Drag{event->position(), scroll()};
    setCursor(Qt::ClosedHandCursor);
  }
  if (event->button() == Qt::LeftButton)
    press(context_.scale.logical(event->position()), event->globalPosition());
}

/// The second press of a double click was meant for what the first one has answered.
void MapView::mouseDoubleClickEvent(QMouseEvent *) {}

void MapView::press(QPointF logical, QPointF on_desktop) {
  const ScreenQt::Press at(context_.screen, on_desktop);
  context_.dispatcher.run([&] {
    if (Contrôle *picture = pointing_.picture(logical.x(), logical.y())) cliquer(context_.window, *picture);
  });
}

void MapView::mouseMoveEvent(QMouseEvent *event) {
  if (!drag_) return;
  scroll_to(drag_->scroll + context_.scale.logical(drag_->press - event->position()).toPoint());
}

void MapView::mouseReleaseEvent(QMouseEvent *event) {
  if (event->button() != Qt::MiddleButton) return;
  drag_.reset();
  unsetCursor();
}

void MapView::wheelEvent(QWheelEvent *event) {
  if (event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
  const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
  wheel_ += sideways ? event->angleDelta().transposed() : event->angleDelta();
  const QPoint by = wheel_ / eighths_a_pixel;
  wheel_ -= by * eighths_a_pixel;
  scroll_to(scroll() - by);
}

QPoint MapView::scroll() const {
  const auto &[map, across, down] = pointing_.scrolled;
  return map == nullptr ? QPoint() : QPoint(across->valeur, down->valeur);
}

void MapView::scroll_to(QPoint corner) {
  const Pointing::Scrolled &by = pointing_.scrolled;
  if (by.map == nullptr || corner == scroll() || context_.dispatcher.busy()) return;
  context_.dispatcher.run([&] {
    if (by.across->visible) fixer_valeur(*by.across, corner.x());
    if (by.down->visible) fixer_valeur(*by.down, corner.y());
  });
}

QSize MapView::map_size() const {
  return pointing_.scrolled.map == nullptr ? viewport().size() : place_of(*pointing_.scrolled.map).size();
}

/// The pixel under the keyboard's cursor, in those of the viewport.
QRect MapView::cursor_pixel() const {
  return {cursor_.place() - scroll(), QSize(1, 1)};
}

/// All that the cursor's drawing reaches, in the toolkit's pixels.
QRect MapView::cursor_area() const {
  return context_.scale.rect(
      cursor_pixel().adjusted(-cursor_reach, -cursor_reach, cursor_reach, cursor_reach));
}

/// The view follows the cursor.
void MapView::follow_cursor() {
  const QRect inner = viewport().adjusted(cursor_reach, cursor_reach, -cursor_reach, -cursor_reach);
  const QPoint place = cursor_pixel().topLeft();
  const QPoint seen(std::clamp(place.x(), inner.left(), inner.right()),
                    std::clamp(place.y(), inner.top(), inner.bottom()));
  scroll_to(scroll() + place - seen);
}

void MapView::show_cursor() {
  follow_cursor();
  cursor_shown_ = true;
  focus_away_ = false;
  update(cursor_drawn_);
  update(cursor_area());
  show_tip(cursor_pixel().center(), mapToGlobal(cursor_area().bottomRight()));
  tell_place();
}

/// What a listener asks by a key; nothing for another key.
std::optional<std::string> MapView::answer(const QKeyEvent &event) const {
  const MapGuide &guide = context_.guide;
  if (!guide.tell || !QAccessible::isActive() || event.modifiers() != Qt::NoModifier) return std::nullopt;
  const Point here{cursor_.place().x(), cursor_.place().y()};
  switch (event.key()) {
    case Qt::Key_O: return guide.locate(here);
    case Qt::Key_T: return guide.sweep(here);
    case Qt::Key_R: return guide.repeat();
    default: return std::nullopt;
  }
}

void MapView::tell_place() {
  if (!context_.guide.tell || !QAccessible::isActive()) return;
  const QPoint place = cursor_.place();
  say(context_.guide.tell({told_.x(), told_.y()}, {place.x(), place.y()}));
  told_ = place;
}

void MapView::say(const std::string &text) {
  const QRect area = cursor_area();
  ardane::tell_place(*this, to_qt(text), {mapToGlobal(area.topLeft()), area.size()});
}

void MapView::hide_cursor() {
  if (!cursor_shown_) return;
  cursor_shown_ = false;
  update(cursor_drawn_);
}

/// Whoever comes back from a window or a menu goes on where the cursor was. An Enter meant for a button that
/// has gone is another matter. The toolkit paints anew what gets or loses the focus.
void MapView::focusInEvent(QFocusEvent *event) {
  QWidget::focusInEvent(event);
  if (event->reason() == Qt::OtherFocusReason) hide_cursor();
  focus_away_ = false;
}

void MapView::focusOutEvent(QFocusEvent *event) {
  focus_away_ = true;
  QWidget::focusOutEvent(event);
}

std::vector<QPoint> MapView::targets() const {
  std::vector<QPoint> targets;
  if (!context_.guide.targets) return targets;
  for (const Point &target : context_.guide.targets()) targets.emplace_back(target.x, target.y);
  return targets;
}

/// True for a key that moves the cursor.
bool MapView::move_cursor(const QKeyEvent &event) {
  const QSize map = map_size();
  const QPoint place = cursor_.place();
  const bool from_thing_to_thing = event.modifiers().testFlag(Qt::ControlModifier);
  const auto go = [&](QPoint direction) {
    if (from_thing_to_thing)
      cursor_.jump(direction, targets());
    else
      cursor_.move(direction * (event.modifiers().testFlag(Qt::ShiftModifier) ? stride : 1), map);
  };
  const auto go_to_edge = [&](int y) {
    if (from_thing_to_thing)
      cursor_.read_on(y > 0, targets());
    else
      cursor_.move_to({place.x(), y}, map);
  };
  switch (event.key()) {
    case Qt::Key_Left: go({-1, 0}); break;
    case Qt::Key_Right: go({1, 0}); break;
    case Qt::Key_Up: go({0, -1}); break;
    case Qt::Key_Down: go({0, 1}); break;
    case Qt::Key_Home: cursor_.move_to({0, place.y()}, map); break;
    case Qt::Key_End: cursor_.move_to({map.width(), place.y()}, map); break;
    case Qt::Key_PageUp: go_to_edge(0); break;
    case Qt::Key_PageDown: go_to_edge(map.height()); break;
    default: return false;
  }
  return true;
}

void MapView::keyPressEvent(QKeyEvent *event) {
  if (move_cursor(*event)) return show_cursor();
  if (const auto told = answer(*event)) return say(*told);
  if (!is_enter(*event)) return QWidget::keyPressEvent(event);
  // A key held down to agree with a box would go on to press the map.
  if (event->isAutoRepeat()) return;
  if (!cursor_shown_) return show_cursor();
  const QPoint pixel = cursor_pixel().topLeft();
  const QPointF middle(pixel.x() + 0.5, pixel.y() + 0.5);
  press(middle, mapToGlobal(middle * context_.scale.value()));
}

bool MapView::event(QEvent *event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto &help = static_cast<QHelpEvent &>(*event);
  show_tip(context_.scale.logical(help.pos()), help.globalPos());
  return true;
}

void MapView::show_tip(QPointF place, QPoint on_desktop) {
  const Contrôle *picture = pointing_.tip(place.x(), place.y());
  if (picture == nullptr)
    QToolTip::hideText();
  else
    QToolTip::showText(on_desktop, tool_tip(picture->infobulle), this,
                       context_.scale.rect(place_of(*picture)));
}

}  // namespace ardane
