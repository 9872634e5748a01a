#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTemporaryFile>

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  // A screen on which the whole map fits; the platform's own is too small.
  QTemporaryFile screens;
  if (!screens.open()) return 1;
  screens.write(R"({"screens": [{"name": "s", "x": 0, "y": 0, "width": 1280, "height": 1024, "dpr": 1}]})");
  screens.flush();
  // On a platform that is asked for by name the games can be watched.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
