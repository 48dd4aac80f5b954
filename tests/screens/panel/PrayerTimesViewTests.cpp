#include "screens/panel/PrayerTimesView.hpp"

#include "tests/screens/panel/PanelTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

class PrayerTimesViewTest : public PanelTest {
 protected:
  PrayerTimesViewTest() {
    settings().showCalendar = false;
    desktop.locationManager().coordinate.assign(LocationCoordinate{24.6877, 46.7219});
    desktop.locationManager().locationName.assign("Riyadh");
  }

  /// The names of the rows on the accent colour.
  [[nodiscard]] QStringList highlighted() const {
    const QImage drawn = screen->grab().toImage();
    QStringList names;
    for (const Text* text : parts<Text>(*screen)) {
      const QPoint leftOfText = text->mapTo(screen.get(), QPoint(-3, text->height() / 2));
      if (text->isVisible() && drawn.pixelColor(leftOfText) == QColor(34, 120, 70) &&
          !text->text().contains(u':'))
        names.append(text->text());
    }
    return names;
  }
};

TEST_F(PrayerTimesViewTest, ListsTheDayAndItsTimes) {
  show();
  EXPECT_EQ(texts().mid(0, 5), (QStringList{"Sunday, 22 February 2026", "5 Ramadan 1447", "Riyadh",
                                            "Fajr", "05:04 AM"}));
  EXPECT_EQ(texts().size(), 3 + 2 * 6);
  EXPECT_EQ(highlighted(), QStringList{"Asr"});
}

TEST_F(PrayerTimesViewTest, TheHighlightMovesOnWhileThePanelIsOpen) {
  show();
  desktop.loop.advance(Seconds(3 * 3600.0));
  EXPECT_EQ(highlighted(), QStringList{"Maghrib"});
  desktop.loop.advance(Seconds(5 * 3600.0));
  EXPECT_EQ(highlighted(), QStringList{});
}

TEST_F(PrayerTimesViewTest, FollowsSettingsAndPlace) {
  show();
  settings().showSunnahTimes = true;
  settle();
  EXPECT_EQ(texts().mid(3 + 2 * 6),
            (QStringList{"Middle of Night", "11:28 PM", "Last Third", "01:19 AM"}));
  settings().manualLatitude = -6.2;
  settings().manualLongitude = 106.8;
  settings().manualLocationName = "Jakarta";
  settings().locationMode = LocationMode::manual;
  settle();
  EXPECT_EQ(texts().at(2), "Jakarta");
  settings().manualLatitude = 89;
  settle();
  EXPECT_EQ(texts().size(), 3) << "no rows in the polar night";
}

TEST_F(PrayerTimesViewTest, LeadsWhoNeverHadAPlaceToTheMap) {
  auto& found = desktop.locationManager().coordinate;
  found.assign(std::nullopt);
  int asked = 0;
  ScreenTest::show(std::make_unique<CalendarView>(panelContext(desktop), nullptr, nullptr,
                                                  std::nullopt, [&] { ++asked; }));
  const auto notice = [this] { return button("Riyadh: choose your place"); };
  click(notice());
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(showsText("Riyadh"));
  found.assign(LocationCoordinate{21.4, 39.8});
  settle();
  EXPECT_FALSE(notice());
  EXPECT_TRUE(showsText("Riyadh"));
  found.assign(std::nullopt);
  settings().choosePlace({-6.2, 106.8}, "Jakarta", *TimeZone::named("Asia/Jakarta"));
  settle();
  EXPECT_FALSE(notice());
  EXPECT_TRUE(showsText("Jakarta"));
}

TEST_F(PrayerTimesViewTest, LooksAtTheClockOnlyWhileItIsShown) {
  show();
  screen->hide();
  desktop.loop.advance(Seconds(3 * 3600.0));
  screen->show();
  EXPECT_EQ(highlighted(), QStringList{"Maghrib"}) << "at once when it is shown again";
}

}  // namespace
}  // namespace Hilalor::Screens
