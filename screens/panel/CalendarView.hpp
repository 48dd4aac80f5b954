#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/Geometry.hpp"
#include "platform/Signal.hpp"
#include "platform/Surfaces.hpp"
#include "rules/calendar/PanelModel.hpp"
#include "screens/panel/DayGrid.hpp"
#include "screens/panel/PanelContext.hpp"
#include "ui/Popover.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The panel under the item in the bar: a month, the day's prayer times, and a bar of buttons.
/// Where it may not be that high it does without weeks that have no days, and then scrolls what is
/// between the month's name and the buttons.
class CalendarView final : public Ui::View {
 public:
  /// `onSizeChange` is told the size that the panel wants; what is told may be empty.
  CalendarView(const PanelContext& context, std::function<void(Size)> onSizeChange,
               std::function<void()> onOpenSettings, std::optional<Advice> advice = std::nullopt,
               std::function<void()> onChoosePlace = {});
  ~CalendarView() override;

  void setGreatestHeight(int height) override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  // The parts, from top to bottom.
  [[nodiscard]] QWidget* header();
  [[nodiscard]] QWidget* scrollingPart();
  [[nodiscard]] QWidget* month();
  [[nodiscard]] QWidget* secondaryRow();
  [[nodiscard]] QWidget* dayGrid();
  [[nodiscard]] QWidget* hoverLine();
  [[nodiscard]] QWidget* prayerTimes();

  void showDays();
  [[nodiscard]] ShownDay shownDay(const DayCell& cell) const;
  void fitWeeks();
  void hover(const std::string& text);

  // The keyboard.
  void move(CalendarUnit unit, int amount);
  void focusOnKeyboardDay();
  void visit(Date day);
  void openNote();

  /// The note that the model has open.
  void showNote();
  void putAwayNote();

  PanelContext context_;
  std::function<void()> onChoosePlace_;
  const AppSettings& settings_;
  PanelModel model_;
  DayGrid* days_ = nullptr;
  Ui::Popover* note_ = nullptr;  // While it is open; belongs to the window.
  std::vector<Subscription> changes_;
};

}  // namespace Hilalor::Screens
