#include "tests/screens/panel/PanelTest.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using ::testing::IsEmpty;

class CalendarViewTest : public PanelTest {
 protected:
  /// The page of the prayer list.
  [[nodiscard]] QString listedDay() const {
    return part<Text>(*part<PrayerTimesView>(*screen))->text();
  }

  [[nodiscard]] QString hoverText() const { return texts().at(2 + 7); }

  void hover(QWidget& widget) {
    QTest::mouseMove(&widget);
    settle();
  }
};

TEST_F(CalendarViewTest, IsLaidOutToThePoint) {
  show();
  EXPECT_EQ(screen->width(), 260);
  EXPECT_EQ(frame(cell(1)).left(), 12);
  EXPECT_EQ(frame(cell(28)).right() + 1, 260 - 12);
  EXPECT_EQ(frame(cell(8)).topLeft() - frame(cell(1)).topLeft(), QPoint(0, 42));
  EXPECT_EQ(frame(cell(2)).topLeft() - frame(cell(1)).topLeft(), QPoint(34, 0));
  EXPECT_EQ(cell(1).size(), QSize(32, 40));
  EXPECT_EQ(frame(*button("Previous month")).left(), 12 + 4);
  EXPECT_EQ(frame(*button("Next month")).right() + 1, 260 - 12 - 4);
  EXPECT_EQ(frame(*button("Quit Hilalor")).left(), 12);
  EXPECT_EQ(frame(*button("Settings")).right() + 1, 260 - 12);
  EXPECT_EQ(frame(*button("Settings")).bottom() + 1, screen->height() - 10);
}

