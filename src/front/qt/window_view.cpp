#include "front/qt/window_view.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

namespace ardane {
namespace {

Qt::WindowFlags flags_of(const Fenêtre &window) {
  const Qt::WindowFlags kind = window.est_principale ? Qt::Window : Qt::Dialog;
  if (!window.avec_titre) return kind | Qt::FramelessWindowHint;
  Qt::WindowFlags flags = kind | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  if (window.fermable) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
  return flags;
}

QPoint whole(double x, double y) {
  return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))};
}

/// Cells, and pictures of a map, belong to the painting of what they stand on.
bool has_widget(const Contrôle &control) {
  if (control.genre == Genre::menu || control.cellule) return false;
  return control.genre != Genre::image || control.conteneur == nullptr ||
         control.conteneur->genre != Genre::vue;
}

/// The Qt window: the menu bar on top, where there is one, and the client area.
class Frame : public QWidget {
 public:
  Frame(const Fenêtre &window, WindowEvents events, QWidget *parent)
      : QWidget(parent, flags_of(window)), events_(std::move(events)) {
    setObjectName(to_qt(window.nom));
  }

  std::function<void()> resized;
  std::function<void(int)> zoom;  ///< by so many steps; back to what fits for 0
  bool outlined = false;          ///< draws the border that no window manager gives it

 protected:
  void closeEvent(QCloseEvent *event) override {
    event->ignore();  // the window goes when its data says so
    events_.close_asked();
  }
  void moveEvent(QMoveEvent *) override { events_.moved(); }
  void resizeEvent(QResizeEvent *) override {
    if (resized) resized();
  }
  void keyPressEvent(QKeyEvent *event) override {
    if (event->key() == Qt::Key_F1) events_.help_asked();
    if (event->key() == Qt::Key_Escape) events_.escaped();
    if (is_enter(*event)) events_.entered();
    if (!zoom) return;
    if (event->matches(QKeySequence::ZoomIn) || is_control(*event, Qt::Key_Equal)) zoom(1);
    if (event->matches(QKeySequence::ZoomOut)) zoom(-1);
    if (is_control(*event, Qt::Key_0)) zoom(0);
  }
  void wheelEvent(QWheelEvent *event) override {
    if (!zoom || !event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    wheel_ += event->angleDelta().y();
    const int steps = wheel_ / QWheelEvent::DefaultDeltasPerStep;
    wheel_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) zoom(steps);
  }
  void paintEvent(QPaintEvent *) override {
    if (!outlined) return;
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameWindow, &option, &painter, this);
  }
  bool event(QEvent *event) override {
    if (event->type() == QEvent::WindowActivate) events_.activated();
    return QWidget::event(event);
  }

 private:
  static bool is_control(const QKeyEvent &event, Qt::Key key) {
    return event.key() == key && event.modifiers().testFlag(Qt::ControlModifier);
  }

  const WindowEvents events_;
  int wheel_ = 0;  ///< eighths of a degree that have not made a step yet
};

/// The monitor that holds most of a window, as far as windows may lie on it.
QRect monitor_of(const QWidget &window) {
  const auto shared = [&](const QScreen *screen) {
    const QRect part = screen->geometry() & window.frameGeometry();
    return part.isEmpty() ? 0 : part.width() * part.height();
  };
  const QList<QScreen *> screens = QGuiApplication::screens();
  return (*std::ranges::max_element(screens, {}, shared))->availableGeometry();
}

QRect moved_into(QRect window, QRect monitor) {
  window.moveRight(std::min(window.right(), monitor.right()));
  window.moveBottom(std::min(window.bottom(), monitor.bottom()));
  window.moveLeft(std::max(window.left(), monitor.left()));
  window.moveTop(std::max(window.top(), monitor.top()));
  return window;
}

/// What a window manager puts around its windows.
QMargins decoration_of(const QWidget &window) {
  const QRect inner = window.geometry(), outer = window.frameGeometry();
  return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
          outer.bottom() - inner.bottom()};
}

}  // namespace

