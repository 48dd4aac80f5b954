#include "screens/panel/DayCellView.hpp"

#include <gtest/gtest.h>

#include <QTest>

#include "ui/Colors.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

const QColor kGreen(34, 120, 70);
const QColor kYellow = Colors::of(ColorScheme::light).yellow;
const QColor kBackground = Colors::of(ColorScheme::light).windowBackground;

/// The colour as it is seen on the light background.
QColor on(const QColor& color, double opacity) {
  const auto mix = [&](int over, int under) {
    return static_cast<int>(std::lround(over * opacity + under * (1 - opacity)));
  };
  return {mix(color.red(), kBackground.red()), mix(color.green(), kBackground.green()),
          mix(color.blue(), kBackground.blue())};
}

bool isNear(const QColor& one, const QColor& other) {
  constexpr int kTolerance = 4;
  return std::abs(one.red() - other.red()) <= kTolerance &&
         std::abs(one.green() - other.green()) <= kTolerance &&
         std::abs(one.blue() - other.blue()) <= kTolerance;
}

class DayCellViewTest : public testing::Test {
 protected:
  DayCellViewTest() {
    view.setPalette(windowPalette(ColorScheme::light));
    view.setBackgroundRole(QPalette::Window);
    view.setAutoFillBackground(true);
  }

  [[nodiscard]] QImage drawn(const ShownDay& day) {
    view.show(day);
    return view.grab().toImage();
  }

  /// Inside the mark, clear of the numbers.
  static QColor fill(const QImage& image) { return image.pixelColor(4, 20); }

  /// On the mark's left edge: 30 wide in 32, so between the first and the second pixel.
  static QColor edge(const QImage& image) { return image.pixelColor(1, 20); }

  /// How many pixels have about that colour.
  static int count(const QImage& image, const QColor& color) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        found += isNear(image.pixelColor(x, y), color);
    return found;
  }

  DayCellView view{{.onSelect = {}, .onOpen = {}, .onHolidayHover = {}}};
  ShownDay ordinary{.cell = {.day = 17,
                             .date = {},
                             .secondaryDay = "",
                             .secondaryMonthName = "",
                             .holidayLabel = ""},
                    .hoverLabel = {},
                    .showsSecondary = false};
};

TEST_F(DayCellViewTest, FillsTodayAndWeekendsInTheirMarks) {
  EXPECT_EQ(drawn(ordinary).size(), QSize(32, 40));
  EXPECT_TRUE(isNear(fill(drawn(ordinary)), kBackground));

  ShownDay weekend = ordinary;
  weekend.cell.isWeekend = true;
  const QImage weekendImage = drawn(weekend);
  EXPECT_TRUE(isNear(fill(weekendImage), on(kGreen, 0.1)));
  EXPECT_TRUE(isNear(weekendImage.pixelColor(16, 1), kBackground)) << "the mark is 36 of 40 high";
  EXPECT_TRUE(isNear(weekendImage.pixelColor(16, 3), on(kGreen, 0.1)));

  weekend.cell.isToday = true;
  EXPECT_TRUE(isNear(fill(drawn(weekend)), kGreen));
}

TEST_F(DayCellViewTest, OutlinesByPriority) {
  struct Case {
    const char* what;
    bool isToday, isNewSecondary, hasNote, isSelected;
    std::optional<QColor> outline;
  };
  const Case cases[] = {
      {"nothing", false, false, false, false, std::nullopt},
      {"a note", false, false, true, false, kYellow},
      {"a new month", false, true, false, false, kGreen},
      {"a new month hides the note's", false, true, true, false, kGreen},
      {"a selection", false, false, false, true, kGreen},
      {"a selection hides the note's", false, false, true, true, kGreen},
      {"today hides them all", true, true, true, true, std::nullopt},
  };
  for (const auto& [what, isToday, isNewSecondary, hasNote, isSelected, outline] : cases) {
    SCOPED_TRACE(what);
    ShownDay day = ordinary;
    day.cell.isToday = isToday;
    day.cell.isNewSecondary = isNewSecondary;
    day.hasNote = hasNote;
    day.isSelected = isSelected;
    const QColor seen = edge(drawn(day));
    // An edge between two pixels is mixed with what lies behind; which colour it leans to is plain.
    const bool isYellow = seen.red() - seen.blue() > 40;
    const bool isGreen = seen.green() - seen.red() > 25;
    EXPECT_EQ(isYellow, outline == kYellow);
    EXPECT_EQ(isGreen && !isToday, outline == kGreen);
  }
}

TEST_F(DayCellViewTest, DotsMarkHolidayAndNote) {
  ShownDay day = ordinary;
  day.isSelected = true;  // So that no yellow but the dot's is left.
  day.hasNote = true;
  EXPECT_GE(count(drawn(day), kYellow), 1);
  day.hasNote = false;
  EXPECT_EQ(count(drawn(day), kYellow), 0);

  const QImage without = drawn(ordinary);
  ShownDay holiday = ordinary;
  holiday.cell.holidayLabel = "Eid Al-Fitr";
  EXPECT_GE(count(drawn(holiday), kGreen), 1);
  EXPECT_EQ(count(without, kGreen), 0);

  ShownDay today = ordinary;
  today.cell.isToday = true;
  today.hasNote = true;
  EXPECT_EQ(count(drawn(today), kYellow), 0) << "white on today";
}

TEST_F(DayCellViewTest, NumbersAreColouredByTheDay) {
  ShownDay weekend = ordinary;
  weekend.cell.isWeekend = true;
  EXPECT_GE(count(drawn(weekend), kGreen), 1);
  EXPECT_EQ(count(drawn(ordinary), kGreen), 0);

  ShownDay newMonth = ordinary;
  newMonth.isSelected = true;  // Its outline is green, and as wide whatever the numbers.
  newMonth.cell.secondaryDay = "1";
  newMonth.showsSecondary = true;
  const int plain = count(drawn(newMonth), kGreen);
  newMonth.cell.isNewSecondary = true;
  EXPECT_GT(count(drawn(newMonth), kGreen), plain);
}

TEST_F(DayCellViewTest, IsNamedAsItIsSpokenAndShowsNothingWithoutADay) {
  view.show(ordinary);
  view.show(std::nullopt);
  EXPECT_EQ(count(view.grab().toImage(), kBackground), 32 * 40);
}

}  // namespace
}  // namespace Hilalor::Screens
