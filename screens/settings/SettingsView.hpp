#pragma once

#include <QPixmap>

#include "platform/Updater.hpp"
#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

class PrayerTimesCard;

/// The settings window's screen: every preference of the user, each change stored at once.
class SettingsView final : public SettingsPart {
 public:
  /// `updater` is null in a build without updates; `appIcon` may be null.
  SettingsView(const SettingsContext& context, Updater* updater, const QPixmap& appIcon);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  // The cards, from top to bottom; those of the prayer times and of the program itself are views of
  // their own.
  [[nodiscard]] QWidget* menuBarCard();
  [[nodiscard]] QWidget* calendarCard();
  [[nodiscard]] QWidget* appearanceCard();

  PrayerTimesCard* prayerTimes_;
};

}  // namespace Hilalor::Screens
