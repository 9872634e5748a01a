#include "front/qt/clock.h"

#include <QDate>
#include <QTime>

namespace ardane {

std::chrono::year_month_day SystemClock::aujourd_hui() const {
  const QDate today = QDate::currentDate();
  return {std::chrono::year(today.year()), std::chrono::month(static_cast<unsigned>(today.month())),
          std::chrono::day(static_cast<unsigned>(today.day()))};
}

std::chrono::seconds SystemClock::heure() const {
  return std::chrono::seconds(QTime::currentTime().msecsSinceStartOfDay() / 1000);
}

void RandomSource::semer() {
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  engine_.seed(static_cast<std::mt19937::result_type>(now ^ (now >> 32)));
}

float RandomSource::tirer() {
  // 24 bits fill a float's mantissa: no draw rounds up to 1.
  constexpr float step = 1.0F / (1 << 24);
  return static_cast<float>(engine_() >> 8) * step;
}

}  // namespace ardane
