#include "front/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "front/qt/appearance.h"
#include "front/qt/cell_sheet.h"
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

/// What a widget has painted and a reader finds as an item of it.
class PaintedItem : public QAccessibleInterface {
 public:
  explicit PaintedItem(QWidget &widget) : widget_(widget) {}

  bool isValid() const override { return parent()->isValid(); }
  QObject *object() const override { return nullptr; }
  QWindow *window() const override { return parent()->window(); }
  QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(&widget_); }
  QAccessibleInterface *child(int) const override { return nullptr; }
  QAccessibleInterface *childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface *) const override { return -1; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? name() : QString();
  }
  void setText(QAccessible::Text, const QString &) override {}
  QAccessible::Role role() const override { return QAccessible::StaticText; }

 private:
  virtual QString name() const = 0;

  QWidget &widget_;
};

/// A place on a picture that the focus is on, as an item of a list would be.
class SpokenPlace : public PaintedItem {
 public:
  using PaintedItem::PaintedItem;

  void set(const QString &name, QRect place) {
    name_ = name;
    place_ = place;
  }

  QRect rect() const override { return place_; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.focused = parent()->state().focused && parent()->child(0) == this;
    return state;
  }

 private:
  QString name() const override { return name_; }

  QString name_;
  QRect place_;
};

/// One cell of a sheet, by its place among them; whatever stands there, and nothing once none does.
class SpokenCell : public PaintedItem {
 public:
  SpokenCell(CellSheet &sheet, std::size_t index) : PaintedItem(sheet), sheet_(sheet), index_(index) {}

  bool isValid() const override { return PaintedItem::isValid() && index_ < sheet_.cells().size(); }
  QRect rect() const override {
    const QRect place = isValid() ? cell().place : QRect();
    return {sheet_.mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::State state() const override { return {}; }

 private:
  const CellSheet::Cell &cell() const { return sheet_.cells()[index_]; }
  QString name() const override { return isValid() ? to_qt(cell().spoken) : QString(); }

  const CellSheet &sheet_;
  const std::size_t index_;
};

/// An item that is the toolkit's, as all interfaces are: by its number it is given back, once.
template <class Item>
struct Registered {
  Item *item = nullptr;
  QAccessible::Id id = 0;
};

template <class Item, class... Arguments>
Registered<Item> registered(Arguments &&...arguments) {
  Item *item = std::make_unique<Item>(std::forward<Arguments>(arguments)...).release();
  return {item, QAccessible::registerAccessibleInterface(item)};
}

/// A picture with a cursor of its own: what lies there is the one item of it. Screen readers tell what the
/// focus moves to, but not every name that changes under it, so two items take turns.
class PictureWithCursor : public WidgetInRole {
 public:
  explicit PictureWithCursor(QWidget &picture) : WidgetInRole(&picture, QAccessible::Canvas) {
    for (auto &place : places_) place = registered<SpokenPlace>(picture);
  }
  ~PictureWithCursor() override {
    for (const auto &place : places_) QAccessible::deleteAccessibleInterface(place.id);
  }
  PictureWithCursor(const PictureWithCursor &) = delete;
  PictureWithCursor &operator=(const PictureWithCursor &) = delete;

  void tell(const QString &text, QRect where) {
    told_ = true;
    std::swap(places_.front(), places_.back());
    places_.front().item->set(text, where);
    for (const QAccessible::Event type : {QAccessible::NameChanged, QAccessible::Focus}) {
      QAccessibleEvent event(places_.front().item, type);
      QAccessible::updateAccessibility(&event);
    }
  }

  int childCount() const override { return told_ ? 1 : 0; }
  QAccessibleInterface *child(int index) const override {
    return told_ && index == 0 ? places_.front().item : nullptr;
  }
  int indexOfChild(const QAccessibleInterface *child) const override {
    return told_ && child == places_.front().item ? 0 : -1;
  }

 private:
  std::array<Registered<SpokenPlace>, 2> places_{};
  bool told_ = false;
};

/// The widgets that stand on a sheet, and behind them its cells.
class WidgetWithCells : public WidgetInRole {
 public:
  explicit WidgetWithCells(CellSheet &sheet) : WidgetInRole(&sheet, QAccessible::Client), sheet_(sheet) {}
  ~WidgetWithCells() override {
    for (const auto &cell : cells_) QAccessible::deleteAccessibleInterface(cell.id);
  }
  WidgetWithCells(const WidgetWithCells &) = delete;
  WidgetWithCells &operator=(const WidgetWithCells &) = delete;

  QAccessibleInterface *cell(std::size_t index) const {
    while (cells_.size() <= index) cells_.push_back(registered<SpokenCell>(sheet_, cells_.size()));
    return cells_[index].item;
  }

  int childCount() const override {
    return WidgetInRole::childCount() + static_cast<int>(sheet_.cells().size());
  }
  QAccessibleInterface *child(int index) const override {
    const int behind = index - WidgetInRole::childCount();
    if (behind < 0) return WidgetInRole::child(index);
    return index < childCount() ? cell(static_cast<std::size_t>(behind)) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface *child) const override {
    const auto found = std::ranges::find(cells_, child, &Registered<SpokenCell>::item);
    if (found == cells_.end()) return WidgetInRole::indexOfChild(child);
    return WidgetInRole::childCount() + static_cast<int>(found - cells_.begin());
  }

 private:
  CellSheet &sheet_;
  mutable std::vector<Registered<SpokenCell>> cells_;  ///< as many as have been asked for
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
  if (auto *sheet = dynamic_cast<CellSheet *>(widget))
    return std::make_unique<WidgetWithCells>(*sheet).release();
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

void tell_cell(CellSheet &sheet, std::size_t cell) {
  if (!QAccessible::isActive()) return;
  if (const auto *teller = dynamic_cast<WidgetWithCells *>(QAccessible::queryAccessibleInterface(&sheet))) {
    QAccessibleEvent event(teller->cell(cell), QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
  }
}

void install_accessibility() {
  QAccessible::installFactory(interface_of);
}

}  // namespace ardane
