// Runs the window tests on Qt's offscreen platform, with a screen that holds the whole map and settings of
// their own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include "crash_child.h"

namespace {

constexpr char screens[] =
    R"({"screens": [{"name": "écran", "x": 0, "y": 0, "width": 1280, "height": 1024, "dpr": 1}]})";

}  // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir settings;
  QTemporaryFile configuration;
  if (!settings.isValid() || !configuration.open()) return 1;
  configuration.write(screens);
  configuration.flush();
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration.fileName().toLocal8Bit());
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));  // what this platform lacks
  QApplication application(argc, argv);
  if (argc == 3 && std::string_view(argv[1]) == crash_option) return crash(argv[2]);
  return RUN_ALL_TESTS();
}
