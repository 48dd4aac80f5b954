#pragma once

#include <memory>

#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

/// Whether and how prayers are announced: a banner, a beep, the athan. Switching announcements on
/// asks for permission to show banners.
class AlertSettings final : public SettingsPart {
 public:
  explicit AlertSettings(const SettingsContext& context);

  /// Asks anew whether banners are blocked: for whenever the window is shown, this part or not.
  void refreshNotificationStatus();

 protected:
  bool event(QEvent* event) override;

 private:
  // The parts, from top to bottom.
  [[nodiscard]] QWidget* whileEnabled();
  [[nodiscard]] QWidget* blockedWarning();
  [[nodiscard]] QWidget* beepRows();
  [[nodiscard]] QWidget* loopRow();
  [[nodiscard]] QWidget* athanRows();
  [[nodiscard]] QWidget* voiceRow(const char* title, AthanVoice voice, const char* recording);
  [[nodiscard]] QWidget* supplicationRow();
  [[nodiscard]] QWidget* placeholderNote();

  /// Which recordings the program's own tones stand in for, as a text; empty for none.
  [[nodiscard]] QString placeholders() const;

  void requestPermission();
  void playBeep(const std::string& name);
  void previewVoice(AthanVoice voice, const char* recording);

  PrayerNotificationManager& notificationManager_ = context_.notificationManager;
  NotificationAuthorization notificationStatus_ = NotificationAuthorization::notDetermined;
  std::unique_ptr<SystemSound> previewedBeep_;
  std::vector<Subscription> watches_;
};

}  // namespace Hilalor::Screens
