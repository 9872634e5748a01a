// The system's date and time, local.
#pragma once

#include "platform/services.h"

namespace ardane {

class HorlogeSystème : public Horloge {
 public:
  std::chrono::year_month_day aujourd_hui() const override;
  std::chrono::seconds heure() const override;
};

}  // namespace ardane
