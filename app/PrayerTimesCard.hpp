#pragma once

#include "app/SettingsPart.hpp"

namespace Hilalor {

/// How prayer times are computed, for which place, and how they are announced.
class PrayerTimesCard final : public SettingsPart {
 public:
  PrayerTimesCard();

 private:
  [[nodiscard]] QWidget* whileShown();
};

}  // namespace Hilalor
