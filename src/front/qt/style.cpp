#include "front/qt/style.h"

#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <array>
#include <vector>

#include "front/qt/child.h"

namespace ardane {
namespace {

/// All that a scroll bar's picture depends on.
struct BarLook {
  BarLook(const QStyleOptionSlider &bar, qreal device_ratio)
      : size(bar.rect.size()),
        state(bar.state),
        pressed(bar.activeSubControls),
        range{bar.minimum, bar.maximum, bar.sliderPosition, bar.pageStep, bar.orientation},
        palette(bar.palette.cacheKey()),
        ratio(device_ratio) {}

  QSize size;
  QStyle::State state;
  QStyle::SubControls pressed;
  std::array<int, 5> range;
  qint64 palette;
  qreal ratio;
  friend bool operator==(const BarLook &, const BarLook &) = default;
};

struct KnownBar {
  BarLook look;
  QPixmap picture;
};

/// More than there are on the screen.
constexpr std::size_t most_known_bars = 16;

class Style : public QProxyStyle {
 public:
  /// Marks of options and boxes are as high as the letters beside them, whatever their scale.
  int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override {
    const bool mark = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight ||
                      metric == PM_ExclusiveIndicatorWidth || metric == PM_ExclusiveIndicatorHeight;
    return mark && widget != nullptr ? widget->fontMetrics().height()
                                     : QProxyStyle::pixelMetric(metric, option, widget);
  }

  /// A menu bar asks at once for the arrow that it shows when it is too narrow. Ours never is, and to decode
  /// the arrow loads every decoder there is. All else is decoded once: the toolkit remembers the name of each
  /// picture that it ever made of an icon.
  QIcon standardIcon(StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override {
    if (which == SP_ToolBarHorizontalExtensionButton) return {};
    QIcon &icon = icons_[which];
    if (icon.isNull()) icon = QProxyStyle::standardIcon(which, option, widget);
    return icon;
  }

  void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                   const QWidget *widget) const override {
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (button == nullptr) return QProxyStyle::drawControl(element, option, painter, widget);
    const QStyleOptionButton coloured = in_known_colours(*button);
    QProxyStyle::drawControl(element, &coloured, painter, widget);
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                          const QWidget *widget) const override {
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (bar == nullptr) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    const QStyleOptionSlider coloured = in_known_colours(*bar);
    if (control != CC_ScrollBar) return QProxyStyle::drawComplexControl(control, &coloured, painter, widget);
    painter->drawPixmap(bar->rect.topLeft(),
                        picture_of(coloured, painter->device()->devicePixelRatio(), widget));
  }

 private:
  /// The option with a palette of these colours that was there before, if one was. The toolkit keeps pictures
  /// of buttons and bars by palette, and their names for good; a window of its own colours has a palette of
  /// its own each time that it comes up.
  template <class Option>
  Option in_known_colours(Option option) const {
    const qsizetype known = palettes_.indexOf(option.palette);
    if (known < 0) {
      palettes_ += option.palette;
    } else {
      const QPalette::ColorGroup group = option.palette.currentColorGroup();
      option.palette = palettes_[known];
      option.palette.setCurrentColorGroup(group);
    }
    return option;
  }

  /// The toolkit draws each long line of a bar with several threads, and waits for them all.
  QPixmap picture_of(const QStyleOptionSlider &bar, qreal ratio, const QWidget *widget) const {
    const BarLook look(bar, ratio);
    if (const auto known = std::ranges::find(bars_, look, &KnownBar::look); known != bars_.end())
      return known->picture;
    QPixmap picture(bar.rect.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.translate(-bar.rect.topLeft());
    QProxyStyle::drawComplexControl(CC_ScrollBar, &bar, &painter, widget);
    if (bars_.size() == most_known_bars) bars_.clear();
    bars_.push_back({look, picture});
    return picture;
  }

  mutable QHash<StandardPixmap, QIcon> icons_;
  mutable QList<QPalette> palettes_;
  mutable std::vector<KnownBar> bars_;
};

}  // namespace

void install_style() {
  if (dynamic_cast<Style *>(QApplication::style()) == nullptr) QApplication::setStyle(make_child<Style>());
}

}  // namespace ardane
