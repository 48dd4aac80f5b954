#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.hpp"
#include "platform/Lifetime.hpp"
#include "platform/NotificationCenter.hpp"
#include "platform/OneShotTimer.hpp"
#include "platform/Published.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"
#include "platform/SoundService.hpp"
#include "rules/Shared.hpp"
#include "rules/prayer/Announcement.hpp"
#include "rules/prayer/PrayerCourse.hpp"
#include "rules/settings/AppSettings.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// Announces each of the five prayers at its minute: a banner, a beep, the athan, the supplication
/// after it, each if the user wants it, and always a title for the bar. Before that it reminds of
/// the prayer, if the user wants it: by a banner and a single beep as those of the announcement.
/// Main thread.
///
/// An announcement goes from the beep to the athan to the supplication and then ends; one without
/// an athan ends by its title, two minutes after the beep. Announcements do not end one another: a
/// later one takes over the title, the beep and the player, and what the earlier one still waits
/// for comes all the same.
class PrayerNotificationManager final : public Shared<PrayerNotificationManager>,
                                        private NotificationCenter::Delegate,
                                        private AudioPlayer::Delegate {
 public:
  PrayerNotificationManager(const AppSettings& settings, const Clock& clock, RunLoop& loop,
                            NotificationCenter& notifications, SoundService& sounds);
  ~PrayerNotificationManager() override;
  PrayerNotificationManager(const PrayerNotificationManager&) = delete;
  PrayerNotificationManager& operator=(const PrayerNotificationManager&) = delete;

  /// Told before any of the values below changes.
  Signal<> willChange;

  /// The voice whose athan plays; none when none plays.
  Published<std::optional<AthanVoice>> playingVoice{std::nullopt, &willChange};

  /// Whether the supplication plays.
  Published<bool> playingDua{false, &willChange};

  /// The title of the announcement in progress, "Fajr Athan"; none when there is none.
  Published<std::optional<std::string>> activeAthanTitle{std::nullopt, &willChange};

  /// Announces the prayer whose minute it is, and reminds of the one whose reminder's minute it is,
  /// unless that was done. To be called at least once a minute; a minute without a call is not
  /// caught up.
  void checkAndNotify();

  /// The same, for a caller that has asked the clock.
  void checkAndNotify(Date now);

  /// Asks for permission to show banners with sound; answers whether it was given.
  void requestPermission(std::function<void(bool granted)> completion = {});

  /// Finds out afresh whether banners may be shown.
  void checkAuthorizationStatus(std::function<void(NotificationAuthorization)> completion);

  /// Plays the athan recording of that name, and marks the voice, if given, as playing. Where the
  /// recording cannot be played, the plain alert sound stands in for it.
  void playAthan(std::string_view file, std::optional<AthanVoice> previewVoice);

  /// Plays the supplication, or nothing where it cannot be played.
  void playDua();

  /// Ends every sound, and the title. A wait after a single beep goes on: the athan follows it.
  void stopAll();

  /// Ends the supplication alone; the title stays.
  void stopDua();

 private:
  [[nodiscard]] NotificationOptions willPresent(const NotificationRequest& request) override;
  void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) override;

  void announce(Date now);
  void remind(Date now);
  void deliver(Adhan::Prayer prayer);
  void postBanner(const std::string& title, const std::string& body);
  void beepOnce(const AnnouncementElements& elements);
  void beepInLoop(Seconds length, const AnnouncementElements& elements);
  void followBeep(const AnnouncementElements& elements);
  void scheduleCleanup();
  void open(const std::filesystem::path& recording,
            std::function<void(std::shared_ptr<AudioPlayer>)> then);
  void start(std::shared_ptr<AudioPlayer>& place, std::shared_ptr<AudioPlayer> player);

  const AppSettings& settings_;
  const Clock& clock_;
  RunLoop& loop_;
  NotificationCenter& notifications_;
  SoundService& sounds_;

  PrayerCourse course_{settings_};
  Announced announced_;
  Announced reminded_;
  std::shared_ptr<SystemSound> beepSound_;
  std::shared_ptr<SystemSound> reminderSound_;
  std::shared_ptr<AudioPlayer> athanPlayer_;
  std::shared_ptr<AudioPlayer> duaPlayer_;
  OneShotTimer athanTitleTimer_;
  OneShotTimer beepLoopStopTimer_;
  bool pendingDua_ = false;

  Lifetime lifetime_;
};

}  // namespace Hilalor
