#include "rules/prayer/PrayerNotificationManager.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Noon in Riyadh on 16 November 2026; the settings' place is Riyadh too, for want of another.
constexpr Date kNoon{1794819600};

/// Minutes by which the user moved each prayer.
const std::map<std::string, int> kMoved{
    {"Fajr", -20}, {"Dhuhr", 7}, {"Asr", -60}, {"Maghrib", 3}, {"Isha", 60}};

/// What the user wants of an announcement, and which recordings are no good.
struct Choices {
  bool enabled = true;
  bool beep = false;
  bool loop = false;
  bool athan = false;
  bool supplication = false;
  const char* sound = "Glass";
  int loopSeconds = 10;
  AthanVoice voice = AthanVoice::vemran;
  const char* missing = "";
  const char* unreadable = "";
};

class PrayerNotificationManagerTest : public testing::Test {
 protected:
  PrayerNotificationManagerTest() {
    settings.prayerNotificationsEnabled = true;
    settings.notificationBannerEnabled = false;
  }

  [[nodiscard]] std::unique_ptr<PrayerNotificationManager> makeManager() {
    return std::make_unique<PrayerNotificationManager>(settings, loop, loop, notifications, sounds);
  }

  void choose(const Choices& choices) {
    settings.prayerNotificationsEnabled = choices.enabled;
    settings.beepSoundEnabled = choices.beep;
    settings.beepLoopEnabled = choices.loop;
    settings.beepLoopSeconds = choices.loopSeconds;
    settings.selectedBeepSound = std::string(choices.sound);
    settings.athanEnabled = choices.athan;
    settings.athanVoice = choices.voice;
    settings.playDuaAfterAthan = choices.supplication;
    sounds.recordings.erase(choices.missing);
    sounds.unreadable.insert(choices.unreadable);
  }

  [[nodiscard]] Date prayer(const std::string& name) const {
    const auto place = settings.effectiveLocation();
    for (const auto& row : PrayerTimesCalculator::calculate(kNoon, place.latitude, place.longitude,
                                                            place.timeZone, true, settings)) {
      if (row.name == name) return row.time;
    }
    ADD_FAILURE() << "no " << name << " that day";
    return kNoon;
  }

  void tickAt(Date now) {
    loop.setClock(now);
    manager->checkAndNotify();
    loop.runPosted();
  }

  void announce(const std::string& name) { tickAt(prayer(name)); }

  void letPass(double seconds) { loop.advance(Seconds(seconds)); }

  void finish(const std::string& recording) {
    EXPECT_TRUE(sounds.finish(recording)) << recording << " does not play";
    loop.runPosted();
  }

  /// What the user hears and sees: "Glass, athan [Dhuhr Athan] vemran".
  [[nodiscard]] std::string perceived() const {
    std::string text;
    for (const auto& name : sounds.audible())
      text += (text.empty() ? "" : ", ") + name;
    if (const auto& title = manager->activeAthanTitle.value()) text += " [" + *title + "]";
    if (const auto voice = manager->playingVoice.value()) {
      text += " " + std::string(rawValue(*voice));
    }
    if (manager->playingDua.value()) text += " supplication";
    return text;
  }

  SystemTimeZone machineZone{"Asia/Riyadh"};
  FakePlatform desktop{kNoon};
  VirtualLoop& loop = desktop.loop;
  FakeNotificationCenter& notifications = desktop.notifications;
  FakeSoundService& sounds = desktop.sounds;
  AppSettings& settings = desktop.settings();
  std::unique_ptr<PrayerNotificationManager> manager = makeManager();
};

TEST_F(PrayerNotificationManagerTest, AnnouncesEachMinuteOnce) {
  settings.notificationBannerEnabled = true;
  const auto fajr = prayer("Fajr");
  for (const double second : {-1.0, 0.0, 29.5, 59.9, 60.0})
    tickAt(fajr + Seconds(second));
  EXPECT_EQ(notifications.shown.size(), 1U);

  // The same prayer falls due again the next day, within two minutes of the same time.
  for (int tick = -4; tick <= 4; ++tick)
    tickAt(fajr + std::chrono::hours(24) + Seconds(30.0 * tick));
  EXPECT_EQ(notifications.shown.size(), 2U);
}

