// The system's date and time, and a random source.
#pragma once

#include <random>

#include "platform/services.h"

namespace ardane {

class SystemClock : public Horloge {
 public:
  std::chrono::year_month_day aujourd_hui() const override;
  std::chrono::seconds heure() const override;
};

class RandomSource : public Hasard {
 public:
  void semer() override;
  float tirer() override;

 private:
  std::mt19937 engine_;
};

}  // namespace ardane
