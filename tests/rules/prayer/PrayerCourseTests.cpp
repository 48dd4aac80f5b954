#include "rules/prayer/PrayerCourse.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"
#include "rules/bar/MenuBarTitle.hpp"
#include "rules/prayer/PrayerList.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "tests/datetime/Instants.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

constexpr Seconds kMinute{60};
constexpr Seconds kDay{86400};

/// What is called at a place from one local midnight to the next. The times were found from the
/// sun's altitude, apart from this program.
struct HardDay {
  const char* name;
  double latitude;
  double longitude;
  const char* zone;
  PrayerCalculationMethod method;
  std::chrono::year_month_day date;
  const char* called;
  const char* machineZone = nullptr;  ///< The place's own, unless another is given.
};

using Method = PrayerCalculationMethod;

const std::vector<HardDay> kHardDays{
    // The clock is a day ahead of the sun's.
    {"Apia", -13.8333, -171.7667, "Pacific/Apia", Method::muslimWorldLeague, 2026y / 11 / 17,
     "Fajr 04:32, Dhuhr 12:13, Asr 15:29, Maghrib 18:35, Isha 19:47"},
    // The noon passes midnight in UTC: the engine has no such day, has it twice, or with a night of
    // two days.
    {"Suva", -18.1416, 178.4419, "Pacific/Fiji", Method::muslimWorldLeague, 2026y / 9 / 20,
     "Fajr 04:46, Dhuhr 12:01, Asr 15:23, Maghrib 18:02, Isha 19:10"},
    {"Adak", 51.88, -176.6581, "America/Adak", Method::muslimWorldLeague, 2025y / 1 / 30,
     "Fajr 07:31, Dhuhr 14:01, Asr 16:08, Maghrib 18:33, Isha 20:23"},
    {"Anadyr", 64.73, 177.5, "Asia/Anadyr", Method::muslimWorldLeague, 2025y / 9 / 30,
     "Fajr 04:28, Dhuhr 12:01, Asr 14:39, Maghrib 17:43, Isha 19:31"},
    // Asr is half a minute after the sun's: the engine takes the sun's height of 0h UTC.
    {"Rotorua", -38.1368, 176.2497, "Pacific/Auckland", Method::muslimWorldLeague, 2024y / 10 / 19,
     "Fajr 04:50, Dhuhr 13:01, Asr 16:43, Maghrib 19:37, Isha 21:05"},
    // The evening's Isha comes after midnight, the next one too.
    {"Zurich", 47.3769, 8.5417, "Europe/Zurich", Method::muslimWorldLeague, 2026y / 6 / 11,
     "Isha 00:00, Fajr 02:31, Dhuhr 13:27, Asr 17:39, Maghrib 21:22"},
    // It would come at 01:54, when Fajr has come.
    {"Rovaniemi", 66.5039, 25.7294, "Europe/Helsinki", Method::ummAlQura, 2026y / 6 / 2,
     "Maghrib 00:24, Fajr 01:53, Dhuhr 13:15, Asr 18:10"},
    // Both are at 01:26; the second waits for the next look.
    {"Ushuaia", -54.8019, -68.303, "America/Argentina/Ushuaia", Method::muslimWorldLeague,
     2026y / 12 / 10, "Isha 01:26, Fajr 01:27, Dhuhr 13:27, Asr 17:55, Maghrib 22:02"},
    // Asr would come before noon.
    {"Tromso", 69.6492, 18.9553, "Europe/Oslo", Method::muslimWorldLeague, 2025y / 11 / 22,
     "Fajr 07:10, Dhuhr 11:31, Maghrib 12:44, Isha 15:50"},
    // Asr would come hours after sunset.
    {"Jokkmokk", 66.6066, 19.8229, "Europe/Stockholm", Method::muslimWorldLeague, 2025y / 12 / 19,
     "Fajr 07:26, Dhuhr 11:39, Maghrib 12:42, Isha 15:49"},
    // The method's minutes before sunrise begin before the evening's Maghrib.
    {"Antarctica", -65.45, 99.2, "Antarctica/Casey", Method::moonsightingCommittee, 2026y / 1 / 2,
     "Maghrib 00:29, Isha 01:44, Dhuhr 13:32, Asr 18:21"},
    // The night on which the machine's clock goes back, and the evening before, from which the same
    // time of the machine's next day is a day later at the place.
    {"RiyadhFromLondon", 24.6877, 46.7219, "Asia/Riyadh", Method::ummAlQura, 2026y / 10 / 25,
     "Fajr 04:37, Dhuhr 11:37, Asr 14:52, Maghrib 17:18, Isha 18:48", "Europe/London"}};