// A year in which the user has moved everything: each prayer at its own minute, each reminder a
// quarter of an hour before, by a banner and one beep.
TEST_F(PrayerNotificationManagerTest, RemindsAndAnnouncesOnceByTheUsersMinutes) {
  settings.notificationBannerEnabled = true;
  settings.athanEnabled = true;
  settings.hijriDays = -1;
  settings.beepSoundEnabled = true;
  settings.reminderMinutes = 15;
  settings.calculationMethod = PrayerCalculationMethod::muslimWorldLeague;
  const Seconds day{86400};
  constexpr int kDays = 365;
  const struct {
    LocationCoordinate place;
    const char* zone;
  } cases[] = {{{59.91, 10.75}, "Europe/Oslo"},  // Isha after midnight, Asr before Dhuhr.
               {{33.57, -7.59}, "Africa/Casablanca"},
               {{-13.83, -171.77}, "Pacific/Apia"}};  // At the end of the calendar's day.
  std::ptrdiff_t calls = 0;
  for (const auto& [place, zone] : cases) {
    SCOPED_TRACE(place.latitude);
    const auto there = *TimeZone::named(zone);
    settings.choosePlace(place, "There", there);
    std::vector<std::pair<Date, std::string>> expected;
    std::ranges::fill(settings.prayerMinutes, 0);
    const auto expect = [&](Date time, const std::string& body) {
      if (time >= kNoon && time < kNoon + day * kDays) expected.emplace_back(time, body);
    };
    for (int past = -2; past < kDays + 2; ++past) {
      // By the table of the method; the user's minutes are added here.
      for (const auto& row : PrayerTimesCalculator::calculate(
               kNoon + day * past, place.latitude, place.longitude, there, false, settings)) {
        const auto moved = kMoved.find(row.name);
        if (moved == kMoved.end()) continue;
        const Date time = row.time + Seconds(60.0 * moved->second);
        expect(time - Seconds(15 * 60), row.name + " in 15 minutes");
        expect(time, "It's time for " + row.name + " prayer");
      }
    }
    std::ranges::sort(expected);
    std::ranges::copy(std::array{-20, 60, 7, -60, 3, 60}, settings.prayerMinutes.begin());

    manager = makeManager();
    notifications.shown.clear();
    std::vector<std::pair<Date, std::string>> found;
    loop.setClock(kNoon + Seconds(7));
    for (int tick = 0; tick < kDays * 2880; ++tick) {
      manager->checkAndNotify();
      loop.runPosted();
      for (; found.size() < notifications.shown.size();)
        found.emplace_back(Date{std::floor(loop.now().secondsSince1970 / 60) * 60},
                           notifications.shown[found.size()].body);
      manager->stopAll();
      loop.advance(Seconds(30));
    }
    std::ranges::sort(found);
    decltype(found) missedOrDoubled;
    std::ranges::set_symmetric_difference(found, expected, std::back_inserter(missedOrDoubled));
    EXPECT_THAT(missedOrDoubled, IsEmpty());
    calls += std::ssize(expected) / 2;
  }
  EXPECT_EQ(std::ranges::count(sounds.begun(), "athan"), calls);
}

TEST_F(PrayerNotificationManagerTest, CatchesNoReminderUpAndBeepsOverNoAnnouncement) {
  settings.reminderMinutes = 10;
  settings.beepSoundEnabled = true;
  settings.beepLoopEnabled = true;
  tickAt(prayer("Asr") - Seconds(9 * 60));
  EXPECT_EQ(perceived(), "");
  tickAt(prayer("Dhuhr") - Seconds(10 * 60));
  EXPECT_EQ(perceived(), "Glass");
  letPass(5);
  settings.reminderMinutes = 5;
  tickAt(prayer("Dhuhr") - Seconds(5 * 60));
  EXPECT_EQ(perceived(), "") << "once, also where the user then wants it later";
  // Isha follows Maghrib by ten minutes.
  settings.reminderMinutes = 10;
  settings.prayerMinutes[static_cast<std::size_t>(Adhan::Prayer::maghrib)] = 60;
  settings.prayerMinutes[static_cast<std::size_t>(Adhan::Prayer::isha)] = -20;
  announce("Maghrib");
  EXPECT_EQ(perceived(), "Glass looped [Maghrib Athan]");
}

TEST_F(PrayerNotificationManagerTest, AClockSetBackAnnouncesNoMinuteTwice) {
  settings.notificationBannerEnabled = true;
  announce("Maghrib");
  announce("Isha");
  announce("Asr");  // which was not heard yet
  tickAt(prayer("Maghrib") - std::chrono::hours(1));
  announce("Maghrib");
  machineZone.set("Europe/London");
  announce("Isha");
  EXPECT_EQ(notifications.shown.size(), 3U);
}

TEST_F(PrayerNotificationManagerTest, AnnouncesAgainAfterARestartWithinTheMinute) {
  announce("Isha");
  manager = makeManager();
  EXPECT_EQ(perceived(), "");
  announce("Isha");
  EXPECT_EQ(perceived(), " [Isha Athan]");
}

