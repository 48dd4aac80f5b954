#include "datetime/DateFormatter.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/datetime/Instants.hpp"
#include "tests/fakes/SystemRegion.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

TEST(DateFormatter, WritesEnglishInTheCalendarsZoneWhateverTheRegion) {
  const SystemTimeZone system("Asia/Riyadh");
  const SystemRegion region("ar_EG.UTF-8");
  const Calendar hijri(CalendarIdentifier::islamicUmmAlQura);
  const Calendar inChatham(CalendarIdentifier::gregorian,
                           TimeZone::named("Pacific/Chatham").value());
  const auto instant = utc(2025, 3, 14, 21, 30);
  EXPECT_EQ(DateFormatter("yyyy-MM-dd HH:mm").string(instant), "2025-03-15 00:30");
  EXPECT_EQ(DateFormatter("h:mm a", inChatham).string(instant), "11:15 AM");
  EXPECT_EQ(DateFormatter("d MMM", hijri).string(instant), "15 Ram.");
  EXPECT_EQ(DateFormatter("MMMM yyyy", hijri).string(instant), "Ramadan 1446");
  EXPECT_EQ(DateFormatter::longStyle().string(instant), "March 15, 2025");
}

TEST(DateFormatter, FollowsTheMachinesZoneAndItsChangesOfClock) {
  SystemTimeZone system("Asia/Beirut");
  const DateFormatter formatter("HH:mm:ss");
  EXPECT_EQ(formatter.string(utc(2025, 3, 29, 21, 59, 59.999)), "23:59:59");
  EXPECT_EQ(formatter.string(utc(2025, 3, 29, 22)), "01:00:00");
  system.set("Asia/Kolkata");
  EXPECT_EQ(formatter.string(utc(2025, 3, 29, 22)), "03:30:00");
}

TEST(DateFormatter, WritesNothingForWhatIsNoInstant) {
  const DateFormatter formatter("yyyy");
  EXPECT_EQ(formatter.string({std::nan("")}), "");
  EXPECT_EQ(formatter.string({std::numeric_limits<double>::infinity()}), "");
  EXPECT_NE(formatter.string({1e12}), "");
  (void)formatter.string({1e300});
  (void)formatter.string({-1e300});
}

}  // namespace
}  // namespace Hilalor
