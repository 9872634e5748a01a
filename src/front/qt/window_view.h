// One window of the program on the screen.
#pragma once

#include <QEventLoop>
#include <QWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "front/qt/cell_sheet.h"
#include "front/qt/control_view.h"
#include "front/qt/menu_view.h"
#include "front/qt/window_fit.h"

namespace ardane {

/// What a window tells of itself to whoever keeps the windows.
struct WindowEvents {
  std::function<void()> activated, moved, close_asked, help_asked, entered, escaped;
  std::function<void()>
      fitted;  ///< the player has given the window another size, or its contents another scale
};

/// What all windows share.
struct WindowParts {
  Dispatcher &dispatcher;
  PictureStore &pictures;
  ScreenQt &screen;
  const MapGuide &guide;
};

/// The Qt window of a `Fenêtre` and the widgets of its controls. A widget is made when its control is first
/// seen, and goes when its control has been taken off; cells have none. A menu bar counts in the window's
/// height.
class WindowView : public QObject {
 public:
  WindowView(Fenêtre &window, const WindowParts &parts, const WindowEvents &events, QWidget *parent);
  ~WindowView() override;

  Fenêtre &window() { return context_.window; }
  QWidget &frame() const { return frame_; }

  /// Makes the window one that the player sizes: what it shows is scaled to it, and the program takes it for
  /// its screen. `needed` is what the contents take, in pixels of the data.
  void become_screen(QSize needed);
  /// What they take with the menu bar, which has the same scale.
  QSize needed() const { return with_menu(fit_->needed); }
  /// The scale that the player has set; none for the one at which all fits.
  void choose_scale(std::optional<double> scale);
  std::optional<double> chosen_scale() const { return fit_ ? fit_->chosen : std::nullopt; }

  /// Brings the window and its widgets in step with the data.
  void sync();
  /// Brings the window alone in step, without its widgets: enough to measure where they will stand.
  void sync_window();
  void show(Qt::WindowModality modality);
  void hide();
  /// Waits a moment for a window that the desktop has yet to put up, and paints it. One that has been painted
  /// before needs no haste: what changed is painted when the event is over, and then once.
  void await_first_paint(std::chrono::milliseconds patience = std::chrono::milliseconds(200));
  /// Outer edges of a control on the screen.
  Rect rectangle(const Contrôle &control) const;

  /// Set while somebody waits for the window to close.
  QEventLoop *waiting = nullptr;

 private:
  struct Geometry {
    QPoint place;
    QSize size;
    Scale scale;
    friend bool operator==(const Geometry &, const Geometry &) = default;
  };

  /// With the menu bar's room.
  QSize with_menu(QSize logical) const { return logical + QSize(0, designed_menu_height_); }
  /// Rounded down: what it shows below keeps the scale that the window was made for.
  int menu_height() const { return static_cast<int>(designed_menu_height_ * menu_scale_.value()); }
  QSize client_size() const;
  void lay_out();
  void lay_out_menu();
  void fit_contents();
  void zoom(int steps);
  void sync_geometry();
  QRect on_desktop(QRect logical);
  void forget_buddy(const QWidget &gone);
  void drop_views_of_gone();
  void make_missing_views();
  void sync_stacking();
  void sync_tab_order();
  void sync_buddies();
  Contrôle *map();
  void bring_focus_home();
  void sync_focus();
  ControlView *view_of(const Contrôle &control) const;
  ControlView *make(Contrôle &control);
  QWidget *holder_of(const Contrôle &control);

  Scale scale_;
  const ViewContext context_;
  QWidget &frame_;                  ///< deleted after the view, by Qt
  std::unique_ptr<MenuView> menu_;  ///< null for a window without menus
  int designed_menu_height_ = 0;    ///< at scale 1
  Scale menu_scale_;
  CellSheet &client_;                                ///< where the controls stand
  std::vector<std::unique_ptr<ControlView>> views_;  ///< in the order of their making
  std::vector<ControlView *> stacked_;               ///< the lowest first
  std::optional<Geometry> geometry_;
  std::optional<WindowFit> fit_;  ///< of a window that the player sizes
  const std::function<void()> fitted_;
  std::uint64_t revision_ = 0;  ///< of the controls that the views stand for
  const Contrôle *focus_ = nullptr;
};

}  // namespace ardane