TEST_F(PrayerNotificationManagerTest, WhileSwitchedOffDoesNothing) {
  settings.notificationBannerEnabled = true;
  settings.athanEnabled = true;
  settings.beepSoundEnabled = true;
  announce("Fajr");
  EXPECT_EQ(perceived(), "Glass [Fajr Athan]");
  settings.prayerNotificationsEnabled = false;
  announce("Dhuhr");
  EXPECT_EQ(perceived(), " [Fajr Athan]");
  EXPECT_THAT(sounds.begun(), ElementsAre("Glass"));
  EXPECT_EQ(notifications.shown.size(), 1U);
}

TEST_F(PrayerNotificationManagerTest, FollowsAChangeOfPlaceAtTheNextTick) {
  const auto riyadhMaghrib = prayer("Maghrib");
  settings.locationMode = LocationMode::manual;
  settings.manualLatitude = 21.4225;
  settings.manualLongitude = 39.8262;
  settings.manualTimeZoneId = std::string("Asia/Riyadh");
  tickAt(riyadhMaghrib);
  EXPECT_EQ(perceived(), "");
  announce("Maghrib");
  EXPECT_EQ(perceived(), " [Maghrib Athan]");
}

// One line a moment: so many seconds pass, a recording comes to its end or the user stops
// something, and then this is what the user hears and sees.
struct Moment {
  double passes;
  std::string deed;
  std::string perceived;
};

struct Course {
  std::string name;
  Choices choices;
  std::vector<Moment> moments;
  int plainAlerts = 0;
};

Moment after(double seconds, std::string perceived) {
  return {seconds, "", std::move(perceived)};
}

Moment endOf(std::string recording, std::string perceived) {
  return {0, std::move(recording), std::move(perceived)};
}

constexpr const char* kStop = "Stop";
constexpr const char* kStopSupplication = "Stop the supplication";

Moment press(const char* stop, std::string perceived) {
  return {0, stop, std::move(perceived)};
}

void PrintTo(const Course& course, std::ostream* out) {
  *out << course.name;
}

class AnnouncementCourse : public PrayerNotificationManagerTest,
                           public testing::WithParamInterface<Course> {
 protected:
  void doDeed(const std::string& deed) {
    if (deed == kStopSupplication) return manager->stopDua();
    if (deed != kStop) return deed.empty() ? void() : finish(deed);
    manager->stopAll();
    EXPECT_EQ(sounds.players(), 0U);
  }
};

TEST_P(AnnouncementCourse, GoesFromBeepToAthanToSupplication) {
  choose(GetParam().choices);
  announce("Dhuhr");
  std::size_t step = 0;
  for (const auto& moment : GetParam().moments) {
    SCOPED_TRACE("moment " + std::to_string(step++));
    letPass(moment.passes);
    doDeed(moment.deed);
    EXPECT_EQ(perceived(), moment.perceived);
  }
  EXPECT_EQ(std::ranges::count(sounds.begun(), "alert"), GetParam().plainAlerts);
}