TEST_F(CalendarViewTest, OnALowScreenDoesWithoutEmptyWeeksAndThenScrollsBetweenHeadAndFoot) {
  show();
  const int whole = screen->height();
  const auto fit = [this](int height) {
    screen->setGreatestHeight(height);
    screen->resize(screen->sizeHint());
    settle();
    return screen->height();
  };
  EXPECT_EQ(fit(whole - 1), whole - 42);
  EXPECT_EQ(fit(whole - 43), whole - 84) << "this month needs four weeks";
  EXPECT_EQ(fit(whole - 200), whole - 200);
  EXPECT_EQ(frame(*button("Settings")).bottom() + 1, screen->height() - 10);
  const int head = frame(titleBlock()).top();
  const auto isSeen = [this](QWidget& part) {
    const int foot = frame(*button("Settings")).top();
    return frame(part).top() > frame(titleBlock()).bottom() && frame(part).bottom() < foot;
  };
  EXPECT_TRUE(isSeen(cell(1)));
  QWheelEvent turn({130, 200}, screen->mapToGlobal(QPointF(130, 200)), {}, {0, -480}, {}, {},
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(part<ScrollColumn>(*screen)->viewport(), &turn);
  EXPECT_FALSE(isSeen(cell(1)));
  EXPECT_EQ(frame(titleBlock()).top(), head);
  screen->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  settle();
  EXPECT_TRUE(isSeen(cell(1)));
  // March 2026 has days in five weeks, May in six.
  EXPECT_EQ(fit(whole - 1), whole - 42);
  for (int month = 0; month < 3; ++month)
    click(button("Next month"));
  EXPECT_EQ(screen->sizeHint().height(), whole - 1);
  EXPECT_EQ(fit(whole), whole);
}

TEST_F(CalendarViewTest, ShowsTheMonthAndWhatIsDoneInIt) {
  show();
  EXPECT_EQ(texts().mid(0, 9), (QStringList{"February 2026", "Sha. – Ram. 1447", "Su", "Mo", "Tu",
                                            "We", "Th", "Fr", "Sa"}));
  EXPECT_EQ(listedDay(), "Sunday, 22 February 2026");
  click(button("Next month"));
  EXPECT_EQ(selection(), "March 2026");
  click(button("Previous month"));
  click(&cell(10));
  EXPECT_EQ(selection(), "10 February 2026");
  EXPECT_EQ(listedDay(), "Tuesday, 10 February 2026");
  doubleClick(cell(12));
  EXPECT_EQ(selection(), "10 February 2026");
  ASSERT_TRUE(part<NoteEditorView>(*screen));
  EXPECT_EQ(part<Text>(*part<NoteEditorView>(*screen))->text(), "February 12, 2026");
  doubleClick(titleBlock());
  EXPECT_FALSE(part<NoteEditorView>(*screen)) << "a press elsewhere closes it";
  EXPECT_EQ(texts().mid(0, 2), (QStringList{"2026", "double-click to exit"}));
  click(button("Next year"));
  EXPECT_EQ(selection(), "2027");
}

TEST_F(CalendarViewTest, ShowsTheOtherCalendarAndTheSectionsThatAreWanted) {
  settings().primaryCalendar = PrimaryCalendar::hijri;
  settings().showSecondaryCalendar = false;
  show();
  EXPECT_EQ(texts().mid(0, 2), (QStringList{"Ramadan 1447", "Su"}));
  EXPECT_TRUE(cell(5).day()->cell.isToday);
  settings().showPrayerTimes = false;
  settle();
  EXPECT_FALSE(part<PrayerTimesView>(*screen)->isVisible());
  settings().showCalendar = false;
  settle();
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_TRUE(button("Quit Hilalor"));
}

TEST_F(CalendarViewTest, TheHoverLineTellsOfTheDayUnderThePointer) {
  show();
  EXPECT_EQ(hoverText(), " ");
  hover(cell(18));
  EXPECT_EQ(hoverText(), "Ramadan 1447");
  hover(cell(22));
  EXPECT_EQ(hoverText(), "Saudi Founding Day");
  hover(cell(10));
  EXPECT_EQ(hoverText(), " ");
  settings().showSecondaryCalendar = false;
  settings().showHolidays = false;
  settle();
  hover(cell(18));
  EXPECT_EQ(texts().at(1 + 7), " ");
}

TEST_F(CalendarViewTest, ReportsItsSizeWhenItChanges) {
  show();
  ASSERT_EQ(sizes.size(), 1U) << "the size it was shown with is the one it wants";
  const Size whole = sizes.back();
  EXPECT_EQ(whole, (Size{260, static_cast<double>(screen->height())}));
  settings().showSunnahTimes = true;
  settle();
  EXPECT_GT(sizes.back().height, whole.height);
  settings().showSunnahTimes = false;
  settle();
  EXPECT_EQ(sizes.back(), whole);
}

TEST_F(CalendarViewTest, OffersToStopWhatPlays) {
  show();
  auto& manager = desktop.notificationManager();
  EXPECT_FALSE(button("Stop Athan"));
  manager.playingVoice.assign(AthanVoice::vemran);
  manager.playingDua.assign(true);
  settle();
  EXPECT_FALSE(button("Stop Supplication"));
  ASSERT_TRUE(button("Stop Athan"));
  manager.playingVoice.assign(std::nullopt);
  settle();
  ASSERT_TRUE(button("Stop Supplication"));
  click(button("Stop Supplication"));
  EXPECT_FALSE(manager.playingDua.value());
  EXPECT_TRUE(QTest::qWaitFor([&] { return button("Stop Supplication") == nullptr; }, 2000));
}

TEST_F(CalendarViewTest, ItsButtonsQuitAndOpenTheSettings) {
  show();
  EXPECT_EQ(button("Quit Hilalor")->toolTip(), "Quit Hilalor");
  EXPECT_EQ(button("Settings")->toolTip(), "Settings");
  click(button("Quit Hilalor"));
  EXPECT_EQ(desktop.application.terminations, 1);
  click(button("Settings"));
  EXPECT_EQ(settingsOpened, 1);
}

TEST_F(CalendarViewTest, TellsThatItsAdviceWasPutAway) {
  int putAway = 0;
  ScreenTest::show(std::make_unique<CalendarView>(panelContext(desktop), nullptr, nullptr,
                                                  Advice{"Look up", [&] { ++putAway; }}));
  EXPECT_TRUE(showsText("Look up"));
  click(button("Do not show this again"));
  EXPECT_FALSE(showsText("Look up"));
  EXPECT_EQ(putAway, 1);
}

TEST_F(CalendarViewTest, IsDrawnInTheColoursOfItsWindow) {
  show();
  const auto at = [this](const QWidget& part, QPoint within) {
    return screen->grab().toImage().pixelColor(frame(part).topLeft() + within);
  };
  EXPECT_EQ(at(*screen, {2, 2}), Colors::of(ColorScheme::light).windowBackground);
  EXPECT_EQ(at(cell(22), {4, 20}), QColor(34, 120, 70));
  screen->setPalette(windowPalette(ColorScheme::dark));
  EXPECT_EQ(at(*screen, {2, 2}), Colors::of(ColorScheme::dark).windowBackground);
  EXPECT_EQ(at(cell(22), {4, 20}), QColor(34, 120, 70));
}

}  // namespace
}  // namespace Hilalor::Screens