WindowView::WindowView(Fenêtre &window_shown, const WindowParts &parts, const WindowEvents &events,
                       QWidget *parent)
    : context_{window_shown, parts.dispatcher, parts.pictures, parts.screen, scale_, parts.guide},
      frame_(*make_child<Frame>(window_shown, events, parent)),
      client_(*make_child<CellSheet>(context_, &frame_)),
      fitted_(events.fitted) {
  auto &frame = static_cast<Frame &>(frame_);
  frame.resized = [this] { lay_out(); };
  if (has_menu(window())) {
    menu_ = std::make_unique<MenuView>(context_, &frame_);
    designed_menu_height_ = menu_->bar().sizeHint().height();
  }
  frame.outlined = !window().avec_titre && !window().est_principale;
  if (!window().est_principale) frame_.setWindowIcon(context_.pictures.icon(window().nom));
  if (window().fond) {
    QPalette palette;
    palette.setColor(QPalette::Window, to_qt(*window().fond));
    client_.setAutoFillBackground(true);
    client_.setPalette(palette);
  }
}

WindowView::~WindowView() {
  if (fit_) context_.screen.play_on(std::nullopt);
  views_.clear();
  static_cast<Frame &>(frame_).resized = {};
  // The window may be taken off by an event of its own, whose widget is still at work.
  frame_.deleteLater();
}

QSize WindowView::client_size() const {
  return {frame_.width(), std::max(0, frame_.height() - menu_height())};
}

void WindowView::become_screen(QSize needed) {
  fit_ = WindowFit{needed, std::nullopt};
  auto &frame = static_cast<Frame &>(frame_);
  frame.outlined = false;
  frame.setWindowFlags(Qt::Window);
  const QSize least = smallest_screen * smallest_scale;
  frame.setMinimumSize(least.width(), least.height() + menu_height());
  frame.zoom = [this](int steps) { zoom(steps); };
  fit_contents();
}

/// The menu bar on top, and below it what the window shows.
void WindowView::lay_out() {
  if (fit_) return fit_contents();
  lay_out_menu();
  client_.setGeometry({QPoint(0, menu_height()), client_size()});
}

/// A bar that is a pixel too low hides its entries: small letters may take a little of the margin below it.
void WindowView::lay_out_menu() {
  if (menu_ == nullptr) return;
  menu_->show_at(menu_scale_);
  QMenuBar &bar = menu_->bar();
  bar.setGeometry(0, 0, frame_.width(), std::max(menu_height(), bar.sizeHint().height()));
}

void WindowView::fit_contents() {
  menu_scale_ = Scale(WindowFit{needed(), fit_->chosen}.scale(frame_.size()));
  lay_out_menu();
  const QSize client = client_size();
  const QRect area = fit_->area(client);
  scale_ = Scale(fit_->scale(client));
  client_.setGeometry(area.translated(0, menu_height()));
  context_.screen.play_on(ScreenQt::Area{&client_, fit_->screen(client), scale_});
  for (const auto &view : views_) view->sync();
  client_.sync();
  fitted_();
}

void WindowView::choose_scale(std::optional<double> scale) {
  fit_->chosen = scale;
  // One that is larger than the window can take does not count as chosen.
  if (scale) fit_->chosen = fit_->scale(client_size());
  fit_contents();
}

void WindowView::zoom(int steps) {
  if (steps == 0)
    choose_scale(std::nullopt);
  else
    choose_scale(next_scale(scale_.value(), steps));
}

void WindowView::sync() {
  sync_window();
  drop_views_of_gone();
  make_missing_views();
  bring_focus_home();
  for (const auto &view : views_) view->sync();
  client_.sync();
  sync_stacking();
  sync_focus();
}

