// A control of a window and the widget that shows it.
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "front/qt/dispatcher.h"
#include "front/qt/picture_store.h"
#include "front/qt/screen.h"
#include "platform/controls.h"

namespace ardane {

/// What the map's widget asks of the game for a player who has no mouse. Places are pixels of the map.
struct MapGuide {
  std::function<std::vector<Point>()> targets;
  /// What is told of a place that the cursor has come to from another.
  std::function<std::string(Point from, Point to)> tell;
  /// Where a place lies, and what lies around it.
  std::function<std::string(Point)> locate, sweep;
  /// The question under way.
  std::function<std::string()> repeat;
};

/// What the widgets of one window share.
struct ViewContext {
  Fenêtre &window;
  Dispatcher &dispatcher;
  PictureStore &pictures;
  ScreenQt &screen;
  const Scale &scale;  ///< of the window, which may change
  const MapGuide &guide;
};

/// A control's place in its container, in whole pixels of the data.
QRect place_of(const Contrôle &control);

/// True for the keys that the player knows as Enter.
bool is_enter(const QKeyEvent &event);

/// Keeps one widget in step with one control, and hands the player's events on. Properties that the program
/// alone changes are compared with what was last set; those that the player changes as well, with the
/// widget's own. What has not changed is not set.
class ControlView : public QObject {
 public:
  ~ControlView() override = default;

  Contrôle &control() const { return control_; }
  QWidget &widget() const { return *widget_; }
  virtual void sync();

 protected:
  /// Whether the widget is to be seen; the data's own visibility unless a kind has more to say.
  virtual bool is_shown() const { return control().visible; }
  /// Where the widget stands; the data's own place unless the desktop's style needs more room.
  virtual QRect place() const { return scale().rect(place_of(control())); }
  const Scale &scale() const { return context_.scale; }

  /// Takes the widget, which its Qt parent owns.
  ControlView(Contrôle &control, const ViewContext &context, QWidget *widget);

  void run(const Dispatcher::Event &event) { context_.dispatcher.run(event); }
  /// The click of the player's, through the window's rules.
  void click();
  void double_click();
  bool eventFilter(QObject *watched, QEvent *event) override;

  const ViewContext context_;

 private:
  /// True if the widget does with the Enter key what it will.
  virtual bool takes_enter() const { return entrée_finit_la_ligne(control()); }
  /// True if a press of the mouse is a click: the widget makes nothing of it by itself.
  virtual bool is_clicked_by_press() const { return false; }

  /// The properties that every kind has and that the program alone changes.
  struct Look {
    QRect place;
    bool visible = true, enabled = true;
    std::string tool_tip;
    std::optional<Teinte> fond, couleur;
    Police police;
    Scale scale;
    friend bool operator==(const Look &, const Look &) = default;
  };

  Contrôle &control_;
  QWidget *const widget_;
  std::optional<Look> shown_;
  std::string spoken_;
};

/// The view for the control's kind, its widget a child of `parent`. Menu entries have none.
std::unique_ptr<ControlView> make_view(Contrôle &control, const ViewContext &context, QWidget *parent);

}  // namespace ardane
