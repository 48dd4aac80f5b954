#pragma once

#include <optional>
#include <string>

#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

/// Where prayer times are computed for: where the machine is, or a place chosen on a map.
class LocationSettings final : public SettingsPart {
 public:
  explicit LocationSettings(const SettingsContext& context);

 protected:
  bool event(QEvent* event) override;

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

  /// The part, shown only in automatic mode while that is its status.
  [[nodiscard]] QWidget* onlyAt(Automatic status, QWidget* part);
  [[nodiscard]] Automatic automaticStatus() const;
  [[nodiscard]] bool hasManualName() const;

  /// The user may come from where access is allowed: what is shown is found out anew.
  void lookAgain();

  void showMap();
  void take(LocationCoordinate coordinate, const std::string& name, const TimeZone& timeZone);

  LocationManager& locationManager_ = context_.locationManager;
  bool isPaneOpened_ = false;  // And its outcome not asked for yet.
};

}  // namespace Hilalor::Screens
