#pragma once

#include <string>
#include <vector>

#include "datetime/Date.hpp"
#include "rules/prayer/ListedTime.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// One line of the prayer list, as it is written.
struct PrayerRow {
  ListedTime listed = ListedTime::fajr;
  std::string time;  ///< "05:12 PM", or "17:12".
  bool isActive = false;
  bool isPast = false;

  friend bool operator==(const PrayerRow&, const PrayerRow&) = default;
};

/// The prayer times of a day at the place that they are computed for, all in that place's time
/// zone.
struct PrayerList {
  std::string gregorianDate;  ///< "Monday, 16 November 2026"
  std::string hijriDate;      ///< "6 Jumada II 1448"
  std::string placeName;
  std::vector<PrayerRow> rows;  ///< Empty where the sun gives no such day.

  friend bool operator==(const PrayerList&, const PrayerList&) = default;
};

/// The list of the civil day at the place that holds `displayDate`, as it is to be shown at the
/// instant `now`.
///
/// One row at most is active, over all days' lists: that of the prayer the title counts to. It is
/// on the list of the prayer's own day. After midnight with Isha still to come that is yesterday's
/// list, and today's marks nothing until Isha has come. After Isha nothing is marked until
/// midnight at the place: tomorrow's list never is. Sunrise and the Sunnah times never are.
[[nodiscard]] PrayerList prayerList(const PrayerCourse& course, Date displayDate, Date now);

}  // namespace Hilalor
