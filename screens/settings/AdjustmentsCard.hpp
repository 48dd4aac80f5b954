#pragma once

#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

/// What users set by their mosque, their country and their habits: minutes added to each prayer,
/// the Hijri day, a reminder, the clock, and whether the program starts at login.
class AdjustmentsCard final : public SettingsPart {
 public:
  explicit AdjustmentsCard(const SettingsContext& context);

 protected:
  bool event(QEvent* event) override;

 private:
  // The parts, from top to bottom.
  [[nodiscard]] QWidget* minutes();
  [[nodiscard]] QWidget* minutesRow(Adhan::Prayer prayer);
  [[nodiscard]] QWidget* hijriDay();
  [[nodiscard]] QWidget* reminder();
  [[nodiscard]] QWidget* startAtLogin();

  [[nodiscard]] QString hijriToday() const;
};

}  // namespace Hilalor::Screens