const std::vector<Course> kCourses{
    {"titleAlone",
     {},
     {after(0, " [Dhuhr Athan]"), after(119.9, " [Dhuhr Athan]"), after(0.2, "")}},
    {"beepOnce",
     {.beep = true},
     {after(0, "Glass [Dhuhr Athan]"), after(1.6, " [Dhuhr Athan]"), after(120, " [Dhuhr Athan]"),
      after(0.2, "")}},
    {"beepThatIsMissing",
     {.beep = true, .athan = true, .sound = "Gong"},
     {after(1.6, " [Dhuhr Athan]"), after(0.2, "athan [Dhuhr Athan] vemran")}},
    {"beepInLoop",
     {.beep = true, .loop = true},
     {after(9.9, "Glass looped [Dhuhr Athan]"), after(0.2, " [Dhuhr Athan]"),
      after(119.8, " [Dhuhr Athan]"), after(0.2, "")}},
    {"beepInLoopOfNoLength",
     {.beep = true, .loop = true, .loopSeconds = 0},
     {after(0.9, "Glass looped [Dhuhr Athan]"), after(0.2, " [Dhuhr Athan]")}},
    {"loopedBeepThatIsMissing",
     {.beep = true, .loop = true, .athan = true, .sound = "Gong"},
     {after(9.9, " [Dhuhr Athan]"), after(0.2, "athan [Dhuhr Athan] vemran")}},
    {"athanAlone",
     {.athan = true},
     {after(0, "athan [Dhuhr Athan] vemran"), after(300, "athan [Dhuhr Athan] vemran"),
      endOf("athan", "")}},
    {"athanOfNoVoice",
     {.athan = true, .voice = AthanVoice::none},
     {after(0, " [Dhuhr Athan]"), after(121, "")}},
    {"everything",
     {.beep = true,
      .athan = true,
      .supplication = true,
      .sound = "Bowl",
      .voice = AthanVoice::tolsar},
     {after(0, "Bowl [Dhuhr Athan]"), after(2.1, " [Dhuhr Athan]"),
      after(0.2, "athan2 [Dhuhr Athan] tolsar"),
      endOf("athan2", "after_athan [Dhuhr Athan] supplication"), endOf("after_athan", "")}},
    {"athanThatIsMissing",
     {.athan = true, .supplication = true, .missing = "athan"},
     {after(0, " [Dhuhr Athan]"), after(600, " [Dhuhr Athan]")},
     1},
    {"athanThatCannotBeRead",
     {.athan = true, .unreadable = "athan"},
     {after(600, " [Dhuhr Athan]")},
     1},
    {"supplicationThatIsMissing",
     {.athan = true, .supplication = true, .missing = "after_athan"},
     {endOf("athan", " [Dhuhr Athan]"), after(600, " [Dhuhr Athan]")}},
    {"supplicationThatCannotBeRead",
     {.athan = true, .supplication = true, .unreadable = "after_athan"},
     {endOf("athan", " [Dhuhr Athan]"), after(600, " [Dhuhr Athan]")}},
    {"stoppedBeforeItBegan", {.enabled = false}, {press(kStop, ""), after(150, "")}},
    {"titleStopped", {}, {after(60, " [Dhuhr Athan]"), press(kStop, ""), after(150, "")}},
    // The wait after a single beep is not taken back.
    {"beepStopped",
     {.beep = true, .athan = true},
     {after(0.5, "Glass [Dhuhr Athan]"), press(kStop, ""), after(150, "athan vemran")}},
    {"loopStopped",
     {.beep = true, .loop = true, .athan = true},
     {after(5, "Glass looped [Dhuhr Athan]"), press(kStop, ""), press(kStop, ""), after(150, "")}},
    {"athanStopped",
     {.athan = true, .supplication = true},
     {after(30, "athan [Dhuhr Athan] vemran"), press(kStop, ""), press(kStop, ""), after(150, "")}},
    {"supplicationStopped",
     {.athan = true, .supplication = true},
     {endOf("athan", "after_athan [Dhuhr Athan] supplication"), press(kStop, ""), after(150, "")}},
    {"supplicationAloneStopped",
     {.athan = true, .supplication = true},
     {endOf("athan", "after_athan [Dhuhr Athan] supplication"),
      press(kStopSupplication, " [Dhuhr Athan]"), after(600, " [Dhuhr Athan]")}},
};

