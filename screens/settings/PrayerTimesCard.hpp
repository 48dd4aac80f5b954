#pragma once

#include "rules/settings/MethodOffer.hpp"
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
  [[nodiscard]] QWidget* usualMethod();
  [[nodiscard]] QString usualMethodText() const;

  MethodOffer methodOffer_{settings_, context_.map.geocoder};
  AlertSettings* alerts_ = nullptr;
};

}  // namespace Hilalor::Screens
