// Qt's offscreen platform for tests: a screen that holds the whole map, and settings of their own.
#pragma once

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <stdexcept>

namespace ardane {

/// Must be there before the QApplication is made, and as long as it lives.
class Offscreen {
 public:
  Offscreen() {
    if (!settings_.isValid() || !configuration_.open()) throw std::runtime_error("no place for settings");
    configuration_.write(
        R"({"screens": [{"name": "écran", "x": 0, "y": 0, "width": 1280, "height": 1024, "dpr": 1}]})");
    configuration_.flush();
    qputenv("XDG_CONFIG_HOME", settings_.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration_.fileName().toLocal8Bit());
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));  // what this platform lacks
  }

 private:
  const QTemporaryDir settings_;
  QTemporaryFile configuration_;
};

}  // namespace ardane
