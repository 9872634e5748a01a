#include "front/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <array>
#include <memory>

#include "front/qt/map_view.h"

namespace ardane {
namespace {

constexpr char silent_property[] = "muet";

/// A widget with another role than its class has.
class WidgetInRole : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
};

class SilentWidget : public WidgetInRole {
 public:
  using WidgetInRole::WidgetInRole;
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.invisible = true;
    state.focusable = false;
    return state;
  }
};

/// A place on a picture that the focus is on, as an item of a list would be.
class SpokenPlace : public QAccessibleInterface {
 public:
  explicit SpokenPlace(QAccessibleInterface &picture) : picture_(picture) {}

  void set(const QString &name, QRect place) {
    name_ = name;
    place_ = place;
  }

  bool isValid() const override { return picture_.isValid(); }
  QObject *object() const override { return nullptr; }
  QWindow *window() const override { return picture_.window(); }
  QAccessibleInterface *parent() const override { return &picture_; }
  QAccessibleInterface *child(int) const override { return nullptr; }
  QAccessibleInterface *childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface *) const override { return -1; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? name_ : QString();
  }
  void setText(QAccessible::Text, const QString &) override {}
  QRect rect() const override { return place_; }
  QAccessible::Role role() const override { return QAccessible::StaticText; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.focused = picture_.state().focused && picture_.child(0) == this;
    return state;
  }

 private:
  QAccessibleInterface &picture_;
  QString name_;
  QRect place_;
};

/// A picture with a cursor of its own: what lies there is the one item of it. Screen readers tell what the
/// focus moves to, but not every name that changes under it, so two items take turns.
class PictureWithCursor : public WidgetInRole {
 public:
  explicit PictureWithCursor(QWidget &picture) : WidgetInRole(&picture, QAccessible::Canvas) {
    for (Place &place : places_) {
      place.spoken = std::make_unique<SpokenPlace>(*this).release();
      place.id = QAccessible::registerAccessibleInterface(place.spoken);
    }
  }
  ~PictureWithCursor() override {
    for (const Place &place : places_) QAccessible::deleteAccessibleInterface(place.id);
  }
  PictureWithCursor(const PictureWithCursor &) = delete;
  PictureWithCursor &operator=(const PictureWithCursor &) = delete;

  void tell(const QString &text, QRect where) {
    told_ = true;
    std::swap(places_.front(), places_.back());
    places_.front().spoken->set(text, where);
    for (const QAccessible::Event type : {QAccessible::NameChanged, QAccessible::Focus}) {
      QAccessibleEvent event(places_.front().spoken, type);
      QAccessible::updateAccessibility(&event);
    }
  }

  int childCount() const override { return told_ ? 1 : 0; }
  QAccessibleInterface *child(int index) const override {
    return told_ && index == 0 ? places_.front().spoken : nullptr;
  }
  int indexOfChild(const QAccessibleInterface *child) const override {
    return told_ && child == places_.front().spoken ? 0 : -1;
  }

 private:
  /// The toolkit's, as all interfaces are: by its number it is given back, once.
  struct Place {
    SpokenPlace *spoken = nullptr;
    QAccessible::Id id = 0;
  };
  std::array<Place, 2> places_{};
  bool told_ = false;
};

QAccessible::Role role_of(const QWidget &window) {
  return window.windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
}

/// The interface of a widget that is more than its class says; null for the toolkit's own.
QAccessibleInterface *interface_of(const QString &, QObject *object) {
  auto *widget = qobject_cast<QWidget *>(object);
  if (widget == nullptr) return nullptr;
  if (widget->property(silent_property).toBool()) return std::make_unique<SilentWidget>(widget).release();
  if (dynamic_cast<MapView *>(widget) != nullptr)
    return std::make_unique<PictureWithCursor>(*widget).release();
  if (dynamic_cast<Speech *>(widget) != nullptr)
    return std::make_unique<WidgetInRole>(widget, QAccessible::Notification).release();
  // Widgets without a meta-object of their own: the frames of the program's windows.
  if (widget->isWindow() && widget->metaObject() == &QWidget::staticMetaObject)
    return std::make_unique<WidgetInRole>(widget, role_of(*widget), widget->windowTitle()).release();
  return nullptr;
}

}  // namespace

void set_silent(QWidget &widget, bool silent) {
  if (silent) widget.setProperty(silent_property, true);
}

Speech::Speech(QWidget *window) : QWidget(window) {
  setObjectName(QStringLiteral("annonce"));
  setFixedSize(1, 1);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  show();
}

void Speech::say(const QString &text) {
  if (text.isEmpty() || !QAccessible::isActive()) return;
  setAccessibleName(text);
  for (const QAccessible::Event type : {QAccessible::ObjectShow, QAccessible::Alert}) {
    QAccessibleEvent event(this, type);
    QAccessible::updateAccessibility(&event);
  }
}

void tell_place(QWidget &picture, const QString &text, QRect where) {
  if (!QAccessible::isActive()) return;
  if (auto *teller = dynamic_cast<PictureWithCursor *>(QAccessible::queryAccessibleInterface(&picture)))
    teller->tell(text, where);
}

void install_accessibility() {
  QAccessible::installFactory(interface_of);
}

}  // namespace ardane
