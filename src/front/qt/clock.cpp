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

}  // namespace ardane