void WindowView::sync_window() {
  const QString title = to_qt(window().titre).trimmed();
  if (frame_.windowTitle() != title) frame_.setWindowTitle(title);
  if (const QString spoken = to_qt(window().nom_parlé); title.isEmpty() && frame_.accessibleName() != spoken)
    frame_.setAccessibleName(spoken);
  if (menu_ != nullptr) menu_->sync();
  sync_geometry();
}

void WindowView::sync_geometry() {
  if (fit_) return;  // the player's affair
  // The data's size of a window with a menu bar is that of the whole, as its place is.
  const QSize size{std::max(1, static_cast<int>(std::lround(window().largeur))),
                   std::max(1, static_cast<int>(std::lround(window().hauteur)))};
  QPoint place = whole(window().gauche, window().haut);
  if (window().est_principale) {
    const Rect zone = context_.screen.zone_de_travail();
    place = {std::max(place.x(), zone.gauche), std::max(place.y(), zone.haut)};
    window().gauche = place.x();
    window().haut = place.y();
  }
  const Geometry wanted{place, size, context_.screen.scale()};
  if (wanted == geometry_) return;
  const bool moved = !geometry_ || geometry_->place != place;
  geometry_ = wanted;
  const QRect shown = on_desktop({place, size});
  if (window().redimensionnable)
    frame_.resize(shown.size());
  else
    frame_.setFixedSize(shown.size());
  if (moved) frame_.setGeometry(shown);
}

/// Where a window with that place on the program's screen stands: wholly on the monitor, smaller if need be.
QRect WindowView::on_desktop(QRect logical) {
  const std::optional<ScreenQt::Area> &screen = context_.screen.area();
  if (!screen) return logical;
  const QWidget &main = *screen->widget->window();
  const QRect room = monitor_of(main).marginsRemoved(window().avec_titre ? decoration_of(main) : QMargins());
  scale_ = Scale(std::min({screen->scale.value(), static_cast<double>(room.width()) / logical.width(),
                           static_cast<double>(room.height()) / logical.height()}));
  const QPointF middle = QRectF(logical).center();
  QRect shown({}, scale_.rect(QRectF({}, logical.size())).size());
  shown.moveCenter((window().placée_sur_le_moniteur ? middle : context_.screen.on_desktop(middle)).toPoint());
  return moved_into(shown, room);
}

/// Until its widget is gone for good, a label would lead to it.
void WindowView::forget_buddy(const QWidget &gone) {
  for (const auto &view : views_)
    if (auto *label = qobject_cast<QLabel *>(&view->widget()); label != nullptr && label->buddy() == &gone)
      label->setBuddy(nullptr);
}

void WindowView::drop_views_of_gone() {
  if (revision_ == window().révision()) return;
  revision_ = window().révision();
  for (const auto &view : views_) {
    if (!view->control().retiré) continue;
    // The widget may be at work in the very event that took its control off.
    view->widget().setObjectName({});
    forget_buddy(view->widget());
    view->widget().hide();
    view->widget().deleteLater();
  }
  std::erase_if(stacked_, [](const ControlView *view) { return view->control().retiré; });
  focus_ = nullptr;
  std::erase_if(views_, [](const auto &view) { return view->control().retiré; });
  window().oublier_retirés();
}

void WindowView::make_missing_views() {
  const std::size_t before = views_.size();
  for (Contrôle &control : window().contrôles())
    if (has_widget(control) && est_visible(control) && view_of(control) == nullptr) make(control);
  if (views_.size() == before) return;
  sync_tab_order();
  sync_buddies();
}

ControlView *WindowView::view_of(const Contrôle &control) const {
  const auto found =
      std::ranges::find_if(views_, [&](const auto &view) { return &view->control() == &control; });
  return found == views_.end() ? nullptr : found->get();
}

QWidget *WindowView::holder_of(const Contrôle &control) {
  if (control.conteneur == nullptr) return &client_;
  ControlView *holder = view_of(*control.conteneur);
  return &(holder == nullptr ? make(*control.conteneur) : holder)->widget();
}

