#pragma once

#include <optional>
#include <string>

#include "app/LocationManager.hpp"
#include "app/SettingsPart.hpp"

namespace Hilalor {

/// Where prayer times are computed for: where the machine is, or a place chosen on a map.
class LocationSettings final : public SettingsPart {
 public:
  LocationSettings();

 private:
  enum class Automatic { denied, detecting, detected, notAsked };

  // The parts, from top to bottom.
  [[nodiscard]] QWidget* deniedWarning();
  [[nodiscard]] QWidget* detectingLine();
  [[nodiscard]] QWidget* detectedLine();
  [[nodiscard]] QWidget* permissionButton();
  [[nodiscard]] QWidget* manualPlace();
  [[nodiscard]] QWidget* manualPlaceLine();
  [[nodiscard]] QWidget* mapButton();

  /// The part, there only while the machine's place is wanted and that is known of it.
  [[nodiscard]] QWidget* onlyAt(Automatic status, QWidget* part);
  [[nodiscard]] Automatic automaticStatus() const;
  [[nodiscard]] bool hasManualName() const;

  void showMap();
  void take(LocationCoordinate coordinate, const std::string& name, const TimeZone& timeZone);

  LocationManager& locationManager_ = LocationManager::shared();
};

}  // namespace Hilalor
