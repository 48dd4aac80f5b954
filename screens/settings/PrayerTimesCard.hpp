#pragma once

#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

class AlertSettings;

/// How prayer times are computed, for which place, and how they are announced.
class PrayerTimesCard final : public SettingsPart {
 public:
  explicit PrayerTimesCard(const SettingsContext& context);

  /// Asks anew whether banners are blocked.
  void refreshNotificationStatus();

 private:
  [[nodiscard]] QWidget* whileShown();

  AlertSettings* alerts_ = nullptr;
};

}  // namespace Hilalor::Screens
