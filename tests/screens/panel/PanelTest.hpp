#pragma once

#include <vector>

#include "screens/panel/CalendarView.hpp"
#include "screens/panel/NoteEditorView.hpp"
#include "screens/panel/PrayerTimesView.hpp"
#include "tests/screens/ScreenTest.hpp"
#include "ui/Containers.hpp"
#include "ui/DoubleClickable.hpp"

namespace Hilalor::Screens {

class PanelTest : public ScreenTest<CalendarView> {
 protected:
  void show() {
    ScreenTest::show(std::make_unique<CalendarView>(
        panelContext(desktop), [this](Size size) { sizes.push_back(size); },
        [this] { ++settingsOpened; }));
  }

  [[nodiscard]] QWidget& titleBlock() const { return *part<Ui::DoubleClickable>(*screen); }

  /// The cell of that day of the shown month.
  [[nodiscard]] DayCellView& cell(int day) const {
    for (DayCellView* found : parts<DayCellView>(*screen))
      if (found->day() && found->day()->cell.day == day) return *found;
    throw std::out_of_range("no such day");
  }

  /// The days that are drawn as selected, and the name of the month.
  [[nodiscard]] std::string selection() const {
    std::string days;
    for (const DayCellView* found : parts<DayCellView>(*screen))
      if (found->day() && found->day()->isSelected)
        days += std::to_string(found->day()->cell.day) + " ";
    return days + part<Ui::Text>(titleBlock())->text().toStdString();
  }

  std::vector<Size> sizes;
  int settingsOpened = 0;
};

}  // namespace Hilalor::Screens
