// The program itself, in a process of its own.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QTest>
#include <utility>

#include "front/qt/appearance.h"
#include "front/qt/desktop.h"

namespace ardane {

inline constexpr int end_ms = 60'000;

/// The program itself, as a player starts it.
class Started : public QProcess {
 public:
  explicit Started(const DesktopPlaces &places, const QStringList &further = {}) {
    setProgram(QStringLiteral(ARDANE_PROGRAM));
    setArguments(
        QStringList{"--programme", to_qt(places.programme), "--registre", to_qt(places.registre.string())} +
        further);
    start();
  }
  ~Started() override {
    kill();
    waitForFinished(end_ms);
  }
};

/// Two programs started at once: the one that ends, and the one that goes on and whose event loop runs by
/// then, since it has told the other of itself.
inline std::pair<Started *, Started *> ended_and_running(Started &one, Started &other) {
  const auto ended = [](const Started &p) { return p.state() == QProcess::NotRunning; };
  EXPECT_TRUE(QTest::qWaitFor([&] { return ended(one) || ended(other); }, end_ms));
  return ended(one) ? std::pair(&one, &other) : std::pair(&other, &one);
}

}  // namespace ardane
