#include "rules/calendar/PanelModel.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "datetime/DateFormatter.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/SystemTimeZone.hpp"

namespace Hilalor {
namespace {

// A Sunday in Riyadh at 13:00: 22 February 2026, 5 Ramadan 1447.
constexpr Date kNow{1771754400};

class PanelModelTest : public testing::Test {
 protected:
  /// The day of the machine's calendar, as "2026-02-22".
  static std::string text(Date day) { return DateFormatter("yyyy-MM-dd").string(day); }

  static Date day(int number) {
    const Calendar gregorian(CalendarIdentifier::gregorian);
    return *gregorian.date({2026, 2, number, {}, {}, {}});
  }

  /// All that the user sees of it: "February 2026, selected 2026-02-10, note 2026-02-12".
  std::string seen() {
    model.refresh(Moment::at(desktop.loop.now()));
    auto seen = model.title();
    if (model.selectedDay()) seen += ", selected " + text(*model.selectedDay());
    if (model.noteDay()) seen += ", note " + text(*model.noteDay());
    if (!model.hoverText().empty()) seen += ", " + model.hoverText();
    EXPECT_EQ(text(model.listedMoment()), text(model.selectedDay().value_or(desktop.loop.now())));
    return seen;
  }

  SystemTimeZone zone{"Asia/Riyadh"};
  FakePlatform desktop{kNow};
  AppSettings& settings = desktop.settings();
  PanelModel model{settings, Moment::at(kNow)};
};

TEST_F(PanelModelTest, FollowsTheUsersHijriDayAtOnce) {
  // The day of March 2026 that is the Eid, on a page whose header is that.
  const auto eid = [&] {
    seen();
    model.showNext();
    seen();
    for (const auto& cell : model.page().cells) {
      if (cell && cell->holidayLabel == "Eid Al-Fitr") {
        EXPECT_EQ(cell->secondaryDay, "1");
        return text(cell->date) + ' ' + model.page().secondaryMonthHeader;
      }
    }
    return std::string("none");
  };
  EXPECT_EQ(eid(), "2026-03-20 Ram. – Shaw. 1447");
  settings.hijriDays = -2;
  EXPECT_EQ(eid(), "2026-03-22 Ram. – Shaw. 1447");
  settings.primaryCalendar = PrimaryCalendar::hijri;
  EXPECT_EQ(seen(), "Ramadan 1447");
  EXPECT_EQ(model.page().cells[5]->secondaryDay, "20");  // Of February, a Friday.
}

TEST_F(PanelModelTest, ShowsWhatWasDoneStepByStep) {
  using Unit = CalendarUnit;
  const struct {
    const char* deed;
    std::function<void()> act;
    const char* seen;
  } steps[] = {
      {"begin", [] {}, "February 2026"},
      {"next", [&] { model.showNext(); }, "March 2026"},
      {"previous", [&] { model.showPrevious(); }, "February 2026"},
      {"year mode", [&] { model.toggleYearMode(); }, "2026"},
      {"a year on", [&] { model.showNext(); }, "2027"},
      {"month mode", [&] { model.toggleYearMode(); }, "February 2027"},
      {"keys begin at the month's first", [&] { model.move(Unit::day, 1); },
       "February 2027, selected 2027-02-02"},
      {"today", [&] { model.returnToToday(kNow); }, "February 2026"},
      {"click", [&] { model.click(day(10)); }, "February 2026, selected 2026-02-10"},
      {"another", [&] { model.click(day(11)); }, "February 2026, selected 2026-02-11"},
      {"away", [&] { model.showNext(); }, "March 2026, selected 2026-02-11"},
      {"no note off the page", [&] { model.openNote(); }, "March 2026, selected 2026-02-11"},
      {"back by key", [&] { model.move(Unit::day, -1); }, "February 2026, selected 2026-02-10"},
      {"once of two", [&] { model.click(day(12)); }, "February 2026, selected 2026-02-12"},
      {"twice", [&] { model.doubleClick(day(12)); },
       "February 2026, selected 2026-02-10, note 2026-02-12"},
      {"close", [&] { model.closeNote(); }, "February 2026, selected 2026-02-10"},
      {"note by key", [&] { model.openNote(); },
       "February 2026, selected 2026-02-10, note 2026-02-10"},
      {"click again", [&] { model.click(day(10)); }, "February 2026, note 2026-02-10"},
      {"close", [&] { model.closeNote(); }, "February 2026"},
      {"keys begin at today", [&] { model.move(Unit::day, 7); }, "March 2026, selected 2026-03-01"},
      {"a month", [&] { model.move(Unit::month, -1); }, "February 2026, selected 2026-02-01"},
      {"a year", [&] { model.move(Unit::year, 1); }, "February 2027, selected 2027-02-01"},
      {"hover", [&] { model.hover("Eid"); }, "February 2027, selected 2027-02-01, Eid"},
      {"another calendar", [&] { settings.primaryCalendar = PrimaryCalendar::hijri; },
       "Ramadan 1447, Eid"},
      {"a month of it", [&] { model.move(Unit::month, 1); },
       "Shawwal 1447, selected 2026-03-24, Eid"},
      {"year mode", [&] { model.toggleYearMode(); }, "1447, selected 2026-03-24, Eid"},
      {"other sections", [&] { settings.showPrayerTimes = false; }, "Ramadan 1447"},
      {"click", [&] { model.doubleClick(day(9)); },
       "Ramadan 1447, selected 2026-02-10, note 2026-02-09"},
      {"past midnight", [&] { desktop.loop.advance(Seconds(12 * 3600)); },
       "Ramadan 1447, selected 2026-02-10, note 2026-02-09"},
      {"another zone", [&] { zone.set("Asia/Tokyo"); }, "Ramadan 1447, note 2026-02-09"},
  };
  for (const auto& [deed, act, expected] : steps) {
    act();
    EXPECT_EQ(seen(), expected) << deed;
  }
}

TEST_F(PanelModelTest, KnowsTodayHolidaysAndTheWeeksItTakes) {
  model.refresh(Moment::at(kNow));
  const auto today = [&] { return model.page().cells.at(21).value(); };
  EXPECT_TRUE(today().isToday);
  EXPECT_EQ(today().holidayLabel, "Saudi Founding Day");
  settings.showHolidays = false;
  for (const std::size_t weeks : {4U, 5U, 5U, 6U}) {
    model.refresh(Moment::at(kNow));
    EXPECT_EQ(model.neededWeeks(), weeks) << model.title();
    model.showNext();
  }
  model.returnToToday(kNow);
  model.refresh(Moment::at(kNow));
  EXPECT_EQ(today().holidayLabel, "");
}

TEST_F(PanelModelTest, TellsItsSections) {
  EXPECT_EQ(model.sections(), (PanelSections{.calendar = true, .prayerTimes = true}));
  settings.showCalendar = false;
  EXPECT_EQ(model.sections(), (PanelSections{.calendar = false, .prayerTimes = true}));
}

}  // namespace
}  // namespace Hilalor
