// One window of the program on the screen.
#pragma once

#include <QEventLoop>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "front/qt/control_view.h"
#include "front/qt/menu_view.h"

namespace ardane {

/// What a window tells of itself to whoever keeps the windows.
struct WindowEvents {
  std::function<void()> activated, moved, close_asked, help_asked, entered, escaped;
};

/// The Qt window of a `Fenêtre` and the widgets of its controls. A widget is made when its control is first
/// seen, and goes when its control has been taken off. A menu bar counts in the window's height.
class WindowView : public QObject {
 public:
  WindowView(const ViewContext &context, WindowEvents events, QWidget *parent);
  ~WindowView() override;

  Fenêtre &window() { return context_.window; }
  QWidget &frame() const { return frame_; }

  /// Brings the window and its widgets in step with the data.
  void sync();
  /// Brings the window alone in step, without its widgets: enough to measure where they will stand.
  void sync_window();
  void show(Qt::WindowModality modality);
  void hide();
  /// Waits a moment for a window that the desktop has yet to put up, and paints it. One that has been painted
  /// before needs no haste: what changed is painted when the event is over, and then once.
  void await_first_paint();
  /// Outer edges of a control on the screen.
  Rect rectangle(const Contrôle &control) const;

  /// Set while somebody waits for the window to close.
  QEventLoop *waiting = nullptr;

 private:
  struct Geometry {
    QPoint place;
    QSize size;
    friend bool operator==(const Geometry &, const Geometry &) = default;
  };

  QSize client_offset() const;
  void sync_geometry();
  void forget_buddy(const QWidget &gone);
  void drop_views_of_gone();
  void make_missing_views();
  void sync_stacking();
  void sync_tab_order();
  void sync_buddies();
  void sync_focus();
  ControlView *view_of(const Contrôle &control) const;
  ControlView *make(Contrôle &control);
  QWidget *holder_of(const Contrôle &control);

  const ViewContext context_;
  QWidget &frame_;                                   ///< deleted after the view, by Qt
  std::unique_ptr<MenuView> menu_;                   ///< null for a window without menus
  QWidget &client_;                                  ///< where the controls stand
  std::vector<std::unique_ptr<ControlView>> views_;  ///< in the order of their making
  std::vector<ControlView *> stacked_;               ///< the lowest first
  std::optional<Geometry> geometry_;
  std::uint64_t revision_ = 0;  ///< of the controls that the views stand for
  const Contrôle *focus_ = nullptr;
};

}  // namespace ardane
