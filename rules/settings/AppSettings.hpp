#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Adhan/Models/Prayer.hpp"
#include "datetime/Calendar.hpp"
#include "datetime/TimeZone.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/Signal.hpp"
#include "rules/Shared.hpp"
#include "rules/settings/LocationManager.hpp"
#include "rules/settings/Setting.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// The place that prayer times are computed for.
struct EffectiveLocation : LocationCoordinate {
  std::string name;
  TimeZone timeZone;

  friend bool operator==(const EffectiveLocation&, const EffectiveLocation&) = default;
};

/// Every preference of the user. Loading reads the store and writes nothing; each assignment is
/// told and then written at once. What cannot be read takes its default. Main thread.
class AppSettings : public Shared<AppSettings> {
 private:
  // First of all, since every preference below loads from the store.
  DefaultsStore& store_;
  const LocationManager& locationManager_;

 public:
  /// The beeps lie in the sound folders, of which the first is the user's own.
  AppSettings(DefaultsStore& store, const LocationManager& locationManager,
              std::vector<std::filesystem::path> soundFolders);

  /// Whether every change is stored by now.
  [[nodiscard]] Published<bool>& isKept() { return store_.isKept; }

  /// Told before any preference changes.
  Signal<> willChange;

  Setting<MenuBarStyle> menuBarStyle{store_, willChange, "menuBarStyle", MenuBarStyle::date};
  Setting<PrimaryCalendar> primaryCalendar{store_, willChange, "primaryCalendar",
                                           PrimaryCalendar::gregorian};
  Setting<bool> showSecondaryCalendar{store_, willChange, "showSecondaryCalendar", true};
  Setting<bool> showHolidays{store_, willChange, "showHolidays", true};
  Setting<bool> showCalendar{store_, willChange, "showCalendar", true};
  Setting<LocationMode> locationMode{store_, willChange, "locationMode", LocationMode::automatic};
  Setting<double> manualLatitude{store_, willChange, "manualLatitude", 0.0};
  Setting<double> manualLongitude{store_, willChange, "manualLongitude", 0.0};
  Setting<std::string> manualLocationName{store_, willChange, "manualLocationName", ""};
  /// An identifier of a time zone; until it is first assigned, the machine's at the time of
  /// loading.
  Setting<std::string> manualTimeZoneId{store_, willChange, "manualTimeZoneId",
                                        TimeZone::current().identifier()};
  Setting<bool> showPrayerTimes{store_, willChange, "showPrayerTimes", true};
  Setting<bool> showSunnahTimes{store_, willChange, "showSunnahTimes", false};
  Setting<PrayerCalculationMethod> calculationMethod{store_, willChange, "calculationMethod",
                                                     PrayerCalculationMethod::ummAlQura};
  Setting<AsrCalculation> asrCalculation{store_, willChange, "asrCalculation",
                                         AsrCalculation::shafi};
  Setting<bool> prayerNotificationsEnabled{store_, willChange, "prayerNotificationsEnabled", false};
  Setting<bool> notificationBannerEnabled{store_, willChange, "notificationBannerEnabled", true};
  Setting<bool> beepSoundEnabled{store_, willChange, "beepSoundEnabled", false};
  /// One of `systemSoundNames`.
  Setting<std::string> selectedBeepSound{store_, willChange, "selectedBeepSound", "Glass"};
  Setting<bool> beepLoopEnabled{store_, willChange, "beepLoopEnabled", false};
  Setting<std::int64_t> beepLoopSeconds{store_, willChange, "beepLoopSeconds", 10};
  Setting<bool> athanEnabled{store_, willChange, "athanEnabled", false};
  Setting<AthanVoice> athanVoice{store_, willChange, "athanVoice", AthanVoice::vemran};
  Setting<bool> playBeepBeforeAthan{store_, willChange, "playBeepBeforeAthan", false};
  Setting<bool> playDuaAfterAthan{store_, willChange, "playDuaAfterAthan", false};
  Setting<AppTheme> theme{store_, willChange, "appTheme", AppTheme::system};

  /// Minutes added to each time of the day, by `Adhan::Prayer`, to match the user's mosque.
  std::array<Setting<std::int64_t>, Adhan::kCaseCount<Adhan::Prayer>> prayerMinutes{
      minutesOf("fajrMinutes"), minutesOf("sunriseMinutes"), minutesOf("dhuhrMinutes"),
      minutesOf("asrMinutes"),  minutesOf("maghribMinutes"), minutesOf("ishaMinutes")};
  [[nodiscard]] const Setting<std::int64_t>& minutes(Adhan::Prayer prayer) const {
    return prayerMinutes[static_cast<std::size_t>(prayer)];
  }
  /// Days by which the Hijri calendar is ahead of the table, as the new moon was seen.
  Setting<std::int64_t> hijriDays{store_, willChange, "hijriDays", 0, areHijriDays};
  /// Minutes before each prayer; 0 for no reminder.
  Setting<std::int64_t> reminderMinutes{store_, willChange, "reminderMinutes", 0,
                                        areReminderMinutes};
  Setting<bool> use24HourClock{store_, willChange, "use24HourClock", false};
  /// The country in which the user last chose the method; empty for none.
  Setting<std::string> methodCountry{store_, willChange, "methodCountry", ""};

  /// The Hijri calendar as the user keeps it, in the machine's zone or in another.
  [[nodiscard]] Calendar hijriCalendar() const;
  [[nodiscard]] Calendar hijriCalendar(const TimeZone& zone) const;

  /// The place that the user set by hand; none until then.
  [[nodiscard]] std::optional<LocationCoordinate> manualCoordinate() const;

  /// The user's place that prayer times are computed for; none while the fallback stands in for it.
  [[nodiscard]] std::optional<LocationCoordinate> knownCoordinate() const;

  /// Makes the place the user's own, and the one that times are computed for.
  void choosePlace(LocationCoordinate coordinate, const std::string& name, const TimeZone& zone);

  /// Whether the user chose a place, or one was found for them. Until then the fallback is in
  /// force, which the user did not choose.
  [[nodiscard]] bool isPlaceKnown() const;

  /// Where prayer times are computed for: the user's manual place or the location service's fix, as
  /// `locationMode` says, and Riyadh where the chosen source has nothing. Computed at every call.
  [[nodiscard]] EffectiveLocation effectiveLocation() const;

  /// Where the user puts beeps and recordings of their own; empty where there is no such folder.
  [[nodiscard]] std::filesystem::path ownSoundFolder() const;

  /// The beeps there are, by name and sorted; the sound folders are listed at every call.
  [[nodiscard]] std::vector<std::string> systemSoundNames() const;

 private:
  [[nodiscard]] Setting<std::int64_t> minutesOf(const char* key) {
    return {store_, willChange, key, 0, arePrayerMinutes};
  }
  [[nodiscard]] EffectiveLocation manualLocation() const;
  [[nodiscard]] EffectiveLocation automaticLocation() const;

  std::vector<std::filesystem::path> soundFolders_;
};

/// The names of the AIFF files in the folders: without extension, sorted bytewise, each once. A
/// folder that cannot be listed has none.
[[nodiscard]] std::vector<std::string> soundNames(
    const std::vector<std::filesystem::path>& folders);

}  // namespace Hilalor
