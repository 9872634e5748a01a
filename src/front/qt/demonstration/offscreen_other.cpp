// Systems other than Windows: the toolkit draws on no screen there.
#include <QLoggingCategory>

#include "front/qt/demonstration/offscreen.h"

namespace ardane {
namespace {

constexpr char screens[] =
    R"({"screens": [{"name": "écran", "x": 0, "y": 0, "width": 1280, "height": 1024, "dpr": 1}]})";

}  // namespace

Offscreen::Offscreen() {
  const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  if (!chosen.isEmpty() && chosen != "offscreen") return;
  ready_ = configuration_.open() && configuration_.write(screens) > 0 && configuration_.flush();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration_.fileName().toLocal8Bit());
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));  // what this platform lacks
}

}  // namespace ardane
