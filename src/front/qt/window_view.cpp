#include "front/qt/window_view.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOption>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

namespace ardane {
namespace {

/// How long a window that is to be painted at once is waited for.
constexpr std::chrono::milliseconds exposure_delay{200};

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

/// Pictures of a map belong to its viewport's own painting.
bool has_widget(const Contrôle &control) {
  if (control.genre == Genre::menu) return false;
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

  QWidget *client = nullptr;
  QWidget *menu = nullptr;
  bool outlined = false;  ///< draws the border that no window manager gives it

 protected:
  void closeEvent(QCloseEvent *event) override {
    event->ignore();  // the window goes when its data says so
    events_.close_asked();
  }
  void moveEvent(QMoveEvent *) override { events_.moved(); }
  void resizeEvent(QResizeEvent *) override {
    const int top = menu == nullptr ? 0 : menu->sizeHint().height();
    if (menu != nullptr) menu->setGeometry(0, 0, width(), top);
    if (client != nullptr) client->setGeometry(0, top, width(), std::max(0, height() - top));
  }
  void keyPressEvent(QKeyEvent *event) override {
    if (event->key() == Qt::Key_F1) events_.help_asked();
    if (event->key() == Qt::Key_Escape) events_.escaped();
    if (is_enter(*event)) events_.entered();
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
  const WindowEvents events_;
};

}  // namespace

WindowView::WindowView(const ViewContext &context, WindowEvents events, QWidget *parent)
    : context_(context),
      frame_(*make_child<Frame>(context.window, std::move(events), parent)),
      client_(*make_child<QWidget>(&frame_)) {
  auto &frame = static_cast<Frame &>(frame_);
  frame.client = &client_;
  if (has_menu(window())) {
    menu_ = std::make_unique<MenuView>(context_, &frame_);
    frame.menu = &menu_->bar();
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
  views_.clear();
  menu_.reset();
  // The window may be taken off by an event of its own, whose widget is still at work.
  frame_.deleteLater();
}

QSize WindowView::client_offset() const {
  return {0, menu_ == nullptr ? 0 : menu_->bar().sizeHint().height()};
}

void WindowView::sync() {
  sync_window();
  drop_views_of_gone();
  make_missing_views();
  for (const auto &view : views_) view->sync();
  sync_stacking();
  sync_focus();
}

void WindowView::sync_window() {
  const QString title = to_qt(window().titre).trimmed();
  if (frame_.windowTitle() != title) frame_.setWindowTitle(title);
  if (menu_ != nullptr) menu_->sync();
  sync_geometry();
}

void WindowView::sync_geometry() {
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
  const Geometry wanted{place, size};
  if (wanted == geometry_) return;
  const bool moved = !geometry_ || geometry_->place != place;
  geometry_ = wanted;
  if (window().redimensionnable)
    frame_.resize(size);
  else
    frame_.setFixedSize(size);
  if (moved) frame_.setGeometry(QRect(place, size));
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
  stacked_.clear();
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
  stacked_.clear();
  for (const auto &view : views_) stacked_.push_back(view.get());
  std::ranges::sort(stacked_, lower);
  for (ControlView *view : stacked_) view->widget().raise();
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
    label->sync();  // a mnemonic is marked where it leads somewhere
  }
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

void WindowView::await_first_paint() {
  if (!frame_.isVisible() || frame_.windowHandle()->isExposed()) return;
  // With a time of its own processEvents would not wait but ask again and again.
  QTimer deadline;
  deadline.setSingleShot(true);
  deadline.start(exposure_delay);
  while (!frame_.windowHandle()->isExposed() && deadline.isActive())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  frame_.repaint();
}

Rect WindowView::rectangle(const Contrôle &control) const {
  QPoint place = frame_.mapToGlobal(QPoint(0, client_offset().height()));
  for (const Contrôle *c = &control; c != nullptr; c = c->conteneur) place += place_of(*c).topLeft();
  const QSize size = place_of(control).size();
  return {place.x(), place.y(), place.x() + size.width(), place.y() + size.height()};
}

}  // namespace ardane