ControlView *WindowView::make(Contrôle &control) {
  QWidget *holder = holder_of(control);
  views_.push_back(make_view(control, context_, holder));
  return views_.back().get();
}

void WindowView::sync_stacking() {
  const auto lower = [](ControlView *a, ControlView *b) { return a->control().plan < b->control().plan; };
  if (stacked_.size() == views_.size() && std::ranges::is_sorted(stacked_, lower)) return;
  std::vector<ControlView *> stack;
  for (const auto &view : views_) stack.push_back(view.get());
  std::ranges::sort(stack, lower);
  // Those that lie as they lay, from the lowest on, stay.
  const auto first_moved = std::ranges::mismatch(stack, stacked_).in1;
  std::for_each(first_moved, stack.end(), [](ControlView *view) { view->widget().raise(); });
  stacked_ = std::move(stack);
}

void WindowView::sync_tab_order() {
  QWidget *last = nullptr;
  for (const Contrôle *control : ordre_du_clavier(window())) {
    ControlView *view = view_of(*control);
    if (view == nullptr) continue;
    if (last != nullptr) QWidget::setTabOrder(last, &view->widget());
    last = &view->widget();
  }
}

void WindowView::sync_buddies() {
  for (const auto &view : views_) {
    ControlView *label = view->control().étiquette == nullptr ? nullptr : view_of(*view->control().étiquette);
    if (label == nullptr) continue;
    if (auto *shown = qobject_cast<QLabel *>(&label->widget())) shown->setBuddy(&view->widget());
  }
}

/// The map, where the keyboard's focus is at home; null in other windows.
Contrôle *WindowView::map() {
  const auto found = std::ranges::find(window().contrôles(), Genre::vue, &Contrôle::genre);
  return found == window().contrôles().end() ? nullptr : &*found;
}

/// What the player meant for a button that is gone must not reach the next one. Before that one is hidden:
/// the toolkit would find it a neighbour.
void WindowView::bring_focus_home() {
  const Contrôle *focus = window().focus;
  Contrôle *home = map();
  if (home == nullptr || (focus != nullptr && est_utilisable(*focus))) return;
  window().focus = home;
  if (ControlView *view = view_of(*home)) view->widget().setFocus(Qt::OtherFocusReason);
}

void WindowView::sync_focus() {
  rectifier_focus(window());
  Contrôle *wanted = window().focus;
  if (wanted != nullptr && wanted != focus_) {
    ControlView *view = view_of(*wanted);
    if (view != nullptr && !view->widget().hasFocus()) view->widget().setFocus(Qt::OtherFocusReason);
  }
  // What the toolkit made of it, a hidden control's focus having gone to its neighbour.
  const QWidget *holder = frame_.focusWidget();
  for (const auto &view : views_)
    if (&view->widget() == holder) window().focus = &view->control();
  focus_ = window().focus;
}

void WindowView::show(Qt::WindowModality modality) {
  frame_.setWindowModality(modality);
  frame_.show();
  frame_.activateWindow();
}

void WindowView::hide() {
  frame_.hide();
}

void WindowView::await_first_paint(std::chrono::milliseconds patience) {
  if (frame_.windowHandle()->isExposed()) return;
  // With a time of its own processEvents would not wait but ask again and again.
  QTimer deadline;
  deadline.setSingleShot(true);
  deadline.start(patience);
  while (!frame_.windowHandle()->isExposed() && deadline.isActive())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  frame_.repaint();
}

Rect WindowView::rectangle(const Contrôle &control) const {
  // A window that was never shown has not given its client area the place yet.
  const QPoint client = fit_ ? client_.pos() : QPoint(0, menu_height());
  QPoint place = context_.screen.logical(frame_.mapToGlobal(client));
  for (const Contrôle *c = &control; c != nullptr; c = c->conteneur) place += place_of(*c).topLeft();
  const QSize size = place_of(control).size();
  return {place.x(), place.y(), place.x() + size.width(), place.y() + size.height()};
}

}  // namespace ardane