INSTANTIATE_TEST_SUITE_P(, AnnouncementCourse, testing::ValuesIn(kCourses),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(PrayerNotificationManagerTest, LaterAnnouncementTakesOverAndTheEarlierGoesOn) {
  settings.beepSoundEnabled = true;
  settings.beepLoopEnabled = true;
  settings.beepLoopSeconds = 60;
  settings.athanEnabled = true;
  settings.playDuaAfterAthan = true;
  announce("Maghrib");
  letPass(30);
  settings.selectedBeepSound = std::string("Bowl");
  settings.athanVoice = AthanVoice::tolsar;
  announce("Isha");
  EXPECT_EQ(perceived(), "Bowl looped [Isha Athan]");
  letPass(31);
  EXPECT_EQ(perceived(), "Bowl looped, athan [Isha Athan] vemran");
  letPass(30);
  EXPECT_EQ(perceived(), "athan2 [Isha Athan] tolsar");
  finish("athan2");
  EXPECT_EQ(perceived(), "after_athan [Isha Athan] supplication");
  finish("after_athan");
  EXPECT_EQ(perceived(), "");
}

TEST_F(PrayerNotificationManagerTest, AnEarlierTitleTimerRunsOutUnderALaterAnnouncement) {
  announce("Maghrib");
  letPass(60);
  announce("Isha");
  letPass(59);
  EXPECT_EQ(perceived(), " [Isha Athan]");
  letPass(2);
  EXPECT_EQ(perceived(), "");
}

TEST_F(PrayerNotificationManagerTest, PreviewOfAVoiceEndsTheAnnouncementFirst) {
  settings.athanEnabled = true;
  settings.playDuaAfterAthan = true;
  announce("Fajr");
  manager->stopAll();
  EXPECT_EQ(perceived(), "");
  manager->playAthan("athan2", AthanVoice::tolsar);
  loop.runPosted();
  EXPECT_EQ(perceived(), "athan2 tolsar");
  finish("athan2");
  EXPECT_EQ(perceived(), "") << "no supplication follows a preview";
  manager->playAthan("athan", std::nullopt);
  loop.runPosted();
  EXPECT_EQ(perceived(), "athan") << "of no voice that is known";
}

TEST_F(PrayerNotificationManagerTest, SupplicationPreviewBesideAnAnnouncementEndsItWithItself) {
  settings.athanEnabled = true;
  settings.playDuaAfterAthan = true;
  announce("Fajr");
  manager->stopDua();
  manager->playDua();
  loop.runPosted();
  EXPECT_EQ(perceived(), "athan, after_athan [Fajr Athan] vemran supplication");
  finish("after_athan");
  EXPECT_EQ(perceived(), "");
  EXPECT_EQ(sounds.players(), 0U);
}

TEST_F(PrayerNotificationManagerTest, OpensRecordingsInTheBackground) {
  settings.athanEnabled = true;
  loop.holdBackground();
  announce("Asr");
  EXPECT_EQ(perceived(), " [Asr Athan]");
  loop.runBackground();
  EXPECT_EQ(perceived(), " [Asr Athan]");
  loop.runPosted();
  EXPECT_EQ(perceived(), "athan [Asr Athan] vemran");
}

TEST_F(PrayerNotificationManagerTest, WhatWasOnItsWayComesToNothingOnceTheManagerIsGone) {
  settings.notificationBannerEnabled = true;
  settings.beepSoundEnabled = true;
  settings.athanEnabled = true;
  bool answered = false;
  const auto answer = [&](auto) { answered = true; };
  loop.setClock(prayer("Asr"));
  manager->checkAndNotify();
  manager->requestPermission(answer);
  manager->checkAuthorizationStatus(answer);
  manager.reset();
  letPass(300);
  EXPECT_THAT(sounds.begun(), ElementsAre("Glass"));
  EXPECT_THAT(sounds.audible(), IsEmpty());

  manager = makeManager();
  loop.holdBackground();
  manager->playAthan("athan", AthanVoice::vemran);
  manager->playDua();
  manager.reset();
  loop.runBackground();
  loop.runPosted();
  EXPECT_THAT(sounds.begun(), ElementsAre("Glass"));
  EXPECT_EQ(sounds.players(), 0U);
  EXPECT_THAT(notifications.shown, IsEmpty());
  EXPECT_FALSE(answered);
  EXPECT_EQ(notifications.delegate, nullptr);
}

TEST_F(PrayerNotificationManagerTest, ShowsABannerOnlyWhileAuthorised) {
  settings.notificationBannerEnabled = true;
  using Status = NotificationAuthorization;
  const std::vector<std::pair<std::string, Status>> announcements{{"Fajr", Status::authorized},
                                                                  {"Dhuhr", Status::notDetermined},
                                                                  {"Asr", Status::denied},
                                                                  {"Maghrib", Status::provisional},
                                                                  {"Isha", Status::ephemeral}};
  for (const auto& [name, status] : announcements) {
    notifications.status = status;
    announce(name);
    EXPECT_EQ(perceived(), " [" + name + " Athan]");
  }
  ASSERT_EQ(notifications.shown.size(), 1U);
  EXPECT_EQ(notifications.shown[0].title, "\U0001F54C Fajr");
  EXPECT_EQ(notifications.shown[0].body, "It's time for Fajr prayer");
  EXPECT_EQ(notifications.shown[0].identifier.size(), 36U);

  ASSERT_NE(notifications.delegate, nullptr);
  EXPECT_EQ(static_cast<unsigned>(notifications.delegate->willPresent(notifications.shown[0])),
            18U);
}

TEST_F(PrayerNotificationManagerTest, AsksForPermissionToShowBannersWithSound) {
  std::vector<bool> answers;
  manager->requestPermission([&](bool granted) { answers.push_back(granted); });
  EXPECT_THAT(answers, IsEmpty());
  loop.runPosted();
  notifications.status = NotificationAuthorization::denied;
  manager->requestPermission([&](bool granted) { answers.push_back(granted); });
  manager->requestPermission();
  loop.runPosted();
  EXPECT_THAT(answers, ElementsAre(true, false));
  EXPECT_EQ(static_cast<unsigned>(notifications.requestedOptions.at(0)), 6U);
}

}  // namespace
}  // namespace Hilalor
