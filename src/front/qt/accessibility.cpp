#include "front/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
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

QAccessible::Role role_of(const QWidget &window) {
  return window.windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
}

/// The interface of a widget that is more than its class says; null for the toolkit's own.
QAccessibleInterface *interface_of(const QString &, QObject *object) {
  auto *widget = qobject_cast<QWidget *>(object);
  if (widget == nullptr) return nullptr;
  if (widget->property(silent_property).toBool()) return std::make_unique<SilentWidget>(widget).release();
  if (dynamic_cast<MapView *>(widget) != nullptr)
    return std::make_unique<WidgetInRole>(widget, QAccessible::Canvas).release();
  if (dynamic_cast<Speech *>(widget) != nullptr)
    return std::make_unique<WidgetInRole>(widget, QAccessible::AlertMessage).release();
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

void install_accessibility() {
  QAccessible::installFactory(interface_of);
}

}  // namespace ardane
