#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "platform/Geometry.hpp"
#include "platform/Surfaces.hpp"
#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/DayTexts.hpp"
#include "rules/calendar/Weekdays.hpp"
#include "screens/panel/DayCellView.hpp"
#include "screens/panel/PanelContext.hpp"
#include "screens/panel/PrayerTimesView.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The panel under the item in the bar: a month, the day's prayer times, and a bar of buttons.
/// Where it may not be that high it does without weeks that have no days, and then scrolls what is
/// between the month's name and the buttons.
class CalendarView final : public Ui::View {
 public:
  /// `onSizeChange` is told the size that the panel wants; either may be empty.
  CalendarView(const PanelContext& context, std::function<void(Size)> onSizeChange,
               std::function<void()> onOpenSettings, std::optional<Advice> advice = std::nullopt);

  void setGreatestHeight(int height) override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  static constexpr std::size_t kCells = 42;

  // The parts, from top to bottom.
  [[nodiscard]] QWidget* headerRow();
  [[nodiscard]] QWidget* titleBlock();
  [[nodiscard]] QWidget* scrollingPart();
  [[nodiscard]] QWidget* month();
  [[nodiscard]] QWidget* secondaryRow();
  [[nodiscard]] QWidget* weekdayLabels();
  [[nodiscard]] QWidget* dayGrid();
  [[nodiscard]] DayCellView* dayCell(std::size_t index);
  [[nodiscard]] QWidget* hoverLine();
  [[nodiscard]] QWidget* prayerTimes();
  [[nodiscard]] QWidget* bottomBar();
  [[nodiscard]] Ui::Button* stopButton();

  void observe();
  void refreshPage();
  void showDays();
  [[nodiscard]] std::size_t neededWeeks() const;
  void fitWeeks();
  [[nodiscard]] std::optional<ShownDay> shownDay(std::size_t index) const;
  [[nodiscard]] QString title() const;
  [[nodiscard]] QString stopTitle() const;
  void stopSound();

  void hover(const QString& text);
  void resetModel();
  void showPrevious();
  void showNext();
  void toggleSelection(std::size_t index);
  void undoSelection();

  // The keyboard.
  [[nodiscard]] Date keyboardDay() const;
  void moveSelection(CalendarUnit unit, int amount);
  void select(Date day);
  void focusOn(Date day);
  void openNote();

  PanelContext context_;
  AppSettings& settings_ = context_.settings;
  PrayerNotificationManager& notificationManager_ = context_.notificationManager;
  NotesStore& notes_ = context_.notes;
  std::function<void()> onOpenSettings_;

  Date now_;       // As of the last redraw.
  TimeZone zone_;  // The machine's, in which the page's days begin; as of the last redraw.
  CalendarModel model_;
  bool yearMode_ = false;
  QString hoveredHoliday_;
  std::optional<Date> selectedDate_;

  /// The sections shown when the panel was last built; with others it begins anew.
  std::array<bool, 2> identity_;
  std::optional<Date> selectedBefore_;  // The last click.
  MonthPage page_;
  std::array<DayCellView*, kCells> cells_{};
  std::size_t shownWeeks_ = 6;
  std::optional<DaySpeech> speech_;  // While a screen reader listens.
  std::vector<Subscription> changes_;
};

}  // namespace Hilalor::Screens
