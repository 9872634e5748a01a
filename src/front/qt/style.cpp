#include "front/qt/style.h"

#include <QApplication>
#include <QProxyStyle>
#include <QWidget>

#include "front/qt/child.h"

namespace ardane {
namespace {

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
  /// the arrow loads every decoder there is.
  QIcon standardIcon(StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override {
    if (which == SP_ToolBarHorizontalExtensionButton) return {};
    return QProxyStyle::standardIcon(which, option, widget);
  }
};

}  // namespace

void install_style() {
  if (dynamic_cast<Style *>(QApplication::style()) == nullptr) QApplication::setStyle(make_child<Style>());
}

}  // namespace ardane