void PrintTo(const HardDay& day, std::ostream* out) {
  *out << day.name;
}

class HardDayTest : public testing::TestWithParam<HardDay> {
 protected:
  HardDayTest() {
    auto& settings = desktop.settings();
    settings.prayerNotificationsEnabled = true;
    settings.locationMode = LocationMode::manual;
    settings.calculationMethod = GetParam().method;
    settings.manualLatitude = GetParam().latitude;
    settings.manualLongitude = GetParam().longitude;
    settings.manualTimeZoneId = std::string(GetParam().zone);
  }

  /// The names of the marked rows, on yesterday's list and today's.
  [[nodiscard]] std::vector<std::string> marked(Date now) const {
    std::vector<std::string> names;
    for (const Date day : {now - kDay, now}) {
      for (const auto& row : prayerList(course, day, now).rows)
        if (row.isActive) names.emplace_back(displayName(row.listed));
    }
    return names;
  }

  [[nodiscard]] Date midnight() const {
    const auto& date = GetParam().date;
    return *local.date(fields(static_cast<int>(date.year()),
                              static_cast<int>(static_cast<unsigned>(date.month())),
                              static_cast<int>(static_cast<unsigned>(date.day()))));
  }

  SystemTimeZone machine{GetParam().machineZone ? GetParam().machineZone : GetParam().zone};
  FakePlatform desktop;
  PrayerCourse course{desktop.settings()};
  Calendar local{CalendarIdentifier::gregorian, *TimeZone::named(GetParam().zone)};
};

TEST_P(HardDayTest, TitleListAndAnnouncementsAgree) {
  auto& manager = desktop.notificationManager();
  std::string heard;
  std::vector<Date> minutes;
  const auto hearing = manager.activeAthanTitle.subscribe([&](const auto& title) {
    if (!title) return;
    const auto name = title->substr(0, title->find(' '));
    const Date now = desktop.loop.now();
    heard += (heard.empty() ? "" : ", ") + name + DateFormatter(" HH:mm", local).string(now);
    const Date before = now - kMinute;
    // The second of two in a minute was next together with the first.
    if (!minutes.empty() && minutes.back() == before) return;
    minutes.push_back(now);
    EXPECT_EQ(nextPrayerTitle(course, before).whole(), name + " 0m");
    EXPECT_THAT(marked(before), ElementsAre(name));
  });
  desktop.loop.setClock(midnight() + Seconds(7));
  for (int minute = 0; minute < 24 * 60; ++minute) {
    manager.checkAndNotify();
    desktop.loop.advance(kMinute);
  }
  EXPECT_EQ(heard, GetParam().called);
}

TEST_P(HardDayTest, TheTitleIsNeverADayAhead) {
  const Date start = midnight();
  for (int minute = -60; minute < 24 * 60; ++minute) {
    const auto next = course.next(start + kMinute * minute);
    ASSERT_TRUE(next);
    ASSERT_LT(next->time - start - kMinute * minute, Seconds(16 * 3600)) << minute;
  }
}

INSTANTIATE_TEST_SUITE_P(, HardDayTest, testing::ValuesIn(kHardDays),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace Hilalor
